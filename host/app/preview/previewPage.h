#pragma once

#include <string>

namespace host::app::preview {

/// A page that shows the files of an export, whole in itself.
///   base   path without ending, in UTF-8
/// Throws a decode::ExportedFilesError when they cannot be read or shown; a std::runtime_error of one line of UTF-8
/// when there is no model and when the program was built without the page.
std::string previewPage(const std::string& base);

} // namespace host::app::preview
