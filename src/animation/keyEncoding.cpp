#include "animation/keyEncoding.h"

#include "common/fixedPoint.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

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

/// The samples beside the chords of blocks of frames, so that most of a long segment need not be evaluated.
class BlockBounds {
public:
    BlockBounds(const std::vector<float>& samples, std::size_t length) : samples_(samples), length_(length) {
        for (std::size_t first = 0; first + length < samples.size(); first += length) {
            Range range{0.0, 0.0};
            for (std::size_t i = 0; i <= length; ++i) {
                const double share = static_cast<double>(i) / static_cast<double>(length);
                const double chord = at(first) + share * (at(first + length) - at(first));
                range.low = std::min(range.low, at(first + i) - chord);
                range.high = std::max(range.high, at(first + i) - chord);
            }
            ranges_.push_back(range);
        }
    }

    std::size_t length() const { return length_; }
    bool beginsAt(std::size_t frame) const { return frame % length_ == 0 && frame / length_ < ranges_.size(); }

    /// True only when the curve is within the tolerance of every sample from `first` to `first` + length(). A cubic
    /// stays between the least and the greatest of its four control values.
    bool isSurelyWithin(const CurveKey& a, const CurveKey& b, std::size_t first, double tolerance) const {
        const auto frames = static_cast<double>(length_);
        const auto start = static_cast<double>(first);
        const double chordSlope = (at(first + length_) - at(first)) / frames;
        const double begin = between(a, b, start) - at(first);
        const double end = between(a, b, start + frames) - at(first + length_);
        const double afterBegin = begin + (slopeAt(a, b, start) - chordSlope) * frames / 3.0;
        const double beforeEnd = end - (slopeAt(a, b, start + frames) - chordSlope) * frames / 3.0;
        const auto [least, greatest] = std::minmax({begin, afterBegin, beforeEnd, end});
        const Range& range = ranges_[first / length_];
        const double error = std::max(greatest - range.low, range.high - least);
        constexpr double kRounding = 1e-9;
        const double size = std::abs(at(first)) + std::abs(at(first + length_)) + std::abs(a.value) + std::abs(b.value);
        return error + kRounding * (1.0 + size) < tolerance;
    }

private:
    struct Range {
        double low, high; // of the samples above their chord
    };

    static double slopeAt(const CurveKey& a, const CurveKey& b, double frame) {
        const double length = b.frame - a.frame;
        const double t = (frame - a.frame) / length;
        const double s = 1.0 - t;
        return 6.0 * (b.value - a.value) / length * t * s + a.slope * s * (s - 2.0 * t) + b.slope * t * (t - 2.0 * s);
    }

    double at(std::size_t frame) const { return static_cast<double>(samples_[frame]); }

    const std::vector<float>& samples_;
    std::size_t length_;
    std::vector<Range> ranges_;
};

/// Tells which keys a channel can do without.
class KeyReduction {
public:
    KeyReduction(const std::vector<float>& samples, double tolerance)
        : samples_(samples), tolerance_(tolerance), bounds_{{{samples, 1024}, {samples, 32}}} {}

    // Whether a curve from one key straight to the other gives back every sample between them. Only this segment
    // changes when the keys between go; all others were within the tolerance before.
    bool givesBack(const CurveKey& a, const CurveKey& b) const {
        const std::size_t last = std::min(static_cast<std::size_t>(b.frame), samples_.size());
        for (std::size_t frame = static_cast<std::size_t>(a.frame) + 1; frame < last;) {
            const std::size_t sure = sureFrames(a, b, frame, last);
            if (sure == 0 && !isWithin(a, b, frame)) {
                return false;
            }
            frame += std::max<std::size_t>(sure, 1);
        }
        return true;
    }

private:
    // How many frames from here on are within the tolerance by the bounds of their block; often none.
    std::size_t sureFrames(const CurveKey& a, const CurveKey& b, std::size_t frame, std::size_t last) const {
        for (const BlockBounds& blocks : bounds_) {
            if (frame + blocks.length() <= last && blocks.beginsAt(frame) &&
                frame + blocks.length() < samples_.size() && blocks.isSurelyWithin(a, b, frame, tolerance_)) {
                return blocks.length();
            }
        }
        return 0;
    }

    bool isWithin(const CurveKey& a, const CurveKey& b, std::size_t frame) const {
        const double error = std::abs(between(a, b, static_cast<double>(frame)) - static_cast<double>(samples_[frame]));
        return error == 0.0 || error < tolerance_;
    }

    const std::vector<float>& samples_;
    double tolerance_;
    std::array<BlockBounds, 2> bounds_; // the long blocks first
};

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
    const KeyReduction reduction(samples, rule.tolerance);
    std::size_t kept = 0; // the last key that stays
    for (std::size_t i = 1; i + 1 < keys.size(); ++i) {
        if (!reduction.givesBack(keys[kept], keys[i + 1])) {
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
