#pragma once
// A whole file held as a byte buffer: read at opening (mode 0) with little-endian readers,
// or filled with put() and written out (modes 1 to 3).
#include <fstream>
#include <memory>
#include <string>
#include <vector>

class File {
public:
    // 0 read the whole file, 1 append, 2 and 3 truncate; any other mode opens for input
    // without reading.
    enum Mode { READ = 0, APPEND = 1, WRITE = 2, OVERWRITE = 3 };

    File(const char* name, int mode);
    File(const std::string& name, int mode);
    ~File();
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    bool exists() const;
    // The whole file as text; false, leaving text alone, when it is missing or not a
    // readable file (a directory, say).
    static bool readWholeFile(const std::string& name, std::string& text);
    std::string getFilename() const;
    unsigned int getFileSize() const;
    std::string getAsString() const;
    // Lines split at LF or CR LF, terminators removed.
    std::vector<std::string> getAsLines() const;
    std::vector<char> get() const;
    std::vector<unsigned char> getUnsigned() const;
    // Whole little-endian 32-bit words; trailing odd bytes are dropped.
    std::vector<int> getAsInt() const;

    // Readers past the end of the buffer give 0 or "" and leave the position at the end.
    char readChar();
    int readInt();
    float readFloat();
    // Up to the next NUL, which is consumed; a NUL right away gives "Object", the name
    // of nameless scene records.
    std::string readString();
    std::string readString(int length);
    unsigned int getReadPosition() const;

    void put(int value);
    void put(float value);
    void put(unsigned char value);
    void put(std::string text);

    // Writes the buffer to the stream opened at construction and closes it.
    bool write();
    // Writes under a new name; only as many bytes as the size recorded at opening or by
    // the last write() go out, so bytes put since then are left behind.
    bool writeAs(std::string name);

private:
    void open();
    bool available(unsigned int count) const;
    unsigned int readWord();
    void putWord(unsigned int word);

    std::string filename;
    std::vector<unsigned char> data;
    std::unique_ptr<std::fstream> stream;
    int mode = READ;
    unsigned int size = 0;
    unsigned int readPosition = 0;
    bool existsFlag = false;
};
