#pragma once

#include "host/app/verify/ExportedScene.h"
#include "host/app/verify/Verification.h"
#include "host/app/verify/materialNames.h"

#include <array>
#include <optional>

namespace host::app::verify {

/// Red, green and blue of diffuse, ambient, specular and emission colour, then the alpha: as the scene has them now,
/// in steps of 1/31 between 0 and 31, not yet whole.
///   isSampled   as animations have them: a colour beyond 1 counts as 1 before its coefficient is applied
std::array<double, 13> consoleColors(const MObject& shader, bool isSampled = false);

/// The file texture that a shader is painted with; null when it has none.
MObject fileTextureOf(const MObject& shader);

/// Where a texture's picture lies: scale s t, rotation in degrees, translation s t.
std::array<double, 5> placementOf(const MObject& fileTexture);

/// The materials of the model file: their colours, settings and textures as the scene has them at the start.
///   files   with their model
void checkMaterials(const report::ExportedFiles& files, const MaterialNames& names, Verification& result);

} // namespace host::app::verify
