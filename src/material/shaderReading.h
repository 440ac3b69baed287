#pragma once

#include "scene/MaterialRecord.h"

#include <maya/MObject.h>

namespace tvk {

/// Reads an exported shader at the current time: attributes, colours, alpha, and what drives each colour channel. All
/// but the texture.
///   fileTexture   the shader's, which holds its diffuse colour then; null when it has none
void readShader(const MObject& shader, const MObject& fileTexture, MaterialRecord& record);

} // namespace tvk
