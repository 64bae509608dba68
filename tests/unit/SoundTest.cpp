// Music playback heard through SDL's real "disk" audio driver: whatever the mixer hands to
// the device is written to a file, which the tests read back and compare with the source.
#include <gtest/gtest.h>
#include <sndfile.h>

#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "demosys/QLNDemosys.h"
#include "demosys/Sound.h"
#include "demosys/SoundChannel.h"
#include "demosys/SoundSystem.h"
#include "support/TestSupport.h"

using testsupport::TempDir;

namespace {

const int rate = 44100;

void sox(const std::string& arguments) {
    std::string command = "sox " + arguments + " 2>&1";
    ASSERT_EQ(std::system(command.c_str()), 0) << command;
}

// Interleaved stereo 16-bit frames.
struct Pcm {
    std::vector<int16_t> samples;
    size_t frames() const { return samples.size() / 2; }
    int16_t left(size_t i) const { return samples[i * 2]; }
    int16_t right(size_t i) const { return samples[i * 2 + 1]; }
    bool silent(size_t i) const { return left(i) == 0 && right(i) == 0; }
    size_t firstSound(size_t from = 0) const {
        while (from < frames() && silent(from)) ++from;
        return from;
    }
    size_t lastSound() const {
        size_t i = frames();
        while (i > 0 && silent(i - 1)) --i;
        return i;  // one past the last frame with sound
    }
};

// Little-endian signed 16-bit raw file; mono is spread to both sides.
Pcm readRaw(const std::string& path, int channels) {
    std::string bytes = testsupport::readFile(path);
    Pcm pcm;
    size_t count = bytes.size() / 2;
    for (size_t i = 0; i < count; ++i) {
        auto lo = static_cast<uint8_t>(bytes[i * 2]);
        auto hi = static_cast<uint8_t>(bytes[i * 2 + 1]);
        auto value = static_cast<int16_t>(static_cast<uint16_t>(lo | (hi << 8)));
        pcm.samples.push_back(value);
        if (channels == 1) pcm.samples.push_back(value);
    }
    return pcm;
}

// Frames of out from outStart that equal ref from refStart, up to the first difference.
size_t matchingRun(const Pcm& out, size_t outStart, const Pcm& ref, size_t refStart) {
    size_t n = 0;
    while (outStart + n < out.frames() && refStart + n < ref.frames() &&
           out.left(outStart + n) == ref.left(refStart + n) && out.right(outStart + n) == ref.right(refStart + n)) {
        ++n;
    }
    return n;
}

// Pitch from upward zero crossings of left + right over [from, to).
double pitch(const Pcm& pcm, size_t from, size_t to) {
    int crossings = 0;
    size_t first = 0, last = 0;
    int previous = pcm.left(from) + pcm.right(from);
    for (size_t i = from + 1; i < to; ++i) {
        int value = pcm.left(i) + pcm.right(i);
        if (previous < 0 && value >= 0) {
            if (crossings == 0) first = i;
            last = i;
            ++crossings;
        }
        previous = value;
    }
    if (crossings < 2) return 0;
    return (crossings - 1) * static_cast<double>(rate) / static_cast<double>(last - first);
}

int peak(const Pcm& pcm, size_t from, size_t to) {
    int top = 0;
    for (size_t i = from; i < to; ++i) top = std::max({top, std::abs(pcm.left(i)), std::abs(pcm.right(i))});
    return top;
}

bool waitUntil(const std::function<bool()>& done) {
    auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!done()) {
        if (std::chrono::steady_clock::now() > deadline) return false;
        std::this_thread::sleep_for(std::chrono::microseconds(200));
    }
    return true;
}

bool channelDone() {
    return waitUntil([] { return !QLNDemosys::soundchannel->isPlaying(); });
}

