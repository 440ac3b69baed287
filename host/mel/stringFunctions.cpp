#include "host/mel/builtins.h"

#include "host/mel/Evaluator.h"
#include "host/mel/FlagSyntax.h"
#include "host/mel/Pattern.h"
#include "host/mel/operators.h"

#include <algorithm>
#include <array>

namespace host::mel {

namespace {

constexpr std::string_view kBlanks = " \t\r\n\v\f";

void checkLength(const std::string& text) {
    if (text.size() > kMaximumTextBytes) {
        throw ScriptFailure(messages::kTextTooLong);
    }
}

// Bytes of ASCII only, whatever the locale.
char upper(char byte) {
    return byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - 'a' + 'A') : byte;
}

char lower(char byte) {
    return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
}

// A place or length that a script gave, cut to the text.
std::size_t clampedTo(std::int64_t given, std::size_t most) {
    return given <= 0 ? 0 : std::min(static_cast<std::size_t>(given), most);
}

Value runSize(BuiltinCall& call) {
    const Value& value = call.value(0);
    return value.isString() ? value.text().size() : value.size();
}

Value runStrcmp(BuiltinCall& call) {
    const int order = call.text(0).compare(call.text(1));
    return order < 0 ? -1 : order > 0 ? 1 : 0;
}

// Both places count from 1 and belong to the result.
Value runSubstring(BuiltinCall& call) {
    const std::string text = call.text(0);
    const std::size_t first = clampedTo(call.integer(1), text.size() + 1);
    const std::size_t last = clampedTo(call.integer(2), text.size());
    return first == 0 || last < first ? std::string() : text.substr(first - 1, last - first + 1);
}

Value runStartString(BuiltinCall& call) {
    const std::string text = call.text(0);
    return text.substr(0, clampedTo(call.integer(1), text.size()));
}

Value runEndString(BuiltinCall& call) {
    const std::string text = call.text(0);
    return text.substr(text.size() - clampedTo(call.integer(1), text.size()));
}

Value runStartsWith(BuiltinCall& call) {
    return call.text(0).rfind(call.text(1), 0) == 0;
}

Value runEndsWith(BuiltinCall& call) {
    const std::string text = call.text(0);
    const std::string ending = call.text(1);
    return text.size() >= ending.size() && text.compare(text.size() - ending.size(), ending.size(), ending) == 0;
}

Value runToUpper(BuiltinCall& call) {
    std::string text = call.text(0);
    std::transform(text.begin(), text.end(), text.begin(), upper);
    return text;
}

Value runToLower(BuiltinCall& call) {
    std::string text = call.text(0);
    std::transform(text.begin(), text.end(), text.begin(), lower);
    return text;
}

Value runCapitalize(BuiltinCall& call) {
    std::string text = call.text(0);
    if (!text.empty()) {
        text.front() = upper(text.front());
    }
    return text;
}

Value runStrip(BuiltinCall& call) {
    const std::string text = call.text(0);
    const std::size_t first = text.find_first_not_of(kBlanks);
    return first == std::string::npos ? std::string() : text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::optional<Pattern::Range> findPattern(BuiltinCall& call, const std::string& expression, std::string_view text) {
    const std::optional<Pattern> pattern = Pattern::compile(expression);
    if (!pattern.has_value()) {
        throw ScriptFailure("Invalid regular expression " + messages::quoted(expression) + ".");
    }
    return pattern->find(text, [&call](std::size_t work) { call.evaluator.state().step(work); });
}

Value runMatch(BuiltinCall& call) {
    const std::string text = call.text(1);
    const auto range = findPattern(call, call.text(0), text);
    return range.has_value() ? text.substr(range->offset, range->length) : std::string();
}

Value runGmatch(BuiltinCall& call) {
    const std::string text = call.text(0);
    const std::string pattern = call.text(1);
    call.evaluator.state().step(text.size() * (pattern.size() + 1) / 16);
    return matchesWildcard(text, pattern);
}

Value runSubstitute(BuiltinCall& call) {
    std::string text = call.text(1);
    const auto range = findPattern(call, call.text(0), text);
    if (!range.has_value()) {
        return text;
    }
    text.replace(range->offset, range->length, call.text(2));
    checkLength(text);
    return text;
}

Value runSubstituteAll(BuiltinCall& call) {
    const std::string text = call.text(0);
    const std::string wanted = call.text(1);
    const std::string replacement = call.text(2);
    if (wanted.empty()) {
        return text;
    }
    std::string result;
    std::size_t at = 0;
    for (std::size_t found = text.find(wanted); found != std::string::npos; found = text.find(wanted, at)) {
        call.evaluator.state().step(1 + replacement.size() / 16);
        result.append(text, at, found - at);
        result += replacement;
        checkLength(result);
        at = found + wanted.size();
    }
    return result.append(text, at);
}

Value runTokenize(BuiltinCall& call) {
    const std::string text = call.text(0);
    const std::size_t last = call.count() - 1;
    const std::string separators = call.count() == 3 ? call.text(1) : std::string(kBlanks);
    call.evaluator.state().step(text.size() / 4);
    StringArray tokens = splitText(text, separators);
    const std::size_t count = tokens.size();
    Variable& variable = call.arrayVariable(last);
    variable.value = convertedOrFail(Value(std::move(tokens)), variable.type);
    return count;
}

Value runStringToArray(BuiltinCall& call) {
    const std::string text = call.text(0);
    call.evaluator.state().step(text.size() / 4);
    return splitText(text, call.text(1));
}

Value runArrayToString(BuiltinCall& call) {
    const std::string separator = call.text(1);
    std::string joined;
    bool isFirst = true;
    for (const std::string& element : call.strings(0)) {
        call.evaluator.state().step(1 + (element.size() + separator.size()) / 16);
        joined += isFirst ? "" : separator;
        joined += element;
        isFirst = false;
        checkLength(joined);
    }
    return joined;
}

// Puts the given texts where ^1s, ^2s … stand; ^^ is one circumflex.
Value runFormat(BuiltinCall& call) {
    static const FlagSyntax kSyntax({{"s", "stringArg", {FlagArgument::kString}, true}});
    const FlagSyntax::Result parsed = kSyntax.parse({"format", call.arguments, true, {}, 0});
    if (parsed.error.has_value()) {
        throw ScriptFailure(*parsed.error);
    }
    if (parsed.flags.objects.size() != 1) {
        throw ScriptFailure(messages::wrongArgumentCount(call.name));
    }
    const std::string pattern = parsed.flags.objects.front().value.toText();
    std::string result;
    for (std::size_t at = 0; at < pattern.size(); ++at) {
        const std::size_t digit = at + 1;
        const bool isPlace = pattern[at] == '^' && at + 2 < pattern.size() && pattern[digit] >= '1' &&
                             pattern[digit] <= '9' && pattern[at + 2] == 's';
        if (isPlace) {
            result += parsed.flags.value("s", 0, static_cast<std::size_t>(pattern[digit] - '1')).toText();
            at += 2;
        } else if (pattern.compare(at, 2, "^^") == 0) {
            result += '^';
            ++at;
        } else {
            result += pattern[at];
        }
        call.evaluator.state().step(1 + result.size() / 65536);
    }
    checkLength(result);
    return result;
}

constexpr std::array<Builtin, 19> kRows = {{
    {"size", 1, 1, runSize},
    {"strcmp", 2, 2, runStrcmp},
    {"substring", 3, 3, runSubstring},
    {"startString", 2, 2, runStartString},
    {"endString", 2, 2, runEndString},
    {"startsWith", 2, 2, runStartsWith},
    {"endsWith", 2, 2, runEndsWith},
    {"toupper", 1, 1, runToUpper},
    {"tolower", 1, 1, runToLower},
    {"capitalizeString", 1, 1, runCapitalize},
    {"strip", 1, 1, runStrip},
    {"match", 2, 2, runMatch},
    {"gmatch", 2, 2, runGmatch},
    {"substitute", 3, 3, runSubstitute},
    {"substituteAllString", 3, 3, runSubstituteAll},
    {"tokenize", 2, 3, runTokenize},
    {"stringToStringArray", 2, 2, runStringToArray},
    {"stringArrayToString", 2, 2, runArrayToString},
    {"format", 1, kAnyCount, runFormat},
}};

} // namespace

StringArray splitText(std::string_view text, std::string_view separators) {
    StringArray tokens;
    std::size_t first = text.find_first_not_of(separators);
    while (first != std::string_view::npos) {
        const std::size_t last = std::min(text.find_first_of(separators, first), text.size());
        tokens.emplace_back(text.substr(first, last - first));
        first = text.find_first_not_of(separators, last);
    }
    return tokens;
}

BuiltinFamily stringFunctions() {
    return {kRows.data(), kRows.size()};
}

} // namespace host::mel
