#include "host/geometry/MeshData.h"

#include "host/geometry/meshNormals.h"

#include <algorithm>

namespace host {

namespace {

template <typename Set>
const Set* findSet(const std::vector<Set>& sets, std::string_view name, std::string_view current) {
    const auto find = [&sets](std::string_view wanted) {
        return std::find_if(sets.begin(), sets.end(), [&](const Set& set) { return set.name == wanted; });
    };
    const auto found = find(name.empty() ? current : name);
    if (found != sets.end()) {
        return &*found;
    }
    return name.empty() && !sets.empty() ? &sets.front() : nullptr;
}

} // namespace

const UvSet* MeshData::findUvSet(std::string_view name) const {
    return findSet(uvSets, name, currentUvSet);
}

const ColorSet* MeshData::findColorSet(std::string_view name) const {
    return findSet(colorSets, name, currentColorSet);
}

const ComponentGroup* MeshData::findGroup(std::int32_t id) const {
    const auto found =
        std::find_if(groups.begin(), groups.end(), [id](const ComponentGroup& group) { return group.id == id; });
    return found == groups.end() ? nullptr : &*found;
}

const ComponentTag* MeshData::findTag(std::string_view name) const {
    const auto found =
        std::find_if(tags.begin(), tags.end(), [name](const ComponentTag& tag) { return tag.name == name; });
    return found == tags.end() ? nullptr : &*found;
}

const Points& MeshData::normals() const {
    return normals_.get([this] { return computeNormals(*this); });
}

bool MeshData::isUserNormal(std::int32_t normalId) const {
    if (userNormals == nullptr || static_cast<std::size_t>(normalId) >= userNormals->size()) {
        return false;
    }
    const Imath::V3f& normal = (*userNormals)[static_cast<std::size_t>(normalId)];
    return std::max({normal.x, normal.y, normal.z}) < kNotSet;
}

MeshPtr meshOf(const DataPtr& data) {
    return data != nullptr && data->kind == DataKind::kMesh ? std::static_pointer_cast<const MeshData>(data) : nullptr;
}

} // namespace host
