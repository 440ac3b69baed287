#include "host/api/ApiAccess.h"
#include "host/api/Host.h"
#include "host/api/plugValues.h"
#include "host/api/values/TimeTicks.h"

#include <maya/MDGContextGuard.h>
#include <maya/MPlug.h>

using host::ApiAccess;
using host::Host;
using host::api::TimeTicks;

namespace {

/// A number of a plug as another type; `convert` never fails.
template <class T>
MStatus readNumber(const MPlug& plug, T& value) {
    double number = 0.0;
    const MStatus status = host::readNumber(ApiAccess::plug(plug), number);
    if (status == MStatus::kSuccess) {
        value = host::numberAs<T>(number);
    }
    return status;
}

/// The number of a plug of exactly this kind, in the graph's unit.
MStatus readKind(const MPlug& plug, host::AttrKind kind, double& number) {
    const host::Plug place = ApiAccess::plug(plug);
    if (!place || place.node->attribute(place.at.attr).kind != kind) {
        return MStatus::kFailure;
    }
    return host::readStoredNumber(place, number);
}

MStatus writeKind(const MPlug& plug, host::AttrKind kind, double number) {
    const host::Plug place = ApiAccess::plug(plug);
    if (!place || place.node->attribute(place.at.attr).kind != kind) {
        return MStatus::kFailure;
    }
    return host::writeStoredNumber(place, number);
}

template <class T>
T valueOf(const MPlug& plug, MStatus* status) {
    T value{};
    const MStatus result = plug.getValue(value);
    if (status != nullptr) {
        *status = result;
    }
    return value;
}

template <class T>
MStatus getIn(const MPlug& plug, T& value, const MDGContext& context) {
    const MDGContextGuard guard(context);
    return plug.getValue(value);
}

template <class T>
T valueIn(const MPlug& plug, const MDGContext& context, MStatus* status) {
    const MDGContextGuard guard(context);
    return valueOf<T>(plug, status);
}

} // namespace

MStatus MPlug::getValue(double& value) const {
    return readNumber(*this, value);
}
MStatus MPlug::getValue(float& value) const {
    return readNumber(*this, value);
}
MStatus MPlug::getValue(MInt64& value) const {
    return readNumber(*this, value);
}
MStatus MPlug::getValue(int& value) const {
    return readNumber(*this, value);
}
MStatus MPlug::getValue(short& value) const {
    return readNumber(*this, value);
}
MStatus MPlug::getValue(bool& value) const {
    return readNumber(*this, value);
}
MStatus MPlug::getValue(char& value) const {
    return readNumber(*this, value);
}

MStatus MPlug::getValue(MDistance& value) const {
    double number = 0.0;
    const MStatus status = readKind(*this, host::AttrKind::kDistance, number);
    if (status == MStatus::kSuccess) {
        value = MDistance(number, MDistance::kCentimeters);
    }
    return status;
}

MStatus MPlug::getValue(MAngle& value) const {
    double number = 0.0;
    const MStatus status = readKind(*this, host::AttrKind::kAngle, number);
    if (status == MStatus::kSuccess) {
        value = MAngle(number, MAngle::kRadians);
    }
    return status;
}

MStatus MPlug::getValue(MTime& value) const {
    double number = 0.0;
    const MStatus status = readKind(*this, host::AttrKind::kTime, number);
    if (status == MStatus::kSuccess) {
        value = TimeTicks::time(host::numberAs<MInt64>(number), MTime::uiUnit());
    }
    return status;
}

MStatus MPlug::getValue(MString& value) const {
    return host::readString(ApiAccess::plug(*this), value);
}

MStatus MPlug::getValue(MObject& value) const {
    return host::readObject(ApiAccess::plug(*this), value);
}

MStatus MPlug::setValue(const MObject& value) {
    return host::writeObject(ApiAccess::plug(*this), value);
}
MStatus MPlug::setValue(double value) {
    return host::writeNumber(ApiAccess::plug(*this), value);
}
MStatus MPlug::setValue(float value) {
    return host::writeNumber(ApiAccess::plug(*this), static_cast<double>(value));
}
MStatus MPlug::setValue(MInt64 value) {
    return host::writeNumber(ApiAccess::plug(*this), static_cast<double>(value));
}
MStatus MPlug::setValue(int value) {
    return host::writeNumber(ApiAccess::plug(*this), value);
}
MStatus MPlug::setValue(short value) {
    return host::writeNumber(ApiAccess::plug(*this), value);
}
MStatus MPlug::setValue(bool value) {
    return host::writeNumber(ApiAccess::plug(*this), value ? 1.0 : 0.0);
}
MStatus MPlug::setValue(char value) {
    return host::writeNumber(ApiAccess::plug(*this), value);
}
MStatus MPlug::setValue(const MDistance& value) {
    return writeKind(*this, host::AttrKind::kDistance, value.as(MDistance::kCentimeters));
}
MStatus MPlug::setValue(const MAngle& value) {
    return writeKind(*this, host::AttrKind::kAngle, value.as(MAngle::kRadians));
}
MStatus MPlug::setValue(const MTime& value) {
    return writeKind(*this, host::AttrKind::kTime, static_cast<double>(TimeTicks::of(value)));
}
MStatus MPlug::setValue(const MString& value) {
    return host::writeString(ApiAccess::plug(*this), value);
}
MStatus MPlug::setValue(const char* value) {
    return setValue(MString(value));
}

MStatus MPlug::setLocked(bool locked) {
    const host::Plug place = ApiAccess::plug(*this);
    if (!place) {
        return MStatus::kFailure;
    }
    const host::PlugFlags* old = place.node->flags(place.at);
    host::PlugFlags flags = old != nullptr ? *old : host::PlugFlags();
    flags.locked = locked;
    Host::instance().graph().setFlags(place, flags);
    return MStatus::kSuccess;
}

// The three remaining forms of each type: the value in a context, as a result, and both.
// NOLINTBEGIN(readability-identifier-naming,bugprone-macro-parentheses): types cannot stand in parentheses
#define HOST_PLUG_FORMS(type, name)                                                                                    \
    MStatus MPlug::getValue(type& value, const MDGContext& context) const {                                            \
        return getIn(*this, value, context);                                                                           \
    }                                                                                                                  \
    type MPlug::name(MStatus* ReturnStatus) const {                                                                    \
        return valueOf<type>(*this, ReturnStatus);                                                                     \
    }                                                                                                                  \
    type MPlug::name(const MDGContext& context, MStatus* ReturnStatus) const {                                         \
        return valueIn<type>(*this, context, ReturnStatus);                                                            \
    }

HOST_PLUG_FORMS(MObject, asMObject)
HOST_PLUG_FORMS(double, asDouble)
HOST_PLUG_FORMS(float, asFloat)
HOST_PLUG_FORMS(MInt64, asInt64)
HOST_PLUG_FORMS(int, asInt)
HOST_PLUG_FORMS(short, asShort)
HOST_PLUG_FORMS(bool, asBool)
HOST_PLUG_FORMS(char, asChar)
HOST_PLUG_FORMS(MDistance, asMDistance)
HOST_PLUG_FORMS(MAngle, asMAngle)
HOST_PLUG_FORMS(MTime, asMTime)
HOST_PLUG_FORMS(MString, asString)

#undef HOST_PLUG_FORMS
// NOLINTEND(readability-identifier-naming,bugprone-macro-parentheses)
