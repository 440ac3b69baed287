#include "geometry/Corner.h"

namespace tvk {

std::vector<std::size_t> faceStarts(const FaceList& faces) {
    std::vector<std::size_t> starts;
    starts.reserve(faces.sizes.size() + 1);
    std::size_t start = 0;
    for (const uint8_t size : faces.sizes) {
        starts.push_back(start);
        start += size;
    }
    starts.push_back(start);
    return starts;
}

} // namespace tvk
