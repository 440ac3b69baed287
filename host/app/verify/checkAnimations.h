#pragma once

#include "host/app/report/ExportedFiles.h"
#include "host/app/verify/ExportedScene.h"
#include "host/app/verify/Verification.h"
#include "host/app/verify/materialNames.h"

namespace host::app::verify {

/// The five animations, at every frame of their range: transforms, visibility, colours and placements as the scene has
/// them, patterns as their frame extensions choose images. Stored frames are exact to half a step, those between to the
/// tolerances of the files.
void checkAnimations(const report::ExportedFiles& files, const ExportedScene& scene, const MaterialNames& names,
                     Verification& result);

} // namespace host::app::verify
