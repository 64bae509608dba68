// The timeline language: the raw timeline block becomes events and checkpoints.
#include <algorithm>
#include <iostream>
#include <memory>
#include <string>

#include "demosys/DataEventPool.h"
#include "demosys/DemoScriptParser.h"
#include "demosys/EffectDefinition.h"
#include "demosys/Event.h"
#include "demosys/ParameterGroup.h"
#include "demosys/ParameterReader.h"
#include "demosys/Parameters.h"
#include "demosys/QLNTime.h"
#include "demosys/ScriptDefaults.h"
#include "demosys/Timeline.h"
#include "demosys/ValueType.h"
#include "qlnutils/StringTokenizer.h"
#include "qlnutils/StringUtils.h"

Timeline* DemoScriptParser::parseTimeline() {
    if (!valid) return nullptr;
    Timeline* timeline = new Timeline();
    DataEventPool* templates = eventTemplates();
    StringTokenizer declarations(timelineText, ";");
    declarationLines.clear();
    std::size_t cursor = timelineBegin;
    while (declarations.hasMoreTokens()) {
        std::string text = declarations.getNext();
        std::string trimmed = StringUtils::trim(text);
        std::size_t at = std::min(scriptText.find(trimmed, cursor), scriptText.size());
        cursor = at + trimmed.size();
        mark(at, cursor);
        declarationLines.emplace_back(lines.line(at), trimmed);
        if (!readDeclaration(timeline, templates, text)) break;
    }
    return timeline;
}

bool DemoScriptParser::readDeclaration(Timeline* timeline, DataEventPool* templates, std::string text) {
    // Trimmed first, so that a declaration written after a line break reads the same.
    text = StringUtils::trim(text);
    if (debug) std::cout << "line : " << text << std::endl;

    std::string declaration = text;
    StringTokenizer labelled(text, "<");
    if (labelled.countTokens() == 2) {
        std::string label = StringUtils::trim(labelled.getNext());
        declaration = StringUtils::trim(labelled.getNext());
        if (debug) std::cout << "ActionGroup(" << label << ") : " << declaration << std::endl;
    }

    StringTokenizer parts(declaration, ".");
    if (parts.countTokens() < 2) return readPlainDeclaration(timeline, declaration);
    std::string object = StringUtils::trim(parts.getNext());
    // Decimal arguments were cut at their points too: join the rest back together.
    std::string methodPart = parts.getNext();
    while (parts.hasMoreTokens()) methodPart += "." + parts.getNext();
    return readCall(timeline, templates, object, methodPart);
}

bool DemoScriptParser::readCall(Timeline* timeline, DataEventPool* templates, const std::string& object,
                                const std::string& methodPart) {
    Parameters* effects = getParameterGroup("effect_parameters");
    if (effects == nullptr || !effects->exist(object)) {
        fail("Error Pasing Timeline!\nScript object '" + object + "' not found\nProbable Cause : Spelling error?");
        return false;
    }
    StringTokenizer pieces(methodPart, "(),");
    if (pieces.countTokens() < 2) {
        fail("Timeline : Error near ''" + object + "." + methodPart + "\nPossible reason : Missing parameter(s)");
        return false;
    }

    std::string method = StringUtils::trim(pieces.getNext());
    std::unique_ptr<ParameterGroup> arguments(new ParameterGroup());
    std::string logged;
    int count = 0;
    while (pieces.hasMoreTokens()) {
        std::string argument = StringUtils::trim(pieces.getNext());
        arguments->addParameter("p" + std::to_string(++count), argument);
        logged += "'" + argument + "', ";
    }
    if (debug) std::cout << "object = '" << object << "' method = '" << method << "' params = " << logged << std::endl;

    if (method == "sync") return readSyncCall(object, arguments.get(), count);
    if (templates == nullptr || !templates->exist(method)) {
        ParameterGroup* instance = effects->getGroup(object);
        std::string className = ParameterReader::text(instance, "class");
        return readMethodCall(timeline, templates, object, className, method, arguments.release(), count);
    }

    // start, stop and modify are taken as written: their time is the first argument.
    Event* prototype = templates->getEvent(method);
    Event* event = prototype != nullptr ? prototype->getInstance() : nullptr;
    if (event == nullptr) return true;
    QLNTime* time = new QLNTime(arguments->getParameter("p1"));
    arguments->addParameter("object", object);
    event->setTime(time);
    event->setParameters(arguments.release());
    if (debug) std::cout << "addEvent(" << time->toString() << ", " << object << "." << method << ")" << std::endl;
    timeline->addEvent(time->getTicks(), event);
    return true;
}

