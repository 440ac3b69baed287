#include "animation/steppedEncoding.h"

#include <algorithm>

namespace tvk {
namespace {

constexpr int32_t kWidestStep = 4;

std::size_t at(int32_t index) {
    return static_cast<std::size_t>(index);
}

int shiftOf(int32_t step) {
    return step == 4 ? 2 : step == 2 ? 1 : 0;
}

// From this frame on every frame is stored.
int32_t denseStart(int32_t frameCount, int32_t step) {
    return (frameCount - 1) >> shiftOf(step) << shiftOf(step);
}

int64_t difference(int32_t a, int32_t b) {
    const int64_t result = static_cast<int64_t>(a) - b;
    return result < 0 ? -result : result;
}

bool isWithin(int64_t error, int64_t tolerance) {
    return error == 0 || error < tolerance;
}

bool isConstant(const std::vector<int32_t>& values, int64_t tolerance) {
    return std::all_of(values.begin(), values.end(),
                       [&](int32_t value) { return isWithin(difference(value, values.front()), tolerance); });
}

// Between two stored values, `part` steps of `step` on. Readers compute in 32 bits and let the sum wrap.
int32_t between(int32_t before, int32_t after, int32_t part, int32_t step, bool isAngle) {
    int64_t from = before;
    int64_t to = after;
    const bool crosses = isAngle && difference(before, after) >= kHalfTurn;
    if (crosses) {
        (before <= after ? from : to) += kWholeTurn;
    }
    const int64_t sum = part * to + (step - part) * from;
    const int32_t result = static_cast<int32_t>(static_cast<uint32_t>(sum)) >> shiftOf(step);
    return crosses && result >= kHalfTurn ? result - kWholeTurn : result;
}

bool isFoundAgain(const std::vector<int32_t>& values, int32_t step, const StepRule& rule) {
    const auto frameCount = static_cast<int32_t>(values.size());
    const int32_t dense = denseStart(frameCount, step);
    for (int32_t first = 0; first < dense; first += step) {
        const int32_t before = values[at(first)];
        const int32_t after = values[at(first + step)];
        for (int32_t part = 1; part < step; ++part) {
            const int32_t found = between(before, after, part, step, rule.isAngle);
            if (!isWithin(difference(values[at(first + part)], found), rule.tolerance)) {
                return false;
            }
        }
    }
    return true;
}

int32_t chosenStep(const std::vector<int32_t>& values, const StepRule& rule) {
    const auto frameCount = static_cast<int32_t>(values.size());
    if (frameCount < 3 || rule.mode < kStepAuto || rule.mode == kStepOne || rule.mode > kStepFour) {
        return 1;
    }
    if (rule.mode != kStepAuto) {
        return rule.mode == kStepTwo ? 2 : 4;
    }
    int32_t step = 1;
    while (step < kWidestStep && frameCount > step * 2 && isFoundAgain(values, step * 2, rule)) {
        step *= 2;
    }
    return step;
}

void storeConstant(int32_t value, NumberPool& pool, AnimTrack& track) {
    track.constant = true;
    track.frameStep = 1;
    track.dataSize = 1;
    track.dataHead = pool.findOrAppend({value});
}

} // namespace

std::vector<int32_t> thinned(const std::vector<int32_t>& values, int32_t step) {
    if (step <= 1 || values.empty()) {
        return values;
    }
    std::vector<int32_t> stored;
    const auto frameCount = static_cast<int32_t>(values.size());
    const int32_t dense = denseStart(frameCount, step);
    stored.reserve(at(dense / step + frameCount - dense));
    for (int32_t frame = 0; frame < dense; frame += step) {
        stored.push_back(values[at(frame)]);
    }
    stored.insert(stored.end(), values.begin() + dense, values.end());
    return stored;
}

int32_t reconstructed(const std::vector<int32_t>& stored, int32_t step, int32_t frameCount, int32_t frame,
                      bool isAngle) {
    const int shift = shiftOf(step);
    const int32_t dense = denseStart(frameCount, step);
    const int32_t place = frame >> shift;
    if (frame >= dense) {
        return stored[at((dense >> shift) + frame - dense)];
    }
    const int32_t part = frame - (place << shift);
    return part == 0 ? stored[at(place)] : between(stored[at(place)], stored[at(place + 1)], part, step, isAngle);
}

void encodeStepped(const std::vector<int32_t>& values, const StepRule& rule, NumberPool& pool, AnimTrack& track) {
    if (values.empty()) {
        return;
    }
    if (isConstant(values, rule.tolerance)) {
        storeConstant(values.front(), pool, track);
        return;
    }
    const int32_t step = chosenStep(values, rule);
    const std::vector<int32_t> stored = thinned(values, step);
    if (std::all_of(stored.begin(), stored.end(), [&](int32_t value) { return value == values.front(); })) {
        storeConstant(values.front(), pool, track);
        return;
    }
    track.constant = false;
    track.frameStep = step;
    track.dataSize = static_cast<int32_t>(stored.size());
    track.dataHead = pool.findOrAppend(stored);
}

} // namespace tvk
