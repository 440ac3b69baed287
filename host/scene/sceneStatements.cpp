#include "host/scene/sceneStatements.h"

#include "host/scene/sceneMessages.h"
#include "host/scene/statementFlags.h"

#include <cmath>

namespace host {

namespace {

enum UnitFlag : int { kLinear, kAngle, kTime, kNoUpdate };

constexpr StatementFlag kUnitFlags[] = {
    {"l", "linear", FlagValue::kText, kLinear},
    {"a", "angle", FlagValue::kText, kAngle},
    {"t", "time", FlagValue::kText, kTime},
    {"ua", "updateAnimation", FlagValue::kBoolean, kNoUpdate},
};

enum RangeFlag : int { kMinimum, kMaximum, kAnimationStart, kAnimationEnd, kOtherNumber, kOtherText };

constexpr StatementFlag kRangeFlags[] = {
    {"min", "minTime", FlagValue::kNumber, kMinimum},
    {"max", "maxTime", FlagValue::kNumber, kMaximum},
    {"ast", "animationStartTime", FlagValue::kNumber, kAnimationStart},
    {"aet", "animationEndTime", FlagValue::kNumber, kAnimationEnd},
    {"ps", "playbackSpeed", FlagValue::kNumber, kOtherNumber},
    {"mps", "maxPlaybackSpeed", FlagValue::kNumber, kOtherNumber},
    {"by", "by", FlagValue::kNumber, kOtherNumber},
    {"fps", "framesPerSecond", FlagValue::kNumber, kOtherNumber},
    {"l", "loop", FlagValue::kText, kOtherText},
    {"v", "view", FlagValue::kText, kOtherText},
    {"e", "edit", FlagValue::kNone, kOtherText},
};

constexpr StatementFlag kTimeFlags[] = {
    {"e", "edit", FlagValue::kNone, 0},
    {"u", "update", FlagValue::kBoolean, 0},
};

using UnitLookUp = std::optional<double> (*)(std::string_view word, std::string_view& shortName);

Outcome setUnit(UnitLookUp find, const std::string& word, double& factor, std::string_view& name) {
    const std::optional<double> found = find(word, name);
    if (!found) {
        return Outcome::skipped(messages::kUnknownUnit, {word});
    }
    factor = *found;
    return Outcome::done();
}

} // namespace

Outcome currentUnitStatement(StatementContext& context, ArgumentStream& arguments) {
    static const StatementFlags flags("currentUnit", kUnitFlags);
    Units units = context.scene.units();
    Outcome unknown;
    std::vector<std::string> texts;
    Outcome outcome = flags.takeAll(context, arguments, texts, [&](const FlagUse& flag) {
        Outcome set;
        switch (flag.id) {
        case kLinear:
            set = setUnit(linearUnit, flag.text, units.centimetresPerLinear, units.linearName);
            break;
        case kAngle:
            set = setUnit(angularUnit, flag.text, units.radiansPerAngular, units.angularName);
            break;
        case kTime:
            set = setUnit(timeUnit, flag.text, units.framesPerSecond, units.timeName);
            break;
        default:
            break;
        }
        unknown = set.ok() ? unknown : set;
    });
    if (outcome.ok()) {
        context.scene.setUnits(units);
    }
    return outcome.ok() ? unknown : outcome;
}

Outcome fileInfoStatement(StatementContext& context, ArgumentStream& arguments) {
    std::string_view text;
    if (!arguments.takeText(text)) {
        return Outcome::broken(arguments, "a key");
    }
    const std::string key(text);
    if (!arguments.takeText(text)) {
        return Outcome::broken(arguments, "a value");
    }
    context.scene.file().info[key] = text;
    return Outcome::done();
}

Outcome playbackOptionsStatement(StatementContext& context, ArgumentStream& arguments) {
    static const StatementFlags flags("playbackOptions", kRangeFlags);
    PlaybackRange range = context.scene.playback();
    std::vector<std::string> texts;
    Outcome outcome = flags.takeAll(context, arguments, texts, [&](const FlagUse& flag) {
        double* const places[] = {&range.minimum, &range.maximum, &range.animationStart, &range.animationEnd};
        if (flag.id < kOtherNumber && std::isfinite(flag.number)) {
            *places[flag.id] = flag.number;
        }
    });
    if (outcome.ok()) {
        context.scene.playback() = range;
    }
    return outcome;
}

Outcome currentTimeStatement(StatementContext& context, ArgumentStream& arguments) {
    static const StatementFlags flags("currentTime", kTimeFlags);
    double frame = 0.0;
    Outcome outcome = flags.take(context, arguments, [](const FlagUse&) {});
    if (!outcome.ok()) {
        return outcome;
    }
    if (!arguments.takeNumber(frame)) {
        return Outcome::broken(arguments, "a time");
    }
    if (std::isfinite(frame)) {
        context.scene.setCurrentFrame(frame);
    }
    return Outcome::done(context.scene.currentFrame());
}

} // namespace host
