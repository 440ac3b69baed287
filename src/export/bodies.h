#pragma once

#include "animation/materialColorBody.h"
#include "animation/texturePatternBody.h"
#include "animation/textureSrtBody.h"
#include "animation/visibilityBody.h"
#include "export/modelBody.h"
#include "export/nodeAnimationBody.h"
#include "scene/OutputKind.h"

#include <maya/MStatus.h>

#include <array>
#include <iosfwd>

namespace tvk {

/// Who writes what stands between the info element and the tail of a file.
struct BodyWriter {
    OutputKind kind;
    MStatus (*write)(std::ostream& out);
};

inline constexpr std::array<BodyWriter, 6> kBodyWriters{{
    {OutputKind::kImd, writeModelBody},
    {OutputKind::kIca, writeNodeAnimationBody},
    {OutputKind::kIma, writeMaterialColorBody},
    {OutputKind::kItp, writeTexturePatternBody},
    {OutputKind::kIva, writeVisibilityBody},
    {OutputKind::kIta, writeTextureSrtBody},
}};

} // namespace tvk
