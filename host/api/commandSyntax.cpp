#include "host/api/commandSyntax.h"

#include <algorithm>
#include <cctype>
#include <string_view>

namespace host {

namespace {

std::string withoutDash(const std::string& name) {
    return !name.empty() && name.front() == '-' ? name.substr(1) : name;
}

bool isFlagText(const std::string& text) {
    return text.size() > 1 && text[0] == '-' && std::isalpha(static_cast<unsigned char>(text[1])) != 0;
}

struct TypeWord {
    MSyntax::MArgType type;
    std::string_view word;
    bool (*accepts)(const MString&);
};

constexpr auto kAnything = [](const MString&) { return true; };
constexpr auto kNumber = [](const MString& text) { return doubleOf(text).has_value(); };

constexpr TypeWord kTypeWords[] = {
    {MSyntax::kBoolean, "boolean", [](const MString& text) { return booleanOf(text).has_value(); }},
    {MSyntax::kLong, "int", [](const MString& text) { return intOf(text).has_value(); }},
    {MSyntax::kDouble, "float", kNumber},
    {MSyntax::kString, "string", kAnything},
    {MSyntax::kUnsigned, "unsigned int", [](const MString& text) { return unsignedOf(text).has_value(); }},
    {MSyntax::kDistance, "length", kNumber},
    {MSyntax::kAngle, "angle", kNumber},
    {MSyntax::kTime, "time", kNumber},
    {MSyntax::kSelectionItem, "object", kAnything},
};

const TypeWord& rowOf(MSyntax::MArgType type) {
    return *std::find_if(std::begin(kTypeWords), std::end(kTypeWords),
                         [&](const TypeWord& row) { return row.type == type; });
}

/// Walks the arguments of one call.
class Parser {
public:
    Parser(const MArgList& list, ParsedArguments& parsed) : list_(list), parsed_(parsed) {}

    std::optional<std::string> parse() {
        findMode();
        while (at_ < list_.length()) {
            const std::string text = next();
            auto error = isFlagText(text) ? takeFlag(withoutDash(text)) : takeOther(text);
            if (error) {
                return error;
            }
        }
        return checkCounts();
    }

private:
    std::string next() { return list_.asString(at_++).asChar(); }
    bool isMode(const std::string& name, const char* shortName, const char* longName) const {
        return name == shortName || name == longName;
    }

    /// Query and edit may stand anywhere and change what the other flags take.
    void findMode() {
        const CommandSyntax& syntax = parsed_.syntax;
        parsed_.isQuery = syntax.query && list_.flagIndex("q", "query") != MArgList::kInvalidArgIndex;
        parsed_.isEdit = syntax.edit && list_.flagIndex("e", "edit") != MArgList::kInvalidArgIndex;
    }

    std::optional<std::string> takeFlag(const std::string& name) {
        if ((parsed_.isQuery && isMode(name, "q", "query")) || (parsed_.isEdit && isMode(name, "e", "edit"))) {
            return std::nullopt;
        }
        const std::size_t row = parsed_.syntax.find(name);
        if (row == parsed_.syntax.flags.size()) {
            return "Invalid flag '-" + name + "'";
        }
        const CommandSyntax::Flag& flag = parsed_.syntax.flags[row];
        if (!flag.multiUse && parsed_.use(name) != nullptr) {
            return "Flag '-" + name + "' must be given only once";
        }
        ParsedArguments::Use use;
        use.flag = row;
        auto error = takeValues(name, flag, use);
        parsed_.uses.push_back(std::move(use));
        return error;
    }

    std::optional<std::string> takeValues(const std::string& name, const CommandSyntax::Flag& flag,
                                          ParsedArguments::Use& use) {
        if (parsed_.isQuery && !flag.keepsArgumentsInQuery) {
            return std::nullopt;
        }
        const bool optional = parsed_.isQuery && flag.lacksArgumentsInQuery;
        for (const MSyntax::MArgType type : flag.arguments) {
            if (at_ >= list_.length() || (optional && isFlagText(list_.asString(at_).asChar()))) {
                return optional ? std::nullopt
                                : std::optional("Flag '-" + name + "' needs " + std::to_string(flag.arguments.size()) +
                                                " argument(s)");
            }
            const MString value = next().c_str();
            if (!rowOf(type).accepts(value)) {
                return "Invalid arguments for flag '-" + name + "'. Expected " + std::string(rowOf(type).word) +
                       ", got " + value.asChar();
            }
            use.values.push_back(value);
        }
        return std::nullopt;
    }

