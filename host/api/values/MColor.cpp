#include <maya/MColor.h>

#include <Imath/ImathVec.h>

#include <algorithm>
#include <cmath>

namespace {

constexpr double kDegreesPerTurn = 360.0;
constexpr double kHueSteps =
    6.0; // between the pure colours and their mixtures: red, yellow, green, cyan, blue, magenta

// Imath's own conversions are the only part of it that is compiled; without them its headers are enough, which other
// systems have as well.

/// How far a component falls below the value; `first` is the step from which its hexagon begins.
double rgbComponent(double hue, double saturation, double value, double first) {
    const double step = hue / kDegreesPerTurn * kHueSteps + first;
    const double k = step - kHueSteps * std::floor(step / kHueSteps);
    return value - value * saturation * std::clamp(std::min(k, kHueSteps - 2.0 - k), 0.0, 1.0);
}

/// Hue in degrees, saturation, value.
Imath::V3f hsvOf(const Imath::V3f& color) {
    const Imath::V3d rgb(color);
    const double value = std::max({rgb.x, rgb.y, rgb.z});
    const double range = value - std::min({rgb.x, rgb.y, rgb.z});
    if (range == 0.0) {
        return {0.0f, 0.0f, static_cast<float>(value)};
    }
    double step = 0.0;
    if (rgb.x == value) {
        step = (rgb.y - rgb.z) / range;
    } else if (rgb.y == value) {
        step = 2.0 + (rgb.z - rgb.x) / range;
    } else {
        step = 4.0 + (rgb.x - rgb.y) / range;
    }
    step += step < 0.0 ? kHueSteps : 0.0;
    return Imath::V3f(Imath::V3d(step / kHueSteps * kDegreesPerTurn, value != 0.0 ? range / value : 0.0, value));
}

} // namespace

MColor::MColor(MColorType model, float c1, float c2, float c3, float alpha) {
    set(model, c1, c2, c3, alpha);
}

bool MColor::set(MColorType model, float c1, float c2, float c3, float alpha) {
    switch (model) {
    case kRGB:
        *this = MColor(c1, c2, c3, alpha);
        return true;
    case kHSV: {
        const Imath::V3d rgb(rgbComponent(c1, c2, c3, 5.0), rgbComponent(c1, c2, c3, 3.0),
                             rgbComponent(c1, c2, c3, 1.0));
        *this = MColor(static_cast<float>(rgb.x), static_cast<float>(rgb.y), static_cast<float>(rgb.z), alpha);
        return true;
    }
    case kCMY:
        *this = MColor(1.0f - c1, 1.0f - c2, 1.0f - c3, alpha);
        return true;
    case kCMYK: {
        const float light = 1.0f - alpha;
        *this = MColor((1.0f - c1) * light, (1.0f - c2) * light, (1.0f - c3) * light);
        return true;
    }
    }
    return false;
}

bool MColor::get(MColorType model, float& c1, float& c2, float& c3) const {
    float fourth = 0.0f;
    return get(model, c1, c2, c3, fourth);
}

bool MColor::get(MColorType model, float& c1, float& c2, float& c3, float& alpha) const {
    Imath::V3f components(r, g, b);
    float fourth = a;
    switch (model) {
    case kRGB:
        break;
    case kHSV:
        components = hsvOf(components);
        break;
    case kCMY:
        components = Imath::V3f(1.0f) - components;
        break;
    case kCMYK: {
        const float light = std::max({r, g, b});
        fourth = 1.0f - light;
        components = light > 0.0f ? Imath::V3f(1.0f) - components / light : Imath::V3f(0.0f);
        break;
    }
    default:
        return false;
    }
    c1 = components.x;
    c2 = components.y;
    c3 = components.z;
    alpha = fourth;
    return true;
}

bool MColor::get(float (&out)[3]) const {
    return get(kRGB, out[0], out[1], out[2]);
}

bool MColor::get(float (&out)[4]) const {
    return get(kRGB, out[0], out[1], out[2], out[3]);
}
