#include "host/mel/builtins.h"

#include "host/mel/Evaluator.h"
#include "host/mel/operators.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace host::mel {

namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kDegree = kPi / 180.0;

using Function = double (*)(double);

template <Function Compute>
Value runOf(BuiltinCall& call) {
    return Compute(call.number(0));
}

double sine(double angle) {
    return std::sin(angle);
}

double cosine(double angle) {
    return std::cos(angle);
}

double tangent(double angle) {
    return std::tan(angle);
}

double arcSine(double value) {
    return std::asin(value);
}

double arcCosine(double value) {
    return std::acos(value);
}

double arcTangent(double value) {
    return std::atan(value);
}

double toRadians(double degrees) {
    return degrees * kDegree;
}

double toDegrees(double radians) {
    return radians / kDegree;
}

template <Function Compute>
Value runOfDegrees(BuiltinCall& call) {
    return Compute(toRadians(call.number(0)));
}

template <Function Compute>
Value runToDegrees(BuiltinCall& call) {
    return toDegrees(Compute(call.number(0)));
}

double squareRoot(double value) {
    return std::sqrt(value);
}

double exponential(double value) {
    return std::exp(value);
}

double logarithm(double value) {
    return std::log(value);
}

double logarithm10(double value) {
    return std::log10(value);
}

double roundedDown(double value) {
    return std::floor(value);
}

double roundedUp(double value) {
    return std::ceil(value);
}

double truncated(double value) {
    return std::trunc(value);
}

bool areInts(const BuiltinCall& call) {
    return std::all_of(call.arguments.begin(), call.arguments.end(),
                       [](const Argument& argument) { return argument.value.type() == ValueType::kInt; });
}

Value runAbs(BuiltinCall& call) {
    const Value& value = call.value(0);
    if (value.type() == ValueType::kInt) {
        return value.toInt() < 0 ? negated(value) : value;
    }
    if (value.type() == ValueType::kVector) {
        const Vector vector = value.toVector();
        return Vector{std::fabs(vector.x), std::fabs(vector.y), std::fabs(vector.z)};
    }
    return std::fabs(call.number(0));
}

Value runMin(BuiltinCall& call) {
    return areInts(call) ? Value(std::min(call.integer(0), call.integer(1)))
                         : Value(std::fmin(call.number(0), call.number(1)));
}

Value runMax(BuiltinCall& call) {
    return areInts(call) ? Value(std::max(call.integer(0), call.integer(1)))
                         : Value(std::fmax(call.number(0), call.number(1)));
}

// least, most, value
Value runClamp(BuiltinCall& call) {
    return areInts(call) ? Value(std::max(call.integer(0), std::min(call.integer(1), call.integer(2))))
                         : Value(std::fmax(call.number(0), std::fmin(call.number(1), call.number(2))));
}

Value runSign(BuiltinCall& call) {
    const double value = call.number(0);
    const int sign = value > 0.0 ? 1 : value < 0.0 ? -1 : 0;
    return call.value(0).type() == ValueType::kInt ? Value(sign) : Value(static_cast<double>(sign));
}

Value runPow(BuiltinCall& call) {
    return std::pow(call.number(0), call.number(1));
}

Value runFmod(BuiltinCall& call) {
    return applyBinary(TokenKind::kPercent, call.number(0), call.number(1));
}

Value runAtan2(BuiltinCall& call) {
    return std::atan2(call.number(0), call.number(1));
}

Value runAtan2d(BuiltinCall& call) {
    return toDegrees(std::atan2(call.number(0), call.number(1)));
}

Value runHypot(BuiltinCall& call) {
    return std::hypot(call.number(0), call.number(1));
}

// How far value is on the way from start to end, 0 to 1.
double wayFromTo(double start, double end, double value) {
    if (start == end) {
        return value < start ? 0.0 : 1.0;
    }
    return std::fmax(0.0, std::fmin(1.0, (value - start) / (end - start)));
}

Value runLinstep(BuiltinCall& call) {
    return wayFromTo(call.number(0), call.number(1), call.number(2));
}

Value runSmoothstep(BuiltinCall& call) {
    const double way = wayFromTo(call.number(0), call.number(1), call.number(2));
    return way * way * (3.0 - 2.0 * way);
}

// The top 53 bits fill a double's fraction, on every system alike.
double nextRandom(BuiltinCall& call) {
    return static_cast<double>(call.evaluator.state().random() >> 11) * 0x1p-53;
}

// rand(most), rand(least, most); with vectors for each component.
Value runRand(BuiltinCall& call) {
    const std::size_t last = call.count() - 1;
    const bool isVector = call.value(last).type() == ValueType::kVector;
    if (!isVector) {
        const double least = call.count() == 2 ? call.number(0) : 0.0;
        return least + (call.number(last) - least) * nextRandom(call);
    }
    const Vector least = call.count() == 2 ? call.vector(0) : Vector();
    const Vector most = call.vector(last);
    const double x = least.x + (most.x - least.x) * nextRandom(call);
    const double y = least.y + (most.y - least.y) * nextRandom(call);
    const double z = least.z + (most.z - least.z) * nextRandom(call);
    return Vector{x, y, z};
}

Value runSeed(BuiltinCall& call) {
    const std::int64_t seed = call.integer(0);
    call.evaluator.state().random.seed(static_cast<std::uint64_t>(seed));
    return seed;
}

constexpr std::array<Builtin, 35> kRows = {{
    {"abs", 1, 1, runAbs},
    {"min", 2, 2, runMin},
    {"max", 2, 2, runMax},
    {"clamp", 3, 3, runClamp},
    {"sign", 1, 1, runSign},
    {"floor", 1, 1, runOf<roundedDown>},
    {"ceil", 1, 1, runOf<roundedUp>},
    {"trunc", 1, 1, runOf<truncated>},
    {"pow", 2, 2, runPow},
    {"fmod", 2, 2, runFmod},
    {"sqrt", 1, 1, runOf<squareRoot>},
    {"exp", 1, 1, runOf<exponential>},
    {"log", 1, 1, runOf<logarithm>},
    {"log10", 1, 1, runOf<logarithm10>},
    {"hypot", 2, 2, runHypot},
    {"sin", 1, 1, runOf<sine>},
    {"cos", 1, 1, runOf<cosine>},
    {"tan", 1, 1, runOf<tangent>},
    {"asin", 1, 1, runOf<arcSine>},
    {"acos", 1, 1, runOf<arcCosine>},
    {"atan", 1, 1, runOf<arcTangent>},
    {"atan2", 2, 2, runAtan2},
    {"sind", 1, 1, runOfDegrees<sine>},
    {"cosd", 1, 1, runOfDegrees<cosine>},
    {"tand", 1, 1, runOfDegrees<tangent>},
    {"asind", 1, 1, runToDegrees<arcSine>},
    {"acosd", 1, 1, runToDegrees<arcCosine>},
    {"atand", 1, 1, runToDegrees<arcTangent>},
    {"atan2d", 2, 2, runAtan2d},
    {"deg_to_rad", 1, 1, runOf<toRadians>},
    {"rad_to_deg", 1, 1, runOf<toDegrees>},
    {"linstep", 3, 3, runLinstep},
    {"smoothstep", 3, 3, runSmoothstep},
    {"rand", 1, 2, runRand},
    {"seed", 1, 1, runSeed},
}};

} // namespace

BuiltinFamily mathFunctions() {
    return {kRows.data(), kRows.size()};
}

} // namespace host::mel
