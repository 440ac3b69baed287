#include "export/nodeAnimationBody.h"

#include "animation/poolText.h"
#include "export/nodeArray.h"
#include "scene/Run.h"

namespace tvk {

MStatus writeNodeAnimationBody(std::ostream& out) {
    const SceneData& scene = run().scene;
    writePool(out, "node_scale_data", scene.nodeScaleData, true);
    writePool(out, "node_rotate_data", scene.nodeRotateData, true);
    writePool(out, "node_translate_data", scene.nodeTranslateData, true);
    return writeNodeArray(out, true);
}

} // namespace tvk
