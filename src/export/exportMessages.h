#pragma once

#include "scene/messages.h"

namespace tvk {

// The messages of the export room, each spelled once. What follows a text that ends in a blank is its subject.

// Options
inline constexpr Message kNoOutputFile{Severity::kError, "No output file"};
inline constexpr Message kInvalidFrameRange{Severity::kError, "Invalid frame range ("};
inline constexpr Message kInvalidStartFrame{Severity::kWarning, "Invalid start frame (ignored): "};
inline constexpr Message kInvalidEndFrame{Severity::kWarning, "Invalid end frame (ignored): "};
inline constexpr Message kUniteWithVisibility{
    Severity::kWarning, "Compress Node \"Unite\" can be undesirable\n         when you export visibility animation"};

// Run
inline constexpr Message kCantOpenFile{Severity::kError, "Can't open file: "};
inline constexpr Message kCantWriteFile{Severity::kError, "Can't write file: "};
inline constexpr Message kLossyText{Severity::kWarning, "Characters without a Shift_JIS code are written as '?': "};
inline constexpr Message kNoMaterialColorAnimation{Severity::kWarning, "No material color animation"};
inline constexpr Message kNoTexturePatternAnimation{Severity::kWarning, "No texture pattern animation"};
inline constexpr Message kNoVisibilityAnimation{Severity::kWarning, "No visibility animation"};
inline constexpr Message kNoTextureSrtAnimation{Severity::kWarning, "No texture SRT animation"};
inline constexpr Message kLongName{Severity::kWarning, "Length of name over 16 characters: "};
inline constexpr Message kUnexpectedFailure{Severity::kError, "Export stopped: "};

// Material Workbench
inline constexpr Message kWorkbenchNotSet{Severity::kError,
                                          "Material Workbench is not found (environment variable does not exist)"};
inline constexpr Message kWorkbenchMissing{Severity::kError,
                                           "Material Workbench is not found (exe file does not exist)"};
inline constexpr Message kWorkbenchFailed{Severity::kError, "Failed to start Material Workbench"};

// Node tree
inline constexpr Message kNurbsCurve{Severity::kWarning, "Can't export NURBS curve: "};
inline constexpr Message kNurbsSurface{Severity::kWarning, "Can't export NURBS surface: "};
inline constexpr Message kSubdivSurface{Severity::kWarning, "Can't export Subdivision surface: "};
inline constexpr Message kAttachingDagNode{Severity::kError, "Attaching MFnDagNode"};
inline constexpr Message kInvalidNode{Severity::kError, "Invalid node: "};
inline constexpr Message kTooManyShapes{Severity::kWarning, "Too many shape: "};
inline constexpr Message kNoEffectiveShape{Severity::kError, "No effective shape: "};
inline constexpr Message kSeveralRoots{Severity::kError, "There is more than one root node"};
inline constexpr Message kUnrecognizedMode{Severity::kError, "Unrecognized write mode: "};
inline constexpr Message kNoEffectiveNode{Severity::kError, "No effective node"};
inline constexpr Message kNoEffectiveNodeQuiet{Severity::kWarning, "No effective node"};
inline constexpr Message kNodeNameChanged{Severity::kWarning, "Node name changed: "};
inline constexpr Message kTooManyNodes{Severity::kError, "Too many nodes: "};

// Materials

// Node transforms
inline constexpr Message kShear{Severity::kWarning, "Shear is not zero (ignored): "};
inline constexpr Message kBindPoseNotFound{Severity::kWarning, "Bind pose is not found: "};

} // namespace tvk
