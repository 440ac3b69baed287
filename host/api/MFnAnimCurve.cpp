#include <maya/MFnAnimCurve.h>

#include "host/api/ApiAccess.h"
#include "host/api/Host.h"
#include "host/api/curveValues.h"
#include "host/api/statusResult.h"
#include "host/api/values/TimeTicks.h"

#include <algorithm>
#include <cmath>

using host::AnimCurve;
using host::CurveView;
using host::fail;
using host::succeed;
using host::api::TimeTicks;

MFnAnimCurve::MFnAnimCurve() = default;
MFnAnimCurve::~MFnAnimCurve() = default;

MFnAnimCurve::MFnAnimCurve(const MObject& object, MStatus* ReturnStatus) {
    host::report(ReturnStatus, MFnAnimCurve::setObject(object));
}

MFn::Type MFnAnimCurve::type() const {
    return MFn::kAnimCurve;
}

namespace {

/// Answers a question about the curve when there is one.
template <class T, class Answer>
T ask(const MObject& object, MStatus* status, T otherwise, Answer answer) {
    const std::optional<CurveView> view = host::curveOf(object);
    return view ? succeed<T>(status, answer(*view)) : fail<T>(status, MStatus::kFailure, otherwise);
}

/// Answers one about a key.
template <class T, class Answer>
T askKey(const MObject& object, unsigned int index, MStatus* status, T otherwise, Answer answer) {
    const std::optional<CurveView> view = host::curveOf(object);
    if (!view) {
        return fail<T>(status, MStatus::kFailure, otherwise);
    }
    return index < view->curve->keys().size() ? succeed<T>(status, answer(*view, view->curve->keys()[index]))
                                              : fail<T>(status, MStatus::kInvalidParameter, otherwise);
}

bool isFlagSet(const CurveView& view, const char* array, std::int32_t index) {
    const host::PlugAddress all{view.node->findAttribute(array), 0, {}};
    return host::Host::instance().graph().number({view.node, all.element(index)}) != 0.0;
}

std::optional<CurveView> curveOver(const MObject& object, bool time, MStatus& status) {
    std::optional<CurveView> view = host::curveOf(object);
    status = view ? MStatus::kSuccess : MStatus::kFailure;
    if (view && view->isTimed != time) {
        status = MStatus::kInvalidParameter;
        view.reset();
    }
    return view;
}

MStatus evaluateAt(const MObject& object, bool time, double input, double& value) {
    MStatus status;
    if (const std::optional<CurveView> view = curveOver(object, time, status)) {
        value = view->curve->value(input) / view->ticksPerValue;
    }
    return status;
}

MStatus evaluateTimeAt(const MObject& object, bool time, double input, MTime& value) {
    MStatus status;
    const std::optional<CurveView> view = curveOver(object, time, status);
    if (view && !view->givesTime()) {
        return MStatus::kInvalidParameter;
    }
    if (view) {
        value = TimeTicks::time(std::llround(view->curve->value(input)), MTime::uiUnit());
    }
    return status;
}

unsigned int closest(const MObject& object, bool time, double input, MStatus* status) {
    MStatus result;
    const std::optional<CurveView> view = curveOver(object, time, result);
    if (!view || view->curve->keys().empty()) {
        return fail<unsigned int>(status, view ? MStatus::kFailure : result.statusCode());
    }
    const std::vector<AnimCurve::Key>& keys = view->curve->keys();
    const auto nearest = std::min_element(keys.begin(), keys.end(), [input](const auto& a, const auto& b) {
        return std::abs(a.input - input) < std::abs(b.input - input);
    });
    return succeed(status, static_cast<unsigned int>(nearest - keys.begin()));
}

double ticks(const MTime& time) {
    return static_cast<double>(TimeTicks::of(time));
}

} // namespace

