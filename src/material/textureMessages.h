#pragma once

#include "scene/messages.h"

namespace tvk {

// What the texture half of the material room says, each text once. What follows a text is its subject.

// File textures: the node's name follows.
inline constexpr Message kNoImageName{Severity::kError, "No texture image name: "};
inline constexpr Message kNoImageNameWarning{Severity::kWarning, "No texture image name: "};
inline constexpr Message kWidthNoPowerOfTwo{Severity::kWarning, "Texture width must be power of 2 for repeat/flip: "};
inline constexpr Message kWidthTooSmall{Severity::kWarning, "Texture width must be greater equal 8 for repeat/flip: "};
inline constexpr Message kHeightNoPowerOfTwo{Severity::kWarning, "Texture height must be power of 2 for repeat/flip: "};
inline constexpr Message kHeightTooSmall{Severity::kWarning,
                                         "Texture height must be greater equal 8 for repeat/flip: "};

// Images: name and size follow, of kSameImageName the name and two lines of paths.
inline constexpr Message kImageTooLarge{Severity::kError, "Texture size over: "};
inline constexpr Message kImageSize{Severity::kWarning, "Size of texture is wrong: "};
inline constexpr Message kSameImageName{Severity::kWarning, "Same named texture file exist: "};
inline constexpr Message kTooLargeForBlocks{Severity::kWarning, "Texture is too large for tex4x4: "};
/// The text comes from the reader of the image and names the file.
inline constexpr Message kImageFailure{Severity::kError, ""};
inline constexpr Message kUncheckedImage{Severity::kWarning, ""}; // of a name check

// Patterns: the node's name follows, and what is wrong.
inline constexpr Message kNoPatternCurve{Severity::kWarning, "Animation curve is not connected to frame extension: "};
inline constexpr Message kDrivenPattern{Severity::kWarning,
                                        "Driven key is not supported for texture pattern animation: "};
inline constexpr Message kPatternPath{Severity::kError, "Texture animation path: "};
inline constexpr Message kFrameList{Severity::kError, "Invalid frame extension list: "};

// Palettes: the name follows, and a line that names both images.
inline constexpr Message kPaletteClash{Severity::kError, "Texture palette data is not identical: "};

// Information lines, which warn of nothing.
inline constexpr const char* kFoundElsewhere = "Texture image is read from another place: ";
inline constexpr const char* kAlphaReduced = "Too many colors for a translucent texture, alpha becomes on or off: ";

} // namespace tvk
