#include <maya/MFnSkinCluster.h>

#include "host/api/ApiAccess.h"
#include "host/api/Host.h"
#include "host/api/deformedVertices.h"
#include "host/api/statusResult.h"
#include "host/nodes/skinCompute.h"

#include <algorithm>
#include <vector>

using host::ApiAccess;
using host::fail;
using host::Host;
using host::Node;
using host::succeed;

MFnSkinCluster::MFnSkinCluster() = default;
MFnSkinCluster::~MFnSkinCluster() = default;

MFnSkinCluster::MFnSkinCluster(const MObject& object, MStatus* ReturnStatus) {
    host::report(ReturnStatus, MFnSkinCluster::setObject(object));
}

MFn::Type MFnSkinCluster::type() const {
    return MFn::kSkinClusterFilter;
}

namespace {

struct SkinInfluence {
    std::int32_t index; // logical
    MDagPath path;
};

/// The DAG objects that drive the matrices, by index. A matrix that comes from elsewhere belongs to no object.
std::vector<SkinInfluence> influencesOf(Node& skin) {
    const host::AttrIndex matrix = skin.findAttribute("matrix");
    std::vector<SkinInfluence> influences;
    for (const auto& [at, source] : skin.incoming()) {
        if (at.attr != matrix || at.depth != 1 || !source.node->isDag()) {
            continue;
        }
        const std::vector<host::DagPath> paths = host::allPaths(Host::instance().graph(), *source.node);
        const auto instance = static_cast<std::size_t>(source.at.depth > 0 ? source.at.index[0] : 0);
        if (instance < paths.size()) {
            influences.push_back({at.index[0], ApiAccess::path(paths[instance])});
        }
    }
    return influences;
}

/// Weights of some vertices: a row per vertex, a column per influence asked for.
class WeightTable {
public:
    MStatus read(const MObject& skinCluster, const MDagPath& path, const MObject& components) {
        Node* skin = ApiAccess::node(skinCluster);
        if (!host::deformedIndex(skinCluster, path)) {
            return MStatus::kFailure;
        }
        for (const SkinInfluence& influence : influencesOf(*skin)) {
            columns_.push_back(influence.index);
        }
        stored_ = host::skinWeights(Host::instance().graph(), *skin);
        return host::verticesOf(*ApiAccess::end(path), components, vertices_);
    }

    unsigned int influenceCount() const { return static_cast<unsigned int>(columns_.size()); }

    /// False for an influence that is not there. `chosen` counts in the influences; the columns come in its order.
    bool choose(const std::vector<int>& chosen) {
        std::vector<std::int32_t> columns;
        for (const int one : chosen) {
            if (one < 0 || one >= static_cast<int>(columns_.size())) {
                return false;
            }
            columns.push_back(columns_[static_cast<std::size_t>(one)]);
        }
        columns_ = std::move(columns);
        return true;
    }

    template <class Number>
    std::vector<Number> rows() const {
        std::vector<Number> rows(vertices_.size() * columns_.size());
        auto place = rows.begin();
        for (const std::int32_t vertex : vertices_) {
            for (const std::int32_t column : columns_) {
                *place++ = static_cast<Number>(weight(vertex, column));
            }
        }
        return rows;
    }

private:
    double weight(std::int32_t vertex, std::int32_t influence) const {
        if (vertex >= stored_->vertexCount()) {
            return 0.0;
        }
        const auto at = static_cast<std::size_t>(vertex);
        const auto first = stored_->influences.begin() + static_cast<std::ptrdiff_t>(stored_->starts[at]);
        const auto end = stored_->influences.begin() + static_cast<std::ptrdiff_t>(stored_->starts[at + 1]);
        const auto found = std::lower_bound(first, end, influence);
        return found != end && *found == influence
                   ? stored_->weights[static_cast<std::size_t>(found - stored_->influences.begin())]
                   : 0.0;
    }

    std::vector<std::int32_t> columns_; // logical indices
    std::vector<std::int32_t> vertices_;
    std::shared_ptr<const host::SkinWeights> stored_;
};

template <class Number, class Array>
MStatus readAll(const MObject& skin, const MDagPath& path, const MObject& components, Array& weights,
                unsigned int& influenceCount) {
    WeightTable table;
    const MStatus status = table.read(skin, path, components);
    if (status == MStatus::kSuccess) {
        storeValues(weights, table.rows<Number>());
        influenceCount = table.influenceCount();
    }
    return status;
}

template <class Number, class Array>
MStatus readSome(const MObject& skin, const MDagPath& path, const MObject& components, const std::vector<int>& chosen,
                 Array& weights) {
    WeightTable table;
    const MStatus status = table.read(skin, path, components);
    if (status == MStatus::kSuccess && !table.choose(chosen)) {
        return MStatus::kInvalidParameter;
    }
    if (status == MStatus::kSuccess) {
        storeValues(weights, table.rows<Number>());
    }
    return status;
}

} // namespace

unsigned int MFnSkinCluster::influenceObjects(MDagPathArray& paths, MStatus* ReturnStatus) const {
    Node* skin = ApiAccess::node(object_);
    if (skin == nullptr) {
        return fail<unsigned int>(ReturnStatus, MStatus::kFailure);
    }
    paths.clear();
    for (const SkinInfluence& influence : influencesOf(*skin)) {
        paths.append(influence.path);
    }
    return succeed(ReturnStatus, paths.length());
}

unsigned int MFnSkinCluster::indexForInfluenceObject(const MDagPath& path, MStatus* ReturnStatus) const {
    Node* skin = ApiAccess::node(object_);
    if (skin == nullptr) {
        return fail<unsigned int>(ReturnStatus, MStatus::kFailure);
    }
    for (const SkinInfluence& influence : influencesOf(*skin)) {
        if (influence.path == path) {
            return succeed(ReturnStatus, static_cast<unsigned int>(influence.index));
        }
    }
    return fail<unsigned int>(ReturnStatus, MStatus::kInvalidParameter);
}

MStatus MFnSkinCluster::getWeights(const MDagPath& path, const MObject& components, MDoubleArray& weights,
                                   unsigned int& influenceCount) const {
    return readAll<double>(object_, path, components, weights, influenceCount);
}

MStatus MFnSkinCluster::getWeights(const MDagPath& path, const MObject& components, MFloatArray& weights,
                                   unsigned int& influenceCount) const {
    return readAll<float>(object_, path, components, weights, influenceCount);
}

MStatus MFnSkinCluster::getWeights(const MDagPath& path, const MObject& components, unsigned int influenceIndex,
                                   MDoubleArray& weights) const {
    return readSome<double>(object_, path, components, {static_cast<int>(influenceIndex)}, weights);
}

MStatus MFnSkinCluster::getWeights(const MDagPath& path, const MObject& components, unsigned int influenceIndex,
                                   MFloatArray& weights) const {
    return readSome<float>(object_, path, components, {static_cast<int>(influenceIndex)}, weights);
}

MStatus MFnSkinCluster::getWeights(const MDagPath& path, const MObject& components, const MIntArray& influenceIndices,
                                   MDoubleArray& weights) const {
    return readSome<double>(object_, path, components, storedValues(influenceIndices), weights);
}
