#include "demo/check/TimelineCheck.h"

#include <algorithm>
#include <cstdio>
#include <cctype>

#include "demo/check/Diagnostics.h"
#include "demo/check/ScriptReading.h"
#include "demosys/DemoScriptParser.h"
#include "demosys/EffectDefinition.h"
#include "demosys/ParameterGroup.h"
#include "demosys/Parameters.h"
#include "demosys/QLNTime.h"
#include "demosys/ScriptDefaults.h"
#include "qlnutils/QLNUtils.h"
#include "qlnutils/StringTokenizer.h"
#include "qlnutils/StringUtils.h"

namespace {

const int defaultLayer = 50;
const int topLayer = 100;

// What an effect class does to face culling, which stays as it is left from one effect,
// and one frame, to the next. The tunnel leaves front-face culling on; whoever draws
// faces towards the camera without setting culling itself loses them then.
struct CullingUse {
    int leavesEnabled;  // -1 as it was, 0 off, 1 on
    int leavesFront;    // -1 as it was, 0 back faces, 1 front faces
    bool ownState;      // draws with a culling state it sets itself
    bool enablesItself; // turns culling on for its own draw, in whatever mode is set
};
const std::map<std::string, CullingUse> cullingUse = {
    {"TunnelEffect", {1, 1, true, false}},       {"CubeChaos", {1, 0, true, false}},
    {"DisplayTexture", {0, -1, true, false}},    {"RasterFXEffect", {0, -1, true, false}},
    {"RasterEffect", {-1, -1, true, false}},     {"BouncingCubeEffect", {1, -1, true, false}},
    {"FlipTransitionEffect", {1, -1, true, false}}, {"IntroLogoEffect", {-1, -1, false, true}},
    // The wipes only move the viewport: they draw no faces.
    {"ScrollWipe", {-1, -1, true, false}},       {"BounceWipe", {-1, -1, true, false}},
};

std::string timeText(unsigned int ms) {
    QLNTime time(ms);
    char text[32];
    std::snprintf(text, sizeof text, "%02d:%02d:%03d", time.getMinutes(), time.getSeconds(), time.getMilliseconds());
    return text;
}

bool digits(const std::string& text, size_t from, size_t count) {
    if (from + count > text.size()) return false;
    for (size_t i = from; i < from + count; ++i)
        if (text[i] < '0' || text[i] > '9') return false;
    return true;
}

// mm:ss:mmm, the minutes with two digits or more.
bool writtenAsTime(const std::string& text) {
    size_t colon = text.find(':');
    return colon != std::string::npos && colon >= 2 && digits(text, 0, colon) && text.size() == colon + 7 &&
           digits(text, colon + 1, 2) && text[colon + 1] <= '5' && text[colon + 3] == ':' &&
           digits(text, colon + 4, 3);
}

size_t skipBlanks(const std::string& text, size_t at) {
    while (at < text.size() && (text[at] == ' ' || text[at] == '\t')) ++at;
    return at;
}

size_t skipWord(const std::string& text, size_t at) {
    size_t start = at;
    while (at < text.size() && (std::isalnum(static_cast<unsigned char>(text[at])) || text[at] == '_')) ++at;
    return at > start && !std::isdigit(static_cast<unsigned char>(text[start])) ? at : std::string::npos;
}

// A line that starts a declaration of its own: "object.method(" or "Checkpoint ".
bool startsDeclaration(const std::string& line) {
    if (line.compare(0, 11, "Checkpoint ") == 0) return true;
    size_t at = skipWord(line, 0);
    if (at == std::string::npos || (at = skipBlanks(line, at)) >= line.size() || line[at] != '.') return false;
    at = skipWord(line, skipBlanks(line, at + 1));
    return at != std::string::npos && (at = skipBlanks(line, at)) < line.size() && line[at] == '(';
}

// A resource named by block[key] in a value counts by its key.
std::string referenced(const std::string& value) {
    size_t open = value.find('[');
    size_t close = value.find(']');
    if (open == std::string::npos || close == std::string::npos || close < open) return value;
    return value.substr(open + 1, close - open - 1);
}

}  // namespace

TimelineCheck::TimelineCheck(ScriptReading& script, Diagnostics& diagnostics)
    : script(script), parser(script.parser()), diagnostics(diagnostics) {}

void TimelineCheck::run() {
    Parameters* system = parser.getParameterGroup("system_parameters");
    ParameterGroup* settings = system != nullptr ? system->getGroup("system") : nullptr;
    for (const char* key : {"start", "stop"})
        if (settings != nullptr && settings->exist(key))
            checkTime(parser.getLine("system", key), settings->getParameter(key), std::string("'") + key + "'");
    for (const auto& declaration : parser.getDeclarations()) readDeclaration(declaration.first, declaration.second);
    playEvents();
    checkUnused();
}

std::string TimelineCheck::classOf(const std::string& instance) {
    Parameters* effects = parser.getParameterGroup("effect_parameters");
    ParameterGroup* group = effects != nullptr ? effects->getGroup(instance) : nullptr;
    return group != nullptr && group->exist("class") ? group->getParameter("class") : "";
}

