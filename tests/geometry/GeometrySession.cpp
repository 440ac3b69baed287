#include "GeometrySession.h"

#include "export/nodeTransforms.h"
#include "export/nodeTree.h"
#include "geometry/bindPose.h"
#include "geometry/modelTables.h"
#include "geometry/nodeReferences.h"
#include "geometry/polygonRecords.h"
#include "geometry/shapeReading.h"
#include "geometry/vertexPlacement.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace tvk {

MStatus GeometrySession::readShapesOf(const std::string& statements, const std::string& options) {
    open(statements);
    prepareRun(options);
    return readOpenShapes();
}

MStatus GeometrySession::readOpenShapes() {
    EXPECT_TRUE(buildNodeTree());
    markInfluences(scene());
    EXPECT_TRUE(readNodeTransforms(findBindMatrix));
    return readShapes();
}

MStatus GeometrySession::buildRecordsOf(const std::string& statements, const std::string& options) {
    const MStatus status = readShapesOf(statements, options);
    return status ? buildPolygonRecords() : status;
}

MStatus GeometrySession::gatherFrom(const std::string& statements, const std::string& options) {
    const MStatus status = buildRecordsOf(statements, options);
    if (status) {
        resolveNodeReferences(scene());
        placeVertices(scene(), run().options.unite);
        fillTables(scene(), run().options.unite);
    }
    return status;
}

NodeRecord& GeometrySession::record(const std::string& name) const {
    for (const auto& node : scene().nodes) {
        if (node->name == name) {
            return *node;
        }
    }
    throw std::runtime_error("no record " + name);
}

std::string GeometrySession::binding(std::size_t vertex) const {
    const MatrixRecord& matrix = scene().matrices.at(static_cast<std::size_t>(scene().vertexMatrices.at(vertex)));
    if (!matrix.isBlend()) {
        return matrix.node->name + " 100";
    }
    std::string text;
    for (int32_t i = 0; i < matrix.weightCount; ++i) {
        const EnvelopeEntry& entry = scene().envelope.at(static_cast<std::size_t>(matrix.envelopeHead + i));
        text += (i == 0 ? "" : ", ") + entry.node->name + " " + std::to_string(entry.weight);
    }
    return text;
}

} // namespace tvk