// A four-channel ProTracker module: one 32-byte looped sine sample, C on row 0, the
// octave above on row 2, and a pattern break on row 3 that ends the song after four rows.
std::string trackerModule() {
    std::string mod(1084 + 1024, '\0');
    mod.replace(0, 8, "sinetest");
    auto put16 = [&](size_t at, unsigned value) {
        mod[at] = static_cast<char>(value >> 8);
        mod[at + 1] = static_cast<char>(value & 0xFF);
    };
    for (int s = 0; s < 31; ++s) {
        size_t header = 20 + s * 30;
        if (s == 0) {
            mod.replace(header, 4, "sine");
            put16(header + 22, 16);  // length in words
            mod[header + 25] = 64;   // volume
            put16(header + 26, 0);   // loop start
            put16(header + 28, 16);  // loop length in words
        } else {
            put16(header + 28, 1);  // no loop
        }
    }
    mod[950] = 1;     // song length
    mod[951] = 127;   // restart
    mod[952] = 0;     // pattern order
    mod.replace(1080, 4, "M.K.");
    auto note = [&](int row, unsigned sample, unsigned period, unsigned effect, unsigned parameter) {
        size_t cell = 1084 + row * 16;  // channel 1
        mod[cell] = static_cast<char>((sample & 0xF0) | ((period >> 8) & 0x0F));
        mod[cell + 1] = static_cast<char>(period & 0xFF);
        mod[cell + 2] = static_cast<char>(((sample & 0x0F) << 4) | effect);
        mod[cell + 3] = static_cast<char>(parameter);
    };
    note(0, 1, 214, 0, 0);
    note(2, 1, 107, 0, 0);
    note(3, 0, 0, 0xD, 0);
    for (int i = 0; i < 32; ++i) {
        mod.push_back(static_cast<char>(std::lround(127 * std::sin(2 * M_PI * i / 32))));
    }
    return mod;
}

class SoundTest : public ::testing::Test {
protected:
    void SetUp() override {
        releaseSound();
        QLNDemosys::music = false;
        QLNDemosys::message.clear();
        setenv("SDL_AUDIODRIVER", "disk", 1);
        setenv("SDL_DISKAUDIODELAY", "0", 1);
        newOutput();
    }

    void TearDown() override {
        releaseSound();
        EXPECT_EQ(SDL_WasInit(SDL_INIT_AUDIO), 0u);
        unsetenv("SDL_AUDIODRIVER");
        unsetenv("SDL_DISKAUDIOFILE");
        unsetenv("SDL_DISKAUDIODELAY");
    }

    static void releaseSound() {
        delete QLNDemosys::sound;
        QLNDemosys::sound = nullptr;
        QLNDemosys::soundchannel = nullptr;
        delete QLNDemosys::soundsystem;
        QLNDemosys::soundsystem = nullptr;
    }

    // The next device opening writes into a fresh file.
    void newOutput() {
        output = dir.file("device-" + std::to_string(outputs++) + ".raw");
        setenv("SDL_DISKAUDIOFILE", output.c_str(), 1);
    }

    // Waits while the device takes a few more buffers (about a tenth of a second of sound).
    void letDeviceRun() const {
        std::error_code ignored;
        auto size = [&] { return std::filesystem::file_size(output, ignored); };
        uintmax_t before = size();
        EXPECT_TRUE(waitUntil([&] { return size() >= before + 4 * 4096 + 4096; }));
    }

    // What the device was given; read after the device is closed.
    Pcm heard() const { return readRaw(output, 2); }

    // White noise made by sox at the device rate, and the same frames as raw reference.
    std::string noise(const std::string& name, double seconds, int channels, double volume, Pcm& reference) {
        std::string wav = dir.file(name + ".wav");
        std::string raw = dir.file(name + ".raw");
        sox("-n -r " + std::to_string(rate) + " -c " + std::to_string(channels) + " -b 16 " + wav + " synth " +
            std::to_string(seconds) + " whitenoise vol " + std::to_string(volume));
        sox(wav + " -t raw -e signed -b 16 -L " + raw);
        reference = readRaw(raw, channels);
        return wav;
    }

