#pragma once

#include <string>

namespace tvk::samples {

/// The scene golem.ma: one smooth skinned mesh of tubes round a skeleton, with two textured materials, that walks.
/// The same text wherever it is made.
std::string sampleCharacter();

} // namespace tvk::samples
