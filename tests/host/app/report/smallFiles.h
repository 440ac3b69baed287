#pragma once

#include <string>

namespace host::app::report {

// Files of one small model, written by hand so that everything in them can be counted by hand as well.

/// Three nodes: "root"; "box", which draws a strip of 3 quads and a single quad, 12 vertices; and "fan" (its name is
/// two Japanese letters), which draws a strip of 4 triangles and 2 single ones, 12 vertices, on 2 matrices between
/// which it switches 3 times. Materials: "air" of the fan, untextured, and "ground" of the box with the image "grass".
/// Images of 8 by 8: "grass" palette16 with 16 colours, "leaf" palette4 and "tiles" tex4x4, which share 8 colours, and
/// "sky" direct.
std::string smallModel();

/// 3 frames, held: one node turns about x and another in the same way about y; everything else stands still.
std::string smallNodeAnimation();

/// 3 frames in curves: 13 channels of "ground" that stand still in the same 2 keys.
std::string smallColorAnimation();

/// 3 frames: "ground" shows grass, leaf and tiles.
std::string smallPatternAnimation();

/// 3 frames: "fan" vanishes at the second.
std::string smallVisibilityAnimation();

/// Nothing is animated.
std::string smallPlacementAnimation();

/// `text` with the first `from` replaced by `to`; a test failure when there is none.
std::string changed(std::string text, const std::string& from, const std::string& to);

} // namespace host::app::report
