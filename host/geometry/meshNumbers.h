#pragma once

#include "host/geometry/MeshData.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

// What operations on meshes have in common: things that get other numbers, and values that stay with their corners.

namespace host {

using Ids = std::vector<std::int32_t>;

constexpr std::int32_t kGone = -1;

/// 0 … count - 1.
Ids identity(std::int32_t count);
/// Numbers what is used, in order: per old index the new one, or kGone.
Ids numberUsed(const std::vector<bool>& used);
/// The items that are not gone, in their old order.
template <typename Item>
std::vector<Item> pick(const std::vector<Item>& items, const Ids& numbers) {
    std::vector<Item> picked;
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (numbers[i] != kGone) {
            picked.push_back(items[i]);
        }
    }
    return picked;
}

/// What became of the parts of a mesh: per old number the new one, or kGone.
struct NewNumbers {
    Ids vertices, edges, faces;
};

/// The vertices, edges and faces of the list by their new numbers; other components are left out.
std::shared_ptr<const ComponentList> renumbered(const ComponentList& list, const NewNumbers& numbers);
/// The list with each component c of one kind replaced by its parts, firstPart[c] … firstPart[c + 1] - 1.
std::shared_ptr<const ComponentList> withParts(const ComponentList& list, ComponentKind kind, const Ids& firstPart);

/// No face has such an id; a colour id of -1 is something else.
constexpr std::int32_t kUnmapped = -2;
/// The ids of one set per corner of the mesh; kUnmapped at the corners of faces that have none.
Ids idsOfCorners(const FaceIds& ids, const MeshTopology& topology);
/// The other way: a face with an unmapped corner has no ids.
std::shared_ptr<const FaceIds> faceIdsOf(const Ids& ofCorners, const MeshTopology& topology);

/// Leaves out the coordinates that no face uses.
void dropUnusedUvs(UvSet& set);

/// Gives `made`, a copy of `mesh` with other topology, what the corners of `mesh` have in its UV and colour sets and
/// user normals: corner c of `made` was cornerFrom[c], or has nothing when that is kGone.
void carryCorners(const MeshData& mesh, MeshData& made, const Ids& cornerFrom);

} // namespace host
