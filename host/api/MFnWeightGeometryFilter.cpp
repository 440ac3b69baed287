#include <maya/MFnWeightGeometryFilter.h>

#include "host/api/ApiAccess.h"
#include "host/api/Host.h"
#include "host/api/deformedVertices.h"
#include "host/api/geometryChain.h"
#include "host/api/statusResult.h"

using host::ApiAccess;
using host::Host;
using host::Node;

MFnWeightGeometryFilter::MFnWeightGeometryFilter() = default;
MFnWeightGeometryFilter::~MFnWeightGeometryFilter() = default;

MFnWeightGeometryFilter::MFnWeightGeometryFilter(const MObject& object, MStatus* ReturnStatus) {
    host::report(ReturnStatus, MFnWeightGeometryFilter::setObject(object));
}

MFn::Type MFnWeightGeometryFilter::type() const {
    return MFn::kWeightGeometryFilt;
}

MStatus MFnWeightGeometryFilter::getWeights(const MDagPath& path, const MObject& components,
                                            MFloatArray& weights) const {
    const std::optional<std::int32_t> index = host::deformedIndex(object_, path);
    return index ? getWeights(static_cast<unsigned int>(*index), components, weights) : MStatus(MStatus::kFailure);
}

MStatus MFnWeightGeometryFilter::getWeights(unsigned int index, const MObject& components, MFloatArray& weights) const {
    Node* filter = ApiAccess::node(object_);
    Node* shape = filter != nullptr ? host::outputShape(*filter, static_cast<std::int32_t>(index)) : nullptr;
    std::vector<std::int32_t> vertices;
    if (shape == nullptr || host::verticesOf(*shape, components, vertices) != MStatus::kSuccess) {
        return MStatus::kFailure;
    }
    // An element that is not stored has the attribute's default, 1.
    const host::PlugAddress all{filter->findAttribute("weights"), 0, {}};
    const host::PlugAddress list = all.element(static_cast<std::int32_t>(index));
    weights.setLength(static_cast<unsigned int>(vertices.size()));
    for (unsigned int i = 0; i < weights.length(); ++i) {
        weights[i] = static_cast<float>(Host::instance().graph().number({filter, list.element(vertices[i])}));
    }
    return MStatus::kSuccess;
}
