#pragma once

#include "host/graph/Attribute.h"

namespace host {

/// Whether meshes and what else deformers move travel through this attribute.
inline bool carriesGeometry(const Attribute& attribute) {
    return attribute.dataKind == DataKind::kMesh || attribute.dataKind == DataKind::kLattice ||
           attribute.fileType == "geometry";
}

} // namespace host
