#include "geometry/outerWorld.h"

#include "scene/nodeMatrix.h"

namespace tvk {

MMatrix outerWorldOf(const NodeRecord& node, double magnify) {
    const NodeRecord* top = &node;
    while (top->scene.parent != nullptr && top->scene.parent->hasDagNode) {
        top = top->scene.parent;
    }
    MDagPath above = top->path;
    above.pop();
    return above.length() == 0 ? MMatrix::identity : withScaledTranslation(above.inclusiveMatrix(), magnify);
}

} // namespace tvk
