#include "host/mel/FlagSyntax.h"

#include "host/mel/characterClass.h"

#include <array>

namespace host::mel {

namespace {

struct BooleanWord {
    std::string_view text;
    bool value;
};

constexpr std::array<BooleanWord, 6> kBooleanWords = {{
    {"on", true},
    {"true", true},
    {"yes", true},
    {"off", false},
    {"false", false},
    {"no", false},
}};

std::optional<Value> booleanOf(const Value& value) {
    if (value.isNumber()) {
        return Value(value.toBool());
    }
    for (const BooleanWord& word : kBooleanWords) {
        if (value.isString() && value.text() == word.text) {
            return Value(word.value);
        }
    }
    return std::nullopt;
}

bool isNumeric(const Value& value) {
    if (!value.isString()) {
        return value.isNumber();
    }
    const std::string& text = value.text();
    const std::size_t digit = text.find_first_not_of("+-.");
    return digit != std::string::npos && digit <= 2 && isOf(text[digit], kDigitByte);
}

constexpr std::array<std::string_view, 5> kArgumentNames = {"boolean", "int", "float", "string", "any value"};
static_assert(kArgumentNames.size() == static_cast<std::size_t>(FlagArgument::kAny) + 1);

std::string wrongArgument(std::string_view flag, FlagArgument wanted, const Value& got) {
    return "Invalid arguments for flag '" + std::string(flag) + "'. Expected " +
           std::string(kArgumentNames[static_cast<std::size_t>(wanted)]) + ", got " + std::string(typeName(got.type()));
}

} // namespace

std::optional<Value> flagArgumentOf(const Value& value, FlagArgument type) {
    switch (type) {
    case FlagArgument::kBool:
        return booleanOf(value);
    case FlagArgument::kInt:
        return isNumeric(value) ? value.convertedTo(ValueType::kInt) : booleanOf(value);
    case FlagArgument::kFloat:
        return isNumeric(value) ? value.convertedTo(ValueType::kFloat) : std::nullopt;
    case FlagArgument::kString:
        return value.convertedTo(ValueType::kString);
    case FlagArgument::kAny:
        return value;
    }
    return std::nullopt;
}

std::size_t ParsedFlags::uses(std::string_view flag) const {
    const auto row = rows_.find(flag);
    return row != rows_.end() ? values_[row->second].size() : 0;
}

std::size_t ParsedFlags::argumentCount(std::string_view flag, std::size_t use) const {
    return use < uses(flag) ? values_[rows_.find(flag)->second][use].size() : 0;
}

const Value& ParsedFlags::value(std::string_view flag, std::size_t argument, std::size_t use) const {
    static const Value kNone;
    return argument < argumentCount(flag, use) ? values_[rows_.find(flag)->second][use][argument] : kNone;
}

bool ParsedFlags::boolean(std::string_view flag, bool otherwise) const {
    const Value& found = value(flag);
    return found.isNone() ? otherwise : found.toBool();
}

std::string ParsedFlags::text(std::string_view flag, std::string otherwise) const {
    const Value& found = value(flag);
    return found.isNone() ? std::move(otherwise) : found.toText();
}

std::vector<std::string> ParsedFlags::objectNames() const {
    std::vector<std::string> names;
    for (const Argument& object : objects) {
        if (object.value.type() == ValueType::kStringArray) {
            const StringArray& inner = object.value.strings();
            names.insert(names.end(), inner.begin(), inner.end());
        } else {
            names.push_back(object.value.toText());
        }
    }
    return names;
}

struct FlagSyntax::Cursor {
    const std::vector<Argument>& arguments;
    bool isFunctionCall;
    bool isQuery;
    std::size_t next;
};

FlagSyntax::FlagSyntax(std::vector<FlagSpec> flags, Modes modes) : flags_(std::move(flags)), modes_(modes) {
    for (std::size_t row = 0; row < flags_.size(); ++row) {
        rows_.emplace(flags_[row].shortName, row);
        rows_.emplace(flags_[row].longName, row);
    }
    rows_.erase("");
}

const FlagSpec* FlagSyntax::find(std::string_view name) const {
    const auto row = rows_.find(name);
    return row != rows_.end() ? &flags_[row->second] : nullptr;
}

std::optional<std::string_view> FlagSyntax::flagName(const Argument& argument, bool isFunctionCall) const {
    if (argument.isFlag()) {
        return std::string_view(argument.value.text()).substr(1);
    }
    const std::string& text = argument.value.text();
    const bool isQuotedFlag = isFunctionCall && text.size() > 1 && text[0] == '-' &&
                              (find(std::string_view(text).substr(1)) != nullptr || isModeFlag(text.substr(1)));
    return isQuotedFlag ? std::optional(std::string_view(text).substr(1)) : std::nullopt;
}

bool FlagSyntax::isModeFlag(std::string_view name) const {
    const bool isQuery = (modes_ & kQuery) != 0 && (name == "q" || name == "query");
    const bool isEdit = (modes_ & kEdit) != 0 && (name == "e" || name == "edit");
    return (isQuery || isEdit) && find(name) == nullptr;
}

std::optional<std::string> FlagSyntax::takeFlag(Cursor& cursor, std::string_view name, ParsedFlags& into) const {
    const FlagSpec* flag = find(name);
    const std::string shown = "-" + std::string(name);
    if (flag == nullptr) {
        return "Invalid flag '" + shown + "'";
    }
    auto& uses = into.values_[static_cast<std::size_t>(flag - flags_.data())];
    if (!uses.empty() && !flag->multiUse) {
        return "Flag '" + shown + "' must be given only once";
    }
    std::vector<Value>& taken = uses.emplace_back();
    if (cursor.isQuery && !flag->keepsArgumentsInQuery) {
        return std::nullopt;
    }
    for (FlagArgument type : flag->arguments) {
        const bool isLeft = cursor.next < cursor.arguments.size() &&
                            !flagName(cursor.arguments[cursor.next], cursor.isFunctionCall).has_value();
        std::optional<Value> fitting;
        if (isLeft) {
            fitting = flagArgumentOf(cursor.arguments[cursor.next].value, type);
        }
        if (!fitting.has_value() && flag->mayLackArguments) {
            return std::nullopt;
        }
        if (!isLeft) {
            return "Flag '" + shown + "' needs " + std::to_string(flag->arguments.size()) + " argument(s)";
        }
        if (!fitting.has_value()) {
            return wrongArgument(shown, type, cursor.arguments[cursor.next].value);
        }
        taken.push_back(std::move(*fitting));
        ++cursor.next;
    }
    return std::nullopt;
}

FlagSyntax::Result FlagSyntax::parse(const Invocation& invocation) const {
    Result result;
    result.flags.rows_ = rows_;
    result.flags.values_.resize(flags_.size());
    for (const Argument& argument : invocation.arguments) {
        const auto name = flagName(argument, invocation.isFunctionCall);
        const bool isMode = name.has_value() && isModeFlag(*name);
        result.flags.isQuery = result.flags.isQuery || (isMode && name->front() == 'q');
        result.flags.isEdit = result.flags.isEdit || (isMode && name->front() == 'e');
    }
    if (result.flags.isQuery && result.flags.isEdit) {
        result.error = "A command can not be queried and edited at once";
        return result;
    }
    Cursor cursor{invocation.arguments, invocation.isFunctionCall, result.flags.isQuery, 0};
    while (cursor.next < invocation.arguments.size() && !result.error.has_value()) {
        const Argument& argument = invocation.arguments[cursor.next];
        const auto name = flagName(argument, invocation.isFunctionCall);
        ++cursor.next;
        if (!name.has_value()) {
            result.flags.objects.push_back(argument);
        } else if (!isModeFlag(*name)) {
            result.error = takeFlag(cursor, *name, result.flags);
        }
    }
    return result;
}

} // namespace host::mel
