#pragma once

#include <cstdint>
#include <vector>

namespace host {

/// How a curve leaves or reaches a key; the numbers of files. Others that newer files hold count as kAuto.
enum class TangentType : std::uint8_t {
    kGlobal = 0, // as the user's preferences say; counts as kAuto
    kFixed = 1,
    kLinear = 2,
    kFlat = 3,
    kSmooth = 4, // counts as kSpline
    kStep = 5,
    kSlow = 6, // counts as kFlat
    kFast = 7, // counts as kFlat
    kSpline = 9,
    kClamped = 10,
    kPlateau = 16,
    kStepNext = 17,
    kAuto = 18,
};

/// What a curve does outside its keys; the numbers of files. Others count as kConstant.
enum class CurveInfinity : std::uint8_t { kConstant = 0, kLinear = 1, kCycle = 3, kCycleRelative = 4, kOscillate = 5 };

TangentType tangentTypeOf(double number);
CurveInfinity curveInfinityOf(double number);

struct TangentVector {
    double x = 0.0, y = 0.0; // 0 0: nothing is stored
};

struct CurveKey {
    double input = 0.0; // ticks, or a plain number for a driven key
    double value = 0.0; // internal units
    TangentType inType = TangentType::kAuto, outType = TangentType::kAuto;
    /// As files hold them: x along the input in units of `inputPerX`, y along the value in units of `valuePerY`.
    TangentVector in, out;
    std::int32_t index = 0; // logical, in the node's arrays
};

/// What a curve node stores.
struct CurveDescription {
    std::vector<CurveKey> keys; // in any order; of keys with one input the last counts
    bool weighted = false;      // the lengths of fixed tangents count, not only their slopes
    CurveInfinity before = CurveInfinity::kConstant, after = CurveInfinity::kConstant;
    double inputPerX = 1.0; // ticks per second for a curve over time, 1 for driven keys
    double valuePerY = 1.0; // ticks per second when values are times
};

/// A curve ready to be evaluated: keys in order, all tangents worked out.
///
/// Slopes of the types that are computed, with d0 and d1 the slopes to the neighbours: linear d0 or d1; spline the
/// slope between the two neighbours; auto that slope, limited to three times the smaller of d0 and d1, and flat at
/// extrema and at both ends; plateau likewise but not flat at the ends; clamped as spline, but flat beside a neighbour
/// of nearly the same value. Step and step-next hold a value; as a way in they are flat.
class AnimCurve {
public:
    enum class Segment : std::uint8_t { kHermite, kBezier, kHold, kNext };

    struct Key {
        double input, value;
        double inSlope, outSlope; // value per input
        TangentVector in, out;    // of weighted curves, in units of input and value; 0 0 on the sides without neighbour
        Segment segment;          // from this key to the next
        TangentType inType, outType;
        std::int32_t index; // logical, in the node's arrays
    };

    explicit AnimCurve(const CurveDescription& description);

    /// Value at an input; 0 without keys. An input that is no number gives the first key's value.
    double value(double input) const;

    /// Ascending by input, no two with the same.
    const std::vector<Key>& keys() const { return keys_; }
    bool isWeighted() const { return weighted_; }
    CurveInfinity before() const { return before_; }
    CurveInfinity after() const { return after_; }

private:
    double outside(double input) const;
    double cycled(double input, CurveInfinity infinity) const;
    double inside(double input) const;

    std::vector<Key> keys_;
    bool weighted_;
    CurveInfinity before_, after_;
};

} // namespace host
