#pragma once

#include "host/app/report/Report.h"

#include <string>

namespace host::app::report {

/// The report for programs: JSON in UTF-8, keys always in the same order, numbers in no locale, one '\n' at the end.
/// docs/report.md tells what the keys mean.
std::string reportJson(const Report& report);

} // namespace host::app::report
