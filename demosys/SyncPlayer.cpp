#include "demosys/SyncPlayer.h"

#include <charconv>
#include <filesystem>

#include "demosys/ActionPool.h"
#include "demosys/Effect.h"
#include "demosys/ParameterGroup.h"
#include "demosys/QLNDemosys.h"
#include "demosys/QLNTime.h"
#include "demosys/SyncTrack.h"
#include "demosys/SyncTrackFile.h"
#include "qlnutils/QLNUtils.h"
#include "qlnutils/StringUtils.h"

struct SyncPlayer::Bound {
    SyncBinding binding;
    Effect* effect;
    std::vector<SyncTrack*> tracks;
    std::vector<std::string> keys;  // "p2", "p3", ...
    ParameterGroup arguments;
};

SyncPlayer::SyncPlayer(double beatsPerMinute, int rowsPerBeat, std::string tracksPrefix)
    : rowsPerSecond(beatsPerMinute / 60.0 * rowsPerBeat), prefix(std::move(tracksPrefix)) {}

SyncPlayer::~SyncPlayer() = default;

static std::string blockError(const std::string& key, const std::string& value, const std::string& problem) {
    return "Error while parsing demoscript!\nBlock : 'sync'\nParameter :  '" + key + "'\nValue :  '" + value +
           "'\nError :  " + problem + "\n";
}

SyncPlayer* SyncPlayer::create(ParameterGroup* block, std::string& error) {
    auto value = [block](const char* key) { return block->exist(key) ? block->getParameter(key) : std::string(); };
    std::string bpm = value("bpm"), rpb = value("rpb"), prefix = value("tracks");
    if ((!StringUtils::isFloat(bpm) && !StringUtils::isInt(bpm)) || !(QLNUtils::string2Float(bpm) > 0)) {
        error = blockError("bpm", bpm, "beats per minute must be a number above 0");
        return nullptr;
    }
    if (!StringUtils::isInt(rpb) || QLNUtils::string2Int(rpb) <= 0) {
        error = blockError("rpb", rpb, "rows per beat must be an int above 0");
        return nullptr;
    }
    if (prefix.empty()) {
        error = blockError("tracks", prefix, "the path prefix of the track files is missing");
        return nullptr;
    }
    return new SyncPlayer(QLNUtils::string2Float(bpm), QLNUtils::string2Int(rpb), prefix);
}

std::string SyncPlayer::valueText(double value) {
    char text[64];
    auto result = std::to_chars(text, text + sizeof text, static_cast<float>(value), std::chars_format::fixed);
    std::string written(text, result.ec == std::errc() ? result.ptr : text);
    if (written.find('.') == std::string::npos) written += ".0";
    return written;
}

SyncTrack* SyncPlayer::findTrack(const std::string& name) {
    for (auto& track : tracks)
        if (track->getName() == name) return track.get();
    return nullptr;
}

void SyncPlayer::bind(const SyncBinding& binding, Effect* effect) {
    auto bound = std::make_unique<Bound>();
    bound->binding = binding;
    bound->effect = effect;
    bound->arguments.addParameter("object", binding.object);
    bound->arguments.addParameter("method", binding.method);
    for (size_t i = 0; i < binding.tracks.size(); ++i) {
        SyncTrack* track = findTrack(binding.tracks[i]);
        if (track == nullptr) {
            tracks.push_back(std::make_unique<SyncTrack>(binding.tracks[i]));
            track = tracks.back().get();
        }
        bound->tracks.push_back(track);
        bound->keys.push_back("p" + std::to_string(i + 2));
    }
    bindings.push_back(std::move(bound));
}

bool SyncPlayer::loadTracks(std::string& error) {
    for (auto& track : tracks) {
        std::string path = SyncTrackFile::fileName(prefix, track->getName());
        std::string problem;
        if (SyncTrackFile::read(path, *track, problem)) continue;
        error = "Error loading sync track!\nTrack : '" + track->getName() + "'\nFile : '" + path + "'\nError : " +
                problem + "\nProbable cause : The track was never saved from the sync editor, the tracks prefix " +
                "of sync { } is wrong, or the file is damaged\n";
        return false;
    }
    return true;
}

bool SyncPlayer::saveTracks(std::string& error) {
    for (auto& track : tracks) {
        std::string path = SyncTrackFile::fileName(prefix, track->getName());
        std::error_code ignored;
        std::filesystem::path folder = std::filesystem::path(path).parent_path();
        if (!folder.empty()) std::filesystem::create_directories(folder, ignored);
        if (!SyncTrackFile::write(path, *track)) {
            error = "Could not write sync track '" + track->getName() + "' to '" + path + "'";
            return false;
        }
    }
    return true;
}

double SyncPlayer::getRow(unsigned int milliseconds) const { return milliseconds / 1000.0 * rowsPerSecond; }

unsigned int SyncPlayer::getMilliseconds(unsigned int row) const {
    double milliseconds = row / rowsPerSecond * 1000.0 + 0.5;
    return milliseconds < 4294967295.0 ? static_cast<unsigned int>(milliseconds) : 4294967295u;
}

void SyncPlayer::update(unsigned int milliseconds) {
    double row = getRow(milliseconds);
    for (auto& bound : bindings) {
        if (milliseconds < bound->binding.start || bound->effect == nullptr) continue;
        if (QLNDemosys::action == nullptr || !QLNDemosys::action->isRunning(bound->binding.object)) continue;
        bound->arguments.addParameter("p1", QLNTime(milliseconds).toString());
        for (size_t i = 0; i < bound->tracks.size(); ++i)
            bound->arguments.addParameter(bound->keys[i], valueText(bound->tracks[i]->getValue(row)));
        bound->effect->setModifyTime(milliseconds);
        bound->effect->modify(bound->binding.method, &bound->arguments);
    }
}

size_t SyncPlayer::countTracks() const { return tracks.size(); }

SyncTrack* SyncPlayer::getTrack(size_t index) { return index < tracks.size() ? tracks[index].get() : nullptr; }

const std::string& SyncPlayer::getPrefix() const { return prefix; }
