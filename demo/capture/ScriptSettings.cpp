#include "demo/capture/ScriptSettings.h"

#include "demosys/DemoScriptParser.h"
#include "demosys/ParameterGroup.h"
#include "demosys/Parameters.h"
#include "demosys/QLNTime.h"
#include "qlnutils/QLNUtils.h"

bool ScriptSettings::read(const std::string& name, std::string& error) {
    DemoScriptParser parser("resources/scripts/" + (name.empty() ? std::string("demoscript.txt") : name));
    parser.parseDefaults(true);
    bool ok = parser.parse();
    Parameters* system = parser.getParameterGroup("system_parameters");
    if (!ok) {
        error = parser.getErrorMessage();
    } else {
        ParameterGroup* times = system ? system->getGroup("system") : nullptr;
        if (times && times->exist("start")) startMs = QLNTime(times->getParameter("start")).getTicks();
        if (times && times->exist("stop")) stopMs = QLNTime(times->getParameter("stop")).getTicks();
        ParameterGroup* screen = system ? system->getGroup("screen") : nullptr;
        if (screen && screen->exist("width") && screen->exist("height")) {
            width = QLNUtils::string2Int(screen->getParameter("width"));
            height = QLNUtils::string2Int(screen->getParameter("height"));
        }
    }
    // The parser hands its collections to whoever parses: here, nobody.
    delete system;
    delete parser.getParameterGroup("effect_parameters");
    return ok;
}
