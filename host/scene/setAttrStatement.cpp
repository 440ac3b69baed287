#include "host/scene/setAttrStatement.h"

#include "host/scene/attributeValues.h"
#include "host/scene/sceneMessages.h"
#include "host/scene/statementFlags.h"

#include <optional>
#include <utility>

namespace host {

namespace {

enum Flag : int { kKeyable, kLock, kChannelBox, kSize, kType, kNoEffect };

constexpr StatementFlag kFlagRows[] = {
    {"k", "keyable", FlagValue::kBoolean, kKeyable},
    {"l", "lock", FlagValue::kBoolean, kLock},
    {"cb", "channelBox", FlagValue::kBoolean, kChannelBox},
    {"s", "size", FlagValue::kInteger, kSize},
    {"type", "type", FlagValue::kText, kType},
    {"typ", "type", FlagValue::kText, kType},
    {"ca", "caching", FlagValue::kBoolean, kNoEffect},
    {"ch", "capacityHint", FlagValue::kInteger, kNoEffect},
    {"av", "alteredValue", FlagValue::kNone, kNoEffect},
    {"c", "clamp", FlagValue::kNone, kNoEffect},
    {"e", "edit", FlagValue::kNone, kNoEffect},
};
constexpr std::string_view kCommand = "setAttr";

struct Statement {
    std::optional<bool> keyable, locked, channelBox;
    std::size_t sizeHint = 0;
    std::string type;

    bool changesFlags() const { return keyable || locked || channelBox; }

    void use(const FlagUse& flag) {
        switch (flag.id) {
        case kKeyable:
            keyable = flag.isOn;
            break;
        case kLock:
            locked = flag.isOn;
            break;
        case kChannelBox:
            channelBox = flag.isOn;
            break;
        case kSize:
            sizeHint = flag.integer > 0 ? static_cast<std::size_t>(flag.integer) : 0;
            break;
        case kType:
            type = flag.text;
            break;
        default:
            break;
        }
    }
};

// Flags of a range go to the array: a range may claim any number of elements.
void applyFlags(StatementContext& context, const Plug& plug, const Statement& statement) {
    if (!statement.changesFlags()) {
        return;
    }
    const PlugFlags* known = plug.node->flags(plug.at);
    PlugFlags flags = known != nullptr ? *known : PlugFlags();
    flags.keyable = statement.keyable ? statement.keyable : flags.keyable;
    flags.channelBox = statement.channelBox ? statement.channelBox : flags.channelBox;
    if (statement.locked && context.isLoading && *statement.locked) {
        context.locks.push_back(plug);
    } else if (statement.locked) {
        flags.locked = *statement.locked;
    }
    context.scene.graph().setFlags(plug, flags);
}

Outcome refuseRest(StatementContext& context, ArgumentStream& arguments, std::string_view name) {
    if (!context.isLoading) {
        return Outcome::skipped(messages::kTooManyValues, {name});
    }
    context.warn(messages::text(messages::kTooManyValues, {name}));
    arguments.skipRest();
    return Outcome::done();
}

Outcome skipUnknown(StatementContext& context, ArgumentStream& arguments, PlugTarget& target) {
    // A statement that only shows or hides what nobody knows loses nothing.
    const bool losesNothing = context.isLoading && target.node != nullptr && arguments.atEnd();
    arguments.skipRest();
    return losesNothing ? Outcome::done() : std::move(target.failure);
}

} // namespace

Outcome setAttrStatement(StatementContext& context, ArgumentStream& arguments) {
    static const StatementFlags flags(kCommand, kFlagRows);
    Statement statement;
    const auto use = [&](const FlagUse& flag) { statement.use(flag); };
    Outcome outcome = flags.take(context, arguments, use);
    std::string_view name;
    if (outcome.ok() && !arguments.takeText(name)) {
        outcome = Outcome::broken(arguments, "the name of an attribute");
    }
    if (!outcome.ok()) {
        return outcome;
    }
    const std::string plugName(name);
    PlugTarget target = findTarget(context, plugName);
    outcome = flags.take(context, arguments, use);
    if (!outcome.ok()) {
        return outcome;
    }
    if (!target.ok()) {
        return skipUnknown(context, arguments, target);
    }
    if (!arguments.atEnd()) {
        if (statement.locked == false) { // what one command unlocks it may set
            applyFlags(context, target.plug(), statement);
        }
        outcome = readAttributeValues(context, arguments, target, {plugName, statement.type, statement.sizeHint});
        if (outcome.ok()) {
            outcome = flags.take(context, arguments, use);
        }
    } else if (!statement.type.empty() ||
               (!context.isLoading && !statement.changesFlags() && statement.sizeHint == 0)) {
        return Outcome::broken(arguments, "a value");
    }
    if (outcome.ok()) {
        applyFlags(context, target.plug(), statement);
    }
    return outcome.ok() && !arguments.atEnd() ? refuseRest(context, arguments, plugName) : outcome;
}

} // namespace host
