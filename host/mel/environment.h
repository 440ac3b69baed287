#pragma once

#include <optional>
#include <string>
#include <vector>

/// What the program inherited from whoever started it; one source file per system. Text is UTF-8 on Windows; elsewhere
/// it is the bytes that the system keeps.
namespace host {

/// The value of a variable; nothing when it is not set.
std::optional<std::string> environmentValue(const std::string& name);

/// The names of all variables, in no order.
std::vector<std::string> environmentNames();

} // namespace host
