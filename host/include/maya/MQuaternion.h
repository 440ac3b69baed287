#pragma once

#include <maya/MMatrix.h>
#include <maya/MStatus.h>
#include <maya/MVector.h>

#include <iosfwd>

class MEulerRotation;

constexpr double MQuaternion_kTol = 1.0e-10;

/// A quaternion x i + y j + z k + w. As a rotation, left * right applies left first, like matrices on row vectors; only
/// quaternions of length 1 are rotations.
class MQuaternion {
public:
    constexpr MQuaternion() = default; // no rotation
    constexpr MQuaternion(double xx, double yy, double zz, double ww) : x(xx), y(yy), z(zz), w(ww) {}
    constexpr MQuaternion(const double source[4]) : x(source[0]), y(source[1]), z(source[2]), w(source[3]) {}
    MQuaternion(double angle, const MVector& axis); // see setAxisAngle
    /// The shortest rotation from one direction to the other; `factor` takes a part of it.
    MQuaternion(const MVector& from, const MVector& to);
    MQuaternion(const MVector& from, const MVector& to, double factor);

    /// From a matrix only its rotation is taken: scale, shear and mirroring are removed first.
    MQuaternion& operator=(const MMatrix& matrix);
    MQuaternion& operator=(const MEulerRotation& rotation);
    /// Radians about the axis, of any length; a null axis gives no rotation.
    MQuaternion& setAxisAngle(const MVector& axis, double angle);
    MQuaternion& setToXAxis(double angle);
    MQuaternion& setToYAxis(double angle);
    MQuaternion& setToZAxis(double angle);

    MMatrix asMatrix() const;               // of the quaternion at length 1
    MEulerRotation asEulerRotation() const; // order xyz
    /// The axis at length 1 and the angle from 0 to 2 pi. False, with the x axis and 0, when nothing is rotated.
    bool getAxisAngle(MVector& axis, double& angle) const;
    MStatus get(double out[4]) const; // x, y, z, w

    /// 0 to 3 for x, y, z, w; any other index is taken for 3.
    double operator[](unsigned int index) const { return index == 0 ? x : index == 1 ? y : index == 2 ? z : w; }
    double& operator[](unsigned int index) { return index == 0 ? x : index == 1 ? y : index == 2 ? z : w; }

    MQuaternion operator+(const MQuaternion& other) const;
    MQuaternion operator-(const MQuaternion& other) const;
    MQuaternion operator-() const { return MQuaternion(-x, -y, -z, -w); }
    MQuaternion operator*(const MQuaternion& other) const;
    MQuaternion& operator*=(const MQuaternion& other);
    MQuaternion operator*(double factor) const;
    friend MQuaternion operator*(double factor, const MQuaternion& quaternion);
    bool operator==(const MQuaternion& other) const;
    bool operator!=(const MQuaternion& other) const { return !(*this == other); }
    bool isEquivalent(const MQuaternion& other, double tolerance = MQuaternion_kTol) const; // component by component

    /// Length 1; a null quaternion becomes the identity.
    MQuaternion normal() const;
    MQuaternion& normalizeIt();
    MQuaternion conjugate() const { return MQuaternion(-x, -y, -z, w); }
    MQuaternion& conjugateIt();
    /// The quaternion whose product with this one is the identity; the identity for a null quaternion.
    MQuaternion inverse() const;
    MQuaternion& invertIt();
    MQuaternion& negateIt(); // the same rotation
    MQuaternion& scaleIt(double factor);

    static const MQuaternion identity;

    double x = 0.0, y = 0.0, z = 0.0, w = 1.0;
};

/// From p at t = 0 to q at t = 1 along the shorter arc, at constant speed; both of length 1.
MQuaternion slerp(const MQuaternion& p, const MQuaternion& q, double t);

std::ostream& operator<<(std::ostream& stream, const MQuaternion& quaternion);
