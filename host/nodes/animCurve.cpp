#include "host/nodes/animCurve.h"

#include <algorithm>
#include <cmath>

namespace host {

namespace {

/// What a tangent straight up or down counts as, per second.
constexpr double kSteepestSlope = 5729577.9485111479;

/// A neighbour whose value differs by no more than this part of the larger one is as good as equal to a clamped key.
constexpr double kClampedTolerance = 0.05;

std::vector<CurveKey> sortedKeys(std::vector<CurveKey> keys) {
    std::stable_sort(keys.begin(), keys.end(), [](const CurveKey& a, const CurveKey& b) { return a.input < b.input; });
    std::vector<CurveKey> result;
    result.reserve(keys.size());
    for (const CurveKey& key : keys) {
        if (!result.empty() && result.back().input == key.input) {
            result.back() = key;
        } else {
            result.push_back(key);
        }
    }
    return result;
}

/// A key with the slopes to its neighbours; of a key at an end both are that of its only neighbour.
struct Surroundings {
    const CurveKey* previous;
    const CurveKey& key;
    const CurveKey* next;
    double before, after;
};

double slopeBetween(const CurveKey& a, const CurveKey& b) {
    return (b.value - a.value) / (b.input - a.input);
}

Surroundings surroundingsOf(const std::vector<CurveKey>& keys, std::size_t at) {
    Surroundings result{at > 0 ? &keys[at - 1] : nullptr, keys[at], at + 1 < keys.size() ? &keys[at + 1] : nullptr, 0,
                        0};
    if (result.previous != nullptr) {
        result.before = slopeBetween(*result.previous, result.key);
    }
    result.after = result.next != nullptr ? slopeBetween(result.key, *result.next) : result.before;
    if (result.previous == nullptr) {
        result.before = result.after;
    }
    return result;
}

double splineSlope(const Surroundings& around) {
    return around.previous != nullptr && around.next != nullptr ? slopeBetween(*around.previous, *around.next)
                                                                : around.after;
}

double plateauSlope(const Surroundings& around) {
    if (around.before * around.after <= 0.0) {
        return 0.0;
    }
    const double limit = 3.0 * std::min(std::abs(around.before), std::abs(around.after));
    return std::clamp(splineSlope(around), -limit, limit);
}

bool isNearlyEqual(double a, double b) {
    return std::abs(a - b) <= kClampedTolerance * std::max(std::abs(a), std::abs(b));
}

double clampedSlope(const Surroundings& around) {
    const double value = around.key.value;
    const bool isFlat = (around.previous != nullptr && isNearlyEqual(value, around.previous->value)) ||
                        (around.next != nullptr && isNearlyEqual(value, around.next->value));
    return isFlat ? 0.0 : splineSlope(around);
}

double fixedSlope(const TangentVector& stored, const CurveDescription& curve) {
    if (stored.x == 0.0 && stored.y == 0.0) {
        return 0.0;
    }
    const double perX = stored.x == 0.0 ? std::copysign(kSteepestSlope, stored.y) : stored.y / stored.x;
    return perX * curve.valuePerY / curve.inputPerX;
}

/// Slope, value per input, on one side of a key.
double slopeOf(TangentType type, const TangentVector& stored, double toNeighbour, const Surroundings& around,
               const CurveDescription& curve) {
    switch (type) {
    case TangentType::kFixed:
        return fixedSlope(stored, curve);
    case TangentType::kLinear:
        return toNeighbour;
    case TangentType::kFlat:
    case TangentType::kStep:
    case TangentType::kStepNext:
    case TangentType::kSlow:
    case TangentType::kFast:
        return 0.0;
    case TangentType::kSmooth:
    case TangentType::kSpline:
        return splineSlope(around);
    case TangentType::kClamped:
        return clampedSlope(around);
    case TangentType::kPlateau:
        return plateauSlope(around);
    case TangentType::kGlobal:
    case TangentType::kAuto:
        break;
    }
    return around.previous == nullptr || around.next == nullptr ? 0.0 : plateauSlope(around);
}

/// Tangent of a weighted curve in units of input and value: as stored; without one, as long as its segment, which makes
/// the same curve as the slope alone.
TangentVector weightedTangent(const TangentVector& stored, double slope, double length, const CurveDescription& curve) {
    if (stored.x == 0.0 && stored.y == 0.0) {
        return {length, slope * length};
    }
    TangentVector tangent{std::max(stored.x, 0.0) * curve.inputPerX, stored.y * curve.valuePerY};
    if (tangent.x > 3.0 * length) { // the curve would run backward
        const double factor = 3.0 * length / tangent.x;
        tangent.x *= factor;
        tangent.y *= factor;
    }
    return tangent;
}

double hermite(double u, double length, double v0, double m0, double v1, double m1) {
    const double u2 = u * u;
    const double u3 = u2 * u;
    return (2 * u3 - 3 * u2 + 1) * v0 + (u3 - 2 * u2 + u) * length * m0 + (-2 * u3 + 3 * u2) * v1 +
           (u3 - u2) * length * m1;
}

double bezier(double s, double p1, double p2, double p3) {
    const double r = 1.0 - s;
    return ((3.0 * r * r * p1) + (3.0 * r * s * p2) + s * s * p3) * s;
}

/// Parameter at which a curve with control points 0, p1, p2, 1 (p1 and p2 in 0 … 1, so it never turns back) is at x.
double bezierParameter(double x, double p1, double p2) {
    double low = 0.0;
    double high = 1.0;
    // Halving 60 times leaves nothing of the interval that a double could tell apart.
    for (int step = 0; step < 60; ++step) {
        const double middle = 0.5 * (low + high);
        (bezier(middle, p1, p2, 1.0) < x ? low : high) = middle;
    }
    return 0.5 * (low + high);
}

} // namespace

TangentType tangentTypeOf(double number) {
    for (const TangentType type : {TangentType::kFixed, TangentType::kLinear, TangentType::kFlat, TangentType::kSmooth,
                                   TangentType::kStep, TangentType::kSlow, TangentType::kFast, TangentType::kSpline,
                                   TangentType::kClamped, TangentType::kPlateau, TangentType::kStepNext}) {
        if (number == static_cast<double>(type)) {
            return type;
        }
    }
    return TangentType::kAuto;
}

CurveInfinity curveInfinityOf(double number) {
    for (const CurveInfinity infinity :
         {CurveInfinity::kLinear, CurveInfinity::kCycle, CurveInfinity::kCycleRelative, CurveInfinity::kOscillate}) {
        if (number == static_cast<double>(infinity)) {
            return infinity;
        }
    }
    return CurveInfinity::kConstant;
}

AnimCurve::AnimCurve(const CurveDescription& description)
    : weighted_(description.weighted), before_(description.before), after_(description.after) {
    const std::vector<CurveKey> keys = sortedKeys(description.keys);
    keys_.reserve(keys.size());
    for (std::size_t i = 0; i < keys.size(); ++i) {
        const CurveKey& key = keys[i];
        const Surroundings around = surroundingsOf(keys, i);
        const Segment segment = description.weighted ? Segment::kBezier : Segment::kHermite;
        Key made{key.input, key.value, 0, 0, {}, {}, segment, key.inType, key.outType, key.index};
        made.inSlope = slopeOf(key.inType, key.in, around.before, around, description);
        made.outSlope = slopeOf(key.outType, key.out, around.after, around, description);
        if (around.previous != nullptr) {
            made.in = weightedTangent(key.in, made.inSlope, key.input - around.previous->input, description);
        }
        if (around.next != nullptr) {
            made.out = weightedTangent(key.out, made.outSlope, around.next->input - key.input, description);
        }
        if (key.outType == TangentType::kStep) {
            made.segment = Segment::kHold;
        } else if (key.outType == TangentType::kStepNext) {
            made.segment = Segment::kNext;
        }
        keys_.push_back(made);
    }
}

double AnimCurve::value(double input) const {
    if (keys_.empty()) {
        return 0.0;
    }
    if (keys_.size() == 1 || std::isnan(input)) {
        return keys_.front().value;
    }
    if (input < keys_.front().input || input > keys_.back().input) {
        return outside(input);
    }
    return inside(input);
}

double AnimCurve::outside(double input) const {
    const bool isBefore = input < keys_.front().input;
    const Key& end = isBefore ? keys_.front() : keys_.back();
    const CurveInfinity infinity = isBefore ? before_ : after_;
    if (infinity == CurveInfinity::kConstant || std::isinf(input)) {
        return end.value;
    }
    if (infinity == CurveInfinity::kLinear) {
        return end.value + (isBefore ? end.inSlope : end.outSlope) * (input - end.input);
    }
    return cycled(input, infinity);
}

double AnimCurve::cycled(double input, CurveInfinity infinity) const {
    const Key& first = keys_.front();
    const Key& last = keys_.back();
    const double period = last.input - first.input;
    const double cycles = std::floor((input - first.input) / period);
    double mapped = std::clamp(input - cycles * period, first.input, last.input);
    if (infinity == CurveInfinity::kOscillate && std::fmod(cycles, 2.0) != 0.0) {
        mapped = first.input + last.input - mapped;
    }
    const double shift = infinity == CurveInfinity::kCycleRelative ? cycles * (last.value - first.value) : 0.0;
    return inside(mapped) + shift;
}

/// `input` lies on the keys or between them.
double AnimCurve::inside(double input) const {
    const auto next =
        std::upper_bound(keys_.begin(), keys_.end(), input, [](double at, const Key& key) { return at < key.input; });
    const Key& left = *(next - 1);
    if (input == left.input || next == keys_.end()) {
        return left.value;
    }
    const Key& right = *next;
    const double length = right.input - left.input;
    const double u = (input - left.input) / length;
    switch (left.segment) {
    case Segment::kHold:
        return left.value;
    case Segment::kNext:
        return right.value;
    case Segment::kHermite:
        return hermite(u, length, left.value, left.outSlope, right.value, right.inSlope);
    case Segment::kBezier:
        break;
    }
    const double third = 1.0 / 3.0;
    const double s = bezierParameter(u, left.out.x * third / length, 1.0 - right.in.x * third / length);
    const double rise = right.value - left.value;
    return left.value + bezier(s, left.out.y * third, rise - right.in.y * third, rise);
}

} // namespace host
