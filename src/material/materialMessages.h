#pragma once

#include "scene/messages.h"

namespace tvk {

// What the material half of the material room says, each text once. A name follows.

inline constexpr Message kNoShader{Severity::kWarning, "No shader: "};
inline constexpr Message kInvalidShader{Severity::kWarning, "Invalid shader (ignored): "};
inline constexpr Message kLayeredTexture{Severity::kWarning, "Layered texture is used (use first layer only): "};
inline constexpr Message kProceduralTexture{Severity::kWarning, "Procedural texture is ignored: "};
inline constexpr Message kMaterialNameChanged{Severity::kWarning, "Material name changed: "};

} // namespace tvk
