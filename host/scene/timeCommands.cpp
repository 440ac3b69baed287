#include "host/mel/Interpreter.h"
#include "host/scene/commandGroups.h"
#include "host/scene/sceneMessages.h"
#include "host/scene/sceneStatements.h"

#include <utility>

namespace host {

namespace {

using mel::CommandResult;
using mel::FlagArgument;
using mel::FlagSyntax;
using mel::Invocation;

// Queries are answered here; everything else goes to the statement that files have too.
using Query = CommandResult (*)(Scene& scene, const mel::ParsedFlags& flags);

void addQueryOrStatement(mel::CommandTable& commands, Scene& scene, std::string name, FlagSyntax syntax, Query query,
                         SceneStatement statement) {
    (void)commands.add(std::move(name),
                       [&scene, syntax = std::move(syntax), query,
                        statement](mel::Interpreter& interpreter, const Invocation& invocation) -> CommandResult {
                           const FlagSyntax::Result parsed = syntax.parse(invocation);
                           if (!parsed.error && parsed.flags.isQuery) {
                               return query(scene, parsed.flags);
                           }
                           return runStatement(scene, interpreter, invocation, statement);
                       });
}

CommandResult queryTime(Scene& scene, const mel::ParsedFlags&) {
    return CommandResult(scene.currentFrame());
}

CommandResult queryUnit(Scene& scene, const mel::ParsedFlags& flags) {
    const Units& units = scene.units();
    const std::pair<const char*, std::string_view> rows[] = {
        {"linear", units.linearName}, {"angle", units.angularName}, {"time", units.timeName}};
    for (const auto& [flag, name] : rows) {
        if (flags.has(flag)) {
            return CommandResult(name);
        }
    }
    return failure(messages::kNeedsObjects, {"currentUnit", "a flag that says what is asked"});
}

CommandResult queryRange(Scene& scene, const mel::ParsedFlags& flags) {
    const PlaybackRange& range = scene.playback();
    const std::pair<const char*, double> rows[] = {{"minTime", range.minimum},
                                                   {"maxTime", range.maximum},
                                                   {"animationStartTime", range.animationStart},
                                                   {"animationEndTime", range.animationEnd}};
    for (const auto& [flag, frame] : rows) {
        if (flags.has(flag)) {
            return CommandResult(frame);
        }
    }
    return failure(messages::kNeedsObjects, {"playbackOptions", "a flag that says what is asked"});
}

} // namespace

void registerTimeCommands(mel::CommandTable& commands, Scene& scene) {
    const std::vector<FlagArgument> number{FlagArgument::kFloat};
    const std::vector<FlagArgument> text{FlagArgument::kString};
    addQueryOrStatement(commands, scene, "currentTime", FlagSyntax({}, FlagSyntax::kQueryAndEdit), queryTime,
                        currentTimeStatement);
    addQueryOrStatement(
        commands, scene, "currentUnit",
        FlagSyntax({{"l", "linear", text}, {"a", "angle", text}, {"t", "time", text}}, FlagSyntax::kQueryAndEdit),
        queryUnit, currentUnitStatement);
    addQueryOrStatement(commands, scene, "playbackOptions",
                        FlagSyntax({{"min", "minTime", number},
                                    {"max", "maxTime", number},
                                    {"ast", "animationStartTime", number},
                                    {"aet", "animationEndTime", number}},
                                   FlagSyntax::kQueryAndEdit),
                        queryRange, playbackOptionsStatement);
}

} // namespace host
