#pragma once

#include <string>

namespace host {

/// The text as a MEL string, quotes included.
std::string melString(const std::string& text);

} // namespace host
