#pragma once

#include "scene/TextureRecord.h"
#include "scene/TextureSourceRecord.h"

#include <maya/MStatus.h>

namespace tvk {

/// Gathers the frames through which a file texture flips, registers the image of each, and appends the pattern to
/// SceneData::texturePatterns. A frame extension that no curve over time drives gives a warning and no pattern, which
/// is a success.
///   source   of a file that uses its frame extension; about to be appended to SceneData::textureSources
///   ref      the material's own reference, whose tiling all images of the pattern get
/// Fails, with a message, when the path has no frame number, the list of frames makes no sense, there are too many
/// frames, or an image cannot be registered.
MStatus gatherTexturePattern(const TextureSourceRecord& source, const MaterialTextureRef& ref);

} // namespace tvk
