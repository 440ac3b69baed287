#include "host/geometry/NurbsCurve.h"

#include <algorithm>
#include <cmath>

namespace host {

namespace {

using Imath::V3d;
using Imath::V4d;

/// A curve of higher degree is a mistake.
constexpr std::size_t kMostDegree = 16;

/// De Boor's way, on homogeneous points: the point, and its derivative by the parameter.
struct HomogeneousPoint {
    V4d place{0.0}, derivative{0.0};
};

/// The knot that lies `at` places into the full list, of which files leave out the first and the last.
double fullKnot(const NurbsCurve& curve, std::size_t at) {
    const std::size_t inner = at > 0 ? at - 1 : 0;
    return curve.knots[std::min(inner, curve.knots.size() - 1)];
}

/// The last place of the full list from which on the parameter is in a span that has a length.
std::size_t spanOf(const NurbsCurve& curve, double parameter) {
    const std::size_t last = curve.points.size() - 1;
    std::size_t span = curve.degree;
    while (span < last && fullKnot(curve, span + 1) <= parameter) {
        ++span;
    }
    while (span > curve.degree && fullKnot(curve, span) >= fullKnot(curve, span + 1)) {
        --span;
    }
    return span;
}

HomogeneousPoint homogeneousAt(const NurbsCurve& curve, double parameter) {
    const std::size_t degree = curve.degree;
    const std::size_t span = spanOf(curve, parameter);
    std::vector<V4d> level(degree + 1);
    for (std::size_t i = 0; i <= degree; ++i) {
        const std::size_t at = span - degree + i;
        const V3d weighted = curve.points[at] * curve.weights[at];
        level[i] = V4d(weighted.x, weighted.y, weighted.z, curve.weights[at]);
    }
    HomogeneousPoint result;
    for (std::size_t round = 1; round <= degree; ++round) {
        if (round == degree) {
            const double length = fullKnot(curve, span + 1) - fullKnot(curve, span);
            result.derivative =
                length > 0.0 ? (level[degree] - level[degree - 1]) * (static_cast<double>(degree) / length) : V4d(0.0);
        }
        for (std::size_t i = degree; i >= round; --i) {
            const double low = fullKnot(curve, span - degree + i);
            const double high = fullKnot(curve, span + 1 + i - round);
            const double part = high > low ? (parameter - low) / (high - low) : 0.0;
            level[i] = level[i - 1] * (1.0 - part) + level[i] * part;
        }
    }
    result.place = level[degree];
    return result;
}

V3d spatial(const V4d& point) {
    return {point.x, point.y, point.z};
}

/// Gauss's rule of five points.
double lengthOfPiece(const NurbsCurve& curve, double from, double to) {
    constexpr double kPlaces[] = {0.0, 0.5384693101056831, 0.9061798459386640};
    constexpr double kShares[] = {0.5688888888888889, 0.4786286704993665, 0.2369268850561891};
    const double half = (to - from) / 2.0;
    const double middle = (from + to) / 2.0;
    double sum = kShares[0] * curve.tangentAt(middle).length();
    for (int i = 1; i < 3; ++i) {
        sum += kShares[i] * (curve.tangentAt(middle - half * kPlaces[i]).length() +
                             curve.tangentAt(middle + half * kPlaces[i]).length());
    }
    return sum * half;
}

double lengthBetween(const NurbsCurve& curve, double from, double to) {
    constexpr int kPieces = 16;
    double sum = 0.0;
    for (int i = 0; i < kPieces; ++i) {
        sum += lengthOfPiece(curve, from + (to - from) * i / kPieces, from + (to - from) * (i + 1) / kPieces);
    }
    return sum;
}

} // namespace

bool NurbsCurve::isWhole() const {
    return degree >= 1 && degree <= kMostDegree && points.size() > degree && weights.size() == points.size() &&
           knots.size() == points.size() + degree - 1 && std::is_sorted(knots.begin(), knots.end()) &&
           firstParameter() < lastParameter();
}

double NurbsCurve::within(double parameter) const {
    const double first = firstParameter();
    const double last = lastParameter();
    if (form == CurveForm::kOpen || !std::isfinite(parameter)) {
        return std::clamp(std::isfinite(parameter) ? parameter : first, first, last);
    }
    if (parameter >= first && parameter <= last) {
        return parameter;
    }
    const double length = last - first;
    const double rest = std::fmod(parameter - first, length);
    return first + (rest < 0.0 ? rest + length : rest);
}

V3d NurbsCurve::pointAt(double parameter) const {
    const HomogeneousPoint found = homogeneousAt(*this, within(parameter));
    return found.place.w != 0.0 ? spatial(found.place) / found.place.w : spatial(found.place);
}

V3d NurbsCurve::tangentAt(double parameter) const {
    const HomogeneousPoint found = homogeneousAt(*this, within(parameter));
    if (found.place.w == 0.0) {
        return spatial(found.derivative);
    }
    return (spatial(found.derivative) - spatial(found.place) * (found.derivative.w / found.place.w)) / found.place.w;
}

double NurbsCurve::lengthTo(double parameter) const {
    const double end = within(parameter);
    double length = 0.0;
    double from = firstParameter();
    for (const double knot : knots) {
        const double to = std::min(knot, end);
        if (to > from) {
            length += lengthBetween(*this, from, to);
            from = to;
        }
    }
    return end > from ? length + lengthBetween(*this, from, end) : length;
}

double NurbsCurve::parameterAt(double part) const {
    const double wanted = std::clamp(part, 0.0, 1.0) * lengthTo(lastParameter());
    double from = firstParameter();
    double passed = 0.0;
    for (const double knot : knots) {
        const double to = std::clamp(knot, from, lastParameter());
        const double length = to > from ? lengthBetween(*this, from, to) : 0.0;
        if (passed + length >= wanted && length > 0.0) {
            double low = from;
            double high = to;
            constexpr int kHalvings = 50;
            for (int i = 0; i < kHalvings; ++i) {
                const double middle = (low + high) / 2.0;
                (passed + lengthBetween(*this, from, middle) < wanted ? low : high) = middle;
            }
            return (low + high) / 2.0;
        }
        passed += length;
        from = to;
    }
    return lastParameter();
}

NurbsCurve NurbsCurve::transformed(const Matrix44& matrix) const {
    NurbsCurve result = *this;
    for (V3d& point : result.points) {
        point = point * matrix;
    }
    return result;
}

std::shared_ptr<const NurbsCurve> nurbsCurveOf(const DataPtr& data) {
    if (data == nullptr || data->kind != DataKind::kNurbsCurve) {
        return nullptr;
    }
    auto curve = std::static_pointer_cast<const NurbsCurve>(data);
    return curve->isWhole() ? curve : nullptr;
}

} // namespace host