// QLNTime reads "0:8" as 0 and takes any number of digits: only mm:ss:mmm says what it means.
bool TimelineCheck::checkTime(int line, const std::string& text, const std::string& what) {
    if (writtenAsTime(text)) return true;
    diagnostics.error(script.path(), line,
                      "time '" + text + "' of " + what + " is not written mm:ss:mmm: it reads as " +
                          timeText(QLNTime(text).getTicks()) + "; write for example 00:08:000");
    return false;
}

void TimelineCheck::readDeclaration(int line, const std::string& text) {
    std::string declaration = text;
    StringTokenizer labelled(text, "<");
    if (labelled.countTokens() == 2) {
        labelled.getNext();
        declaration = StringUtils::trim(labelled.getNext());
    }
    // A ";" left out joins the next call to this one, where it is read as arguments.
    for (size_t end = declaration.find_first_of("\r\n"); end != std::string::npos;
         end = declaration.find_first_of("\r\n", end + 1)) {
        std::string lost = StringUtils::trim(declaration.substr(end + 1));
        lost = lost.substr(0, lost.find_first_of("\r\n"));
        if (!startsDeclaration(lost)) continue;
        diagnostics.error(script.path(), line,
                          "a ';' is missing at the end of this line: the declaration runs on into '" + lost +
                              "', which is lost");
        return;
    }
    StringTokenizer parts(declaration, ".");
    if (parts.countTokens() < 2) return readPlain(line, declaration);
    std::string object = StringUtils::trim(parts.getNext());
    std::string methodPart = parts.getNext();
    while (parts.hasMoreTokens()) methodPart += "." + parts.getNext();
    StringTokenizer pieces(methodPart, "(),");
    std::string method = StringUtils::trim(pieces.getNext());
    std::vector<std::string> args;
    while (pieces.hasMoreTokens()) args.push_back(StringUtils::trim(pieces.getNext()));
    readCall(line, object, method, args);
}

void TimelineCheck::readPlain(int line, const std::string& declaration) {
    StringTokenizer words(declaration, " ");
    std::string first = words.getNext();
    if (first == "Checkpoint") {
        checkTime(line, words.getNext(), "the checkpoint");
        return;
    }
    diagnostics.error(script.path(), line,
                      "declaration '" + declaration + "' adds nothing: only 'Checkpoint mm:ss:mmm' and " +
                          "object.method(...) calls are read" +
                          (first.size() > 5 && (first[0] == 'C' || first[0] == 'c') ? " (is 'Checkpoint' misspelt?)"
                                                                                     : ""));
}

void TimelineCheck::readCall(int line, const std::string& object, const std::string& method,
                             std::vector<std::string> args) {
    std::string className = classOf(object);
    for (const std::string& arg : args) usedNames.insert(referenced(arg));
    if (args.empty()) return;
    Event event{0, Call, object, method, defaultLayer, line};
    if (method == "start" || method == "stop" || method == "modify") {
        if (!checkTime(line, args[0], "'" + object + "." + method + "'")) return;
        event.kind = method == "start" ? Start : method == "stop" ? Stop : Call;
    } else {
        ScriptDefaults* defaults = parser.getScriptDefaults();
        EffectDefinition* definition =
            defaults != nullptr && defaults->exists(className) ? defaults->getEffectDefinition(className) : nullptr;
        ParameterGroup* signature = definition != nullptr ? definition->getMethod(method) : nullptr;
        for (int i = 0; signature != nullptr && i < signature->size() && i < static_cast<int>(args.size()); ++i) {
            std::string type = signature->getValue(i);
            if ((type == "<event>" || type == "<time>") &&
                !checkTime(line, args[i], "argument " + std::to_string(i + 1) + " of '" + object + "." + method + "'"))
                return;
        }
    }
    event.time = QLNTime(args[0]).getTicks();
    if (event.kind == Start && args.size() >= 2) {
        if (!StringUtils::isInt(args[1]) || args[1] == "-") {
            diagnostics.error(script.path(), line,
                              "layer '" + args[1] + "' of '" + object + ".start' is not a whole number: the effect is "
                              "drawn at layer 50");
        } else {
            event.layer = QLNUtils::string2Int(args[1]);
            if (event.layer < 0 || event.layer > topLayer)
                diagnostics.error(script.path(), line,
                                  "layer " + args[1] + " of '" + object + ".start' is outside 0 to 100: the effect "
                                  "is never drawn");
        }
    }
    if (event.kind == Start && args.size() >= 3) {
        Parameters* system = parser.getParameterGroup("system_parameters");
        ParameterGroup* fbos = system != nullptr ? system->getGroup("framebuffers") : nullptr;
        if (fbos == nullptr || !fbos->exist(args[2]))
            diagnostics.error(script.path(), line,
                              "render target '" + args[2] + "' of '" + object + ".start' is not declared in "
                              "'framebuffers': the effect draws to the screen");
    }
    if (event.kind == Start) started.insert(object);
    events.push_back(event);
}

