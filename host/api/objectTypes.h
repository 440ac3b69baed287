#pragma once

#include "host/api/ObjectPayload.h"

namespace host {

/// The API types of what an object may stand for.
MFn::Type typeOf(const Attribute& attribute, const Node* node, const NodeType* type);
MFn::Type typeOf(const DataObject& data);
MFn::Type typeOf(MFnNumericData::Type type);

/// Whether function sets of `wanted` may be attached: the own type and the families it belongs to.
bool nodeHasFn(const Node& node, MFn::Type wanted);
bool attributeHasFn(MFn::Type own, MFn::Type wanted);
bool dataHasFn(const DataObject& data, MFn::Type wanted);
bool componentHasFn(MFn::Type own, MFn::Type wanted);

} // namespace host
