#include "host/geometry/meshNumbers.h"

#include "host/geometry/userNormals.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace host {

namespace {

std::size_t at(std::int32_t index) {
    return static_cast<std::size_t>(index);
}

ComponentRange oneOf(ComponentKind kind, IndexRange index) {
    ComponentRange range;
    range.kind = kind;
    range.index[0] = index;
    return range;
}

/// The new numbers of what components name, for one kind.
void addRenumbered(std::vector<ComponentRange>& ranges, ComponentKind kind, const ComponentList& list,
                   const Ids& numbers) {
    for (const IndexRange range : mergedRanges(list, kind)) {
        if (range.isAll()) {
            ranges.push_back(oneOf(kind, range));
            continue;
        }
        const std::int32_t last = std::min(range.last, static_cast<std::int32_t>(numbers.size()) - 1);
        for (std::int32_t index = range.first; index <= last; ++index) {
            const std::int32_t number = numbers[at(index)];
            if (number == kGone) {
                continue;
            }
            if (!ranges.empty() && ranges.back().kind == kind && ranges.back().index[0].last + 1 == number) {
                ranges.back().index[0].last = number;
            } else {
                ranges.push_back(oneOf(kind, {number, number}));
            }
        }
    }
}

} // namespace

Ids identity(std::int32_t count) {
    Ids numbers(at(count));
    std::iota(numbers.begin(), numbers.end(), 0);
    return numbers;
}

Ids numberUsed(const std::vector<bool>& used) {
    Ids numbers(used.size(), kGone);
    std::int32_t next = 0;
    for (std::size_t i = 0; i < used.size(); ++i) {
        numbers[i] = used[i] ? next++ : kGone;
    }
    return numbers;
}

std::shared_ptr<const ComponentList> renumbered(const ComponentList& list, const NewNumbers& numbers) {
    std::vector<ComponentRange> ranges;
    addRenumbered(ranges, ComponentKind::kVertex, list, numbers.vertices);
    addRenumbered(ranges, ComponentKind::kEdge, list, numbers.edges);
    addRenumbered(ranges, ComponentKind::kFace, list, numbers.faces);
    return std::make_shared<const ComponentList>(std::move(ranges));
}

std::shared_ptr<const ComponentList> withParts(const ComponentList& list, ComponentKind kind, const Ids& firstPart) {
    auto carried = std::make_shared<ComponentList>(list);
    for (ComponentRange& range : carried->ranges) {
        if (range.kind != kind || range.index[0].isAll()) {
            continue;
        }
        const auto count = static_cast<std::int32_t>(firstPart.size()) - 1;
        const std::int32_t first = std::min(range.index[0].first, count);
        const std::int32_t last = std::min(range.index[0].last, count - 1);
        range.index[0].first = firstPart[at(first)];
        range.index[0].last = last < first ? range.index[0].first : firstPart[at(last + 1)] - 1;
    }
    return carried;
}

Ids idsOfCorners(const FaceIds& ids, const MeshTopology& topology) {
    Ids ofCorners(at(topology.cornerCount()), kUnmapped);
    for (std::size_t i = 0; i < ids.faces.size(); ++i) {
        std::copy(ids.ids.begin() + ids.starts[i], ids.ids.begin() + ids.starts[i + 1],
                  ofCorners.begin() + topology.firstCorner(ids.faces[i]));
    }
    return ofCorners;
}

std::shared_ptr<const FaceIds> faceIdsOf(const Ids& ofCorners, const MeshTopology& topology) {
    auto ids = std::make_shared<FaceIds>();
    for (std::int32_t face = 0; face < topology.faceCount(); ++face) {
        const auto first = ofCorners.begin() + topology.firstCorner(face);
        const auto last = ofCorners.begin() + topology.firstCorner(face + 1);
        if (first == last || std::find(first, last, kUnmapped) != last) {
            continue;
        }
        ids->faces.push_back(face);
        ids->ids.insert(ids->ids.end(), first, last);
        ids->starts.push_back(static_cast<std::int32_t>(ids->ids.size()));
    }
    return ids;
}

void dropUnusedUvs(UvSet& set) {
    std::vector<bool> used(set.points->size(), false);
    for (const std::int32_t id : set.ids->ids) {
        used[at(id)] = true;
    }
    const Ids numbers = numberUsed(used);
    auto ids = std::make_shared<FaceIds>(*set.ids);
    for (std::int32_t& id : ids->ids) {
        id = numbers[at(id)];
    }
    set.points = std::make_shared<const std::vector<Imath::V2f>>(pick(*set.points, numbers));
    set.ids = std::move(ids);
}

void carryCorners(const MeshData& mesh, MeshData& made, const Ids& cornerFrom) {
    const auto carry = [&](std::shared_ptr<const FaceIds>& ids) {
        const Ids before = idsOfCorners(*ids, *mesh.topology);
        Ids after(cornerFrom.size());
        std::transform(cornerFrom.begin(), cornerFrom.end(), after.begin(),
                       [&](std::int32_t corner) { return corner == kGone ? kUnmapped : before[at(corner)]; });
        ids = faceIdsOf(after, *made.topology);
    };
    for (UvSet& set : made.uvSets) {
        carry(set.ids);
    }
    for (ColorSet& set : made.colorSets) {
        carry(set.ids);
    }
    carryUserNormals(mesh, made, cornerFrom);
}

} // namespace host
