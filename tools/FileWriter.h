#pragma once
// Whole-file output and input for the asset tools, with readable error texts.
#include <string>

namespace qlntools {

class FileWriter {
public:
    // Writes bytes to path, replacing the file; creates missing parent folders.
    static bool write(const std::string& path, const std::string& bytes, std::string& error);
    // Reads a whole file.
    static bool read(const std::string& path, std::string& bytes, std::string& error);
};

}  // namespace qlntools
