#include "demo/tool/FileWatcher.h"

#include <sys/stat.h>

std::string FileWatcher::stamp(const std::string& file) {
    struct stat info;
    if (stat(file.c_str(), &info) != 0) return "";
    return std::to_string(info.st_mtim.tv_sec) + "." + std::to_string(info.st_mtim.tv_nsec) + ":" +
           std::to_string(info.st_size);
}

void FileWatcher::watch(const std::vector<std::string>& files) {
    stamps.clear();
    seen.clear();
    for (const std::string& file : files) stamps[file] = stamp(file);
}

std::vector<std::string> FileWatcher::changed(bool settled) {
    std::vector<std::string> result;
    std::map<std::string, std::string> seenNow;
    for (auto& entry : stamps) {
        std::string now = stamp(entry.first);
        if (now == entry.second) continue;
        auto before = seen.find(entry.first);
        if (settled && (before == seen.end() || before->second != now)) {
            seenNow[entry.first] = now;
            continue;
        }
        entry.second = now;
        result.push_back(entry.first);
    }
    seen.swap(seenNow);
    return result;
}
