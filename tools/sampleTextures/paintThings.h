#pragma once

#include "sampleTextures/Picture.h"

#include <cstdint>
#include <vector>

namespace tvk::samples {

// Pictures with something around them that is not there.

Picture paintLeaf();           // 32 x 32, holes, at most 15 colours
Picture paintGlow();           // 32 x 32, translucent, at most 8 colours
Picture paintSmoke();          // 32 x 32, translucent, 9 to 32 colours
Picture paintWindow();         // 32 x 32, holes, many colours
Picture paintTorch(int frame); // 16 x 32, holes, at most 15 colours; frames 1 to 3

/// A picture that was made for a palette: one index per texel, in the order of the pixels.
struct IndexedPicture {
    int width, height;
    std::vector<uint8_t> indices;
    std::vector<uint16_t> palette; // red in bits 0-4, green in 5-9, blue in 10-14
    bool color0Transparent;
};

IndexedPicture paintLamp(bool isOn); // 16 x 16; both have one palette of 16 colours
IndexedPicture paintSign();          // 32 x 16, 4 colours, the first is transparent

/// What it looks like.
Picture pictureOf(const IndexedPicture& indexed);

} // namespace tvk::samples
