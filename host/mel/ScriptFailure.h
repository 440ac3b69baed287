#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "host/mel/Interpreter.h"

namespace host::mel {

// Thrown inside the interpreter to end a script; never leaves it. The place is filled in where the text is still at
// hand.
struct ScriptFailure {
    std::string text;
    bool isFatal = false; // not held up by catch
    std::optional<ScriptError> placed;

    explicit ScriptFailure(std::string message, bool fatal = false) : text(std::move(message)), isFatal(fatal) {}
    explicit ScriptFailure(std::string_view message, bool fatal = false) : text(message), isFatal(fatal) {}
    explicit ScriptFailure(ScriptError error) : text(error.text), placed(std::move(error)) {}

    ScriptError error() const { return placed.value_or(ScriptError{text, {}, 0, 0}); }
};

} // namespace host::mel
