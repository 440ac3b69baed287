#include "geometry/clusterReading.h"

#include "geometry/componentSubjects.h"
#include "geometry/geometryMessages.h"
#include "geometry/skinWeights.h"
#include "scene/Run.h"
#include "scene/hostCompatibility.h"

#include <maya/MFloatArray.h>
#include <maya/MFnSet.h>
#include <maya/MFnSingleIndexedComponent.h>
#include <maya/MFnWeightGeometryFilter.h>
#include <maya/MIntArray.h>
#include <maya/MSelectionList.h>

#include <algorithm>
#include <numeric>

namespace tvk {
namespace {

// The vertices of the shape that a set has, as components that the host takes.
struct Members {
    std::vector<MObject> components;
    MDagPath path;
};

MObject allVertices(int32_t count) {
    MFnSingleIndexedComponent function;
    const MObject component = function.create(MFn::kMeshVertComponent);
    function.setCompleteData(count);
    return component;
}

// Numbers of a component's vertices; those beyond the shape's last are left out.
std::vector<int32_t> verticesOf(MObject component, int32_t vertexCount) {
    std::vector<int32_t> vertices;
    MStatus status;
    const MFnSingleIndexedComponent function(component, &status);
    if (!status) {
        return vertices;
    }
    if (function.isComplete()) {
        vertices.resize(static_cast<std::size_t>(vertexCount));
        std::iota(vertices.begin(), vertices.end(), 0);
        return vertices;
    }
    MIntArray elements;
    function.getElements(elements);
    for (unsigned int i = 0; i < elements.length(); ++i) {
        if (elements[i] >= 0 && elements[i] < vertexCount) {
            vertices.push_back(elements[i]);
        }
    }
    return vertices;
}

// False when the cluster has no set, which is warned of.
bool readMembers(MObject cluster, const ShapeRecord& shape, Members& members) {
    MStatus status;
    const MFnGeometryFilter filter(cluster, &status);
    const MObject set = status ? filter.deformerSet(&status) : MObject();
    if (set.isNull()) {
        say(kNoDeformerSet, textOf(MFnDependencyNode(cluster).name()));
        return false;
    }
    MSelectionList list;
    MFnSet(set).getMembers(list, true);
    for (unsigned int i = 0; i < list.length(); ++i) {
        MDagPath path;
        MObject component;
        // Sets know one instance of a shape, deformers work on all of them.
        if (list.getDagPath(i, path, component) && path.node() == shape.path.node()) {
            members.path = path;
            members.components.push_back(component.isNull() ? allVertices(shape.vertexCount) : component);
        }
    }
    return true;
}

// What one cluster has of one vertex.
struct Weight {
    int32_t vertex;
    int32_t influence;
    double value;
};

MStatus readWeights(const MObject& cluster, int32_t influence, const ShapeRecord& shape, std::vector<Weight>& weights) {
    Members members;
    if (!readMembers(cluster, shape, members)) {
        return MS::kSuccess;
    }
    MStatus status;
    const MFnWeightGeometryFilter filter(cluster, &status);
    for (const MObject& component : members.components) {
        const std::vector<int32_t> vertices = verticesOf(component, shape.vertexCount);
        MFloatArray values;
        if (vertices.empty()) {
            continue;
        }
        if (!status || !filter.getWeights(members.path, component, values) || values.length() < vertices.size()) {
            say(kCantGetSkinWeight, vertexSubject(shape.path, vertices.front()));
            return MS::kFailure;
        }
        for (std::size_t i = 0; i < vertices.size(); ++i) {
            weights.push_back({vertices[i], influence, values[static_cast<unsigned int>(i)]});
        }
    }
    return MS::kSuccess;
}

class ClusterBinding {
public:
    ClusterBinding(const ShapeRecord& shapeRecord, VertexBinder& vertexBinder)
        : shape(shapeRecord), binder(vertexBinder), ranks(influenceRanks(shapeRecord)),
          row(shapeRecord.influences.size()) {}

    // The next vertex has the weights from `begin` to `end`.
    template <typename Iterator>
    MStatus bind(int32_t vertex, Iterator begin, Iterator end) {
        std::fill(row.begin(), row.end(), 0.0);
        for (Iterator weight = begin; weight != end; ++weight) {
            row[static_cast<std::size_t>(weight->influence)] = weight->value;
        }
        const double sum = std::accumulate(row.begin(), row.end(), 0.0);
        row.back() = std::max(0.0, 1.0 - sum);
        const auto count = static_cast<int32_t>(row.size());
        if (run().options.forceFullWeight) {
            findFullShare(row.data(), count, ranks, shares);
        } else if (isTooMuchWeight(sum)) {
            say(kWrongWeightedVertices, vertexSubject(shape.path, vertex));
            return MS::kFailure;
        } else {
            findShares(row.data(), count, shares);
        }
        binder.bind(shares);
        return MS::kSuccess;
    }

private:
    const ShapeRecord& shape;
    VertexBinder& binder;
    const std::vector<int32_t> ranks;
    std::vector<double> row;
    std::vector<InfluenceShare> shares;
};

} // namespace

MStatus bindToJointClusters(const SkinSource& source, const ShapeRecord& shape, VertexBinder& binder) {
    std::vector<int32_t> clusterOf(static_cast<std::size_t>(shape.vertexCount), -1);
    for (std::size_t i = 0; i < source.deformers.size(); ++i) {
        Members members;
        if (!readMembers(source.deformers[i].node, shape, members)) {
            continue;
        }
        for (const MObject& component : members.components) {
            for (const int32_t vertex : verticesOf(component, shape.vertexCount)) {
                int32_t& cluster = clusterOf[static_cast<std::size_t>(vertex)];
                cluster = cluster < 0 ? static_cast<int32_t>(i) : cluster;
            }
        }
    }
    std::vector<InfluenceShare> shares;
    for (const int32_t cluster : clusterOf) {
        shares.clear();
        if (cluster >= 0) {
            shares.push_back({cluster, 100});
        }
        binder.bind(shares);
    }
    return MS::kSuccess;
}

MStatus bindToClusters(const SkinSource& source, const ShapeRecord& shape, VertexBinder& binder) {
    std::vector<Weight> weights;
    for (std::size_t i = 0; i < source.deformers.size(); ++i) {
        const MStatus status = readWeights(source.deformers[i].node, static_cast<int32_t>(i), shape, weights);
        if (!status) {
            return status;
        }
    }
    std::stable_sort(weights.begin(), weights.end(),
                     [](const Weight& a, const Weight& b) { return a.vertex < b.vertex; });
    ClusterBinding binding(shape, binder);
    auto begin = weights.begin();
    for (int32_t vertex = 0; vertex < shape.vertexCount; ++vertex) {
        const auto end =
            std::find_if(begin, weights.end(), [&](const Weight& weight) { return weight.vertex != vertex; });
        const MStatus status = binding.bind(vertex, begin, end);
        if (!status) {
            return status;
        }
        begin = end;
    }
    return MS::kSuccess;
}

} // namespace tvk
