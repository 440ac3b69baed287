#pragma once

#include <maya/MMatrix.h>
#include <maya/MStatus.h>

#include <iosfwd>

constexpr float MFloatMatrix_kTol = 1.0e-5f;

/// MMatrix in single precision; its results are computed in double and then rounded.
class MFloatMatrix {
public:
    constexpr MFloatMatrix() : matrix{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}} {}
    MFloatMatrix(const double source[4][4]);
    MFloatMatrix(const float source[4][4]);

    float operator()(unsigned int row, unsigned int column) const { return matrix[row][column]; }
    float& operator()(unsigned int row, unsigned int column) { return matrix[row][column]; }
    const float* operator[](unsigned int row) const { return matrix[row]; }
    float* operator[](unsigned int row) { return matrix[row]; }
    MStatus get(double out[4][4]) const;
    MStatus get(float out[4][4]) const;

    MFloatMatrix operator+(const MFloatMatrix& other) const;
    MFloatMatrix operator-(const MFloatMatrix& other) const;
    MFloatMatrix operator*(const MFloatMatrix& other) const;
    MFloatMatrix operator*(float factor) const;
    friend MFloatMatrix operator*(float factor, const MFloatMatrix& other);
    MFloatMatrix& operator+=(const MFloatMatrix& other);
    MFloatMatrix& operator-=(const MFloatMatrix& other);
    MFloatMatrix& operator*=(const MFloatMatrix& other);
    MFloatMatrix& operator*=(float factor);
    bool operator==(const MFloatMatrix& other) const;
    bool operator!=(const MFloatMatrix& other) const { return !(*this == other); }

    MFloatMatrix& setToIdentity();
    MFloatMatrix& setToProduct(const MFloatMatrix& left, const MFloatMatrix& right);
    MFloatMatrix inverse() const; // the identity when there is none
    MFloatMatrix transpose() const;
    MFloatMatrix adjoint() const;
    MFloatMatrix homogenize() const;
    float det4x4() const;
    float det3x3() const;
    bool isEquivalent(const MFloatMatrix& other, float tolerance = MFloatMatrix_kTol) const;

    float matrix[4][4];
};

std::ostream& operator<<(std::ostream& stream, const MFloatMatrix& matrix);
