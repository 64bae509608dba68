#pragma once
// Writes the part of the decoded music that belongs to a range of frames as a WAV file,
// starting at the range's first frame to the sample.
#include <cstdint>
#include <string>

class Sound;

class AudioSegment {
public:
    // The sample frame at which video frame k starts: round(k * rate / fps).
    static int64_t sampleAt(int64_t frame, int rate, int fps);
    // Frames [firstFrame, endFrame) of the video; silence where the music has ended.
    static bool write(const Sound& sound, const std::string& path, int64_t firstFrame, int64_t endFrame, int fps,
                      std::string& error);
    // Joins the range files audio_FIRST-LAST.wav of a folder, which must follow each other
    // without a gap, into one file: the same samples as one capture of the whole span.
    static bool join(const std::string& dir, const std::string& path, std::string& error);
};
