#pragma once

#include "scene/messages.h"

namespace tvk {

// The messages of the animation room. What follows a text that ends in a blank is its subject.

inline constexpr Message kTooManyFrames{Severity::kError, "Too many frames: "};

} // namespace tvk
