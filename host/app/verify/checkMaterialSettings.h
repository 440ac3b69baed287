#pragma once

#include "host/app/report/ExportedFiles.h"
#include "host/app/verify/Verification.h"

#include <maya/MObject.h>

#include <string>

namespace host::app::verify {

/// The switches and choices of a material, which are the "tvk_" attributes of its shader, and the texture that it is
/// painted with: whose picture, how it is repeated.
///   material   of the model file
///   shader     null for the material that stands for what is no shader
///   place      names the material in findings
void checkMaterialSettings(const decode::FileElement& material, const MObject& shader,
                           const decode::ModelTextures& textures, const std::string& place, Verification& result);

} // namespace host::app::verify
