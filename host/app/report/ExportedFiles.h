#pragma once

#include "decode/ExportedFiles.h"

#include <stdexcept>
#include <string>
#include <vector>

namespace host::app::report {

using decode::ExportedFiles;
using decode::ExportedModel;
using decode::FileKind;
using decode::kFileKinds;

/// Why there is no report: one line of UTF-8 that names the file.
class ReportError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Reads files as decode::readExportedFiles does. Throws a ReportError for what that refuses, and when none of the
/// files is there.
ExportedFiles readExportedFiles(const std::string& base, const std::string& shown,
                                const std::vector<std::string>& kinds);

} // namespace host::app::report
