#include "animation/visibilityBody.h"

#include "animation/ChangeListPool.h"
#include "common/fixedPoint.h"
#include "scene/Run.h"
#include "scene/xmlText.h"

#include <algorithm>
#include <ostream>
#include <vector>

namespace tvk {
namespace {

std::vector<int32_t> switchValues(const AnimTrack& track) {
    std::vector<int32_t> values(track.samples.size());
    std::transform(track.samples.begin(), track.samples.end(), values.begin(),
                   [](float sample) { return roundClamped(sample, 0, 1); });
    return values;
}

void writePool(std::ostream& out, const ChangeListPool& pool) {
    if (pool.empty()) {
        return;
    }
    out << "<visibility_data>\n";
    writeValueBlock(out, "frame_idx", pool.frames());
    writeValueBlock(out, "visibility", pool.values());
    out << "</visibility_data>\n\n";
}

} // namespace

MStatus writeVisibilityBody(std::ostream& out) {
    const std::vector<NodeRecord*>& nodes = run().scene.outputNodes;
    if (nodes.empty()) {
        return MS::kSuccess;
    }
    ChangeListPool pool;
    for (NodeRecord* node : nodes) {
        pool.encode(switchValues(node->visibilityTrack), false, node->visibilityTrack);
    }
    writePool(out, pool);
    out << "<visibility_anm_array";
    writeAttribute(out, "size", static_cast<int64_t>(nodes.size()));
    out << ">\n";
    for (const NodeRecord* node : nodes) {
        out << "\t<visibility_anm";
        writeAttribute(out, "index", node->index);
        writeAttribute(out, "data_size", node->visibilityTrack.dataSize);
        writeAttribute(out, "data_head", node->visibilityTrack.dataHead);
        out << "/>\n";
    }
    out << "</visibility_anm_array>\n\n";
    return MS::kSuccess;
}

} // namespace tvk
