#pragma once

#include <filesystem>
#include <string>

namespace host {

/// The path that a text names; one source file per system. Windows: UTF-8, and text of scenes and scripts that is not
/// valid UTF-8 is taken from the user's code page. Elsewhere a path is the bytes of its text.
std::filesystem::path filePath(const std::string& text);

} // namespace host
