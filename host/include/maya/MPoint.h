#pragma once

#include <maya/MStatus.h>
#include <maya/MVector.h>

#include <iosfwd>

class MFloatPoint;
class MMatrix;

constexpr double MPoint_kTol = 1.0e-10;

/// A place, with a fourth coordinate w that is 1 for ordinary points. Sums and differences look at x, y and z only, so
/// both points must have w = 1 there.
class MPoint {
public:
    constexpr MPoint() = default;
    constexpr MPoint(double xx, double yy, double zz = 0.0, double ww = 1.0) : x(xx), y(yy), z(zz), w(ww) {}
    constexpr MPoint(const double source[4]) : x(source[0]), y(source[1]), z(source[2]), w(source[3]) {}
    constexpr MPoint(const float source[4])
        : x(static_cast<double>(source[0])), y(static_cast<double>(source[1])), z(static_cast<double>(source[2])),
          w(static_cast<double>(source[3])) {}
    constexpr MPoint(const MVector& source) : x(source.x), y(source.y), z(source.z) {}
    MPoint(const MFloatPoint& source);

    /// 0 to 3; any other index is taken for 3.
    double operator()(unsigned int index) const { return (*this)[index]; }
    double& operator()(unsigned int index) { return (*this)[index]; }
    double operator[](unsigned int index) const { return index == 0 ? x : index == 1 ? y : index == 2 ? z : w; }
    double& operator[](unsigned int index) { return index == 0 ? x : index == 1 ? y : index == 2 ? z : w; }
    MStatus get(double out[4]) const;
    MStatus get(float out[4]) const;

    MVector operator-(const MPoint& other) const { return MVector(x - other.x, y - other.y, z - other.z); }
    MPoint operator+(const MVector& offset) const { return MPoint(x + offset.x, y + offset.y, z + offset.z, w); }
    MPoint operator-(const MVector& offset) const { return MPoint(x - offset.x, y - offset.y, z - offset.z, w); }
    MPoint& operator+=(const MVector& offset) { return *this = *this + offset; }
    MPoint& operator-=(const MVector& offset) { return *this = *this - offset; }
    /// x, y and z times the factor; w stays.
    MPoint operator*(double factor) const { return MPoint(x * factor, y * factor, z * factor, w); }
    MPoint operator/(double divisor) const { return MPoint(x / divisor, y / divisor, z / divisor, w); }
    friend MPoint operator*(double factor, const MPoint& point) { return point * factor; }
    bool operator==(const MPoint& other) const { return x == other.x && y == other.y && z == other.z && w == other.w; }
    bool operator!=(const MPoint& other) const { return !(*this == other); }

    /// All four coordinates as a row vector; matrix * point takes them for a column.
    MPoint operator*(const MMatrix& matrix) const;
    MPoint& operator*=(const MMatrix& matrix);
    friend MPoint operator*(const MMatrix& matrix, const MPoint& point);

    /// (wx, wy, wz, w) becomes (x, y, z, 1); (wx, wy, wz, w) becomes (x, y, z, w); (x, y, z, w) becomes
    /// (wx, wy, wz, w). The first two leave a point with w = 0 as it is.
    MPoint& cartesianize();
    MPoint& rationalize();
    MPoint& homogenize();

    double distanceTo(const MPoint& other) const;
    bool isEquivalent(const MPoint& other, double tolerance = MPoint_kTol) const; // x, y and z

    static const MPoint origin;

    double x = 0.0, y = 0.0, z = 0.0, w = 1.0;
};

inline MVector::MVector(const MPoint& source) : x(source.x), y(source.y), z(source.z) {}

std::ostream& operator<<(std::ostream& stream, const MPoint& point);