MFnAnimCurve::AnimCurveType MFnAnimCurve::animCurveType(MStatus* ReturnStatus) const {
    return ask(object_, ReturnStatus, kAnimCurveUnknown, [](const CurveView& view) {
        // The eight kinds are numbered alike in both lists.
        return static_cast<AnimCurveType>(view.node->type().apiType() - MFn::kAnimCurveTimeToAngular);
    });
}

bool MFnAnimCurve::isTimeInput(MStatus* ReturnStatus) const {
    return ask(object_, ReturnStatus, false, [](const CurveView& view) { return view.isTimed; });
}

bool MFnAnimCurve::isUnitlessInput(MStatus* ReturnStatus) const {
    return ask(object_, ReturnStatus, false, [](const CurveView& view) { return !view.isTimed; });
}

bool MFnAnimCurve::isWeighted(MStatus* ReturnStatus) const {
    return ask(object_, ReturnStatus, false, [](const CurveView& view) { return view.curve->isWeighted(); });
}

bool MFnAnimCurve::isStatic(MStatus* ReturnStatus) const {
    return ask(object_, ReturnStatus, false, [](const CurveView& view) {
        const std::vector<AnimCurve::Key>& keys = view.curve->keys();
        return std::all_of(keys.begin(), keys.end(), [&](const AnimCurve::Key& key) {
            return key.value == keys.front().value && key.inSlope == 0.0 && key.outSlope == 0.0;
        });
    });
}

MFnAnimCurve::InfinityType MFnAnimCurve::preInfinityType(MStatus* ReturnStatus) const {
    return ask(object_, ReturnStatus, kConstant,
               [](const CurveView& view) { return static_cast<InfinityType>(view.curve->before()); });
}

MFnAnimCurve::InfinityType MFnAnimCurve::postInfinityType(MStatus* ReturnStatus) const {
    return ask(object_, ReturnStatus, kConstant,
               [](const CurveView& view) { return static_cast<InfinityType>(view.curve->after()); });
}

unsigned int MFnAnimCurve::numKeys(MStatus* ReturnStatus) const {
    return ask(object_, ReturnStatus, 0U,
               [](const CurveView& view) { return static_cast<unsigned int>(view.curve->keys().size()); });
}

unsigned int MFnAnimCurve::numKeyframes(MStatus* ReturnStatus) const {
    return numKeys(ReturnStatus);
}

MTime MFnAnimCurve::time(unsigned int index, MStatus* ReturnStatus) const {
    MStatus status;
    if (!curveOver(object_, true, status)) {
        return fail<MTime>(ReturnStatus, status.statusCode());
    }
    return askKey(object_, index, ReturnStatus, MTime(), [](const CurveView&, const AnimCurve::Key& key) {
        return TimeTicks::time(std::llround(key.input), MTime::uiUnit());
    });
}

double MFnAnimCurve::unitlessInput(unsigned int index, MStatus* ReturnStatus) const {
    MStatus status;
    if (!curveOver(object_, false, status)) {
        return fail<double>(ReturnStatus, status.statusCode());
    }
    return askKey(object_, index, ReturnStatus, 0.0,
                  [](const CurveView&, const AnimCurve::Key& key) { return key.input; });
}

double MFnAnimCurve::value(unsigned int index, MStatus* ReturnStatus) const {
    return askKey(object_, index, ReturnStatus, 0.0,
                  [](const CurveView& view, const AnimCurve::Key& key) { return key.value / view.ticksPerValue; });
}

bool MFnAnimCurve::isBreakdown(unsigned int index, MStatus* ReturnStatus) const {
    return askKey(object_, index, ReturnStatus, false, [](const CurveView& view, const AnimCurve::Key& key) {
        return isFlagSet(view, "keyBreakdown", key.index);
    });
}

bool MFnAnimCurve::tangentsLocked(unsigned int index, MStatus* ReturnStatus) const {
    return askKey(object_, index, ReturnStatus, false, [](const CurveView& view, const AnimCurve::Key& key) {
        return isFlagSet(view, "keyTanLocked", key.index);
    });
}

