#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/mel/CommandTable.h"
#include "host/mel/Value.h"

namespace host::mel {

enum class FlagArgument : std::uint8_t {
    kBool,   // 0/1, on/off, true/false, yes/no; arrives as int 0 or 1
    kInt,    // a number; arrives as int
    kFloat,  // a number; arrives as float
    kString, // a string or word; numbers arrive as their text
    kAny,    // any value, unchanged
};

// One flag of a command, names without their '-'.
struct FlagSpec {
    std::string shortName;
    std::string longName;
    std::vector<FlagArgument> arguments = {};
    bool multiUse = false;              // may be given several times
    bool keepsArgumentsInQuery = false; // takes its arguments in query mode, too (workspace -q -ote "scene")
    bool mayLackArguments = false;      // one argument at most, taken only if a fitting value follows (addAttr -m)
};

// The flags and objects of one call.
class ParsedFlags {
public:
    bool isQuery = false;
    bool isEdit = false;
    std::vector<Argument> objects; // what belongs to no flag, in order

    // By short or long name, without '-'.
    bool has(std::string_view flag) const { return uses(flag) != 0; }
    std::size_t uses(std::string_view flag) const;

    // Argument of the given use of a flag; a none value when there is none.
    const Value& value(std::string_view flag, std::size_t argument = 0, std::size_t use = 0) const;
    std::size_t argumentCount(std::string_view flag, std::size_t use = 0) const;

    // Typed short cuts with the value that holds when the flag was not given.
    bool boolean(std::string_view flag, bool otherwise) const;
    std::string text(std::string_view flag, std::string otherwise = {}) const;

    // Objects as texts.
    std::vector<std::string> objectNames() const;

private:
    friend class FlagSyntax;
    std::map<std::string, std::size_t, std::less<>> rows_; // both names of every flag
    std::vector<std::vector<std::vector<Value>>> values_;  // by row, use, argument
};

// The flags that a command knows: a table, usually a static one.
//   static const FlagSyntax syntax({{"ea", "exportAll"}, {"op", "options", {FlagArgument::kString}}});
class FlagSyntax {
public:
    enum Modes : std::uint8_t { kCreateOnly = 0, kQuery = 1, kEdit = 2, kQueryAndEdit = 3 };

    explicit FlagSyntax(std::vector<FlagSpec> flags, Modes modes = kCreateOnly);

    // With kQuery, -q/-query is known and flags after it take no arguments unless they keep them; with kEdit, -e/-edit.
    // A flag is known by its short or long name. In calls of the form name("-flag") quoted flags count as flags.
    // Fails with "Invalid flag '-zz'", "Flag '-ns' needs 1 argument(s)", "Flag '-ns' must be given only once",
    // "Invalid arguments for flag '-ns'. Expected int, got string", "A command can not be queried and edited at once".
    struct Result {
        ParsedFlags flags;
        std::optional<std::string> error;
    };
    [[nodiscard]] Result parse(const Invocation& invocation) const;

private:
    struct Cursor;
    const FlagSpec* find(std::string_view name) const;
    bool isModeFlag(std::string_view name) const;
    std::optional<std::string_view> flagName(const Argument& argument, bool isFunctionCall) const;
    std::optional<std::string> takeFlag(Cursor& cursor, std::string_view name, ParsedFlags& into) const;

    std::vector<FlagSpec> flags_;
    std::map<std::string, std::size_t, std::less<>> rows_;
    Modes modes_;
};

// The value as a flag argument of that type, or nothing when it does not fit.
std::optional<Value> flagArgumentOf(const Value& value, FlagArgument type);

} // namespace host::mel
