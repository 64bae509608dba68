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

TEST_F(SoundTest, OtherRatesAndMonoAreResampledToTheDeviceKeepingTheirLength) {
    std::string file = dir.file("tone.wav");
    sox("-n -r 22050 -c 1 " + file + " synth 0.5 sine 1000 vol 0.5");
    ASSERT_TRUE(QLNDemosys::soundInitPlay(file.c_str())) << QLNDemosys::message;
    ASSERT_TRUE(channelDone());
    letDeviceRun();
    QLNDemosys::soundShutdown();
    Pcm out = heard();
    size_t start = out.firstSound(), end = out.lastSound();
    EXPECT_NEAR(double(end - start), 0.5 * rate, 50);
    EXPECT_EQ(out.left((start + end) / 2), out.right((start + end) / 2)) << "mono is heard on both sides";
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

}  // namespace
