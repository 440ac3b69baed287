#pragma once

#include "host/app/report/ExportedFiles.h"
#include "host/app/verify/Verification.h"
#include "host/app/verify/materialNames.h"

#include <cstddef>
#include <string>

namespace host::app::verify {

/// The texture patterns at one frame, to which the host's time is set: each shows the image of its frame extension, or
/// of the nearest one that there is, with that image's own palette.
///   frame   of the range
///   shown   the frame as findings show it
void checkPatterns(const report::ExportedFiles& files, const MaterialNames& names, std::size_t frame,
                   const std::string& shown, Verification& result);

} // namespace host::app::verify
