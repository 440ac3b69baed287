#pragma once

#include <string>

namespace host::app::preview {

/// A page that shows the files of an export, whole in itself.
///   base   as in readExportedFiles
/// Throws a std::runtime_error of one line when they cannot be shown, and when the program was built without the page.
std::string previewPage(const std::string& base);

} // namespace host::app::preview
