#pragma once

#include "image/tex4x4/blockTexels.h"

#include <array>
#include <cstddef>

namespace tvk {

/// The places of a pair's colours that texels can fall to: the two entries and the three mixes.
inline constexpr size_t kPairPlaces = 2 + Tex4x4Colors::kMixes;

/// The texels of one place of a pair: all that their error depends on, besides the pair.
struct PlaceSums {
    float weight = 0;
    std::array<float, 3> values{}; // weighted
};

/// The texels of any number of blocks that a pair of entries serves, by place.
struct PairSums {
    std::array<PlaceSums, kPairPlaces> places{};

    void add(size_t place, float weight, float red, float green, float blue);
};

/// The place that a texel index means in a mode of pairs.
constexpr size_t placeOf(Tex4x4Mode mode, size_t index) {
    return index < 2 || mode == Tex4x4Mode::kPair ? index : kPairPlaces - 1;
}

/// Moves a pair to the entries of least error for texels that keep their places: least squares, then every pair of
/// levels near that, channel by channel. A colour that no texel tells about stays where it is.
void refitPair(const Tex4x4Colors& colors, const PairSums& sums, ColorPair& pair);

struct PairFit {
    ColorPair pair;
    float error = 0;
};

/// The error of texels under a pair in the better of its modes; with holes there is but one.
float pairError(const Tex4x4Colors& colors, TexelView texels, bool hasHoles, const ColorPair& pair, Tex4x4Mode& mode);

enum class PairEffort {
    kQuick,   // from the ends of the axis: finds pairs whose mixes are just the colours that are asked for
    kThorough // from several starts, with steps of single levels at the end
};

/// A pair that serves texels well: of at most two colours exactly, else near the optimum when it is thorough.
///   texels   weigh something
PairFit fitPair(const Tex4x4Colors& colors, TexelView texels, bool hasHoles, PairEffort effort);

} // namespace tvk
