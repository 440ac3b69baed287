#pragma once

#include "sampleCharacter/SkinnedTubes.h"

#include <string>
#include <vector>

namespace tvk::samples {

// Parts of a Maya ASCII file.

/// A number of thousandths.
std::string thousandths(long value);

std::string jointText(const std::vector<Bone>& skeleton, std::size_t bone);
/// Linear keys: frames and thousandths in turn.
std::string keysText(const std::string& node, const std::string& attribute, const std::vector<long>& keys);
/// The original NAMEShapeOrig of a mesh NAMEShape below NAME; all edges smooth.
std::string meshText(const std::string& name, const SkinnedTubes& mesh);
/// The skin cluster NAMESkin between the two, bound where the skeleton stands.
std::string skinText(const std::string& name, const SkinnedTubes& mesh, const std::vector<Bone>& skeleton);
/// Faces of one material, as a component list: "f[0:3]" "f[8]" ….
std::vector<std::string> faceRanges(const std::vector<bool>& isSecond, bool second);

} // namespace tvk::samples
