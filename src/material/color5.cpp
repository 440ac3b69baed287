#include "material/color5.h"

#include "common/fixedPoint.h"

namespace tvk {

int32_t toComponent5(float value) {
    constexpr int32_t kHighest = 31;
    const float scaled = value * static_cast<float>(kHighest);
    return roundClamped(static_cast<double>(scaled), 0, kHighest);
}

Color5 toColor5(const MColor& color) {
    if (color == MColor(-1.0F, -1.0F, -1.0F, -1.0F)) {
        return {0, 0, 0, 31};
    }
    return {toComponent5(color.r), toComponent5(color.g), toComponent5(color.b), toComponent5(color.a)};
}

} // namespace tvk
