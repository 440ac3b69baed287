#pragma once

#include "host/app/report/ExportedFiles.h"
#include "host/app/report/Report.h"

namespace host::app::report {

/// What the animation files hold, in the order of the kinds.
std::vector<AnimationCosts> costsOfAnimations(const ExportedFiles& files);

} // namespace host::app::report
