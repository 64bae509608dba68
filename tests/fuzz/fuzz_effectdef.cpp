// Feeds arbitrary bytes to the .def reader as a file. Whatever the text, the reader
// returns a definition or null with its message, and what it stores can be walked.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

#include "demosys/EffectDefinition.h"
#include "demosys/EffectDefinitionParser.h"
#include "demosys/ParameterGroup.h"
#include "demosys/Parameters.h"

namespace {

std::string inputPath() {
    static std::string path = [] {
        // Memory-backed when there is such a place: the input is written once per run.
        struct stat info;
        std::string pattern = stat("/dev/shm", &info) == 0 && S_ISDIR(info.st_mode) ? "/dev/shm" : "/tmp";
        pattern += "/qln-fuzz-effectdef-XXXXXX";
        if (!mkdtemp(&pattern[0])) std::abort();
        std::string dir = pattern;
        static std::string file = dir + "/input.def";
        std::atexit([] {
            std::remove(file.c_str());
            rmdir(file.substr(0, file.rfind('/')).c_str());
        });
        return file;
    }();
    return path;
}

void walk(Parameters* collection) {
    if (!collection) return;
    for (int i = 0; i < collection->size(); ++i) {
        ParameterGroup* group = collection->getValue(i);
        if (!group || group->getGroupName() != collection->getKey(i)) std::abort();
        for (int k = 0; k < group->size(); ++k) group->getKey(k);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    std::FILE* file = std::fopen(inputPath().c_str(), "wb");
    if (!file) std::abort();
    std::fwrite(data, 1, size, file);
    std::fclose(file);

    EffectDefinitionParser parser(inputPath());
    std::unique_ptr<EffectDefinition> definition(parser.parse());
    // Null exactly when the reader reports an error.
    if ((definition == nullptr) == parser.isValid()) std::abort();
    if (!definition) {
        if (parser.getErrorMessage().rfind("EffectDefinitionParser : ", 0) != 0) std::abort();
        return 0;
    }
    walk(definition->getParameters());
    walk(definition->getMethods());
    definition->toString();
    return 0;
}
