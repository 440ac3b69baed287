#pragma once

#include "image/tex4x4/blockTexels.h"

#include <array>
#include <cstddef>

namespace tvk {

// For listFit.cpp only: lists to begin the search with.

/// Weighted texels in one heap: their sums, and the sum of their squares over the channels.
struct TexelHeap {
    float weight = 0;
    std::array<float, 3> values{};
    float squares = 0;

    void add(TexelView texels, size_t i);
    void add(const TexelHeap& other, float sign);
    float spread() const; // squared distances from the mean
    Levels mean(const Tex4x4Colors& colors) const;
};

struct ListTask {
    const Tex4x4Colors& colors;
    TexelView texels;    // at most kBlockTexels
    size_t length = 0;   // of the list, 3 or 4
    size_t distinct = 0; // texels that weigh something; they stand first

    Levels levelsOf(size_t texel) const {
        return colors.nearestLevels(texels.channels[0][texel], texels.channels[1][texel], texels.channels[2][texel]);
    }
};

using ColorList = std::array<Levels, 4>;

/// Of all colours of the console that some texel is nearest to, the one that is missed least goes, until there are few
/// enough. Where texels lie closer together than the console's colours, nothing else finds the best ones.
ColorList dropLevels(const ListTask& task);

/// The two heaps of texels that lose least by it become one, until there are few enough. More texels than the list
/// holds.
ColorList joinHeaps(const ListTask& task);

/// The best cuts of the order of the texels along their axis. More texels than the list holds.
ColorList cutAxis(const ListTask& task);

} // namespace tvk
