#include "qlnutils/File.h"

#include <algorithm>
#include <cstring>
#include <exception>
#include <filesystem>
#include <iterator>

File::File(const char* name, int mode) : filename(name ? name : ""), mode(mode) { open(); }

File::File(const std::string& name, int mode) : filename(name), mode(mode) { open(); }

File::~File() {
    if (stream && stream->is_open()) stream->close();
}

void File::open() {
    std::ios::openmode how = std::ios::binary;
    switch (mode) {
        case APPEND: how |= std::ios::out | std::ios::app; break;
        case WRITE:
        case OVERWRITE: how |= std::ios::out | std::ios::trunc; break;
        default: how |= std::ios::in; break;
    }
    // A folder opens like a file but fails on the first read: it is no file to us.
    std::error_code ignored;
    if (std::filesystem::is_directory(filename, ignored)) {
        existsFlag = false;
        return;
    }
    auto opened = std::make_unique<std::fstream>(filename, how);
    existsFlag = opened->is_open();
    if (!existsFlag) return;
    stream = std::move(opened);
    if (mode == READ) {
        try {
            data.assign(std::istreambuf_iterator<char>(*stream), std::istreambuf_iterator<char>());
        } catch (const std::ios_base::failure&) {
            data.clear();  // an unreadable file reads as empty
        }
        size = static_cast<unsigned int>(data.size());
    }
}

bool File::readWholeFile(const std::string& name, std::string& text) {
    try {
        File file(name, READ);
        if (!file.exists()) return false;
        text = file.getAsString();
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

bool File::exists() const { return existsFlag; }

std::string File::getFilename() const { return filename; }

unsigned int File::getFileSize() const { return static_cast<unsigned int>(data.size()); }

std::string File::getAsString() const { return std::string(data.begin(), data.end()); }

std::vector<std::string> File::getAsLines() const {
    std::vector<std::string> lines;
    std::string line;
    for (unsigned char byte : data) {
        if (byte != '\n') {
            line += static_cast<char>(byte);
            continue;
        }
        if (!line.empty() && line.back() == '\r') line.pop_back();
        lines.push_back(line);
        line.clear();
    }
    if (!line.empty()) lines.push_back(line);
    return lines;
}

std::vector<char> File::get() const { return std::vector<char>(data.begin(), data.end()); }

std::vector<unsigned char> File::getUnsigned() const { return data; }

std::vector<int> File::getAsInt() const {
    std::vector<int> words;
    for (size_t i = 0; i + 4 <= data.size(); i += 4) {
        unsigned int word = data[i] | data[i + 1] << 8 | data[i + 2] << 16 | static_cast<unsigned int>(data[i + 3]) << 24;
        words.push_back(static_cast<int>(word));
    }
    return words;
}

bool File::available(unsigned int count) const {
    return readPosition <= data.size() && count <= data.size() - readPosition;
}

unsigned int File::readWord() {
    if (!available(4)) {
        readPosition = static_cast<unsigned int>(data.size());
        return 0;
    }
    const unsigned char* p = data.data() + readPosition;
    readPosition += 4;
    return p[0] | p[1] << 8 | p[2] << 16 | static_cast<unsigned int>(p[3]) << 24;
}

char File::readChar() {
    if (!available(1)) return 0;
    return static_cast<char>(data[readPosition++]);
}

int File::readInt() { return static_cast<int>(readWord()); }

float File::readFloat() {
    unsigned int word = readWord();
    float value;
    std::memcpy(&value, &word, sizeof value);
    return value;
}

std::string File::readString() {
    if (!available(1)) return "";
    if (data[readPosition] == 0) {
        ++readPosition;
        return "Object";
    }
    std::string text;
    while (readPosition < data.size() && data[readPosition] != 0) text += static_cast<char>(data[readPosition++]);
    if (readPosition < data.size()) ++readPosition;
    return text;
}

std::string File::readString(int length) {
    if (length <= 0) return "";
    if (!available(static_cast<unsigned int>(length))) {
        readPosition = static_cast<unsigned int>(data.size());
        return "";
    }
    std::string text(data.begin() + readPosition, data.begin() + readPosition + length);
    readPosition += static_cast<unsigned int>(length);
    return text;
}

unsigned int File::getReadPosition() const { return readPosition; }

void File::putWord(unsigned int word) {
    for (int i = 0; i < 4; ++i) data.push_back(static_cast<unsigned char>(word >> (8 * i)));
}

void File::put(int value) { putWord(static_cast<unsigned int>(value)); }

void File::put(float value) {
    unsigned int word;
    std::memcpy(&word, &value, sizeof word);
    putWord(word);
}

void File::put(unsigned char value) { data.push_back(value); }

void File::put(std::string text) { data.insert(data.end(), text.begin(), text.end()); }

bool File::write() {
    if (!stream || !stream->is_open()) return false;
    stream->write(reinterpret_cast<const char*>(data.data()), static_cast<std::streamsize>(data.size()));
    stream->close();
    size = static_cast<unsigned int>(data.size());
    return true;
}

bool File::writeAs(std::string name) {
    filename = std::move(name);
    if (stream && stream->is_open()) stream->close();
    stream = std::make_unique<std::fstream>(filename, std::ios::binary | std::ios::out | std::ios::trunc);
    if (!stream->is_open()) {
        stream.reset();
        return false;
    }
    size_t count = std::min<size_t>(size, data.size());
    stream->write(reinterpret_cast<const char*>(data.data()), static_cast<std::streamsize>(count));
    stream->close();
    return true;
}
