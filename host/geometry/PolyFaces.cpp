#include "host/geometry/PolyFaces.h"

#include <algorithm>

namespace host {

const std::int32_t* FaceIds::find(std::int32_t face, std::int32_t& count) const {
    count = 0;
    auto at = static_cast<std::size_t>(face);
    if (face < 0 || at >= faces.size() || faces[at] != face) {
        const auto found = std::lower_bound(faces.begin(), faces.end(), face);
        if (found == faces.end() || *found != face) {
            return nullptr;
        }
        at = static_cast<std::size_t>(found - faces.begin());
    }
    count = starts[at + 1] - starts[at];
    return ids.data() + starts[at];
}

} // namespace host
