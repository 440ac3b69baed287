#include "decode/channelPlayback.h"

#include "decode/FileError.h"

#include <cstddef>
#include <string>

namespace decode {
namespace {

void demand(bool holds, const char* what) {
    if (!holds) {
        throw FileError(what);
    }
}

constexpr int64_t kTurn = int64_t{360} * 4096;

// Between two stored values, rounded down.
int64_t mixed(int64_t before, int64_t after, int part, int step, bool isAngle) {
    const bool crosses = isAngle && (before > after ? before - after : after - before) >= kTurn / 2;
    if (crosses) {
        (before <= after ? before : after) += kTurn;
    }
    const int64_t sum = part * after + (step - part) * before;
    const int64_t value = (sum - ((sum % step) + step) % step) / step;
    return crosses && value >= kTurn / 2 ? value - kTurn : value;
}

// Every frameStep-th frame is stored; from the last of these on all of them.
std::vector<double> playedSteps(const std::vector<int32_t>& data, const PlaybackRule& rule) {
    std::vector<double> frames(static_cast<std::size_t>(rule.frameCount), 0.0);
    if (data.size() == 1) {
        demand(rule.frameStep == 1, "one value, but not for every frame");
        frames.assign(frames.size(), data.front());
        return frames;
    }
    const int step = rule.frameStep;
    demand(step == 1 || step == 2 || step == 4, "a frame_step other than 1, 2 and 4");
    const int dense = (rule.frameCount - 1) / step * step;
    const int expected = dense / step + rule.frameCount - dense;
    if (static_cast<int>(data.size()) != expected) {
        throw FileError(std::to_string(data.size()) + " values at step " + std::to_string(step) + " of " +
                        std::to_string(rule.frameCount) + " frames");
    }
    for (int frame = 0; frame < rule.frameCount; ++frame) {
        const int place = frame >= dense ? dense / step + frame - dense : frame / step;
        const int part = frame >= dense ? 0 : frame % step;
        const int64_t before = data[static_cast<std::size_t>(place)];
        const bool isStored = part == 0 || rule.filling == Filling::kHeld;
        frames[static_cast<std::size_t>(frame)] = static_cast<double>(
            isStored ? before : mixed(before, data[static_cast<std::size_t>(place) + 1], part, step, rule.isAngle));
    }
    return frames;
}

struct Key {
    double frame, value, in, out; // value and slopes in steps
};

std::vector<Key> keysOf(const std::vector<int32_t>& data, const PlaybackRule& rule) {
    constexpr double kUnit = 4096.0;
    demand(data.size() >= 4, "a curve without keys");
    std::vector<Key> keys;
    for (std::size_t i = 0; i + 3 < data.size(); i += 4) {
        keys.push_back({data[i] / kUnit, static_cast<double>(data[i + 1]), static_cast<double>(data[i + 2]),
                        static_cast<double>(data[i + 3])});
        demand(data[i] % 4096 == 0, "a key between frames");
        demand(keys.size() == 1 || keys.back().frame > keys[keys.size() - 2].frame, "keys that do not ascend");
    }
    demand(keys.front().frame == 0.0, "a curve that does not start at frame 0");
    demand(keys.back().frame == rule.frameCount - (rule.loops ? 0 : 1), "a curve that does not end with the range");
    return keys;
}

// The cubic that has the values and slopes of both keys.
double between(const Key& a, const Key& b, double frame) {
    const double length = b.frame - a.frame;
    const double t = (frame - a.frame) / length;
    const double rise = b.value - a.value;
    const double c1 = a.out * length;
    const double c2 = 3.0 * rise - (2.0 * a.out + b.in) * length;
    const double c3 = (a.out + b.in) * length - 2.0 * rise;
    return a.value + t * (c1 + t * (c2 + t * c3));
}

std::vector<double> playedKeys(const std::vector<int32_t>& data, const PlaybackRule& rule) {
    demand(rule.frameStep == 1, "a curve with a frame_step");
    const std::vector<Key> keys = keysOf(data, rule);
    std::vector<double> frames;
    std::size_t after = 0; // the first key behind the frame
    for (int frame = 0; frame < rule.frameCount; ++frame) {
        while (after < keys.size() && keys[after].frame <= frame) {
            ++after;
        }
        const bool isOutside = after == 0 || after == keys.size();
        frames.push_back(isOutside ? (after == 0 ? keys.front() : keys.back()).value
                                   : between(keys[after - 1], keys[after], frame));
    }
    return frames;
}

} // namespace

std::vector<double> played(const std::vector<int32_t>& data, const PlaybackRule& rule) {
    return rule.filling == Filling::kCurve ? playedKeys(data, rule) : playedSteps(data, rule);
}

} // namespace decode
