#pragma once

#include "scene/messages.h"

namespace tvk {

// The messages of reading shapes and skins, each spelled once. What follows a text that ends in a blank is its subject.

// Shapes
inline constexpr Message kInvalidMesh{Severity::kError, "Invalid mesh: "};
inline constexpr Message kNoPolygon{Severity::kError, "No polygon in mesh node: "};
inline constexpr Message kVertexNumberDiffers{Severity::kError, "Vertex number is different from original mesh: "};
inline constexpr Message kNormalNumberDiffers{Severity::kWarning, "Normal number is different from original mesh: "};
inline constexpr Message kInvalidVertex{Severity::kError, "Invalid vertex exists: "};
inline constexpr Message kHiddenMesh{Severity::kWarning, "Hidden mesh is ignored: "};

// Faces
inline constexpr Message kSetsAndMembers{Severity::kError, "getConnectedSetsAndMembers: "};
inline constexpr Message kNoShadingGroup{Severity::kError, "No shading group: "};
inline constexpr Message kFacesWithoutShadingGroup{Severity::kWarning, "Faces without shading group are ignored: "};
inline constexpr Message kHoledPolygon{Severity::kError, "Holed polygon exists (please triangulate): "};
inline constexpr Message kZeroNormal{Severity::kWarning, "Zero normal exist: "};
inline constexpr Message kCantGetUv{Severity::kWarning, "Can't get UV: "};
inline constexpr Message kUvRangeOver{Severity::kWarning, "UV range over: "};

// Skins
inline constexpr Message kDeformerNotEffective{Severity::kWarning, "Deformer is not effective: "};
inline constexpr Message kDeformerIgnored{Severity::kWarning, "Deformer is ignored: "};
inline constexpr Message kInfluenceNotOutput{Severity::kError, "Influence object is not outputted: "};
inline constexpr Message kCantGetSkinWeight{Severity::kError, "Can't get skin weight: "};
inline constexpr Message kWrongWeightedVertices{Severity::kError, "Wrong weighted vertices exist: "};
inline constexpr Message kNoDeformerSet{Severity::kWarning, "No deformer set: "};
inline constexpr Message kTooManyMatrices{Severity::kWarning,
                                          "The number of matrix for displaying this model over 31: "};
inline constexpr Message kBindPreMatrixFailed{Severity::kWarning, "Get bind pre matrix failed: "};

} // namespace tvk
