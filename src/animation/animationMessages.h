#pragma once

#include "scene/messages.h"

namespace tvk {

// The messages of the animation room. What follows a text that ends in a blank is its subject.

inline constexpr Message kTooManyFrames{Severity::kError, "Too many frames: "};
inline constexpr Message kTooManyTextures{Severity::kError, "Too many textures: "};
inline constexpr Message kNearestFrameExtension{Severity::kWarning,
                                                "Texture pattern animation invalid frame extension (use nearest): "};

} // namespace tvk
