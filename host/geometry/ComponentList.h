#pragma once

#include "host/graph/Data.h"

#include <array>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace host {

enum class ComponentKind : std::uint8_t {
    kVertex,       // vtx[v]
    kEdge,         // e[e]
    kFace,         // f[f]
    kUv,           // map[i] of a mesh, uv[u][v] of a surface keeps two ranges
    kFaceVertex,   // vtxFace[a][b], both numbers as the file gives them
    kControlPoint, // cv[i] of a curve, cv[u][v] of a surface
    kLatticePoint, // pt[s][t][u]; pt[i] of a mesh is not a component
};

/// first … last, both included, 0 <= first <= last; all() is every index that there is.
struct IndexRange {
    std::int32_t first = 0;
    std::int32_t last = 0;

    static constexpr IndexRange all() { return {0, std::numeric_limits<std::int32_t>::max()}; }
    constexpr bool isAll() const { return first == 0 && last == std::numeric_limits<std::int32_t>::max(); }
    friend bool operator==(IndexRange a, IndexRange b) { return a.first == b.first && a.last == b.last; }
};

/// A block of components: one range per index, 1 to 3 of them; the ranges beyond `dimensions` stay {0, 0}.
struct ComponentRange {
    static constexpr int kMaxDimensions = 3;

    ComponentKind kind = ComponentKind::kVertex;
    std::int8_t dimensions = 1;
    std::array<IndexRange, kMaxDimensions> index{};
};

/// "f[0:2]", "vtx[*]", "vtxFace[3][1]", "cv[0:3][*]". False, and `range` untouched, for anything else: an unknown
/// word, no index, more than three, a negative or backward range, trailing text, numbers beyond 31 bits.
bool parseComponent(std::string_view text, ComponentRange& range);
/// The same text again.
std::string componentText(const ComponentRange& range);

/// The value of a componentList attribute, in file order; ranges may overlap.
struct ComponentList final : Data {
    ComponentList() : Data(DataKind::kComponentList) {}
    explicit ComponentList(std::vector<ComponentRange> components)
        : Data(DataKind::kComponentList), ranges(std::move(components)) {}

    std::vector<ComponentRange> ranges;
};

/// The indices of one kind of one-dimensional component: ascending ranges that neither overlap nor touch. Ranges of
/// other kinds and of more dimensions are left out.
std::vector<IndexRange> mergedRanges(const ComponentList& list, ComponentKind kind);

} // namespace host
