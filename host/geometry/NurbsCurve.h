#pragma once

#include "host/graph/Data.h"
#include "host/graph/Value.h"

#include <Imath/ImathVec.h>

#include <cstddef>
#include <memory>
#include <vector>

namespace host {

enum class CurveForm : int { kOpen, kClosed, kPeriodic };

/// A curve as it travels through plugs, centimetres. Immutable once in a plug.
struct NurbsCurve final : Data {
    NurbsCurve() : Data(DataKind::kNurbsCurve) {}

    std::size_t degree = 3;
    CurveForm form = CurveForm::kOpen;
    std::vector<double> knots;      // ascending; of a curve of the degree d as many as points and d - 1 more
    std::vector<Imath::V3d> points; // of a periodic curve, the first d again at the end
    std::vector<double> weights;    // one per point

    /// Whether the numbers above make a curve. All below needs that.
    bool isWhole() const;

    double firstParameter() const { return knots[degree - 1]; }
    double lastParameter() const { return knots[knots.size() - degree]; }
    /// Parameters outside go round on curves that are not open, else they mean the nearest end.
    double within(double parameter) const;

    Imath::V3d pointAt(double parameter) const;
    /// The derivative by the parameter.
    Imath::V3d tangentAt(double parameter) const;
    /// From the first parameter on; with errors far below a millionth of it.
    double lengthTo(double parameter) const;
    /// Where this part of the whole length (0 … 1) is reached.
    double parameterAt(double part) const;

    NurbsCurve transformed(const Matrix44& matrix) const;
};

/// The data as a whole curve; null when there is none, it is of another kind or broken.
std::shared_ptr<const NurbsCurve> nurbsCurveOf(const DataPtr& data);

} // namespace host
