#include <maya/MPlug.h>

#include "host/api/ApiAccess.h"
#include "host/api/Host.h"
#include "host/api/plugElements.h"
#include "host/api/plugNames.h"
#include "host/api/statusResult.h"
#include "host/graph/plugSteps.h"

#include <algorithm>
#include <limits>

using host::ApiAccess;
using host::Attribute;
using host::fail;
using host::Host;
using host::Plug;
using host::PlugAddress;
using host::succeed;

MPlug::MPlug() = default;
MPlug::MPlug(const MPlug& other) = default;
MPlug::~MPlug() = default;
MPlug& MPlug::operator=(const MPlug& other) = default;

namespace {

/// Answers a question to a plug: `answer` gets the plug and its attribute when there are both.
template <class T, class Answer>
T ask(const MPlug& plug, MStatus* status, Answer answer) {
    const Plug place = ApiAccess::plug(plug);
    if (!place) {
        return fail<T>(status, MStatus::kFailure);
    }
    return succeed<T>(status, answer(place, place.node->attribute(place.at.attr)));
}

bool isElementOf(const Plug& place, const Attribute& attribute) {
    return attribute.array && place.at.depth == attribute.arrayDepth;
}

/// Children of a whole array of compounds have no index for it, as the plugs that names without indices give.
Plug childOf(const Plug& place, host::AttrIndex child) {
    PlugAddress at = place.at;
    at.attr = child;
    return {place.node, at};
}

MPlug elementOf(const Plug& array, std::int32_t logical) {
    return ApiAccess::plug(Plug{array.node, array.at.element(logical)});
}

bool isArrayOf(const Plug& place) {
    return place && host::isWholeArray(*place.node, place.at);
}

bool isLockedHere(const Plug& place) {
    const host::PlugFlags* flags = place.node->flags(place.at);
    return flags != nullptr && flags->locked;
}

/// Whether `holds` is true of the plug or of one above it.
template <class Test>
bool anyUpwards(Plug place, Test holds) {
    for (; place; place.at = host::ownerOf(*place.node, place.at)) {
        if (holds(place)) {
            return true;
        }
    }
    return false;
}

} // namespace

MPlug::MPlug(const MObject& node, const MObject& attribute, MStatus* ReturnStatus) {
    host::Node* owner = ApiAccess::node(node);
    const host::AttrIndex attr = owner != nullptr ? ApiAccess::attributeOn(*owner, attribute) : host::kNoAttr;
    if (attr == host::kNoAttr) {
        host::report(ReturnStatus, MStatus::kInvalidParameter);
        return;
    }
    *this = succeed(ReturnStatus, ApiAccess::plug(Plug{owner, PlugAddress{attr, 0, {}}}));
}

bool MPlug::isNull(MStatus* ReturnStatus) const {
    return succeed(ReturnStatus, !ApiAccess::plug(*this));
}

MObject MPlug::node(MStatus* ReturnStatus) const {
    return ask<MObject>(*this, ReturnStatus,
                        [](const Plug& place, const Attribute&) { return ApiAccess::object(*place.node); });
}

MObject MPlug::attribute(MStatus* ReturnStatus) const {
    return ask<MObject>(*this, ReturnStatus, [](const Plug& place, const Attribute&) {
        return ApiAccess::attributeObject(*place.node, place.at.attr);
    });
}

MString MPlug::name(MStatus* ReturnStatus) const {
    return partialName(true, true, true, false, true, true, ReturnStatus);
}

MString MPlug::info(MStatus* ReturnStatus) const {
    return ask<MString>(*this, ReturnStatus, [](const Plug& place, const Attribute&) {
        const std::string path = host::plugPath(*place.node, place.at, {true, true, true, false});
        return MString((Host::instance().scene().names().shortestName(*place.node) + ":" + path).c_str());
    });
}

