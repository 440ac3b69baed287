#pragma once

#include "host/geometry/subdivision.h"

#include "host/geometry/userNormals.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <unordered_map>
#include <utility>
#include <vector>

// What the corners of a mesh that is cut into quads have; for the operations of this room that cut.

namespace host {

/// Per corner of the cut mesh, the corner that it was, or kGone for a new one.
inline Ids oldCorners(const CutMesh& cut) {
    Ids corners(cut.sources.size());
    std::transform(cut.sources.begin(), cut.sources.end(), corners.begin(),
                   [](const CutMesh::Source& source) { return source.isOld() ? source.first : kGone; });
    return corners;
}

/// Groups name the parts of the faces and edges that they named.
inline void carryGroups(const CutMesh& cut, std::vector<ComponentGroup>& groups) {
    for (ComponentGroup& group : groups) {
        const auto faces = withParts(*group.components, ComponentKind::kFace, cut.firstFace);
        group.components = withParts(*faces, ComponentKind::kEdge, cut.firstEdge);
    }
}

/// The values of one set for the corners of a cut mesh: averages where corners are new, shared where those that they
/// lie between are. A corner between one with a value and one without has none.
template <typename Value>
class ValueCutter {
public:
    ValueCutter(const MeshTopology& topology, const CutMesh& cut, const std::vector<Value>& values, const FaceIds& ids)
        : topology_(topology), cut_(cut), values_(values), before_(idsOfCorners(ids, topology)) {}

    void run(std::shared_ptr<const std::vector<Value>>& values, std::shared_ptr<const FaceIds>& ids) {
        Ids after;
        after.reserve(cut_.sources.size());
        std::int32_t lastFace = kGone;
        std::int32_t middle = kUnmapped;
        for (const CutMesh::Source& source : cut_.sources) {
            if (source.first != kGone) {
                after.push_back(halfway(before_[index(source.first)], before_[index(source.second)]));
                continue;
            }
            if (source.second != lastFace) {
                lastFace = source.second;
                middle = middleOf(lastFace);
            }
            after.push_back(middle);
        }
        values = std::make_shared<const std::vector<Value>>(std::move(values_));
        ids = faceIdsOf(after, *cut_.topology);
    }

private:
    static std::size_t index(std::int32_t number) { return static_cast<std::size_t>(number); }

    std::int32_t add(const Value& value) {
        values_.push_back(value);
        return static_cast<std::int32_t>(values_.size()) - 1;
    }

    std::int32_t halfway(std::int32_t a, std::int32_t b) {
        if (a == b || a < 0 || b < 0) {
            return std::min(a, b);
        }
        constexpr unsigned kBits = 32;
        const auto key =
            (static_cast<std::uint64_t>(std::min(a, b)) << kBits) | static_cast<std::uint32_t>(std::max(a, b));
        const auto [entry, isNew] = halves_.emplace(key, 0);
        if (isNew) {
            entry->second = add((values_[index(a)] + values_[index(b)]) / 2.0F);
        }
        return entry->second;
    }

    std::int32_t middleOf(std::int32_t face) {
        Value sum(0.0F);
        const std::int32_t first = topology_.firstCorner(face);
        const std::int32_t count = topology_.cornerCount(face);
        for (std::int32_t corner = first; corner < first + count; ++corner) {
            const std::int32_t id = before_[index(corner)];
            if (id < 0) {
                return id;
            }
            sum += values_[index(id)];
        }
        return add(sum / static_cast<float>(count));
    }

    const MeshTopology& topology_;
    const CutMesh& cut_;
    std::vector<Value> values_;
    Ids before_;
    std::unordered_map<std::uint64_t, std::int32_t> halves_; // by lower and higher id
};

template <typename Value>
void cutValues(const MeshTopology& topology, const CutMesh& cut, std::shared_ptr<const std::vector<Value>>& values,
               std::shared_ptr<const FaceIds>& ids) {
    ValueCutter<Value>(topology, cut, *values, *ids).run(values, ids);
}

} // namespace host
