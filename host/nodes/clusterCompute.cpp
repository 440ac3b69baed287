#include "host/nodes/clusterCompute.h"

#include "host/nodes/address.h"
#include "host/nodes/dagCompute.h"
#include "host/nodes/deformerCompute.h"
#include "host/nodes/pointWeights.h"

#include "host/graph/Evaluation.h"

namespace host {

namespace {

struct ClusterAttributes {
    explicit ClusterAttributes(const NodeType& type)
        : weights(type.find("weights")), bindPreMatrix(type.find("bindPreMatrix")), geomMatrix(type.find("geomMatrix")),
          matrix(type.find("matrix")), xforms(type.find("clusterXforms")), preMatrix(type.find("preMatrix")),
          weightedMatrix(type.find("weightedMatrix")), postMatrix(type.find("postMatrix")) {}

    AttrIndex weights, bindPreMatrix, geomMatrix, matrix, xforms, preMatrix, weightedMatrix, postMatrix;
};

/// World space before to world space after.
Matrix44 movement(Evaluation& evaluation, Node& node, const ClusterAttributes& attr) {
    const Graph& graph = evaluation.graph();
    const bool hasXforms =
        graph.isDriven({&node, address(attr.xforms)}) || graph.hasStored({&node, address(attr.weightedMatrix)});
    if (hasXforms) {
        return evaluation.matrix(node, address(attr.preMatrix)) *
               evaluation.matrix(node, address(attr.weightedMatrix)) *
               evaluation.matrix(node, address(attr.postMatrix));
    }
    return evaluation.matrix(node, address(attr.bindPreMatrix)) * evaluation.matrix(node, address(attr.matrix));
}

void applyMovement(Evaluation& evaluation, Node& node, std::int32_t element, Points& points,
                   const ClusterAttributes& attr) {
    const Matrix44 geometry = evaluation.matrix(node, address(attr.geomMatrix).element(element));
    const Matrix44 whole = geometry * movement(evaluation, node, attr) * geometry.inverse();
    const PointWeights weights(evaluation, node, address(attr.weights).element(element));
    for (std::size_t i = 0; i < points.size(); ++i) {
        const Imath::V3d point(points[i]);
        points[i] = Imath::V3f(point + weights.of(i) * (point * whole - point));
    }
}

void applyCluster(Evaluation& evaluation, Node& node, std::int32_t element, MeshData&, Points& points) {
    static const ClusterAttributes kAttributes(node.type());
    applyMovement(evaluation, node, element, points, kAttributes);
}

void applyJointCluster(Evaluation& evaluation, Node& node, std::int32_t element, MeshData&, Points& points) {
    static const ClusterAttributes kAttributes(node.type());
    applyMovement(evaluation, node, element, points, kAttributes);
}

struct HandleAttributes {
    explicit HandleAttributes(const NodeType& type)
        : preMatrix(type.find("preMatrix")), weightedMatrix(type.find("weightedMatrix")),
          postMatrix(type.find("postMatrix")) {}

    AttrIndex preMatrix, weightedMatrix, postMatrix;
};

} // namespace

void computeCluster(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    computeDeformer(evaluation, node, output, node.type().isKindOf("jointCluster") ? applyJointCluster : applyCluster);
}

void computeClusterHandle(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    static const HandleAttributes kAttributes(node.type());
    const bool isOwn = output.attr == kAttributes.preMatrix || output.attr == kAttributes.weightedMatrix ||
                       output.attr == kAttributes.postMatrix;
    if (!isOwn) {
        computeDagMatrices(evaluation, node, output);
        return;
    }
    if (node.parents().empty() || node.parents().front()->type().dagRole != DagRole::kTransform) {
        evaluation.putMatrix(node, output, {});
        return;
    }
    // Instances of a handle move with the first.
    Node& handle = *node.parents().front();
    const PlugAddress path = PlugAddress{kNoAttr, 0, {}}.element(output.index[0]);
    const char* source = output.attr == kAttributes.preMatrix    ? "parentInverseMatrix"
                         : output.attr == kAttributes.postMatrix ? "parentMatrix"
                                                                 : "dagLocalMatrix";
    PlugAddress from = output.attr == kAttributes.weightedMatrix ? PlugAddress{} : path;
    from.attr = handle.type().find(source);
    evaluation.putMatrix(node, output, evaluation.graph().matrix({&handle, from}));
}

} // namespace host
