#pragma once

#include "decode/ExportedFiles.h"

#include <string>

namespace host::app::preview {

/// What the page shows, as JSON for a script element.
///   files   with a model
/// Throws a decode::FileError for what it cannot show.
std::string pageData(const decode::ExportedFiles& files);

} // namespace host::app::preview
