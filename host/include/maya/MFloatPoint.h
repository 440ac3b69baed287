#pragma once

#include <maya/MFloatVector.h>
#include <maya/MPoint.h>
#include <maya/MStatus.h>

#include <iosfwd>

class MFloatMatrix;

constexpr float MFloatPoint_kTol = 1.0e-5f;

/// MPoint in single precision.
class MFloatPoint {
public:
    constexpr MFloatPoint() = default;
    constexpr MFloatPoint(float xx, float yy, float zz = 0.0f, float ww = 1.0f) : x(xx), y(yy), z(zz), w(ww) {}
    constexpr MFloatPoint(const float source[4]) : x(source[0]), y(source[1]), z(source[2]), w(source[3]) {}
    constexpr MFloatPoint(const double source[4])
        : x(static_cast<float>(source[0])), y(static_cast<float>(source[1])), z(static_cast<float>(source[2])),
          w(static_cast<float>(source[3])) {}
    constexpr MFloatPoint(const MFloatVector& source) : x(source.x), y(source.y), z(source.z) {}
    MFloatPoint(const MVector& source)
        : x(static_cast<float>(source.x)), y(static_cast<float>(source.y)), z(static_cast<float>(source.z)) {}
    MFloatPoint(const MPoint& source)
        : x(static_cast<float>(source.x)), y(static_cast<float>(source.y)), z(static_cast<float>(source.z)),
          w(static_cast<float>(source.w)) {}

    /// 0 to 3; any other index is taken for 3.
    float operator()(unsigned int index) const { return (*this)[index]; }
    float& operator()(unsigned int index) { return (*this)[index]; }
    float operator[](unsigned int index) const { return index == 0 ? x : index == 1 ? y : index == 2 ? z : w; }
    float& operator[](unsigned int index) { return index == 0 ? x : index == 1 ? y : index == 2 ? z : w; }
    MStatus get(double out[4]) const;
    MStatus get(float out[4]) const;
    MStatus setCast(const MPoint& source);

    MFloatVector operator-(const MFloatPoint& other) const {
        return MFloatVector(x - other.x, y - other.y, z - other.z);
    }
    MFloatPoint operator+(const MFloatVector& offset) const {
        return MFloatPoint(x + offset.x, y + offset.y, z + offset.z, w);
    }
    MFloatPoint operator-(const MFloatVector& offset) const {
        return MFloatPoint(x - offset.x, y - offset.y, z - offset.z, w);
    }
    MFloatPoint& operator+=(const MFloatVector& offset) { return *this = *this + offset; }
    MFloatPoint& operator-=(const MFloatVector& offset) { return *this = *this - offset; }
    /// x, y and z times the factor; w stays.
    MFloatPoint operator*(float factor) const { return MFloatPoint(x * factor, y * factor, z * factor, w); }
    MFloatPoint operator/(float divisor) const { return MFloatPoint(x / divisor, y / divisor, z / divisor, w); }
    friend MFloatPoint operator*(float factor, const MFloatPoint& point) { return point * factor; }
    bool operator==(const MFloatPoint& other) const {
        return x == other.x && y == other.y && z == other.z && w == other.w;
    }
    bool operator!=(const MFloatPoint& other) const { return !(*this == other); }

    /// All four coordinates as a row vector.
    MFloatPoint operator*(const MMatrix& matrix) const;
    MFloatPoint operator*(const MFloatMatrix& matrix) const;
    MFloatPoint& operator*=(const MMatrix& matrix);
    MFloatPoint& operator*=(const MFloatMatrix& matrix);

    /// As those of MPoint.
    MFloatPoint& cartesianize();
    MFloatPoint& rationalize();
    MFloatPoint& homogenize();

    float distanceTo(const MFloatPoint& other) const;
    bool isEquivalent(const MFloatPoint& other, float tolerance = MFloatPoint_kTol) const; // x, y and z

    static const MFloatPoint origin;

    float x = 0.0f, y = 0.0f, z = 0.0f, w = 1.0f;
};

inline MVector::MVector(const MFloatPoint& source)
    : x(static_cast<double>(source.x)), y(static_cast<double>(source.y)), z(static_cast<double>(source.z)) {}

inline MFloatVector::MFloatVector(const MFloatPoint& source) : x(source.x), y(source.y), z(source.z) {}

inline MPoint::MPoint(const MFloatPoint& source)
    : x(static_cast<double>(source.x)), y(static_cast<double>(source.y)), z(static_cast<double>(source.z)),
      w(static_cast<double>(source.w)) {}

std::ostream& operator<<(std::ostream& stream, const MFloatPoint& point);
