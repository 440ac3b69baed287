#include "host/nodes/shadingCompute.h"

#include "host/graph/Evaluation.h"

namespace host {

namespace {

/// The two node types declare the same attributes in the same order.
struct BumpAttributes {
    explicit BumpAttributes(const NodeType& type)
        : normalX(type.find("normalCameraX")), outNormalX(type.find("outNormalX")) {}

    AttrIndex normalX, outNormalX;
};

} // namespace

void computeBump(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    static const BumpAttributes kAttributes(node.type());
    evaluation.putNumber(node, output,
                         evaluation.number(node, kAttributes.normalX + (output.attr - kAttributes.outNormalX)));
}

} // namespace host
