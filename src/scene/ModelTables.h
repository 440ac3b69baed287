#pragma once

#include "common/IndexedTable.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace tvk {

/// Components in 1/4096 of the scaled unit (see SceneData::positionScale), within 16 bits.
using FixedPosition = std::array<int16_t, 3>;
/// Components in 1/512, -512 to 511.
using FixedNormal = std::array<int16_t, 3>;
/// s and t in 1/16 texel.
using FixedTexCoord = std::array<int16_t, 2>;
/// Red in bits 0-4, green in 5-9, blue in 10-14.
using ColorWord = uint16_t;

struct FixedHash {
    uint64_t operator()(ColorWord color) const { return color; }

    template <std::size_t N>
    uint64_t operator()(const std::array<int16_t, N>& value) const {
        static_assert(N <= 4);
        uint64_t bits = 0;
        for (const int16_t component : value) {
            bits = (bits << 16) | static_cast<uint16_t>(component);
        }
        return bits;
    }
};

/// What the corners of all polygons refer to, each value once, in the order of its first use. Normals and texture
/// coordinates that no light or texture needs are not in it; positions are those of every vertex of every shape.
struct ModelTables {
    IndexedTable<FixedPosition, FixedHash> positions;
    IndexedTable<FixedNormal, FixedHash> normals;
    IndexedTable<ColorWord, FixedHash> colors;
    IndexedTable<FixedTexCoord, FixedHash> texCoords;
};

} // namespace tvk