    std::string tone(const std::string& file, int fileRate, double seconds, int frequency) {
        std::string path = dir.file(file);
        sox("-n -r " + std::to_string(fileRate) + " -c 1 " + path + " synth " + std::to_string(seconds) + " sine " +
            std::to_string(frequency) + " vol 0.5");
        return path;
    }

    // Plays a whole file from the start to its end and returns what the device got.
    Pcm playThrough(const std::string& file) {
        newOutput();
        EXPECT_TRUE(QLNDemosys::soundInitPlay(file.c_str())) << file << ": " << QLNDemosys::message;
        if (!QLNDemosys::soundchannel) return Pcm();
        EXPECT_TRUE(channelDone());
        EXPECT_FALSE(QLNDemosys::soundShutdown());
        return heard();
    }

    TempDir dir;
    std::string output;
    int outputs = 0;
};

TEST_F(SoundTest, LosslessFilesReachTheDeviceSampleForSample) {
    Pcm reference;
    std::string wav = noise("noise", 1.0, 2, 0.5, reference);
    std::string flac = dir.file("noise.flac");
    sox(wav + " " + flac);
    ASSERT_EQ(reference.frames(), 44100u);

    for (const std::string& file : {wav, flac}) {
        SCOPED_TRACE(file);
        newOutput();
        ASSERT_TRUE(QLNDemosys::soundInitPlay(file.c_str()));
        EXPECT_TRUE(QLNDemosys::music);
        EXPECT_EQ(QLNDemosys::message, "");
        EXPECT_EQ(QLNDemosys::sound->getLength(), 1000u);
        ASSERT_TRUE(channelDone());
        EXPECT_EQ(QLNDemosys::soundchannel->getPosition(), 1000u);
        letDeviceRun();
        EXPECT_FALSE(QLNDemosys::soundShutdown());
        EXPECT_EQ(QLNDemosys::soundsystem, nullptr);

        Pcm out = heard();
        size_t start = out.firstSound();
        size_t refStart = reference.firstSound();
        ASSERT_GE(start, refStart);
        start -= refStart;
        EXPECT_EQ(matchingRun(out, start, reference, 0), reference.frames());
        // Then silence: the sound is played once.
        size_t end = start + reference.frames();
        EXPECT_GT(out.frames(), end + 1000);
        EXPECT_EQ(out.firstSound(end), out.frames());
    }
}

TEST_F(SoundTest, SeeksLandOnTheFrameOfTheMillisecondAndStillReturnFalse) {
    Pcm reference;
    std::string wav = noise("long", 95.0, 1, 0.5, reference);
    ASSERT_TRUE(QLNDemosys::soundInit(wav.c_str()));
    EXPECT_TRUE(QLNDemosys::music);
    EXPECT_EQ(QLNDemosys::soundchannel, nullptr);  // loaded, not playing

    EXPECT_FALSE(QLNDemosys::soundPlay(1234));
    EXPECT_EQ(QLNDemosys::message, "");
    ASSERT_TRUE(waitUntil([] { return QLNDemosys::soundchannel->getPosition() >= 1500; }));
    SoundChannel* first = QLNDemosys::soundchannel;
    EXPECT_FALSE(QLNDemosys::soundPlay(90000));
    EXPECT_EQ(QLNDemosys::message, "");
    EXPECT_EQ(QLNDemosys::soundchannel, first);  // the same channel was reused
    ASSERT_TRUE(waitUntil([] { return QLNDemosys::soundchannel->getPosition() >= 91000; }));
    EXPECT_TRUE(QLNDemosys::soundStop());
    EXPECT_FALSE(QLNDemosys::soundchannel->isPlaying());
    uint64_t stoppedAt = QLNDemosys::soundchannel->getFramePosition();
    unsigned int stoppedMs = QLNDemosys::soundchannel->getPosition();
    EXPECT_LE(stoppedMs, 95000u);
    // A stopped channel keeps answering; a second stop is harmless.
    EXPECT_TRUE(QLNDemosys::soundStop());
    letDeviceRun();
    EXPECT_FALSE(QLNDemosys::soundShutdown());

    Pcm out = heard();
    const size_t firstSeek = 1234 * rate / 1000;    // 54419
    const size_t secondSeek = 90000u * rate / 1000;  // 3969000
    size_t refFirst = reference.firstSound(firstSeek);
    size_t start = out.firstSound();
    size_t run = matchingRun(out, start, reference, refFirst);
    EXPECT_GE(run, static_cast<size_t>(250 * rate / 1000));
    // Normally the jump follows at once; on a starved machine the first run may have
    // reached the end, and silence lies between.
    size_t jump = out.firstSound(start + run);
    size_t heardAfterJump = matchingRun(out, jump, reference, secondSeek);
    EXPECT_EQ(heardAfterJump, stoppedAt - secondSeek);
    // What was heard and the reported position agree to the millisecond.
    EXPECT_EQ(stoppedMs, static_cast<unsigned int>(((secondSeek + heardAfterJump + 1) * 1000 - 1) / rate));
    EXPECT_EQ(out.firstSound(jump + heardAfterJump), out.frames());
}

