#include "host/geometry/checkIds.h"

#include <algorithm>

namespace host {

namespace {

std::string findBadIds(std::int32_t face, const std::int32_t* first, const std::int32_t* last,
                       const MeshTopology& topology, std::int32_t count, std::int32_t lowest) {
    if (last - first != topology.cornerCount(face)) {
        return "face " + std::to_string(face) + " has " + std::to_string(topology.cornerCount(face)) + " corners but " +
               std::to_string(last - first) + " ids";
    }
    const auto* bad = std::find_if(first, last, [&](std::int32_t id) { return id < lowest || id >= count; });
    return bad == last
               ? ""
               : "face " + std::to_string(face) + " names " + std::to_string(*bad) + " of " + std::to_string(count);
}

} // namespace

std::shared_ptr<const FaceIds> checkedIds(std::shared_ptr<const FaceIds> ids, const MeshTopology& topology,
                                          std::int32_t count, std::int32_t lowest, std::string& problem) {
    std::vector<bool> keeps(ids->faces.size(), true);
    bool keepsAll = true;
    std::string first;
    for (std::size_t i = 0; i < ids->faces.size(); ++i) {
        const std::int32_t face = ids->faces[i];
        const bool exists = face >= 0 && face < topology.faceCount();
        const std::int32_t* list = ids->ids.data();
        const std::string bad =
            exists ? findBadIds(face, list + ids->starts[i], list + ids->starts[i + 1], topology, count, lowest) : "";
        keeps[i] = exists && bad.empty();
        keepsAll = keepsAll && keeps[i];
        first = first.empty() ? bad : first;
    }
    if (keepsAll) {
        return ids;
    }
    if (!first.empty()) {
        problem = first;
    }
    auto kept = std::make_shared<FaceIds>();
    for (std::size_t i = 0; i < ids->faces.size(); ++i) {
        if (keeps[i]) {
            kept->faces.push_back(ids->faces[i]);
            kept->ids.insert(kept->ids.end(), ids->ids.begin() + ids->starts[i], ids->ids.begin() + ids->starts[i + 1]);
            kept->starts.push_back(static_cast<std::int32_t>(kept->ids.size()));
        }
    }
    return kept;
}

} // namespace host
