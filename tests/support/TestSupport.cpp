#include "support/TestSupport.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <unistd.h>

namespace testsupport {

TempDir::TempDir() {
    std::string pattern = (std::filesystem::temp_directory_path() / "qlntest-XXXXXX").string();
    if (!mkdtemp(pattern.data())) {
        std::perror("mkdtemp");
        std::abort();
    }
    dir = pattern;
}

TempDir::~TempDir() {
    std::error_code ignored;
    std::filesystem::remove_all(dir, ignored);
}

std::string TempDir::write(const std::string& relative, const std::string& content) const {
    std::filesystem::path full = std::filesystem::path(dir) / relative;
    std::filesystem::create_directories(full.parent_path());
    std::ofstream out(full, std::ios::binary);
    out << content;
    return full.string();
}

std::string captureStdout(const std::function<void()>& fn) {
    std::cout.flush();
    std::fflush(stdout);
    std::FILE* tmp = std::tmpfile();
    int saved = dup(fileno(stdout));
    dup2(fileno(tmp), fileno(stdout));
    fn();
    std::cout.flush();
    std::fflush(stdout);
    dup2(saved, fileno(stdout));
    close(saved);
    std::rewind(tmp);
    std::string text;
    char buffer[4096];
    size_t n;
    while ((n = std::fread(buffer, 1, sizeof buffer, tmp)) > 0) text.append(buffer, n);
    std::fclose(tmp);
    return text;
}

static std::string fromEnv(const char* name, const char* fallback) {
    const char* value = std::getenv(name);
    return value && *value ? value : fallback;
}

std::string sourceDir() { return fromEnv("QLN_SOURCE_DIR", "."); }
std::string binaryDir() { return fromEnv("QLN_BINARY_DIR", "build"); }

std::string readFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream content;
    content << in.rdbuf();
    return content.str();
}

}  // namespace testsupport
