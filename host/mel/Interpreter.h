#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/mel/CommandTable.h"
#include "host/mel/Value.h"

namespace host::mel {

// Why a script stopped. Line and column count from 1; both are 0 when the error has no place in a text.
struct ScriptError {
    std::string text; // one line, without "Error:"
    std::string file; // source name as given to eval, or the path of a sourced file
    std::size_t line = 0;
    std::size_t column = 0;

    // "file, line 3, column 7: text", without what is not known.
    std::string describe() const;
};

// Value of the last expression or command at the outermost level, or the error that ended the text.
struct [[nodiscard]] EvalResult {
    Value value;
    std::optional<ScriptError> error;
    bool ok() const { return !error.has_value(); }
};

// Where a script's output goes; an empty function drops it. Texts of info, warning and error are bare lines ("text",
// without "Warning:"); print gets exactly the bytes printed, line feeds included.
struct MessageSinks {
    std::function<void(const std::string&)> info;
    std::function<void(const std::string&)> warning;
    std::function<void(const std::string&)> error;
    std::function<void(const std::string&)> print;
};

// Text of a script file and where it was found.
struct ScriptFile {
    std::string path;
    std::string text;
};

// Finds the file for `source name` and for a procedure `name` that nobody declared: "dir/x.mel", "x.mel" or "x".
using ScriptLoader = std::function<std::optional<ScriptFile>(const std::string& name)>;

// Looks for name, then name + ".mel": as a path if it holds a separator, then in the folders in order. The folders
// function is asked every time, since scripts change the script path.
ScriptLoader folderScriptLoader(std::function<std::vector<std::string>()> folders);

// A MEL engine with its own global variables, procedures and commands. It knows no scene and writes to no stream.
//
// Errors come back in results; nothing throws out of it. Uncaught errors are given to the caller only; the error sink
// gets those that `catch` swallowed and those of deferred scripts. eval may be called again from a command.
// Copies of the procedures' text are kept, so the texts given may go away.
class Interpreter {
public:
    Interpreter();
    ~Interpreter();
    Interpreter(const Interpreter&) = delete;
    Interpreter& operator=(const Interpreter&) = delete;

    CommandTable& commands();
    const CommandTable& commands() const;
    MessageSinks& sinks();
    void setScriptLoader(ScriptLoader loader);

    // Runs a text at the outermost level: variables that it declares there are global and stay. sourceName is what
    // errors show; an empty one stands for text entered by hand. Syntax errors are found before anything runs.
    EvalResult eval(std::string_view text, std::string_view sourceName = {});

    // Runs a script file as `source` does: its outermost variables are its own unless declared global.
    EvalResult source(const std::string& name);

    // Calls a procedure or command by name with ready values, as name(arguments) would.
    EvalResult call(std::string_view name, std::vector<Value> arguments);

    bool hasProcedure(std::string_view name) const; // global ones

    // "Command", "Mel procedure entered interactively.", "Mel procedure found in: PATH", "Script found in: PATH",
    // "int variable" (for "$name", global ones), "Unknown".
    std::string whatIs(std::string_view name) const;

    // Global variables, names without '$'. Null when not declared; setting gives the variable the value's type.
    const Value* findGlobal(std::string_view name) const;
    void setGlobal(std::string_view name, Value value);

    // An environment variable as `getenv` shows it: what `putenv` set in this interpreter, else the process's own; ""
    // when there is none. putenv never changes the process's environment.
    std::string environment(std::string_view name) const;

    // Runs when the outermost eval, source or call ends, failed or not; at once when none is running.
    void defer(std::string script);

    // Called every 4,096 steps (statements and expressions, large copies count more); false stops all running scripts
    // with "Interrupted", which no `catch` holds up.
    void setStepHook(std::function<bool()> hook);

    // Steps that one outermost eval may take before it fails with "Step limit reached"; 0 sets no limit.
    void setStepLimit(std::uint64_t steps);

private:
    friend class Evaluator;
    struct State;
    template <typename Action>
    EvalResult run(Action action);
    void runDeferred();

    std::unique_ptr<State> state_;
};

} // namespace host::mel