bool DemoScriptParser::readMethodCall(Timeline* timeline, DataEventPool* templates, const std::string& object,
                                      const std::string& className, const std::string& method,
                                      ParameterGroup* argumentGroup, int count) {
    std::unique_ptr<ParameterGroup> arguments(argumentGroup);
    EffectDefinition* definition = nullptr;
    if (scriptDefaults != nullptr && scriptDefaults->exists(className)) {
        definition = scriptDefaults->getEffectDefinition(className);
    }
    if (definition == nullptr || !definition->hasMethod(method)) {
        fail("Timeline : method '" + method + "' don't exist!");
        return false;
    }
    ParameterGroup* signature = definition->getMethod(method);
    if (debug) {
        // The class's closing quote is missing from this line as it always was.
        std::cout << "ScriptObject '" << object << "' with Class '" << className << " have method '" << method << "'"
                  << std::endl;
        std::cout << "defaults : " << signature->toString() << std::endl;
    }
    if (count != signature->size()) {
        fail("Error while parsing Timeline!\nobject : " + object + "\nmethod : " + method +
             "\nCause : Wrong number of arguments (" + std::to_string(count) + ")\n");
        return false;
    }

    std::unique_ptr<QLNTime> eventTime;
    for (int i = 0; i < count; ++i) {
        std::string position = forceStringLength(std::to_string(i), 2);
        std::string type = ParameterReader::text(signature, position);
        std::string key = "p" + std::to_string(i + 1);
        std::string value = arguments->getParameter(key);
        std::string problem;
        bool toStandardError = false;
        ValueType::Kind kind = ValueType::ofArgument(type);
        if (kind == ValueType::String) {
            std::string resolved = reverseLookup(value);
            if (resolved.empty()) {
                problem = "Reverse lookup failed\n";
                toStandardError = true;
            } else {
                arguments->addParameter(key, resolved);
            }
        } else if (!ValueType::accepts(kind, value)) {
            problem = "Parameter is not " + ValueType::argumentNoun(kind) + " as defined in " + className + ".def\n";
            toStandardError = kind == ValueType::Float;
        } else if (type == "<event>") {
            eventTime.reset(new QLNTime(value));
        }
        if (!problem.empty()) {
            std::string message = errorStringOMP(object, method, value) + " (" + std::to_string(i) + ")\n" + problem;
            if (toStandardError) std::cerr << message << std::flush;
            fail(message);
            return false;
        }
    }

    Event* prototype = templates != nullptr && templates->exist("modify") ? templates->getEvent("modify") : nullptr;
    Event* event = prototype != nullptr ? prototype->getInstance() : nullptr;
    if (event == nullptr) return true;
    // A method declared without an <event> argument still fires at its first argument.
    if (!eventTime) eventTime.reset(new QLNTime(arguments->getParameter("p1")));
    arguments->addParameter("object", object);
    arguments->addParameter("method", method);
    unsigned int ticks = eventTime->getTicks();
    event->setTime(eventTime.release());
    event->setParameters(arguments.release());
    timeline->addEvent(ticks, event);
    return true;
}

bool DemoScriptParser::readPlainDeclaration(Timeline* timeline, const std::string& declaration) {
    StringTokenizer words(declaration, " ");
    if (words.countTokens() < 2) {
        if (debug) std::cout << "Declaration : " << declaration << std::endl;
        fail("Error Pasing Timeline!\nDeclaration '" + declaration + "' invalid\nProbable Cause : Spelling error?");
        return false;
    }
    if (words.getNext() != "Checkpoint") return true;  // any other plain declaration adds nothing

    std::string word = words.getNext();
    std::unique_ptr<QLNTime> time(new QLNTime(word));
    if (!time->isValid()) {
        fail("Error while parsing Timeline!\nobject : Checkpoint\nparameter : " + word +
             "\nParameter is not a valid (mm:ss:mmm)\n");
        return false;
    }
    if (timeline->checpointExists(time.get())) {
        // Deliberately not an error: the first checkpoint at that time stays.
        std::cout << "duplicate checkpoint ignored : " << time->toString() << ")" << std::endl;
        return true;
    }
    if (debug) std::cout << "timeline.addCheckpoint(" << time->toString() << ")" << std::endl;
    timeline->addCheckpoint(time.release());
    return true;
}
