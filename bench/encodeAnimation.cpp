// What sharing the data of channels costs beside converting and printing their samples without it.

#include "animation/poolText.h"
#include "animation/steppedEncoding.h"
#include "bench/BenchTable.h"
#include "bench/measure.h"
#include "common/fixedPoint.h"
#include "common/numberText.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <iostream>
#include <ostream>
#include <random>
#include <streambuf>
#include <string>
#include <vector>

namespace {

using tvk::BenchRow;

constexpr std::size_t kJoints = 200;
constexpr std::size_t kChannels = 9;
constexpr std::size_t kPools = 3;
constexpr double kUnit = 4096.0;

using Samples = std::vector<std::vector<float>>;  // by joint and channel
using Values = std::vector<std::vector<int32_t>>; // the same in steps

enum class Motion { kOrdinary, kShared, kFlat };

// Three waves each, as hand-made motion has them: no two channels alike.
Samples motion(Motion kind, std::size_t frames) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    Samples samples(kJoints * kChannels, std::vector<float>(frames));
    for (std::size_t i = 0; i < samples.size(); ++i) {
        if (kind == Motion::kShared && i >= samples.size() / 2) {
            samples[i] = samples[i - samples.size() / 2];
            continue;
        }
        if (kind == Motion::kFlat) { // a pose that is held up to the last frame
            samples[i].back() = static_cast<float>(static_cast<double>(i + 1) / kUnit);
            continue;
        }
        std::array<double, 3> speed{};
        std::array<double, 3> phase{};
        for (std::size_t wave = 0; wave < speed.size(); ++wave) {
            speed[wave] = 0.01 + 0.2 * unit(random);
            phase[wave] = 6.3 * unit(random);
        }
        for (std::size_t frame = 0; frame < frames; ++frame) {
            double sum = 0.0;
            for (std::size_t wave = 0; wave < speed.size(); ++wave) {
                sum += 30.0 * std::sin(phase[wave] + speed[wave] * static_cast<double>(frame));
            }
            samples[i][frame] = static_cast<float>(sum);
        }
    }
    return samples;
}

std::vector<int32_t> converted(const std::vector<float>& samples) {
    std::vector<int32_t> values;
    values.reserve(samples.size());
    for (const float sample : samples) {
        values.push_back(tvk::toFixed12(sample));
    }
    return values;
}

// Convert and print, without any search: how many bytes that are.
std::size_t printAll(const Samples& samples) {
    std::size_t bytes = 0;
    std::array<char, 32> text{};
    std::string line;
    for (const std::vector<float>& channel : samples) {
        for (const int32_t value : converted(channel)) {
            const auto [end, error] =
                std::to_chars(text.data(), text.data() + text.size(), value / kUnit, std::chars_format::fixed, 6);
            line.append(text.data(), end);
            line += ' ';
            if (line.size() > 100) {
                bytes += line.size();
                line.clear();
            }
            static_cast<void>(error);
        }
    }
    return bytes + line.size();
}

std::size_t poolOf(std::size_t channel) {
    return channel % kChannels / kPools;
}

// The pools alone.
int64_t shareAll(const Values& values) {
    std::array<tvk::NumberPool, kPools> pools;
    int64_t heads = 0;
    for (std::size_t i = 0; i < values.size(); ++i) {
        heads += pools.at(poolOf(i)).findOrAppend(values[i]);
    }
    return heads;
}

// Takes text as a file does, through a buffer of its own, and counts it.
class CountingBuffer : public std::streambuf {
public:
    CountingBuffer() { setp(buffer_.data(), buffer_.data() + buffer_.size()); }
    std::size_t bytes() const { return bytes_ + static_cast<std::size_t>(pptr() - pbase()); }

protected:
    int_type overflow(int_type next) override {
        bytes_ = bytes();
        setp(buffer_.data(), buffer_.data() + buffer_.size());
        return next == traits_type::eof() ? next : sputc(traits_type::to_char_type(next));
    }

private:
    std::array<char, 8192> buffer_{};
    std::size_t bytes_ = 0;
};

// What an export does once the scene is sampled, with the tolerances and steps that artists start from.
std::size_t encodeAll(const Samples& samples) {
    constexpr int64_t kTolerance = 409;
    std::array<tvk::NumberPool, kPools> pools;
    tvk::AnimTrack track;
    for (std::size_t i = 0; i < samples.size(); ++i) {
        tvk::encodeStepped(converted(samples[i]), {tvk::kStepOne, kTolerance, poolOf(i) == 1}, pools.at(poolOf(i)),
                           track);
    }
    CountingBuffer buffer;
    std::ostream out(&buffer);
    tvk::setupStream(out);
    for (const tvk::NumberPool& pool : pools) {
        tvk::writePool(out, "data", pool.symbols(), true);
    }
    return buffer.bytes();
}

/// Nanoseconds per sample.
struct Costs {
    double floor, share, encode;
};

Costs measured(Motion kind, std::size_t frames, int repeats) {
    const Samples samples = motion(kind, frames);
    Values values;
    for (const std::vector<float>& channel : samples) {
        values.push_back(converted(channel));
    }
    std::size_t sink = 0;
    const double scale = 1e9 / static_cast<double>(samples.size() * frames);
    const Costs costs{scale * tvk::measureSeconds(repeats, [&] { sink += printAll(samples); }),
                      scale * tvk::measureSeconds(repeats, [&] { sink += static_cast<std::size_t>(shareAll(values)); }),
                      scale * tvk::measureSeconds(repeats, [&] { sink += encodeAll(samples); })};
    if (sink == 0) { // never: keeps the work from being left out
        std::cerr << "bench: nothing was encoded\n";
    }
    return costs;
}

BenchRow searchRow(const std::string& what, const Costs& costs, double limit) {
    return {"pools, " + what, costs.share, "ns/sample", "convert and print", costs.floor, limit};
}

BenchRow encodeRow(const std::string& what, const Costs& costs) {
    constexpr double kLimit = 2.0;
    return {"encode and print, " + what, costs.encode, "ns/sample", "convert and print", costs.floor, kLimit};
}

} // namespace

int main() {
    constexpr double kOrdinaryLimit = 0.5;
    constexpr double kFlatLimit = 3.0;
    constexpr double kGrowthLimit = 1.5;
    std::vector<BenchRow> rows;
    std::vector<double> ratios; // of the shortest and the longest ordinary motion
    struct Length {
        std::size_t frames;
        int repeats;
    };
    for (const Length& length : {Length{100, 7}, Length{1000, 3}, Length{4000, 2}, Length{10000, 2}}) {
        const std::string frames = std::to_string(length.frames) + " frames";
        const Costs costs = measured(Motion::kOrdinary, length.frames, length.repeats);
        rows.push_back(searchRow("every channel different, " + frames, costs, kOrdinaryLimit));
        rows.push_back(encodeRow("every channel different, " + frames, costs));
        ratios.push_back(costs.encode / costs.floor);
    }
    rows.push_back(
        {"encode and print, 10,000 frames", ratios.back(), "x floor", "100 frames", ratios.front(), kGrowthLimit});
    rows.push_back(searchRow("half of them shared, 1000 frames", measured(Motion::kShared, 1000, 3), kOrdinaryLimit));
    for (const Length& length : {Length{100, 5}, Length{1000, 3}, Length{4000, 1}}) {
        rows.push_back(searchRow("held poses, " + std::to_string(length.frames) + " frames",
                                 measured(Motion::kFlat, length.frames, length.repeats), kFlatLimit));
    }
    return tvk::printBenchTable(std::cout, "Sharing the data of 200 joints", rows) ? 0 : 1;
}
