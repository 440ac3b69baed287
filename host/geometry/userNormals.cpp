#include "host/geometry/userNormals.h"

#include <utility>

namespace host {

void carryUserNormals(const MeshData& from, MeshData& to, const std::vector<std::int32_t>& cornerFrom) {
    if (from.userNormals == nullptr) {
        return;
    }
    const NormalFans& before = from.topology->normalFans();
    const NormalFans& after = to.topology->normalFans();
    const float none = 2 * MeshData::kNotSet;
    Points normals(static_cast<std::size_t>(after.count), Imath::V3f(none));
    for (std::size_t corner = 0; corner < cornerFrom.size(); ++corner) {
        if (cornerFrom[corner] < 0) {
            continue;
        }
        const std::int32_t old = before.ofCorner[static_cast<std::size_t>(cornerFrom[corner])];
        Imath::V3f& normal = normals[static_cast<std::size_t>(after.ofCorner[corner])];
        if (normal.x == none && from.isUserNormal(old)) {
            normal = (*from.userNormals)[static_cast<std::size_t>(old)];
        }
    }
    to.userNormals = std::make_shared<const Points>(std::move(normals));
}

} // namespace host
