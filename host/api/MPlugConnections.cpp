#include "host/api/ApiAccess.h"
#include "host/api/Host.h"
#include "host/api/statusResult.h"
#include "host/graph/plugSteps.h"

#include <maya/MPlug.h>
#include <maya/MPlugArray.h>

#include <algorithm>
#include <limits>

using host::ApiAccess;
using host::fail;
using host::Host;
using host::Plug;
using host::succeed;

namespace {

/// The attribute whose element index is to be set: the one asked for, or the nearest array above, or the plug's own.
host::AttrIndex arrayAbove(const Plug& place, const MObject& wanted) {
    if (!wanted.isNull()) {
        const host::AttrIndex attr = ApiAccess::attributeOn(*place.node, wanted);
        const bool isAbove = attr != host::kNoAttr && [&] {
            host::AttrIndex one = place.at.attr;
            while (one != host::kNoAttr && one != attr) {
                one = place.node->attribute(one).parent;
            }
            return one == attr;
        }();
        return isAbove && place.node->attribute(attr).array ? attr : host::kNoAttr;
    }
    host::AttrIndex above = place.node->attribute(place.at.attr).parent;
    while (above != host::kNoAttr && !place.node->attribute(above).array) {
        above = place.node->attribute(above).parent;
    }
    return above == host::kNoAttr && place.node->attribute(place.at.attr).array ? place.at.attr : above;
}

bool isUnitConversion(const host::Node& node) {
    const int type = node.type().apiType();
    return type == MFn::kUnitConversion || type == MFn::kTimeToUnitConversion || type == MFn::kUnitToTimeConversion;
}

} // namespace

MStatus MPlug::selectAncestorLogicalIndex(unsigned int index, const MObject& attribute) {
    const Plug place = ApiAccess::plug(*this);
    const host::AttrIndex array = place ? arrayAbove(place, attribute) : host::kNoAttr;
    if (array == host::kNoAttr || index > static_cast<unsigned int>(std::numeric_limits<std::int32_t>::max())) {
        return MStatus::kInvalidParameter;
    }
    // Outer arrays that have no index yet are at element 0 then.
    const int depth = place.node->attribute(array).arrayDepth;
    depth_ = std::max(depth_, static_cast<std::int8_t>(depth));
    index_[static_cast<std::size_t>(depth - 1)] = static_cast<std::int32_t>(index);
    return MStatus::kSuccess;
}

bool MPlug::connectedTo(MPlugArray& array, bool asDst, bool asSrc, MStatus* ReturnStatus) const {
    array.clear();
    const Plug place = ApiAccess::plug(*this);
    if (!place) {
        return fail<bool>(ReturnStatus, MStatus::kFailure);
    }
    const host::Graph& graph = Host::instance().graph();
    if (asDst) {
        if (const Plug source = graph.sourceOf(place)) {
            array.append(ApiAccess::plug(source));
        }
    }
    if (asSrc) {
        for (const Plug& destination : graph.destinationsOf(place)) {
            array.append(ApiAccess::plug(destination));
        }
    }
    return succeed(ReturnStatus, array.length() != 0);
}

bool MPlug::destinations(MPlugArray& array, MStatus* ReturnStatus) const {
    return connectedTo(array, false, true, ReturnStatus);
}

MPlug MPlug::sourceWithConversion(MStatus* ReturnStatus) const {
    const Plug place = ApiAccess::plug(*this);
    if (!place) {
        return fail<MPlug>(ReturnStatus, MStatus::kFailure);
    }
    return succeed(ReturnStatus, ApiAccess::plug(Host::instance().graph().sourceOf(place)));
}

MPlug MPlug::source(MStatus* ReturnStatus) const {
    const Plug place = ApiAccess::plug(*this);
    if (!place) {
        return fail<MPlug>(ReturnStatus, MStatus::kFailure);
    }
    const host::Graph& graph = Host::instance().graph();
    Plug source = graph.sourceOf(place);
    // Conversions may stand in a ring; no chain of them is longer than the scene.
    for (std::size_t steps = graph.nodes().size(); source && isUnitConversion(*source.node) && steps > 0; --steps) {
        const host::AttrIndex input = source.node->findAttribute("input");
        source = input == host::kNoAttr ? Plug{} : graph.sourceOf({source.node, {input, 0, {}}});
    }
    return succeed(ReturnStatus, ApiAccess::plug(source));
}
