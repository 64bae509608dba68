#pragma once
// Where each line of a comment-stripped demoscript came from in its file, so that a
// position in the stripped text can be named by file line and file offset.
#include <cstddef>
#include <string>
#include <vector>

class ScriptLines {
public:
    ScriptLines() = default;
    // The file's text; lines end at LF, CR or CRLF, as the comment stripper cuts them.
    explicit ScriptLines(const std::string& fileText);

    // Line (from 1) in the file of a position in the stripped text; 1 for an empty text.
    int line(std::size_t strippedPosition) const;
    // Byte offset in the file of a position in the stripped text.
    std::size_t fileOffset(std::size_t strippedPosition) const;

private:
    struct Kept {
        std::size_t stripped;  // where the line starts in the stripped text
        std::size_t file;      // where its first kept character is in the file
        int line;
    };
    std::vector<Kept> kept;
    const Kept* find(std::size_t strippedPosition) const;
};