TEST_F(SoundTest, PositionRoundTripsEveryMillisecond) {
    Pcm reference;
    std::string wav = noise("short", 1.0, 2, 0.5, reference);
    ASSERT_TRUE(QLNDemosys::soundInitPlay(wav.c_str()));
    SoundChannel* channel = QLNDemosys::soundchannel;
    {
        SoundSystem::Lock hold(QLNDemosys::soundsystem);  // the mixer waits meanwhile
        for (unsigned int ms = 0; ms <= 1000; ++ms) {
            ASSERT_TRUE(channel->setPosition(ms));
            ASSERT_EQ(channel->getFramePosition(), uint64_t(ms) * rate / 1000);
            ASSERT_EQ(channel->getPosition(), ms);
        }
        // Past the end the channel goes silent at the end instead of starting over.
        EXPECT_FALSE(channel->setPosition(1001));
        EXPECT_EQ(channel->getPosition(), 1000u);
        EXPECT_FALSE(channel->isPlaying());
    }
    EXPECT_FALSE(QLNDemosys::soundPlay(5000));
    EXPECT_EQ(QLNDemosys::message, "Failed to play sound from current position!");
    EXPECT_FALSE(QLNDemosys::soundchannel->isPlaying());
    EXPECT_FALSE(QLNDemosys::soundShutdown());
}

TEST_F(SoundTest, PlayingAgainMixesASecondVoiceOverTheFirst) {
    Pcm reference;
    std::string wav = noise("quiet", 2.0, 2, 0.3, reference);
    ASSERT_TRUE(QLNDemosys::soundInit(wav.c_str()));
    SoundChannel* first;
    SoundChannel* second;
    {
        // Both voices start in the same mixer pass, the first already 300 ms in, so the
        // offset between them does not depend on how the threads are scheduled.
        SoundSystem::Lock hold(QLNDemosys::soundsystem);
        ASSERT_TRUE(QLNDemosys::soundPlay());
        first = QLNDemosys::soundchannel;
        ASSERT_TRUE(first->setPosition(300));
        ASSERT_TRUE(QLNDemosys::soundPlay());
        second = QLNDemosys::soundchannel;
    }
    EXPECT_NE(first, second);
    ASSERT_TRUE(waitUntil([&] { return !first->isPlaying() && !second->isPlaying(); }));
    EXPECT_EQ(QLNDemosys::soundsystem->getChannelsPlaying(), 0);
    letDeviceRun();
    EXPECT_FALSE(QLNDemosys::soundShutdown());

    Pcm out = heard();
    const size_t offset = 300 * rate / 1000;
    size_t start = out.firstSound();
    size_t wrong = 0;
    for (size_t i = 0; i < reference.frames(); ++i) {
        for (int side = 0; side < 2; ++side) {
            int expected = reference.samples[i * 2 + side];
            if (i + offset < reference.frames()) expected += reference.samples[(i + offset) * 2 + side];
            expected = std::clamp(expected, -32768, 32767);
            if (out.samples[(start + i) * 2 + side] != expected) ++wrong;
        }
    }
    EXPECT_EQ(wrong, 0u);
    EXPECT_EQ(out.firstSound(start + reference.frames()), out.frames());
}

