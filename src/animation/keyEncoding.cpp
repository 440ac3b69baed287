#include "animation/keyEncoding.h"

#include "common/fixedPoint.h"

#include <algorithm>
#include <cmath>

namespace tvk {
namespace {

constexpr double kSteepest = 32768.0;
constexpr double kTurn = 360.0;

// An angle that a curve reaches after `before` without going round further than it must.
double nearTo(double angle, double before) {
    double difference = std::fmod(angle - before, kTurn);
    if (difference >= kTurn / 2) {
        difference -= kTurn;
    } else if (difference < -kTurn / 2) {
        difference += kTurn;
    }
    return before + difference;
}

void findSlopes(std::vector<CurveKey>& keys) {
    for (std::size_t i = 0; keys.size() > 1 && i < keys.size(); ++i) {
        double slope = 0.0;
        if (i == 0) {
            slope = keys[1].value - keys[0].value;
        } else if (i + 1 == keys.size()) {
            slope = keys[i].value - keys[i - 1].value;
        } else {
            slope = (keys[i + 1].value - keys[i - 1].value) * 0.5;
        }
        keys[i].slope = std::clamp(slope, -kSteepest, kSteepest);
    }
}

std::vector<CurveKey> keyPerFrame(const std::vector<float>& samples, const KeyRule& rule) {
    std::vector<CurveKey> keys;
    keys.reserve(samples.size() + 1);
    for (const float sample : samples) {
        keys.push_back({static_cast<double>(keys.size()), sample, 0.0});
    }
    if (rule.loops && !keys.empty()) {
        const double first = keys.front().value;
        const double value = rule.isAngle ? nearTo(first, keys.back().value) : first;
        keys.push_back({static_cast<double>(keys.size()), value, 0.0});
    }
    findSlopes(keys);
    return keys;
}

double between(const CurveKey& a, const CurveKey& b, double frame) {
    const double length = b.frame - a.frame;
    const double t = (frame - a.frame) / length;
    const double s = 1.0 - t;
    return a.value * (1.0 + 2.0 * t) * s * s + b.value * (3.0 - 2.0 * t) * t * t +
           length * t * s * (a.slope * s - b.slope * t);
}

// Whether a curve from one key straight to the other gives back every sample between them. Only this segment changes
// when the keys between go; all others were within the tolerance before.
bool givesBack(const std::vector<float>& samples, const CurveKey& a, const CurveKey& b, double tolerance) {
    const auto first = static_cast<std::size_t>(a.frame) + 1;
    const std::size_t last = std::min(static_cast<std::size_t>(b.frame), samples.size());
    for (std::size_t frame = first; frame < last; ++frame) {
        const double error = std::abs(between(a, b, static_cast<double>(frame)) - static_cast<double>(samples[frame]));
        if (!(error == 0.0 || error < tolerance)) {
            return false;
        }
    }
    return true;
}

bool isLevel(const std::vector<CurveKey>& keys) {
    return std::all_of(keys.begin(), keys.end(), [&](const CurveKey& key) { return key.value == keys.front().value; });
}

} // namespace

uint64_t StoredKeyHash::operator()(const StoredKey& key) const {
    uint64_t hash = 0;
    for (const int32_t part : key) {
        hash = (hash ^ static_cast<uint32_t>(part)) * 0x9E3779B97F4A7C15U;
        hash ^= hash >> 32U;
    }
    return hash;
}

std::vector<CurveKey> reducedKeys(const std::vector<float>& samples, const KeyRule& rule) {
    std::vector<CurveKey> keys = keyPerFrame(samples, rule);
    if (keys.size() < 3) {
        return keys;
    }
    if (isLevel(keys)) {
        return {keys.front(), keys.back()};
    }
    std::size_t kept = 0; // the last key that stays
    for (std::size_t i = 1; i + 1 < keys.size(); ++i) {
        if (!givesBack(samples, keys[kept], keys[i + 1], rule.tolerance)) {
            keys[++kept] = keys[i];
        }
    }
    keys[++kept] = keys.back();
    keys.resize(kept + 1);
    return keys;
}

double curveValue(const std::vector<CurveKey>& keys, double frame) {
    if (frame <= keys.front().frame) {
        return keys.front().value;
    }
    const auto after = std::upper_bound(keys.begin(), keys.end(), frame,
                                        [](double at, const CurveKey& key) { return at < key.frame; });
    return after == keys.end() ? keys.back().value : between(*(after - 1), *after, frame);
}

void encodeKeys(const std::vector<float>& samples, const KeyRule& rule, KeyPool& pool, AnimTrack& track) {
    std::vector<StoredKey> stored;
    for (const CurveKey& key : reducedKeys(samples, rule)) {
        stored.push_back({toFixed12(key.frame), toFixed12(key.value), toFixed12(key.slope), toFixed12(key.slope)});
    }
    track.constant =
        std::all_of(samples.begin(), samples.end(), [&](float sample) { return sample == samples.front(); });
    track.frameStep = 1;
    track.dataSize = static_cast<int32_t>(stored.size());
    track.dataHead = pool.findOrAppend(stored);
}

std::vector<int32_t> keyNumbers(const KeyPool& pool) {
    std::vector<int32_t> numbers;
    numbers.reserve(pool.symbols().size() * std::tuple_size<StoredKey>::value);
    for (const StoredKey& key : pool.symbols()) {
        numbers.insert(numbers.end(), key.begin(), key.end());
    }
    return numbers;
}

} // namespace tvk
