#pragma once

#include "animation/visibilityBody.h"
#include "export/modelBody.h"
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

inline constexpr std::array<BodyWriter, 2> kBodyWriters{{
    {OutputKind::kImd, writeModelBody},
    {OutputKind::kIva, writeVisibilityBody},
}};

} // namespace tvk
