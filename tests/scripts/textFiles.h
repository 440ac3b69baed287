#pragma once

#include <string>
#include <vector>

namespace tvk {

/// A file of the source tree.
std::string sourcePath(const std::string& relativePath);

/// Its text; a test failure and "" when it is not there.
std::string sourceText(const std::string& relativePath);

/// The cells of the rows of all tables of a Markdown text whose rows begin with a name in back quotes. Blanks around
/// cells and back quotes are dropped.
std::vector<std::vector<std::string>> namedRows(const std::string& markdown);

} // namespace tvk
