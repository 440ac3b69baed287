#pragma once

#include "image/tex4x4/blockTexels.h"

#include <array>
#include <cstddef>

namespace tvk {

/// Colours of a list that a block's texels choose from without mixing: three beside holes, else four.
constexpr size_t listLength(bool hasHoles) {
    return hasHoles ? 3 : 4;
}

struct ListFit {
    std::array<Levels, 4> colors{}; // in ascending order of their words; the fourth of three repeats the third
    float error = 0;
};

/// A list that serves texels well: as many different colours as it holds exactly, else near the optimum.
///   texels   weigh something; at most kBlockTexels
ListFit fitList(const Tex4x4Colors& colors, TexelView texels, bool hasHoles);

} // namespace tvk
