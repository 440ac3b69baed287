#pragma once

#include <maya/MMatrix.h>
#include <maya/MQuaternion.h>
#include <maya/MStatus.h>
#include <maya/MVector.h>

#include <iosfwd>

constexpr double MEulerRotation_kTol = 1.0e-10;

/// Three angles in radians about the axes x, y and z, applied in the order that `order` names from left to right.
/// Where orders differ, the right-hand or given rotation is brought to this one's order first.
class MEulerRotation {
public:
    /// The numbers of the rotateOrder attribute.
    enum RotationOrder { kXYZ = 0, kYZX = 1, kZXY = 2, kXZY = 3, kYXZ = 4, kZYX = 5 };

    constexpr MEulerRotation() = default;
    constexpr MEulerRotation(double xx, double yy, double zz, RotationOrder o = kXYZ) : x(xx), y(yy), z(zz), order(o) {}
    constexpr MEulerRotation(const double angles[3], RotationOrder o = kXYZ)
        : x(angles[0]), y(angles[1]), z(angles[2]), order(o) {}
    constexpr MEulerRotation(const MVector& angles, RotationOrder o = kXYZ)
        : x(angles.x), y(angles.y), z(angles.z), order(o) {}

    MEulerRotation& setValue(double xx, double yy, double zz, RotationOrder o = kXYZ);
    MEulerRotation& setValue(const MVector& angles, RotationOrder o = kXYZ);
    /// In the order that this rotation has. From a matrix only its rotation is taken.
    MEulerRotation& operator=(const MMatrix& matrix);
    MEulerRotation& operator=(const MQuaternion& rotation);

    /// The angles of a matrix's rotation (scale, shear and mirroring are removed first): the first and third from -pi
    /// to pi, the second from -pi/2 to pi/2. Where the second is ±pi/2, the third is 0.
    static MEulerRotation decompose(const MMatrix& matrix, RotationOrder order);

    MMatrix asMatrix() const;
    MQuaternion asQuaternion() const;
    MVector asVector() const { return MVector(x, y, z); }

    /// 0 to 2; any other index is taken for 2.
    double operator[](unsigned int index) const { return index == 0 ? x : index == 1 ? y : z; }
    double& operator[](unsigned int index) { return index == 0 ? x : index == 1 ? y : z; }

    /// Angle by angle.
    MEulerRotation operator+(const MEulerRotation& other) const;
    MEulerRotation operator-(const MEulerRotation& other) const;
    MEulerRotation operator-() const { return MEulerRotation(-x, -y, -z, order); }
    MEulerRotation operator*(double factor) const;
    MEulerRotation& operator+=(const MEulerRotation& other);
    MEulerRotation& operator-=(const MEulerRotation& other);
    MEulerRotation& operator*=(double factor);
    /// This rotation first, then the other, in this one's order and with the angles that decompose gives.
    MEulerRotation operator*(const MEulerRotation& other) const;
    MEulerRotation operator*(const MQuaternion& other) const;
    MEulerRotation& operator*=(const MEulerRotation& other);
    MEulerRotation& operator*=(const MQuaternion& other);
    bool operator==(const MEulerRotation& other) const;
    bool operator!=(const MEulerRotation& other) const { return !(*this == other); }
    /// Angle by angle; false when the orders differ.
    bool isEquivalent(const MEulerRotation& other, double tolerance = MEulerRotation_kTol) const;
    bool isZero(double tolerance = MEulerRotation_kTol) const;

    /// The same rotation in another order, with the angles nearest to these. Nothing changes when it has that order.
    MEulerRotation reorder(RotationOrder newOrder) const;
    MEulerRotation& reorderIt(RotationOrder newOrder);
    MEulerRotation inverse() const; // the reversed order and negated angles
    MEulerRotation& invertIt();
    /// Each angle from -pi to pi.
    MEulerRotation bound() const;
    MEulerRotation& boundIt();
    static MEulerRotation bound(const MEulerRotation& source);
    /// The other triple of angles for this rotation: the first and third turned by pi, the second mirrored; bound.
    MEulerRotation alternateSolution() const;
    MEulerRotation& setToAlternateSolution();
    MEulerRotation& setToAlternateSolution(const MEulerRotation& source);
    /// This rotation with whole turns added, so that every angle is within pi of the target's.
    MEulerRotation closestCut(const MEulerRotation& target) const;
    MEulerRotation& setToClosestCut(const MEulerRotation& target);
    MEulerRotation& setToClosestCut(const MEulerRotation& source, const MEulerRotation& target);
    /// The closest cut of this rotation or of its alternate solution, whichever is nearer to the target's angles.
    MEulerRotation closestSolution(const MEulerRotation& target) const;
    static MEulerRotation closestSolution(const MEulerRotation& source, const MEulerRotation& target);
    MEulerRotation& setToClosestSolution(const MEulerRotation& target);
    MEulerRotation& setToClosestSolution(const MEulerRotation& source, const MEulerRotation& target);
    /// Rotates further about an axis of the space around, in steps so small that the angles run on instead of jumping.
    /// Of more than 1000 turns only the rest is followed; an angle that is not finite changes nothing.
    MEulerRotation& incrementalRotateBy(const MVector& axis, double angle);

    static const MEulerRotation identity;

    double x = 0.0, y = 0.0, z = 0.0;
    RotationOrder order = kXYZ;
};

std::ostream& operator<<(std::ostream& stream, const MEulerRotation& rotation);
