#pragma once

#include "host/app/preview/ExportedFiles.h"

#include <string>

namespace host::app::preview {

/// What the page shows, as JSON for a script element. Throws a decode::FileError for what it cannot show.
std::string pageData(const ExportedFiles& files);

} // namespace host::app::preview
