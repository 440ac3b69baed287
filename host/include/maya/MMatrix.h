#pragma once

#include <maya/MStatus.h>
#include <maya/MTypes.h>

#include <iosfwd>

class MFloatMatrix;

constexpr double MMatrix_kTol = 1.0e-10;

/// A 4 × 4 matrix that acts on row vectors: p' = p * M, translation in row 3, and A * B applies A first.
class MMatrix {
public:
    constexpr MMatrix() : matrix{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}} {}
    MMatrix(const double source[4][4]);
    MMatrix(const float source[4][4]);
    explicit MMatrix(const MFloatMatrix& source);

    /// Row and column, 0 to 3, not checked.
    double operator()(unsigned int row, unsigned int column) const { return matrix[row][column]; }
    double& operator()(unsigned int row, unsigned int column) { return matrix[row][column]; }
    const double* operator[](unsigned int row) const { return matrix[row]; }
    double* operator[](unsigned int row) { return matrix[row]; }
    MStatus get(double out[4][4]) const;
    MStatus get(float out[4][4]) const;

    MMatrix operator+(const MMatrix& other) const;
    MMatrix operator-(const MMatrix& other) const;
    MMatrix operator*(const MMatrix& other) const;
    MMatrix operator*(double factor) const;
    friend MMatrix operator*(double factor, const MMatrix& other);
    MMatrix& operator+=(const MMatrix& other);
    MMatrix& operator-=(const MMatrix& other);
    MMatrix& operator*=(const MMatrix& other);
    MMatrix& operator*=(double factor);
    bool operator==(const MMatrix& other) const;
    bool operator!=(const MMatrix& other) const { return !(*this == other); }

    MMatrix& setToIdentity();
    MMatrix& setToProduct(const MMatrix& left, const MMatrix& right);

    /// The identity when there is none.
    MMatrix inverse() const;
    MMatrix transpose() const;
    /// The transposed matrix of cofactors: M * adjoint is det4x4 times the identity.
    MMatrix adjoint() const;
    /// The matrix divided by its corner [3][3]; unchanged when that is 0.
    MMatrix homogenize() const;
    double det4x4() const;
    double det3x3() const; // of the upper left part
    /// Whether the rows are dependent as far as their lengths allow to tell; small scales alone do not make it so.
    bool isSingular() const;
    /// Element by element.
    bool isEquivalent(const MMatrix& other, double tolerance = MMatrix_kTol) const;

    static const MMatrix identity;

    double matrix[4][4];
};

std::ostream& operator<<(std::ostream& stream, const MMatrix& matrix);
