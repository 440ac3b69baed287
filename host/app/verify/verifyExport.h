#pragma once

#include "host/app/report/ExportedFiles.h"
#include "host/app/verify/Verification.h"

namespace host::app::verify {

/// Holds exported files against the open scene: what the model draws, and what every animation shows at every frame.
/// Everything is calculated anew, from the text of the files and from what the host evaluates. The host's time is put
/// back at the end. Files that a decoder refuses give a finding.
///   files       of one export
///   selection   only what is selected was exported
Verification verifyExport(const report::ExportedFiles& files, bool selection);

} // namespace host::app::verify
