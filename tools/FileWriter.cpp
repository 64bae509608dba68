#include "tools/FileWriter.h"

#include <filesystem>
#include <fstream>
#include <iterator>

namespace qlntools {

bool FileWriter::write(const std::string& path, const std::string& bytes, std::string& error) {
    std::error_code ec;
    std::filesystem::path parent = std::filesystem::path(path).parent_path();
    if (!parent.empty()) std::filesystem::create_directories(parent, ec);
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    if (!out) {
        error = "cannot open '" + path + "' for writing";
        return false;
    }
    out.write(bytes.data(), std::streamsize(bytes.size()));
    out.close();
    if (!out) {
        error = "failed to write '" + path + "'";
        return false;
    }
    return true;
}

bool FileWriter::read(const std::string& path, std::string& bytes, std::string& error) {
    std::ifstream in(path, std::ios::binary);
    if (!in) {
        error = "cannot open '" + path + "'";
        return false;
    }
    bytes.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    return true;
}

}  // namespace qlntools
