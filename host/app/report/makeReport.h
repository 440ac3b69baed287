#pragma once

#include "host/app/report/ExportedFiles.h"
#include "host/app/report/Report.h"

namespace host::app::report {

/// All that a report tells of the files.
Report makeReport(const ExportedFiles& files);

} // namespace host::app::report
