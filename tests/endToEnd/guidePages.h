#pragma once

#include <string>
#include <vector>

namespace tvk {

/// A page of docs/ as users read it.
std::string guidePage(const std::string& name);

/// The block between fences of a page that begins with these words; a test failure when there is none.
std::string guideBlock(const std::string& page, const std::string& begin);

/// The lines of a page that are set apart as commands (indented by four blanks) and have this word in them, without the
/// blanks; a test failure when there is none.
std::vector<std::string> guideCommands(const std::string& page, const std::string& word);

} // namespace tvk
