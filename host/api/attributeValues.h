#pragma once

#include "host/api/ApiAccess.h"
#include "host/api/plugValues.h"
#include "host/api/statusResult.h"

#include <maya/MColor.h>
#include <maya/MObject.h>

namespace host {

/// Attributes of a node outside arrays, by long name, as function sets of shaders and deformers offer them. All fail on
/// handles without a node and on attributes that the node does not have or has in another form.

/// The plug; false when there is none.
Plug attributePlug(const MObject& node, const char* attribute);

template <class T>
T attributeNumber(const MObject& node, const char* attribute, MStatus* status) {
    double value = 0.0;
    const MStatus result = readNumber(attributePlug(node, attribute), value);
    report(status, result);
    return result == MStatus::kSuccess ? numberAs<T>(value) : T();
}

MStatus setAttributeNumber(const MObject& node, const char* attribute, double value);

/// Of a compound of three numbers, with alpha 1.
MColor attributeColor(const MObject& node, const char* attribute, MStatus* status);
/// Alpha is not kept.
MStatus setAttributeColor(const MObject& node, const char* attribute, const MColor& color);

} // namespace host
