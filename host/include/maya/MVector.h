#pragma once

#include <maya/MStatus.h>
#include <maya/MTypes.h>
#include <maya/detail/RotationOrders.h>

#include <iosfwd>

class MEulerRotation;
class MFloatPoint;
class MFloatVector;
class MMatrix;
class MPoint;
class MQuaternion;

constexpr double MVector_kTol = 1.0e-10;

/// A direction or a difference of points: translations do not move it.
class MVector {
public:
    enum Axis { kXaxis, kYaxis, kZaxis, kWaxis };

    constexpr MVector() = default;
    constexpr MVector(double xx, double yy, double zz = 0.0) : x(xx), y(yy), z(zz) {}
    constexpr MVector(const double source[3]) : x(source[0]), y(source[1]), z(source[2]) {}
    constexpr MVector(const float source[3])
        : x(static_cast<double>(source[0])), y(static_cast<double>(source[1])), z(static_cast<double>(source[2])) {}
    MVector(const MFloatVector& source);
    MVector(const MPoint& source); // w is not looked at
    MVector(const MFloatPoint& source);

    /// 0 to 2; any other index is taken for 2.
    double operator()(unsigned int index) const { return (*this)[index]; }
    double& operator()(unsigned int index) { return (*this)[index]; }
    double operator[](unsigned int index) const { return index == 0 ? x : index == 1 ? y : z; }
    double& operator[](unsigned int index) { return index == 0 ? x : index == 1 ? y : z; }
    MStatus get(double out[3]) const;

    MVector operator+(const MVector& other) const { return MVector(x + other.x, y + other.y, z + other.z); }
    MVector operator-(const MVector& other) const { return MVector(x - other.x, y - other.y, z - other.z); }
    MVector operator-() const { return MVector(-x, -y, -z); }
    MVector operator*(double factor) const { return MVector(x * factor, y * factor, z * factor); }
    MVector operator/(double divisor) const { return MVector(x / divisor, y / divisor, z / divisor); }
    friend MVector operator*(double factor, const MVector& vector) { return vector * factor; }
    MVector& operator+=(const MVector& other) { return *this = *this + other; }
    MVector& operator-=(const MVector& other) { return *this = *this - other; }
    MVector& operator*=(double factor) { return *this = *this * factor; }
    MVector& operator/=(double divisor) { return *this = *this / divisor; }
    bool operator==(const MVector& other) const { return x == other.x && y == other.y && z == other.z; }
    bool operator!=(const MVector& other) const { return !(*this == other); }

    /// The dot product and the cross product.
    double operator*(const MVector& other) const { return x * other.x + y * other.y + z * other.z; }
    MVector operator^(const MVector& other) const {
        return MVector(y * other.z - z * other.y, z * other.x - x * other.z, x * other.y - y * other.x);
    }

    /// As a row vector by the upper left 3 × 3 part; matrix * vector takes it for a column.
    MVector operator*(const MMatrix& matrix) const;
    MVector& operator*=(const MMatrix& matrix);
    friend MVector operator*(const MMatrix& matrix, const MVector& vector);
    /// By the inverse transpose, so that it stays normal to a transformed surface; length not kept.
    MVector transformAsNormal(const MMatrix& matrix) const;

    MVector rotateBy(const double angles[3], host::api::RotationOrders::RotationOrder order) const; // radians
    MVector rotateBy(Axis axis, double angle) const;                                                // radians
    MVector rotateBy(const MQuaternion& rotation) const;
    MVector rotateBy(const MEulerRotation& rotation) const;
    /// The shortest rotation that turns this direction into the other's.
    MQuaternion rotateTo(const MVector& other) const;

    double length() const;
    /// At length 1; a null vector stays null, for which normalize() fails.
    MVector normal() const;
    MStatus normalize();
    /// Between the directions, 0 to pi; 0 when one has no length.
    double angle(const MVector& other) const;
    bool isEquivalent(const MVector& other, double tolerance = MVector_kTol) const; // component by component
    /// Along one line, in either sense; the tolerance is the sine of the angle.
    bool isParallel(const MVector& other, double tolerance = MVector_kTol) const;

    static const MVector zero, one;
    static const MVector xAxis, yAxis, zAxis, xNegAxis, yNegAxis, zNegAxis;

    double x = 0.0, y = 0.0, z = 0.0;
};

std::ostream& operator<<(std::ostream& stream, const MVector& vector);
