#include "host/api/curveValues.h"

#include "host/api/ApiAccess.h"
#include "host/api/Host.h"
#include "host/nodes/curveCompute.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

namespace host {

namespace {

constexpr std::pair<TangentType, MFnAnimCurve::TangentType> kTangentTypes[] = {
    {TangentType::kGlobal, MFnAnimCurve::kTangentGlobal},   {TangentType::kFixed, MFnAnimCurve::kTangentFixed},
    {TangentType::kLinear, MFnAnimCurve::kTangentLinear},   {TangentType::kFlat, MFnAnimCurve::kTangentFlat},
    {TangentType::kSmooth, MFnAnimCurve::kTangentSmooth},   {TangentType::kStep, MFnAnimCurve::kTangentStep},
    {TangentType::kSlow, MFnAnimCurve::kTangentSlow},       {TangentType::kFast, MFnAnimCurve::kTangentFast},
    {TangentType::kSpline, MFnAnimCurve::kTangentSmooth},   {TangentType::kClamped, MFnAnimCurve::kTangentClamped},
    {TangentType::kPlateau, MFnAnimCurve::kTangentPlateau}, {TangentType::kStepNext, MFnAnimCurve::kTangentStepNext},
    {TangentType::kAuto, MFnAnimCurve::kTangentAuto},
};

bool isTime(const Node& node, const char* attribute) {
    return node.attribute(node.findAttribute(attribute)).kind == AttrKind::kTime;
}

} // namespace

std::optional<CurveView> curveOf(const MObject& object) {
    Node* node = ApiAccess::node(object);
    CurveView view;
    view.node = node;
    view.curve = node != nullptr ? animCurveOf(Host::instance().graph(), *node) : nullptr;
    if (!view.curve) {
        return std::nullopt;
    }
    view.isTimed = isTime(*node, "keyTime");
    view.ticksPerValue = isTime(*node, "keyValue") ? static_cast<double>(kTicksPerSecond) : 1.0;
    return view;
}

MFnAnimCurve::TangentType apiTangentType(TangentType type) {
    return std::find_if(std::begin(kTangentTypes), std::end(kTangentTypes),
                        [type](const auto& row) { return row.first == type; })
        ->second;
}

TangentVector tangentOf(const CurveView& view, const AnimCurve::Key& key, bool inTangent) {
    const double inputPerX = view.isTimed ? static_cast<double>(kTicksPerSecond) : 1.0;
    const TangentVector& weighted = inTangent ? key.in : key.out;
    if (view.curve->isWeighted() && weighted.x != 0.0) {
        return {weighted.x / inputPerX, weighted.y / view.ticksPerValue};
    }
    const double slope = (inTangent ? key.inSlope : key.outSlope) * inputPerX / view.ticksPerValue;
    const double length = std::hypot(1.0, slope);
    return {1.0 / length, slope / length};
}

} // namespace host
