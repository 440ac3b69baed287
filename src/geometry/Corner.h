#pragma once

#include "scene/Corner.h"

#include <cstddef>
#include <vector>

namespace tvk {

// Where each face begins in `corners`, with one more entry for the end.
std::vector<std::size_t> faceStarts(const FaceList& faces);

} // namespace tvk