void TimelineCheck::playEvents() {
    std::stable_sort(events.begin(), events.end(),
                     [](const Event& a, const Event& b) { return a.time < b.time; });
    Parameters* system = parser.getParameterGroup("system_parameters");
    ParameterGroup* settings = system != nullptr ? system->getGroup("system") : nullptr;
    bool hasStop = settings != nullptr && settings->exist("stop");
    unsigned int stopTime = hasStop ? QLNTime(settings->getParameter("stop")).getTicks() : 0;

    std::map<std::string, Running> running;
    for (size_t first = 0; first < events.size();) {
        size_t last = first;
        while (last < events.size() && events[last].time == events[first].time) ++last;
        // Within one millisecond a call may come before the start it belongs to.
        std::set<std::string> startedNow;
        for (size_t i = first; i < last; ++i)
            if (events[i].kind == Start) startedNow.insert(events[i].object);
        for (size_t i = first; i < last; ++i) {
            const Event& e = events[i];
            std::string at = " at " + timeText(e.time);
            if (hasStop && e.time > stopTime)
                diagnostics.warning(script.path(), e.line,
                                    "'" + e.object + "." + e.method + "'" + at + " comes after the stop time " +
                                        timeText(stopTime) + ": it never happens");
            auto found = running.find(e.object);
            if (e.kind == Start) {
                if (found != running.end())
                    diagnostics.warning(script.path(), e.line,
                                        "'" + e.object + "' is started" + at + " in layer " + std::to_string(e.layer) +
                                            " while it runs in layer " + std::to_string(found->second.layer) +
                                            " since line " + std::to_string(found->second.line) +
                                            ": stop it first");
                running[e.object] = {e.layer, e.line};
            } else if (e.kind == Stop) {
                if (found == running.end())
                    diagnostics.warning(script.path(), e.line,
                                        "'" + e.object + "' is stopped" + at + " but is not running: a stop before "
                                        "its start?");
                else
                    running.erase(found);
            } else if (found == running.end() && !startedNow.count(e.object)) {
                diagnostics.warning(script.path(), e.line,
                                    "'" + e.object + "." + e.method + "'" + at + " calls an effect that is not "
                                    "running then");
            }
        }
        checkCulling(running, events[first].line);
        first = last;
    }
}

// The running effects in draw order, twice: the state a frame starts with is the one
// the frame before left.
void TimelineCheck::checkCulling(const std::map<std::string, Running>& running, int line) {
    std::vector<std::pair<std::string, std::string>> order;  // draw key, instance
    for (const auto& entry : running) {
        std::string key = std::to_string(entry.second.layer);
        while (key.size() < 3) key = "0" + key;
        order.emplace_back(key + "_" + entry.first, entry.first);
    }
    std::sort(order.begin(), order.end());
    for (int frame = 0; frame < 2; ++frame) {
        for (const auto& drawn : order) {
            std::string className = classOf(drawn.second);
            auto found = cullingUse.find(className);
            CullingUse use = found != cullingUse.end() ? found->second : CullingUse{-1, -1, false, false};
            bool culled = culling.front && (culling.enabled || use.enablesItself);
            if (!use.ownState && culled && reportedCulling.insert(drawn.second + "/" + culling.tunnel).second)
                diagnostics.warning(script.path(), line,
                                    "'" + drawn.second + "' (" + className + ") is drawn after the tunnel '" +
                                        culling.tunnel + "' left front-face culling on: it may not show; draw an "
                                        "effect that turns culling off before it, such as a DisplayTexture");
            if (use.leavesEnabled >= 0) culling.enabled = use.leavesEnabled == 1;
            if (use.leavesFront >= 0) culling.front = use.leavesFront == 1;
            if (className == "TunnelEffect") culling.tunnel = drawn.second;
        }
    }
}

void TimelineCheck::checkUnused() {
    Parameters* effects = parser.getParameterGroup("effect_parameters");
    for (int i = 0; effects != nullptr && i < effects->size(); ++i) {
        ParameterGroup* group = effects->getValue(i);
        for (int k = 0; k < group->size(); ++k) usedNames.insert(group->getValue(k));
        if (!started.count(effects->getKey(i)))
            diagnostics.warning(script.path(), parser.getLine(effects->getKey(i)),
                                "effect '" + effects->getKey(i) + "' is never started");
    }
    // Shaders are left out: effect classes fetch them by alias in code, unseen here.
    Parameters* system = parser.getParameterGroup("system_parameters");
    for (const char* block : {"graphics", "objects", "animation", "binary", "framebuffers"}) {
        ParameterGroup* group = system != nullptr ? system->getGroup(block) : nullptr;
        for (int i = 0; group != nullptr && i < group->size(); ++i)
            if (!usedNames.count(group->getKey(i)))
                diagnostics.warning(script.path(), parser.getLine(block, group->getKey(i)),
                                    std::string(block) + " entry '" + group->getKey(i) + "' is never used");
    }
}