TEST_F(SoundTest, OtherRatesAreResampledToTheDevice) {
    for (int fileRate : {22050, 48000}) {
        SCOPED_TRACE(fileRate);
        Pcm out = playThrough(tone("tone" + std::to_string(fileRate) + ".wav", fileRate, 0.5, 1000));
        size_t start = out.firstSound(), end = out.lastSound();
        EXPECT_NEAR(static_cast<double>(end - start), 0.5 * rate, 50);
        EXPECT_NEAR(pitch(out, start, end), 1000.0, 5.0);
        EXPECT_NEAR(peak(out, start, end), 0.5 * 32768, 0.03 * 32768);
    }
}

TEST_F(SoundTest, CompressedAndMonoFilesPlayAtTheirPitchAndLength) {
    std::vector<std::string> files = {tone("tone.ogg", rate, 1.0, 440), tone("tone.flac", rate, 1.0, 440)};
    // sox here has no MP3 encoder; libsndfile writes one.
    std::string mp3 = dir.file("tone.mp3");
    SF_INFO info{};
    info.samplerate = rate;
    info.channels = 1;
    info.format = SF_FORMAT_MPEG | SF_FORMAT_MPEG_LAYER_III;
    SNDFILE* writer = sf_open(mp3.c_str(), SFM_WRITE, &info);
    ASSERT_NE(writer, nullptr) << sf_strerror(nullptr);
    std::vector<short> sine(rate);
    for (int i = 0; i < rate; ++i) sine[i] = static_cast<short>(16384 * std::sin(2 * M_PI * 440 * i / rate));
    sf_writef_short(writer, sine.data(), rate);
    sf_close(writer);
    files.push_back(mp3);

    for (const std::string& file : files) {
        SCOPED_TRACE(file);
        Pcm out = playThrough(file);
        size_t start = out.firstSound(), end = out.lastSound();
        EXPECT_NEAR(static_cast<double>(end - start), rate, 0.08 * rate);
        EXPECT_NEAR(pitch(out, start, end), 440.0, 4.0);
        EXPECT_NEAR(peak(out, start, end), 16384, 0.1 * 16384);
        // Mono is heard on both sides alike.
        size_t middle = (start + end) / 2;
        EXPECT_EQ(out.left(middle), out.right(middle));
    }
}

TEST_F(SoundTest, TrackerModulePlaysItsNotesInOrder) {
    std::string mod = dir.write("sinetest.mod", trackerModule());
    Pcm out = playThrough(mod);
    size_t start = out.firstSound(), end = out.lastSound();
    // Four rows at the default speed 6 and tempo 125: 480 ms at full strength, then the
    // renderer fades the last note out briefly.
    size_t row = static_cast<size_t>(0.12 * rate);
    EXPECT_GE(end - start, 4 * row);
    EXPECT_LE(end - start, 5 * row);
    int full = peak(out, start, start + row);
    EXPECT_GT(full, 8000);
    EXPECT_NEAR(peak(out, start + 3 * row, start + 4 * row - 50), full, full / 50);
    EXPECT_LT(peak(out, start + 4 * row + row / 2, end), full / 2);
    EXPECT_NEAR(pitch(out, start + row / 4, start + 2 * row - row / 4), 518.0, 10.0);
    EXPECT_NEAR(pitch(out, start + 2 * row + row / 4, end - row / 4), 1036.0, 20.0);
}