MString MPlug::partialName(bool includeNodeName, bool includeNonMandatoryIndices, bool includeInstancedIndices,
                           bool useAlias, bool useFullAttributePath, bool useLongNames, MStatus* ReturnStatus) const {
    const host::PlugNameStyle style = {useLongNames, useFullAttributePath,
                                       includeInstancedIndices || includeNonMandatoryIndices, useAlias};
    return ask<MString>(*this, ReturnStatus, [&](const Plug& place, const Attribute&) {
        const std::string path = host::plugPath(*place.node, place.at, style);
        const std::string owner = Host::instance().scene().names().shortestName(*place.node);
        return MString((includeNodeName ? owner + "." + path : path).c_str());
    });
}

bool MPlug::isArray(MStatus* ReturnStatus) const {
    return ask<bool>(*this, ReturnStatus, [](const Plug& place, const Attribute& attribute) {
        return attribute.array && !isElementOf(place, attribute);
    });
}

bool MPlug::isElement(MStatus* ReturnStatus) const {
    return ask<bool>(*this, ReturnStatus, isElementOf);
}

bool MPlug::isCompound(MStatus* ReturnStatus) const {
    return ask<bool>(*this, ReturnStatus, [](const Plug&, const Attribute& attribute) {
        return attribute.kind == host::AttrKind::kCompound;
    });
}

bool MPlug::isChild(MStatus* ReturnStatus) const {
    return ask<bool>(*this, ReturnStatus, [](const Plug& place, const Attribute& attribute) {
        return attribute.parent != host::kNoAttr && !isElementOf(place, attribute);
    });
}

bool MPlug::isNetworked(MStatus* ReturnStatus) const {
    return ask<bool>(*this, ReturnStatus, [](const Plug&, const Attribute&) { return true; });
}

bool MPlug::isConnected(MStatus* ReturnStatus) const {
    return isDestination(ReturnStatus) || isSource(ReturnStatus);
}

bool MPlug::isSource(MStatus* ReturnStatus) const {
    return ask<bool>(*this, ReturnStatus,
                     [](const Plug& place, const Attribute&) { return place.node->outgoing().count(place.at) != 0; });
}

bool MPlug::isDestination(MStatus* ReturnStatus) const {
    return ask<bool>(*this, ReturnStatus,
                     [](const Plug& place, const Attribute&) { return place.node->incoming().count(place.at) != 0; });
}

bool MPlug::isKeyable(MStatus* ReturnStatus) const {
    return ask<bool>(*this, ReturnStatus, [](const Plug& place, const Attribute& attribute) {
        const host::PlugFlags* flags = place.node->flags(place.at);
        return flags != nullptr ? flags->keyable.value_or(attribute.keyable) : attribute.keyable;
    });
}

bool MPlug::isChannelBoxFlag(MStatus* ReturnStatus) const {
    return ask<bool>(*this, ReturnStatus, [](const Plug& place, const Attribute& attribute) {
        const host::PlugFlags* flags = place.node->flags(place.at);
        return flags != nullptr ? flags->channelBox.value_or(attribute.channelBox) : attribute.channelBox;
    });
}

bool MPlug::isLocked(MStatus* ReturnStatus) const {
    return ask<bool>(*this, ReturnStatus,
                     [](const Plug& place, const Attribute&) { return anyUpwards(place, isLockedHere); });
}

bool MPlug::isCaching(MStatus* ReturnStatus) const {
    return ask<bool>(*this, ReturnStatus, [](const Plug&, const Attribute&) { return true; });
}

bool MPlug::isConnectable(MStatus* ReturnStatus) const {
    return ask<bool>(*this, ReturnStatus,
                     [](const Plug&, const Attribute& attribute) { return attribute.readable || attribute.writable; });
}

bool MPlug::isDynamic(MStatus* ReturnStatus) const {
    return ask<bool>(*this, ReturnStatus, [](const Plug&, const Attribute& attribute) { return attribute.dynamic; });
}

