// The timeline's sync verb: object.sync(time, method, track, ...) binds one track to each
// float argument of a method that the object's class declares.
#include <iostream>
#include <string>

#include "demosys/DemoScriptParser.h"
#include "demosys/EffectDefinition.h"
#include "demosys/ParameterGroup.h"
#include "demosys/Parameters.h"
#include "demosys/QLNTime.h"
#include "demosys/ScriptDefaults.h"

const std::vector<SyncBinding>& DemoScriptParser::getSyncBindings() const { return syncBindings; }

bool DemoScriptParser::readSyncCall(const std::string& object, ParameterGroup* arguments, int count) {
    Parameters* system = getParameterGroup("system_parameters");
    if (system == nullptr || !system->exist("sync") || count < 2) {
        fail("Error while parsing Timeline!\nobject : " + object + "\nmethod : sync\nCause : " +
             (count < 2 ? "Wrong number of arguments (" + std::to_string(count) + ")\n"
                        : std::string("No sync { } block in the demoscript\n")) +
             "Probable cause : a sync line needs a sync { bpm; rpb; tracks; } block and names a time, "
             "a method and one track per float argument\n");
        return false;
    }
    std::string timeText = arguments->getParameter("p1");
    QLNTime time(timeText);
    if (!time.isValid()) {
        fail(errorStringOMP(object, "sync", timeText) + " (0)\nParameter is not a valid (mm:ss:mmm) timestamp\n");
        return false;
    }

    std::string method = arguments->getParameter("p2");
    ParameterGroup* instance = getParameterGroup("effect_parameters")->getGroup(object);
    std::string className = instance->exist("class") ? instance->getParameter("class") : "";
    EffectDefinition* definition = nullptr;
    if (scriptDefaults != nullptr && scriptDefaults->exists(className))
        definition = scriptDefaults->getEffectDefinition(className);
    if (definition == nullptr || !definition->hasMethod(method)) {
        fail("Timeline : method '" + method + "' don't exist!");
        return false;
    }
    // The time stands for the method's first argument, each track for one of the others.
    ParameterGroup* signature = definition->getMethod(method);
    int given = count - 1;
    if (given != signature->size()) {
        fail("Error while parsing Timeline!\nobject : " + object + "\nmethod : " + method +
             "\nCause : Wrong number of arguments (" + std::to_string(given) + ")\n");
        return false;
    }

    SyncBinding binding;
    binding.object = object;
    binding.method = method;
    binding.start = time.getTicks();
    for (int i = 1; i < given; ++i) {
        std::string position = forceStringLength(std::to_string(i), 2);
        std::string track = arguments->getParameter("p" + std::to_string(i + 2));
        if (!signature->exist(position) || signature->getParameter(position) != "<float>" || track.empty()) {
            std::string message = errorStringOMP(object, method, track) + " (" + std::to_string(i) + ")\n" +
                                  (track.empty() ? std::string("Track name is empty\n")
                                                 : "Parameter is not a float as defined in " + className + ".def\n");
            std::cerr << message << std::flush;
            fail(message);
            return false;
        }
        binding.tracks.push_back(track);
    }
    if (debug) std::cout << "addSync(" << time.toString() << ", " << object << "." << method << ")" << std::endl;
    syncBindings.push_back(binding);
    return true;
}
