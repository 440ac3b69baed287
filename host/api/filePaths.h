#pragma once

#include <string>
#include <vector>

namespace host {

/// Paths as texts in UTF-8 with '/' between their parts. On Windows '\' is taken for '/'.

struct SplitPath {
    std::string folder; // with '/' at its end; "" when there is none
    std::string name;
};
SplitPath splitPath(const std::string& path);

/// The same with a '/' at its end; "" stays.
std::string withSeparator(const std::string& folder);

bool isAbsolutePath(const std::string& path);
/// Relative paths are taken from the current folder of the scene's workspace; "./" at the front goes.
std::string absolutePath(const std::string& path);

/// Environment variables, as $NAME or ${NAME}, and "~" at the front replaced; what is not set stays as it stands.
std::string expandPath(const std::string& path);

/// The folders of an environment variable that holds a search path, each with a '/' at its end; empty ones are left
/// out.
std::vector<std::string> searchPath(const char* variable);

} // namespace host