TEST_F(SoundTest, FailuresLeaveTheirMessages) {
    EXPECT_FALSE(QLNDemosys::soundPlay());
    EXPECT_EQ(QLNDemosys::message, "Failed to play sound!");
    QLNDemosys::message.clear();
    EXPECT_FALSE(QLNDemosys::soundPlay(1000));
    EXPECT_EQ(QLNDemosys::message, "Failed to play sound!");
    EXPECT_FALSE(QLNDemosys::soundStop());
    EXPECT_EQ(QLNDemosys::message, "Failed to stop playing sound!");
    EXPECT_TRUE(QLNDemosys::soundShutdown());
    EXPECT_EQ(QLNDemosys::message, "Failed to shut down FMOD!");

    Pcm reference;
    std::string wav = noise("good", 0.1, 2, 0.5, reference);
    std::string text = dir.write("notes.txt", "This is not music.\n");
    std::string truncated = dir.write("cut.wav", testsupport::readFile(wav).substr(0, 30));
    std::string missing = dir.file("missing.ogg");
    for (const std::string& file : {text, truncated, missing}) {
        SCOPED_TRACE(file);
        for (auto start : {&QLNDemosys::soundInit, &QLNDemosys::soundInitPlay}) {
            QLNDemosys::message.clear();
            newOutput();
            std::string printed = testsupport::captureStdout([&] { EXPECT_FALSE(start(file.c_str())); });
            EXPECT_EQ(printed, "");
            EXPECT_EQ(QLNDemosys::message, "Failed to load soundfile!");
            EXPECT_FALSE(QLNDemosys::music);
            EXPECT_EQ(QLNDemosys::sound, nullptr);
            EXPECT_FALSE(QLNDemosys::soundPlay());
            EXPECT_EQ(QLNDemosys::message, "Failed to play sound!");
        }
    }
    // The device still works for a good file after all that.
    newOutput();
    ASSERT_TRUE(QLNDemosys::soundInit(wav.c_str()));
    EXPECT_TRUE(QLNDemosys::music);
    // Loaded but never played: there is no channel to stop, so nothing is released.
    EXPECT_FALSE(QLNDemosys::soundStop());
    EXPECT_TRUE(QLNDemosys::soundShutdown());
    EXPECT_NE(QLNDemosys::soundsystem, nullptr);
}

TEST_F(SoundTest, NoAudioDeviceFailsToInitialiseWithoutCrashing) {
    setenv("SDL_AUDIODRIVER", "no-such-driver", 1);
    Pcm reference;
    std::string wav = noise("unheard", 0.1, 2, 0.5, reference);
    std::string printed = testsupport::captureStdout([&] { EXPECT_FALSE(QLNDemosys::soundInit(wav.c_str())); });
    EXPECT_EQ(printed, "Failed to initialize FMOD!\n");
    EXPECT_EQ(QLNDemosys::message, "Failed to initialize FMOD!");
    printed = testsupport::captureStdout([&] { EXPECT_FALSE(QLNDemosys::soundInitPlay(wav.c_str())); });
    EXPECT_EQ(printed, "Failed to initialize FMOD!\n");
    EXPECT_FALSE(QLNDemosys::music);
    EXPECT_EQ(QLNDemosys::soundsystem, nullptr);
    EXPECT_FALSE(QLNDemosys::soundPlay());
    EXPECT_EQ(QLNDemosys::message, "Failed to play sound!");
    EXPECT_FALSE(QLNDemosys::soundStop());
    QLNDemosys::soundUpdate();
}

TEST_F(SoundTest, UpdateNoticesADeviceClosedElsewhere) {
    Pcm reference;
    std::string wav = noise("cut", 1.0, 2, 0.5, reference);
    ASSERT_TRUE(QLNDemosys::soundInitPlay(wav.c_str()));
    QLNDemosys::soundUpdate();
    EXPECT_TRUE(QLNDemosys::soundsystem->isOpen());
    SDL_CloseAudio();
    QLNDemosys::soundUpdate();
    EXPECT_FALSE(QLNDemosys::soundsystem->isOpen());
    EXPECT_FALSE(QLNDemosys::soundchannel->isPlaying());
    EXPECT_FALSE(QLNDemosys::soundStop());
    EXPECT_EQ(QLNDemosys::message, "Failed to stop playing sound!");
}

}  // namespace
