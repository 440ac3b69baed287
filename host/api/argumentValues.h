#pragma once

#include "host/api/commandSyntax.h"

#include <maya/MAngle.h>
#include <maya/MDistance.h>
#include <maya/MTime.h>

#include <optional>

namespace host {

/// The text of an argument as a value of a type; nothing when it is none. Lengths, angles and times count in the units
/// of the user interface.
template <class T>
std::optional<T> argumentAs(const MString& text) {
    if constexpr (std::is_same_v<T, bool>) {
        return booleanOf(text);
    } else if constexpr (std::is_same_v<T, int>) {
        return intOf(text);
    } else if constexpr (std::is_same_v<T, unsigned int>) {
        return unsignedOf(text);
    } else if constexpr (std::is_same_v<T, double>) {
        return doubleOf(text);
    } else if constexpr (std::is_same_v<T, MString>) {
        return text;
    } else {
        return doubleOf(text) ? std::optional(T(*doubleOf(text), T::uiUnit())) : std::nullopt;
    }
}

/// kFailure, and `result` untouched, when the arguments were wrong, the flag is not set, has not so many arguments, or
/// the text is no such value.
template <class T>
MStatus takeFlagArgument(const ParsedArguments& parsed, const char* flag, std::size_t index, T& result) {
    const ParsedArguments::Use* use = parsed.isValid && flag != nullptr ? parsed.use(flag) : nullptr;
    const std::optional<T> value =
        use != nullptr && index < use->values.size() ? argumentAs<T>(use->values[index]) : std::nullopt;
    result = value.value_or(result);
    return value ? MStatus::kSuccess : MStatus::kFailure;
}

template <class T>
MStatus takeCommandArgument(const ParsedArguments& parsed, std::size_t index, T& result) {
    const std::optional<T> value =
        parsed.isValid && index < parsed.arguments.size() ? argumentAs<T>(parsed.arguments[index]) : std::nullopt;
    result = value.value_or(result);
    return value ? MStatus::kSuccess : MStatus::kFailure;
}

} // namespace host
