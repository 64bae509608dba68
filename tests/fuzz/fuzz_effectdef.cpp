// Feeds arbitrary bytes to the .def reader as a file. Whatever the text, the reader
// returns a definition or null with its message, and what it stores can be walked.
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>

#include "demosys/EffectDefinition.h"
#include "demosys/EffectDefinitionParser.h"
#include "demosys/ParameterGroup.h"
#include "demosys/Parameters.h"
#include "fuzz/FuzzFile.h"

namespace {

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
    EffectDefinitionParser parser(fuzzFile("input.def", data, size));
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
