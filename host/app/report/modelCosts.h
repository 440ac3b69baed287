#pragma once

#include "host/app/report/ExportedFiles.h"
#include "host/app/report/Report.h"

namespace host::app::report {

/// What drawing the model costs. Of each node and material as well; equal ones stand in the order of the file.
///   textures   of the same files, for what materials show
ModelCosts costsOfModel(const ExportedFiles& files, const TextureMemory& textures);

/// The model against what the console can hold.
std::vector<Limit> limitsOf(const ModelCosts& model);

} // namespace host::app::report
