#include "host/mel/builtins.h"

#include "host/mel/operators.h"

#include <array>
#include <cmath>

namespace host::mel {

namespace {

Vector scaled(const Vector& vector, double factor) {
    return {vector.x * factor, vector.y * factor, vector.z * factor};
}

Vector sum(const Vector& left, const Vector& right) {
    return {left.x + right.x, left.y + right.y, left.z + right.z};
}

double length(const Vector& vector) {
    return std::sqrt(dotProduct(vector, vector));
}

// Of length one; a null vector stays as it is.
Vector unitOf(const Vector& vector) {
    const double size = length(vector);
    return size == 0.0 ? vector : scaled(vector, 1.0 / size);
}

Value runMag(BuiltinCall& call) {
    return length(call.vector(0));
}

Value runDot(BuiltinCall& call) {
    return dotProduct(call.vector(0), call.vector(1));
}

Value runCross(BuiltinCall& call) {
    return crossProduct(call.vector(0), call.vector(1));
}

Value runUnit(BuiltinCall& call) {
    return unitOf(call.vector(0));
}

// Between two vectors, in radians; by the arc tangent, which stays exact for nearly parallel ones.
Value runAngle(BuiltinCall& call) {
    const Vector left = call.vector(0);
    const Vector right = call.vector(1);
    return std::atan2(length(crossProduct(left, right)), dotProduct(left, right));
}

// point, axis through the origin, radians counter-clockwise (Rodrigues' formula)
Value runRot(BuiltinCall& call) {
    const Vector point = call.vector(0);
    const Vector axis = unitOf(call.vector(1));
    const double angle = call.number(2);
    const double along = dotProduct(axis, point) * (1.0 - std::cos(angle));
    const Vector turned = sum(scaled(point, std::cos(angle)), scaled(crossProduct(axis, point), std::sin(angle)));
    return sum(turned, scaled(axis, along));
}

constexpr std::array<Builtin, 6> kRows = {{
    {"mag", 1, 1, runMag},
    {"dot", 2, 2, runDot},
    {"cross", 2, 2, runCross},
    {"unit", 1, 1, runUnit},
    {"angle", 2, 2, runAngle},
    {"rot", 3, 3, runRot},
}};

} // namespace

BuiltinFamily vectorFunctions() {
    return {kRows.data(), kRows.size()};
}

} // namespace host::mel
