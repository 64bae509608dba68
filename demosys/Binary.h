#pragma once
// A raw file held whole in memory, handed to effects as bytes or as floats in [0, 1).
#include <string>
#include <vector>

class Binary {
public:
    explicit Binary(std::vector<unsigned char> bytes);
    ~Binary();
    Binary(const Binary&) = delete;
    Binary& operator=(const Binary&) = delete;

    unsigned int size() const;
    // 0 outside the blob.
    unsigned char getData(int index) const;
    // Always "": callers get no text from a blob.
    std::string getString(int start, int length) const;
    // A new array of count floats (byte / 256), owned by the caller (delete[]); bytes
    // outside the blob read as 0.
    float* getFloatData(int start, int count) const;
    // All bytes as floats, built on first use and owned by the blob.
    float* getFloatData();
    std::string toString() const;

private:
    std::vector<unsigned char> bytes;
    float* floatCopy = nullptr;
};