bool MFnAnimCurve::weightsLocked(unsigned int index, MStatus* ReturnStatus) const {
    return askKey(object_, index, ReturnStatus, false, [](const CurveView& view, const AnimCurve::Key& key) {
        return isFlagSet(view, "keyWeightLocked", key.index);
    });
}

MFnAnimCurve::TangentType MFnAnimCurve::inTangentType(unsigned int index, MStatus* ReturnStatus) const {
    return askKey(object_, index, ReturnStatus, kTangentGlobal,
                  [](const CurveView&, const AnimCurve::Key& key) { return host::apiTangentType(key.inType); });
}

MFnAnimCurve::TangentType MFnAnimCurve::outTangentType(unsigned int index, MStatus* ReturnStatus) const {
    return askKey(object_, index, ReturnStatus, kTangentGlobal,
                  [](const CurveView&, const AnimCurve::Key& key) { return host::apiTangentType(key.outType); });
}

MStatus MFnAnimCurve::getTangent(unsigned int index, double& x, double& y, bool inTangent) const {
    MStatus status;
    const host::TangentVector tangent =
        askKey(object_, index, &status, host::TangentVector{x, y},
               [&](const CurveView& view, const AnimCurve::Key& key) { return host::tangentOf(view, key, inTangent); });
    x = tangent.x;
    y = tangent.y;
    return status;
}

MStatus MFnAnimCurve::getTangent(unsigned int index, float& x, float& y, bool inTangent) const {
    double wideX = x;
    double wideY = y;
    const MStatus status = getTangent(index, wideX, wideY, inTangent);
    x = static_cast<float>(wideX);
    y = static_cast<float>(wideY);
    return status;
}

MStatus MFnAnimCurve::getTangent(unsigned int index, MAngle& angle, double& weight, bool inTangent) const {
    double x = 0.0;
    double y = 0.0;
    const MStatus status = getTangent(index, x, y, inTangent);
    if (status == MStatus::kSuccess) {
        angle = MAngle(std::atan2(y, x), MAngle::kRadians);
        weight = std::hypot(x, y);
    }
    return status;
}

bool MFnAnimCurve::find(const MTime& time, unsigned int& index, MStatus* ReturnStatus) const {
    MStatus status;
    const std::optional<CurveView> view = curveOver(object_, true, status);
    if (!view) {
        return fail<bool>(ReturnStatus, status.statusCode());
    }
    const std::vector<AnimCurve::Key>& keys = view->curve->keys();
    const auto key = std::lower_bound(keys.begin(), keys.end(), ticks(time),
                                      [](const AnimCurve::Key& one, double input) { return one.input < input; });
    const bool isThere = key != keys.end() && key->input == ticks(time);
    if (isThere) {
        index = static_cast<unsigned int>(key - keys.begin());
    }
    return succeed(ReturnStatus, isThere);
}

unsigned int MFnAnimCurve::findClosest(const MTime& time, MStatus* ReturnStatus) const {
    return closest(object_, true, ticks(time), ReturnStatus);
}

unsigned int MFnAnimCurve::findClosest(double unitlessInput, MStatus* ReturnStatus) const {
    return closest(object_, false, unitlessInput, ReturnStatus);
}

double MFnAnimCurve::evaluate(const MTime& time, MStatus* ReturnStatus) const {
    double value = 0.0;
    host::report(ReturnStatus, evaluate(time, value));
    return value;
}

MStatus MFnAnimCurve::evaluate(const MTime& time, double& value) const {
    return evaluateAt(object_, true, ticks(time), value);
}

MStatus MFnAnimCurve::evaluate(const MTime& time, MTime& value) const {
    return evaluateTimeAt(object_, true, ticks(time), value);
}

MStatus MFnAnimCurve::evaluate(double unitlessInput, double& value) const {
    return evaluateAt(object_, false, unitlessInput, value);
}

MStatus MFnAnimCurve::evaluate(double unitlessInput, MTime& value) const {
    return evaluateTimeAt(object_, false, unitlessInput, value);
}
