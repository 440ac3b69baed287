#pragma once

#include "host/app/report/Report.h"

#include <string>
#include <vector>

namespace host::app::report {

/// The report for people: tables in UTF-8, lines that end with '\n'. The last lines are the verdicts: one for each
/// limit.
std::string reportText(const Report& report);

/// A line for each limit that is passed, without "Warning:".
std::vector<std::string> limitWarnings(const Report& report);

} // namespace host::app::report
