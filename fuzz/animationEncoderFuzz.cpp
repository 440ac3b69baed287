#include "LiteralEncoder.h"
#include "animation/steppedEncoding.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <vector>

namespace {

/// Channels as the bytes tell: few values and much repetition, so that runs, spikes and turns meet.
class ChannelReader {
public:
    ChannelReader(const std::uint8_t* data, std::size_t size) : next_(data), end_(data + size) {}

    bool atEnd() const { return next_ == end_; }

    tvk::StepRule rule() {
        constexpr std::int64_t kTolerances[] = {0, 1, 3, 40, 409, 4096, 40960, 2147483647};
        const std::uint8_t bits = byte();
        return {bits & 7, kTolerances[bits >> 3U & 7U], (bits & 64U) != 0};
    }

    std::vector<std::int32_t> values() {
        std::vector<std::int32_t> values(1 + byte() % 40U);
        std::int32_t value = 0;
        std::uint32_t step = 0;
        std::uint8_t held = 0;
        for (std::int32_t& frame : values) {
            if (held == 0) {
                change(value, step, held);
            } else {
                --held;
                value = static_cast<std::int32_t>(static_cast<std::uint32_t>(value) + step);
            }
            frame = value;
        }
        return values;
    }

private:
    std::uint8_t byte() { return atEnd() ? std::uint8_t{0} : *next_++; }

    // A new value, and how long and how steeply it goes on from there.
    void change(std::int32_t& value, std::uint32_t& step, std::uint8_t& held) {
        constexpr std::int32_t kValues[] = {
            0, 1, -1, tvk::kHalfTurn - 1, tvk::kHalfTurn, -tvk::kHalfTurn, 2147483647, -2147483647 - 1};
        const std::uint8_t bits = byte();
        value = (bits & 128U) != 0 ? static_cast<std::int32_t>(byte()) * 256 : kValues[bits & 7U];
        held = bits >> 3U & 7U;
        step = (bits & 64U) != 0 ? byte() : 0U;
    }

    const std::uint8_t* next_;
    const std::uint8_t* end_;
};

bool agree(const tvk::AnimTrack& ours, const tvk::AnimTrack& theirs) {
    return ours.constant == theirs.constant && ours.frameStep == theirs.frameStep && ours.dataSize == theirs.dataSize &&
           ours.dataHead == theirs.dataHead;
}

} // namespace

// Channels that share a pool, beside what the definition of the encoding gives.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    ChannelReader reader(data, size);
    tvk::NumberPool pool;
    tvk::LiteralEncoder literal;
    while (!reader.atEnd()) {
        const tvk::StepRule rule = reader.rule();
        const std::vector<std::int32_t> values = reader.values();
        tvk::AnimTrack track;
        encodeStepped(values, rule, pool, track);
        if (!agree(track, literal.encode(values, rule)) || pool.symbols() != literal.pool.values) {
            std::abort();
        }
    }
    return 0;
}
