#pragma once

#include <maya/MStatus.h>
#include <maya/MVector.h>

#include <iosfwd>

class MFloatMatrix;
class MFloatPoint;

constexpr float MFloatVector_kTol = 1.0e-5f;

/// MVector in single precision.
class MFloatVector {
public:
    constexpr MFloatVector() = default;
    constexpr MFloatVector(float xx, float yy, float zz = 0.0f) : x(xx), y(yy), z(zz) {}
    constexpr MFloatVector(const float source[3]) : x(source[0]), y(source[1]), z(source[2]) {}
    constexpr MFloatVector(const double source[3])
        : x(static_cast<float>(source[0])), y(static_cast<float>(source[1])), z(static_cast<float>(source[2])) {}
    MFloatVector(const MVector& source)
        : x(static_cast<float>(source.x)), y(static_cast<float>(source.y)), z(static_cast<float>(source.z)) {}
    MFloatVector(const MFloatPoint& source);

    /// 0 to 2; any other index is taken for 2.
    float operator()(unsigned int index) const { return (*this)[index]; }
    float& operator()(unsigned int index) { return (*this)[index]; }
    float operator[](unsigned int index) const { return index == 0 ? x : index == 1 ? y : z; }
    float& operator[](unsigned int index) { return index == 0 ? x : index == 1 ? y : z; }
    MStatus get(float out[3]) const;

    MFloatVector operator+(const MFloatVector& other) const {
        return MFloatVector(x + other.x, y + other.y, z + other.z);
    }
    MFloatVector operator-(const MFloatVector& other) const {
        return MFloatVector(x - other.x, y - other.y, z - other.z);
    }
    MFloatVector operator-() const { return MFloatVector(-x, -y, -z); }
    MFloatVector operator*(float factor) const { return MFloatVector(x * factor, y * factor, z * factor); }
    MFloatVector operator/(float divisor) const { return MFloatVector(x / divisor, y / divisor, z / divisor); }
    friend MFloatVector operator*(float factor, const MFloatVector& vector) { return vector * factor; }
    MFloatVector& operator+=(const MFloatVector& other) { return *this = *this + other; }
    MFloatVector& operator-=(const MFloatVector& other) { return *this = *this - other; }
    MFloatVector& operator*=(float factor) { return *this = *this * factor; }
    MFloatVector& operator/=(float divisor) { return *this = *this / divisor; }
    bool operator==(const MFloatVector& other) const { return x == other.x && y == other.y && z == other.z; }
    bool operator!=(const MFloatVector& other) const { return !(*this == other); }

    /// The dot product and the cross product.
    float operator*(const MFloatVector& other) const { return x * other.x + y * other.y + z * other.z; }
    MFloatVector operator^(const MFloatVector& other) const {
        return MFloatVector(y * other.z - z * other.y, z * other.x - x * other.z, x * other.y - y * other.x);
    }

    /// As a row vector by the upper left 3 × 3 part.
    MFloatVector operator*(const MMatrix& matrix) const;
    MFloatVector operator*(const MFloatMatrix& matrix) const;
    /// By the inverse transpose.
    MFloatVector transformAsNormal(const MFloatMatrix& matrix) const;

    float length() const;
    /// At length 1; a null vector stays null, for which normalize() fails.
    MFloatVector normal() const;
    MStatus normalize();
    float angle(const MFloatVector& other) const; // 0 to pi
    bool isEquivalent(const MFloatVector& other, float tolerance = MFloatVector_kTol) const;
    bool isParallel(const MFloatVector& other, float tolerance = MFloatVector_kTol) const;

    static const MFloatVector zero, one;
    static const MFloatVector xAxis, yAxis, zAxis, xNegAxis, yNegAxis, zNegAxis;

    float x = 0.0f, y = 0.0f, z = 0.0f;
};

inline MVector::MVector(const MFloatVector& source)
    : x(static_cast<double>(source.x)), y(static_cast<double>(source.y)), z(static_cast<double>(source.z)) {}

std::ostream& operator<<(std::ostream& stream, const MFloatVector& vector);
