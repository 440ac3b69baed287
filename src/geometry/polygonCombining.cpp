#include "geometry/polygonCombining.h"

#include <iterator>
#include <map>
#include <tuple>
#include <utility>

namespace tvk {
namespace {

using Key = std::tuple<int32_t, bool, bool, bool, bool>;

Key keyOf(const PolygonRecord& polygon) {
    return {polygon.material, polygon.nrmFlag, polygon.clrFlag, polygon.texFlag, polygon.resetNormalAfterTexture};
}

void append(PolygonRecord& polygon, PolygonRecord& other) {
    polygon.parts.insert(polygon.parts.end(), std::make_move_iterator(other.parts.begin()),
                         std::make_move_iterator(other.parts.end()));
    polygon.triangleCount += other.triangleCount;
    other.parts.clear();
    other.triangleCount = 0;
    other.dropped = true;
}

} // namespace

void combinePolygons(SceneData& scene) {
    std::map<Key, PolygonRecord*> firsts;
    for (PolygonRecord& polygon : scene.polygons) {
        const auto [first, isNew] = firsts.try_emplace(keyOf(polygon), &polygon);
        if (!isNew) {
            append(*first->second, polygon);
        }
    }
}

} // namespace tvk
