#include "host/scene/statementFlags.h"

#include <algorithm>

namespace host {

namespace {

// A boolean is a word or a number.
bool takeSwitch(ArgumentStream& arguments, bool& value) {
    double number = 0.0;
    if (arguments.takeBoolean(value)) {
        return true;
    }
    const bool isNumber = arguments.takeNumber(number);
    value = isNumber ? number != 0.0 : value;
    return isNumber;
}

bool takeNumberOrWord(ArgumentStream& arguments, double& number) {
    bool isOn = false;
    if (arguments.takeNumber(number)) {
        return true;
    }
    const bool isWord = arguments.takeBoolean(isOn);
    number = isOn ? 1.0 : 0.0;
    return isWord;
}

Outcome takeValue(ArgumentStream& arguments, FlagValue kind, FlagUse& use) {
    std::string_view text;
    switch (kind) {
    case FlagValue::kNone:
        return Outcome::done();
    case FlagValue::kOptionalBoolean:
        (void)takeSwitch(arguments, use.isOn);
        return Outcome::done();
    case FlagValue::kBoolean:
        return takeSwitch(arguments, use.isOn) ? Outcome::done() : Outcome::broken(arguments, "on or off");
    case FlagValue::kInteger:
        return arguments.takeInteger(use.integer) ? Outcome::done() : Outcome::broken(arguments, "a whole number");
    case FlagValue::kNumber:
        return takeNumberOrWord(arguments, use.number) ? Outcome::done() : Outcome::broken(arguments, "a number");
    case FlagValue::kText:
        if (!arguments.takeText(text)) {
            return Outcome::broken(arguments, "a text");
        }
        use.text = text;
        return Outcome::done();
    }
    return Outcome::done();
}

} // namespace

const StatementFlag* StatementFlags::find(std::string_view name) const {
    const StatementFlag* end = rows_ + count_;
    const StatementFlag* found = std::find_if(
        rows_, end, [&](const StatementFlag& row) { return row.shortName == name || row.longName == name; });
    return found == end ? nullptr : found;
}

Outcome StatementFlags::take(StatementContext& context, ArgumentStream& arguments,
                             const std::function<void(const FlagUse&)>& use) const {
    std::string_view name;
    Outcome outcome;
    while (outcome.ok() && arguments.takeFlag(name)) {
        const StatementFlag* row = find(name);
        if (row == nullptr) {
            if (!context.passUnknownFlag(arguments, name, command_, outcome)) {
                break;
            }
            continue;
        }
        FlagUse taken;
        taken.id = row->id;
        outcome = takeValue(arguments, row->value, taken);
        if (outcome.ok()) {
            use(taken);
        }
    }
    return outcome;
}

Outcome StatementFlags::takeAll(StatementContext& context, ArgumentStream& arguments, std::vector<std::string>& texts,
                                const std::function<void(const FlagUse&)>& use) const {
    Outcome outcome = take(context, arguments, use);
    while (outcome.ok() && !arguments.atEnd()) {
        std::string_view text;
        if (!arguments.takeText(text)) {
            return Outcome::broken(arguments, "a name or a flag");
        }
        texts.emplace_back(text);
        outcome = take(context, arguments, use);
    }
    return outcome;
}

} // namespace host
