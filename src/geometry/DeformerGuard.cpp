#include "geometry/DeformerGuard.h"

#include "scene/plugReading.h"

namespace tvk {

DeformerGuard::DeformerGuard(const std::vector<MObject>& deformers) {
    constexpr int kHasNoEffect = 1;
    saved.reserve(deformers.size());
    for (MObject deformer : deformers) {
        MStatus status;
        const MFnDependencyNode node(deformer, &status);
        const MPlug plug = status ? findPlug(node, "nodeState") : MPlug();
        int state = 0;
        if (!readPlug(plug, state)) {
            allOff = false;
        } else if (state != kHasNoEffect) {
            MPlug changed = plug;
            if (changed.setValue(kHasNoEffect)) {
                saved.push_back({plug, state});
            } else {
                allOff = false;
            }
        }
    }
}

DeformerGuard::~DeformerGuard() {
    for (auto each = saved.rbegin(); each != saved.rend(); ++each) {
        each->plug.setValue(each->state);
    }
}

} // namespace tvk