MPlug::FreeToChangeState MPlug::isFreeToChange(bool checkParents, bool checkChildren, MStatus* ReturnStatus) const {
    const Plug place = ApiAccess::plug(*this);
    if (!place) {
        return fail(ReturnStatus, MStatus::kFailure, kNotFreeToChange);
    }
    const host::Graph& graph = Host::instance().graph();
    const auto isTaken = [&](const Plug& plug) {
        return !graph.isFreeToChange(plug).ok() || plug.node->incoming().count(plug.at) != 0;
    };
    if (isTaken(place) || (checkParents && anyUpwards(place, isTaken))) {
        return succeed(ReturnStatus, kNotFreeToChange);
    }
    const std::vector<host::AttrIndex>& children = place.node->attribute(place.at.attr).children;
    const bool childTaken = checkChildren && std::any_of(children.begin(), children.end(), [&](host::AttrIndex child) {
                                return isTaken(childOf(place, child));
                            });
    return succeed(ReturnStatus, childTaken ? kChildrenNotFreeToChange : kFreeToChange);
}

bool MPlug::isDefaultValue(MStatus* ReturnStatus) const {
    return ask<bool>(*this, ReturnStatus, [](const Plug& place, const Attribute& attribute) {
        host::Graph& graph = Host::instance().graph();
        return host::isNumeric(attribute.kind) && host::isOneValue(*place.node, place.at)
                   ? graph.number(place) == attribute.defaultNumber
                   : graph.stored(place) == nullptr && place.node->incoming().count(place.at) == 0;
    });
}

MPlug MPlug::child(unsigned int index, MStatus* ReturnStatus) const {
    const Plug place = ApiAccess::plug(*this);
    if (!place || index >= place.node->attribute(place.at.attr).children.size()) {
        return fail<MPlug>(ReturnStatus, MStatus::kInvalidParameter);
    }
    return succeed(ReturnStatus, ApiAccess::plug(childOf(place, place.node->attribute(place.at.attr).children[index])));
}

MPlug MPlug::child(const MObject& attribute, MStatus* ReturnStatus) const {
    const Plug place = ApiAccess::plug(*this);
    const host::AttrIndex attr = place ? ApiAccess::attributeOn(*place.node, attribute) : host::kNoAttr;
    if (attr == host::kNoAttr || place.node->attribute(attr).parent != place.at.attr) {
        return fail<MPlug>(ReturnStatus, MStatus::kInvalidParameter);
    }
    return succeed(ReturnStatus, ApiAccess::plug(childOf(place, attr)));
}

unsigned int MPlug::numChildren(MStatus* ReturnStatus) const {
    return ask<unsigned int>(*this, ReturnStatus, [](const Plug&, const Attribute& attribute) {
        return static_cast<unsigned int>(attribute.children.size());
    });
}

MPlug MPlug::parent(MStatus* ReturnStatus) const {
    if (!isChild()) {
        return fail<MPlug>(ReturnStatus, MStatus::kFailure);
    }
    const Plug place = ApiAccess::plug(*this);
    PlugAddress at = place.at;
    at.attr = place.node->attribute(at.attr).parent;
    return succeed(ReturnStatus, ApiAccess::plug(Plug{place.node, at}));
}

MPlug MPlug::array(MStatus* ReturnStatus) const {
    if (!isElement()) {
        return fail<MPlug>(ReturnStatus, MStatus::kFailure);
    }
    const Plug place = ApiAccess::plug(*this);
    return succeed(ReturnStatus, ApiAccess::plug(Plug{place.node, host::ownerOf(*place.node, place.at)}));
}

unsigned int MPlug::logicalIndex(MStatus* ReturnStatus) const {
    if (!isElement()) {
        return fail<unsigned int>(ReturnStatus, MStatus::kFailure);
    }
    return succeed(ReturnStatus, static_cast<unsigned int>(index_[static_cast<std::size_t>(depth_ - 1)]));
}

unsigned int MPlug::numElements(MStatus* ReturnStatus) const {
    const Plug place = ApiAccess::plug(*this);
    if (!isArrayOf(place)) {
        return fail<unsigned int>(ReturnStatus, MStatus::kFailure);
    }
    return succeed(ReturnStatus, static_cast<unsigned int>(host::elementCount(Host::instance().graph(), place)));
}

