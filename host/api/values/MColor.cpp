#include <maya/MColor.h>

#include <Imath/ImathColorAlgo.h>
#include <Imath/ImathVec.h>

#include <algorithm>

namespace {

constexpr float kDegreesPerTurn = 360.0f;

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
        const Imath::V3f rgb = Imath::hsv2rgb(Imath::V3f(c1 / kDegreesPerTurn, c2, c3));
        *this = MColor(rgb.x, rgb.y, rgb.z, alpha);
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
        components = Imath::rgb2hsv(components);
        components.x *= kDegreesPerTurn;
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
