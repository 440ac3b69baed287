#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/mel/Value.h"

namespace host::mel {

class Interpreter;

// One argument of a command, in the order of the text.
struct Argument {
    Value value;
    bool isWord = false; // written without quotes (on, |a|b.tx); always so for flags

    // Whether it was written as a flag: `-name`, not a negative number and not a quoted "-name".
    bool isFlag() const;
};

// One call: `name -flag value object;` or name("-flag", value, "object").
struct Invocation {
    std::string name;
    std::vector<Argument> arguments;
    bool isFunctionCall = false; // name(…): flags arrive as quoted strings there
    std::string file;            // the source that holds the call, and its line
    std::size_t line = 0;
};

// What a command gives back: a value (none by default), or the text of an error, one line without "Error:".
struct [[nodiscard]] CommandResult {
    Value value;
    std::optional<std::string> error;

    CommandResult() = default;
    CommandResult(Value result) : value(std::move(result)) {}
    static CommandResult failure(std::string text);
    bool ok() const { return !error.has_value(); }
};

// Commands report failures through their result and do not throw. They may call the interpreter again.
using NativeCommand = std::function<CommandResult(Interpreter&, const Invocation&)>;

// The native commands by name. Commands may be added and removed while scripts run, even by a command of themselves.
class CommandTable {
public:
    // False when the name is taken (the table keeps the first) or is no identifier.
    [[nodiscard]] bool add(std::string name, NativeCommand command);

    // False when there is no such command.
    bool remove(std::string_view name);

    // Null when there is none. The command stays alive as long as the pointer is held.
    std::shared_ptr<const NativeCommand> find(std::string_view name) const;

    std::vector<std::string> names() const; // sorted bytewise

private:
    std::map<std::string, std::shared_ptr<const NativeCommand>, std::less<>> commands_;
};

} // namespace host::mel
