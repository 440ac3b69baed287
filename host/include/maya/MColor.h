#pragma once

#include <maya/MStatus.h>
#include <maya/MTypes.h>

#include <iosfwd>

/// A colour, red, green, blue and alpha, ordinarily from 0 to 1 but not held to that. Arithmetic changes red, green and
/// blue; the result has the left colour's alpha. Comparison looks at all four.
class MColor {
public:
    /// How three or four components are read: hue from 0 to 360, all others from 0 to 1; the fourth is alpha, for kCMYK
    /// it is black.
    enum MColorType { kRGB = 0, kHSV = 1, kCMY = 2, kCMYK = 3 };

    constexpr MColor() = default;
    constexpr MColor(float rr, float gg, float bb, float aa = 1.0f) : r(rr), g(gg), b(bb), a(aa) {}
    explicit constexpr MColor(float rr) : r(rr) {}
    constexpr MColor(const float (&source)[3]) : r(source[0]), g(source[1]), b(source[2]) {}
    constexpr MColor(const float (&source)[4]) : r(source[0]), g(source[1]), b(source[2]), a(source[3]) {}
    MColor(MColorType model, float c1, float c2, float c3, float alpha = 1.0f);

    bool set(MColorType model, float c1, float c2, float c3, float alpha = 1.0f); // false, and no change: no such model
    bool get(MColorType model, float& c1, float& c2, float& c3) const;
    bool get(MColorType model, float& c1, float& c2, float& c3, float& alpha) const;
    bool get(float (&out)[3]) const;
    bool get(float (&out)[4]) const;

    /// 0 to 3 for r, g, b, a; any other index is taken for 3.
    float operator[](unsigned int index) const { return index == 0 ? r : index == 1 ? g : index == 2 ? b : a; }
    float& operator[](unsigned int index) { return index == 0 ? r : index == 1 ? g : index == 2 ? b : a; }
    float operator()(unsigned int index) const { return (*this)[index]; }
    float& operator()(unsigned int index) { return (*this)[index]; }

    MColor operator+(const MColor& other) const { return MColor(r + other.r, g + other.g, b + other.b, a); }
    MColor operator-(const MColor& other) const { return MColor(r - other.r, g - other.g, b - other.b, a); }
    MColor operator-() const { return MColor(-r, -g, -b, a); }
    MColor operator*(const MColor& other) const { return MColor(r * other.r, g * other.g, b * other.b, a); }
    MColor operator*(float factor) const { return MColor(r * factor, g * factor, b * factor, a); }
    MColor operator/(float divisor) const { return MColor(r / divisor, g / divisor, b / divisor, a); }
    friend MColor operator*(float factor, const MColor& color) { return color * factor; }
    MColor& operator+=(const MColor& other) { return *this = *this + other; }
    MColor& operator-=(const MColor& other) { return *this = *this - other; }
    MColor& operator*=(const MColor& other) { return *this = *this * other; }
    MColor& operator*=(float factor) { return *this = *this * factor; }
    MColor& operator/=(float divisor) { return *this = *this / divisor; }
    bool operator==(const MColor& other) const { return r == other.r && g == other.g && b == other.b && a == other.a; }
    bool operator!=(const MColor& other) const { return !(*this == other); }

    float r = 0.0f, g = 0.0f, b = 0.0f, a = 1.0f;
};

std::ostream& operator<<(std::ostream& stream, const MColor& color);