unsigned int MPlug::evaluateNumElements(MStatus* ReturnStatus) {
    return numElements(ReturnStatus);
}

unsigned int MPlug::numConnectedElements(MStatus* ReturnStatus) const {
    const Plug place = ApiAccess::plug(*this);
    if (!isArrayOf(place)) {
        return fail<unsigned int>(ReturnStatus, MStatus::kFailure);
    }
    return succeed(ReturnStatus, static_cast<unsigned int>(host::connectedElements(place).size()));
}

unsigned int MPlug::numConnectedChildren(MStatus* ReturnStatus) const {
    return ask<unsigned int>(*this, ReturnStatus, [](const Plug& place, const Attribute& attribute) {
        return static_cast<unsigned int>(
            std::count_if(attribute.children.begin(), attribute.children.end(),
                          [&](host::AttrIndex child) { return ApiAccess::plug(childOf(place, child)).isConnected(); }));
    });
}

MPlug MPlug::elementByPhysicalIndex(unsigned int index, MStatus* ReturnStatus) const {
    const Plug place = ApiAccess::plug(*this);
    if (!isArrayOf(place)) {
        return fail<MPlug>(ReturnStatus, MStatus::kFailure);
    }
    const std::optional<std::int32_t> logical = host::elementAt(Host::instance().graph(), place, index);
    return logical ? succeed(ReturnStatus, elementOf(place, *logical))
                   : fail<MPlug>(ReturnStatus, MStatus::kInvalidParameter);
}

MPlug MPlug::elementByLogicalIndex(unsigned int index, MStatus* ReturnStatus) const {
    const Plug place = ApiAccess::plug(*this);
    if (!isArrayOf(place)) {
        return fail<MPlug>(ReturnStatus, MStatus::kFailure);
    }
    if (index > static_cast<unsigned int>(std::numeric_limits<std::int32_t>::max())) {
        return fail<MPlug>(ReturnStatus, MStatus::kInvalidParameter);
    }
    return succeed(ReturnStatus, elementOf(place, static_cast<std::int32_t>(index)));
}

MPlug MPlug::connectionByPhysicalIndex(unsigned int index, MStatus* ReturnStatus) const {
    const Plug place = ApiAccess::plug(*this);
    if (!isArrayOf(place)) {
        return fail<MPlug>(ReturnStatus, MStatus::kFailure);
    }
    const std::vector<std::int32_t> connected = host::connectedElements(place);
    return index < connected.size() ? succeed(ReturnStatus, elementOf(place, connected[index]))
                                    : fail<MPlug>(ReturnStatus, MStatus::kInvalidParameter);
}

MPlug MPlug::operator[](unsigned int physicalIndex) const {
    return elementByPhysicalIndex(physicalIndex);
}

unsigned int MPlug::getExistingArrayAttributeIndices(MIntArray& indices, MStatus* ReturnStatus) const {
    indices.clear();
    const Plug place = ApiAccess::plug(*this);
    if (!isArrayOf(place)) {
        return fail<unsigned int>(ReturnStatus, MStatus::kFailure);
    }
    for (const std::int32_t index : Host::instance().graph().elementIndices(place)) {
        indices.append(index);
    }
    return succeed(ReturnStatus, indices.length());
}

bool MPlug::operator==(const MPlug& other) const {
    const Plug place = ApiAccess::plug(*this);
    const Plug second = ApiAccess::plug(other);
    return (!place && !second) || place == second;
}

bool MPlug::operator!=(const MPlug& other) const {
    return !(*this == other);
}

bool MPlug::operator==(const MObject& attribute) const {
    const Plug place = ApiAccess::plug(*this);
    return place && ApiAccess::attributeOn(*place.node, attribute) == place.at.attr;
}

bool MPlug::operator!=(const MObject& attribute) const {
    return !(*this == attribute);
}
