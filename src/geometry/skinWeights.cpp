#include "geometry/skinWeights.h"

#include "geometry/componentSubjects.h"
#include "geometry/geometryMessages.h"
#include "scene/Run.h"
#include "scene/hostCompatibility.h"

#include <maya/MFnSingleIndexedComponent.h>
#include <maya/MFnSkinCluster.h>
#include <maya/MIntArray.h>

#include <algorithm>
#include <numeric>

namespace tvk {
namespace {

// Vertices whose weights are fetched at a time: few calls, and no memory for vertices times influences.
constexpr int32_t kBlockVertices = 4096;

MObject vertexComponent(int32_t first, int32_t count) {
    MIntArray vertices(static_cast<unsigned int>(count));
    for (int32_t i = 0; i < count; ++i) {
        vertices[static_cast<unsigned int>(i)] = first + i;
    }
    MFnSingleIndexedComponent function;
    const MObject component = function.create(MFn::kMeshVertComponent);
    function.addElements(vertices);
    return component;
}

class SkinBinding {
public:
    SkinBinding(const MFnSkinCluster& skinCluster, const ShapeRecord& shapeRecord, VertexBinder& vertexBinder)
        : skin(skinCluster), shape(shapeRecord), binder(vertexBinder), ranks(influenceRanks(shapeRecord)) {}

    MStatus bindAll() {
        for (int32_t first = 0; first < shape.vertexCount; first += kBlockVertices) {
            const int32_t count = std::min(kBlockVertices, shape.vertexCount - first);
            const MStatus status = readWeights(first, count) ? bindBlock(first, count) : bindOneByOne(first, count);
            if (!status) {
                return status;
            }
        }
        return MS::kSuccess;
    }

private:
    bool readWeights(int32_t first, int32_t count) {
        unsigned int influences = 0;
        const MStatus status = skin.getWeights(shape.path, vertexComponent(first, count), weights, influences);
        return status && influences == shape.influences.size() &&
               weights.length() == influences * static_cast<unsigned int>(count);
    }

    // To find the vertex that makes the block fail.
    MStatus bindOneByOne(int32_t first, int32_t count) {
        for (int32_t vertex = first; vertex < first + count; ++vertex) {
            if (!readWeights(vertex, 1)) {
                say(kCantGetSkinWeight, vertexSubject(shape.path, vertex));
                return MS::kFailure;
            }
            const MStatus status = bindBlock(vertex, 1);
            if (!status) {
                return status;
            }
        }
        return MS::kSuccess;
    }

    MStatus bindBlock(int32_t first, int32_t count) {
        const auto influences = static_cast<int32_t>(shape.influences.size());
        row.resize(shape.influences.size());
        for (int32_t i = 0; i < count; ++i) {
            for (int32_t k = 0; k < influences; ++k) {
                row[static_cast<std::size_t>(k)] = weights[static_cast<unsigned int>(i * influences + k)];
            }
            if (run().options.forceFullWeight) {
                findFullShare(row.data(), influences, ranks, shares);
            } else if (isWholeWeight(std::accumulate(row.begin(), row.end(), 0.0))) {
                findShares(row.data(), influences, shares);
            } else {
                say(kWrongWeightedVertices, vertexSubject(shape.path, first + i));
                return MS::kFailure;
            }
            binder.bind(shares);
        }
        return MS::kSuccess;
    }

    const MFnSkinCluster& skin;
    const ShapeRecord& shape;
    VertexBinder& binder;
    const std::vector<int32_t> ranks;
    SkinWeightArray weights;
    std::vector<double> row;
    std::vector<InfluenceShare> shares;
};

} // namespace

std::vector<int32_t> influenceRanks(const ShapeRecord& shape) {
    std::vector<int32_t> ranks;
    ranks.reserve(shape.influences.size());
    for (const Influence& influence : shape.influences) {
        ranks.push_back(influence.node->index);
    }
    return ranks;
}

MStatus bindToSkin(const MObject& skinCluster, const ShapeRecord& shape, VertexBinder& binder) {
    MStatus status;
    const MFnSkinCluster skin(skinCluster, &status);
    if (!status) {
        say(kCantGetSkinWeight, vertexSubject(shape.path, 0));
        return status;
    }
    return SkinBinding(skin, shape, binder).bindAll();
}

} // namespace tvk