    std::optional<std::string> takeOther(const std::string& text) {
        const CommandSyntax& syntax = parsed_.syntax;
        const std::size_t taken = parsed_.arguments.size();
        if (taken < syntax.arguments.size()) {
            const TypeWord& row = rowOf(syntax.arguments[taken]);
            parsed_.arguments.emplace_back(text.c_str());
            return row.accepts(text.c_str()) ? std::nullopt
                                             : std::optional("Invalid argument " + std::to_string(taken + 1) +
                                                             ". Expected " + std::string(row.word) + ", got " + text);
        }
        const bool takesObjects =
            syntax.objects == MSyntax::kStringObjects || syntax.objects == MSyntax::kSelectionList;
        if (!takesObjects || parsed_.objects.size() >= syntax.maximumObjects) {
            return "Too many arguments: " + text;
        }
        parsed_.objects.emplace_back(text.c_str());
        return std::nullopt;
    }

    std::optional<std::string> checkCounts() const {
        const CommandSyntax& syntax = parsed_.syntax;
        if (parsed_.arguments.size() < syntax.arguments.size()) {
            return "Wrong number of arguments: " + std::to_string(syntax.arguments.size()) + " expected, " +
                   std::to_string(parsed_.arguments.size()) + " given";
        }
        if (parsed_.objects.size() < syntax.minimumObjects && !syntax.selectionAsDefault) {
            return "Wrong number of objects: " + std::to_string(syntax.minimumObjects) + " needed, " +
                   std::to_string(parsed_.objects.size()) + " given";
        }
        return std::nullopt;
    }

    const MArgList& list_;
    ParsedArguments& parsed_;
    unsigned int at_ = 0;
};

} // namespace

std::size_t CommandSyntax::find(const std::string& name) const {
    const std::string bare = withoutDash(name);
    const auto found = std::find_if(flags.begin(), flags.end(),
                                    [&](const Flag& flag) { return flag.shortName == bare || flag.longName == bare; });
    return static_cast<std::size_t>(found - flags.begin());
}

const ParsedArguments::Use* ParsedArguments::use(const std::string& flag, std::size_t number) const {
    const std::size_t row = syntax.find(flag);
    for (const Use& one : uses) {
        if (one.flag == row && number-- == 0) {
            return &one;
        }
    }
    return nullptr;
}

std::optional<std::string> parseArguments(const CommandSyntax& syntax, const MArgList& list, ParsedArguments& parsed) {
    parsed = ParsedArguments();
    parsed.syntax = syntax;
    auto error = Parser(list, parsed).parse();
    parsed.isValid = !error;
    return error;
}

std::optional<bool> booleanOf(const MString& text) {
    struct Word {
        const char* text;
        bool value;
    };
    static constexpr Word kWords[] = {{"on", true},  {"off", false}, {"true", true}, {"false", false},
                                      {"yes", true}, {"no", false},  {"1", true},    {"0", false}};
    for (const Word& word : kWords) {
        if (text == word.text) {
            return word.value;
        }
    }
    return intOf(text) ? std::optional(*intOf(text) != 0) : std::nullopt;
}

std::optional<int> intOf(const MString& text) {
    return text.isInt() ? std::optional(text.asInt()) : std::nullopt;
}

std::optional<unsigned int> unsignedOf(const MString& text) {
    return text.isUnsigned() ? std::optional(text.asUnsigned()) : std::nullopt;
}

std::optional<double> doubleOf(const MString& text) {
    return text.isDouble() ? std::optional(text.asDouble()) : std::nullopt;
}

} // namespace host
