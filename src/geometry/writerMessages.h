#pragma once

#include "scene/messages.h"

namespace tvk {

inline constexpr Message kSeveralMatrixGroups{Severity::kWarning, "Mtx_prim_size of <polygon> is over 1: "};
inline constexpr Message kVertexTotalOver{Severity::kWarning, "Total vertex size over: "};
inline constexpr Message kPolygonTotalOver{Severity::kWarning, "Total polygon size over: "};

} // namespace tvk
