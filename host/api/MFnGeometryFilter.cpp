#include <maya/MFnGeometryFilter.h>

#include "host/api/ApiAccess.h"
#include "host/api/Host.h"
#include "host/api/attributeValues.h"
#include "host/api/dagQueries.h"
#include "host/api/geometryChain.h"
#include "host/api/statusResult.h"

#include <algorithm>
#include <vector>

using host::ApiAccess;
using host::fail;
using host::Host;
using host::Node;
using host::succeed;

MFnGeometryFilter::MFnGeometryFilter() = default;
MFnGeometryFilter::~MFnGeometryFilter() = default;

MFnGeometryFilter::MFnGeometryFilter(const MObject& object, MStatus* ReturnStatus) {
    host::report(ReturnStatus, MFnGeometryFilter::setObject(object));
}

MFn::Type MFnGeometryFilter::type() const {
    return MFn::kGeometryFilt;
}

namespace {

using ShapeAt = Node* (*)(Node& filter, std::int32_t index);
using Indices = std::vector<std::int32_t> (*)(Node& filter);

/// The shapes of all indices, each once.
MStatus collectShapes(const MObject& object, Indices indices, ShapeAt shapeAt, MObjectArray& shapes) {
    Node* filter = ApiAccess::node(object);
    if (filter == nullptr) {
        return MStatus::kFailure;
    }
    shapes.clear();
    std::vector<const Node*> met;
    for (const std::int32_t index : indices(*filter)) {
        const Node* shape = shapeAt(*filter, index);
        if (shape != nullptr && std::find(met.begin(), met.end(), shape) == met.end()) {
            met.push_back(shape);
            shapes.append(ApiAccess::object(*shape));
        }
    }
    return MStatus::kSuccess;
}

MObject shapeAtIndex(const MObject& object, unsigned int index, ShapeAt shapeAt, MStatus* status) {
    Node* filter = ApiAccess::node(object);
    if (filter == nullptr) {
        return fail<MObject>(status, MStatus::kFailure);
    }
    const Node* shape = shapeAt(*filter, static_cast<std::int32_t>(index));
    return shape != nullptr ? succeed(status, ApiAccess::object(*shape))
                            : fail<MObject>(status, MStatus::kInvalidParameter);
}

} // namespace

float MFnGeometryFilter::envelope(MStatus* ReturnStatus) const {
    return host::attributeNumber<float>(object_, "envelope", ReturnStatus);
}

MStatus MFnGeometryFilter::setEnvelope(float envelope) {
    return host::setAttributeNumber(object_, "envelope", envelope);
}

MStatus MFnGeometryFilter::getInputGeometry(MObjectArray& shapes) const {
    return collectShapes(object_, host::connectedInputs, host::inputShape, shapes);
}

MStatus MFnGeometryFilter::getOutputGeometry(MObjectArray& shapes) const {
    return collectShapes(object_, host::connectedOutputs, host::outputShape, shapes);
}

MObject MFnGeometryFilter::inputShapeAtIndex(unsigned int index, MStatus* ReturnStatus) const {
    return shapeAtIndex(object_, index, host::inputShape, ReturnStatus);
}

MObject MFnGeometryFilter::outputShapeAtIndex(unsigned int index, MStatus* ReturnStatus) const {
    return shapeAtIndex(object_, index, host::outputShape, ReturnStatus);
}

unsigned int MFnGeometryFilter::indexForOutputShape(const MObject& shape, MStatus* ReturnStatus) const {
    Node* filter = ApiAccess::node(object_);
    Node* output = ApiAccess::node(shape);
    if (filter == nullptr) {
        return fail<unsigned int>(ReturnStatus, MStatus::kFailure);
    }
    const std::optional<std::int32_t> index = output != nullptr ? host::outputIndexOf(*filter, *output) : std::nullopt;
    return index ? succeed(ReturnStatus, static_cast<unsigned int>(*index))
                 : fail<unsigned int>(ReturnStatus, MStatus::kInvalidParameter);
}

unsigned int MFnGeometryFilter::numOutputConnections(MStatus* ReturnStatus) const {
    Node* filter = ApiAccess::node(object_);
    return filter != nullptr ? succeed(ReturnStatus, static_cast<unsigned int>(host::connectedOutputs(*filter).size()))
                             : fail<unsigned int>(ReturnStatus, MStatus::kFailure);
}

unsigned int MFnGeometryFilter::indexForOutputConnection(unsigned int connection, MStatus* ReturnStatus) const {
    Node* filter = ApiAccess::node(object_);
    if (filter == nullptr) {
        return fail<unsigned int>(ReturnStatus, MStatus::kFailure);
    }
    const std::vector<std::int32_t> indices = host::connectedOutputs(*filter);
    return connection < indices.size() ? succeed(ReturnStatus, static_cast<unsigned int>(indices[connection]))
                                       : fail<unsigned int>(ReturnStatus, MStatus::kInvalidParameter);
}

MStatus MFnGeometryFilter::getPathAtIndex(unsigned int index, MDagPath& path) const {
    MStatus status;
    const MObject shape = outputShapeAtIndex(index, &status);
    return status == MStatus::kSuccess ? MDagPath::getAPathTo(shape, path) : status;
}

unsigned int MFnGeometryFilter::groupIdAtIndex(unsigned int index, MStatus* ReturnStatus) const {
    Node* filter = ApiAccess::node(object_);
    if (filter == nullptr) {
        return fail<unsigned int>(ReturnStatus, MStatus::kFailure);
    }
    const std::vector<std::int32_t> indices = host::connectedInputs(*filter);
    if (std::find(indices.begin(), indices.end(), static_cast<std::int32_t>(index)) == indices.end()) {
        return fail<unsigned int>(ReturnStatus, MStatus::kInvalidParameter);
    }
    const host::Plug id = host::filterInput(*filter, static_cast<std::int32_t>(index), "groupId");
    return succeed(ReturnStatus, host::numberAs<unsigned int>(Host::instance().graph().number(id)));
}

unsigned int MFnGeometryFilter::indexForGroupId(unsigned int groupId, MStatus* ReturnStatus) const {
    Node* filter = ApiAccess::node(object_);
    if (filter == nullptr) {
        return fail<unsigned int>(ReturnStatus, MStatus::kFailure);
    }
    for (const std::int32_t index : host::connectedInputs(*filter)) {
        if (groupIdAtIndex(static_cast<unsigned int>(index)) == groupId) {
            return succeed(ReturnStatus, static_cast<unsigned int>(index));
        }
    }
    return fail<unsigned int>(ReturnStatus, MStatus::kInvalidParameter);
}

MObject MFnGeometryFilter::deformerSet(MStatus* ReturnStatus) const {
    Node* filter = ApiAccess::node(object_);
    const host::AttrIndex message = filter != nullptr ? filter->findAttribute("message") : host::kNoAttr;
    for (const host::Plug& user : message == host::kNoAttr
                                      ? std::vector<host::Plug>()
                                      : Host::instance().graph().destinationsOf({filter, {message, 0, {}}})) {
        if (user.node->type().isKindOf("objectSet") && user.node->attribute(user.at.attr).longName == "usedBy") {
            return succeed(ReturnStatus, ApiAccess::object(*user.node));
        }
    }
    return fail<MObject>(ReturnStatus, MStatus::kFailure);
}
