#include "animation/steppedEncoding.h"

#include "LiteralEncoder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <random>
#include <vector>

namespace tvk {
namespace {

constexpr int32_t kDegree = 4096;

AnimTrack encoded(const std::vector<int32_t>& values, const StepRule& rule, NumberPool& pool) {
    AnimTrack track;
    encodeStepped(values, rule, pool, track);
    return track;
}

AnimTrack encoded(const std::vector<int32_t>& values, const StepRule& rule) {
    NumberPool pool;
    return encoded(values, rule, pool);
}

std::vector<int32_t> ramp(int32_t count, int32_t slope = 1) {
    std::vector<int32_t> values;
    for (int32_t i = 0; i < count; ++i) {
        values.push_back(i * slope);
    }
    return values;
}

TEST(SteppedEncoding, AllFramesEqualAreOneSharedValue) {
    NumberPool pool;
    encoded({1, 2, 3}, {kStepOne, 0, false}, pool);
    for (int i = 0; i < 2; ++i) {
        const AnimTrack track = encoded({7, 7, 7}, {kStepAuto, 0, false}, pool);
        EXPECT_TRUE(track.constant);
        EXPECT_EQ(track.frameStep, 1);
        EXPECT_EQ(track.dataSize, 1);
        EXPECT_EQ(track.dataHead, 3);
    }
}

TEST(SteppedEncoding, DifferencesBelowTheToleranceAreTheFirstFramesValue) {
    NumberPool pool;
    const AnimTrack track = encoded({100, 109, 91}, {kStepAuto, 10, false}, pool);
    EXPECT_TRUE(track.constant);
    EXPECT_EQ(pool.symbols(), (std::vector<int32_t>{100}));
    EXPECT_FALSE(encoded({100, 110, 91}, {kStepAuto, 10, false}).constant); // strictly below
}

TEST(SteppedEncoding, WithToleranceZeroAStepIsTakenOnlyWhenEveryFrameIsFoundExactly) {
    EXPECT_EQ(encoded({0, 1, 2, 3, 4, 5}, {kStepAuto, 0, false}).frameStep, 4);
    EXPECT_EQ(encoded({0, 1, 2, 4, 6, 8}, {kStepAuto, 0, false}).frameStep, 2);
    EXPECT_EQ(encoded({0, 2, 2, 4, 6, 8}, {kStepAuto, 0, false}).frameStep, 1);
}

TEST(SteppedEncoding, ThreeFramesOfARampTryStepTwoOnlyAndStoreFramesZeroAndTwo) {
    NumberPool pool;
    const AnimTrack track = encoded({0, 5, 10}, {kStepAuto, 0, false}, pool);
    EXPECT_FALSE(track.constant);
    EXPECT_EQ(track.frameStep, 2);
    EXPECT_EQ(track.dataSize, 2);
    EXPECT_EQ(pool.symbols(), (std::vector<int32_t>{0, 10}));
}

TEST(SteppedEncoding, AForcedStepThatSkipsTheOnlySpikeIsConstantAfterAll) {
    NumberPool pool;
    const AnimTrack track = encoded({3, 99, 3, 3, 3, 3, 3, 3, 3}, {kStepFour, 0, false}, pool);
    EXPECT_TRUE(track.constant);
    EXPECT_EQ(track.frameStep, 1);
    EXPECT_EQ(track.dataSize, 1);
    EXPECT_EQ(pool.symbols(), (std::vector<int32_t>{3}));
}

TEST(SteppedEncoding, AnAngleFrom179ToMinus179PassesThrough180) {
    const std::vector<int32_t> stored{179 * kDegree, -179 * kDegree, 0};
    EXPECT_EQ(reconstructed(stored, 2, 4, 1, true), -180 * kDegree);
    EXPECT_EQ(reconstructed(stored, 2, 4, 1, false), 0);
    const std::vector<int32_t> back{-179 * kDegree, 179 * kDegree, 0};
    EXPECT_EQ(reconstructed(back, 4, 6, 1, true), -179 * kDegree - kDegree / 2);
}

TEST(SteppedEncoding, AnAngleOfJustBelowHalfATurnGoesTheShortWay) {
    EXPECT_EQ(reconstructed({0, kHalfTurn - 2, 0}, 2, 4, 1, true), kHalfTurn / 2 - 1);
    // Half a turn exactly: zero counts as a whole one, and the middle comes out on the other side.
    EXPECT_EQ(reconstructed({0, kHalfTurn, 0}, 2, 4, 1, true), -kHalfTurn / 2);
}

TEST(SteppedEncoding, TheTailOfAnEarlierChannelIsShared) {
    NumberPool pool;
    encoded(ramp(10, 3), {kStepOne, 0, false}, pool);
    const AnimTrack tail = encoded({15, 18, 21, 24, 27}, {kStepOne, 0, false}, pool);
    EXPECT_EQ(tail.dataHead, 5);
    EXPECT_EQ(tail.dataSize, 5);
    EXPECT_EQ(pool.symbols().size(), 10U);
}

TEST(SteppedEncoding, NoValuesLeaveTheTrackAsItIs) {
    NumberPool pool;
    AnimTrack track;
    track.dataSize = 77;
    encodeStepped({}, {kStepAuto, 0, false}, pool, track);
    EXPECT_EQ(track.dataSize, 77);
    EXPECT_TRUE(pool.symbols().empty());
}

struct ThinCase {
    int32_t count, step;
    std::vector<int32_t> frames;
};

class Thinned : public testing::TestWithParam<ThinCase> {};

TEST_P(Thinned, StoresTheFrames) {
    EXPECT_EQ(thinned(ramp(GetParam().count), GetParam().step), GetParam().frames);
}

INSTANTIATE_TEST_SUITE_P(Layouts, Thinned,
                         testing::Values(ThinCase{10, 4, {0, 4, 8, 9}}, ThinCase{8, 4, {0, 4, 5, 6, 7}},
                                         ThinCase{10, 2, {0, 2, 4, 6, 8, 9}}, ThinCase{3, 2, {0, 2}},
                                         ThinCase{3, 4, {0, 1, 2}}, ThinCase{1, 4, {0}}, ThinCase{5, 4, {0, 4}},
                                         ThinCase{4, 1, {0, 1, 2, 3}}));

struct ModeCase {
    int32_t mode, frames, step;
};

class StepOfMode : public testing::TestWithParam<ModeCase> {};

TEST_P(StepOfMode, IsTaken) {
    std::vector<int32_t> values = ramp(GetParam().frames, 7);
    values.back() += 1000;
    EXPECT_EQ(encoded(values, {GetParam().mode, 0, false}).frameStep, GetParam().step);
}

INSTANTIATE_TEST_SUITE_P(Modes, StepOfMode,
                         testing::Values(ModeCase{kStepOne, 20, 1}, ModeCase{kStepTwo, 20, 2},
                                         ModeCase{kStepFour, 20, 4}, ModeCase{kStepAuto, 20, 4},
                                         ModeCase{kStepTwo, 2, 1}, ModeCase{kStepFour, 2, 1}, ModeCase{-1, 20, 1},
                                         ModeCase{4, 20, 1}, ModeCase{kStepAuto, 4, 2}));

TEST(SteppedEncoding, SumsWrapAsInA32BitReader) {
    const int32_t high = 2147483647;
    const auto sum = static_cast<int32_t>(static_cast<uint32_t>(4) * static_cast<uint32_t>(high));
    EXPECT_EQ(reconstructed({high, high, 0}, 4, 6, 2, false), sum >> 2);
    EXPECT_EQ(reconstructed({-1, -2, 0}, 2, 4, 1, false), -2);
}

std::vector<int32_t> randomChannel(std::mt19937& random, const std::vector<int32_t>& pool) {
    const auto count = 1 + static_cast<int32_t>(random() % 24);
    std::vector<int32_t> values(static_cast<std::size_t>(count));
    const auto base = static_cast<int32_t>(random() % 9) - 4;
    switch (random() % 6) {
    case 0: // constant
        std::fill(values.begin(), values.end(), base);
        break;
    case 1: // ramp
        for (int32_t i = 0; i < count; ++i) {
            values[static_cast<std::size_t>(i)] = base + i * static_cast<int32_t>(1 + random() % 2);
        }
        break;
    case 2: // spike
        values[random() % values.size()] = 1000;
        break;
    case 3: // angles around half a turn
        for (int32_t& value : values) {
            value = (random() % 2 == 0 ? 1 : -1) * (kHalfTurn - static_cast<int32_t>(random() % 5));
        }
        break;
    case 4: // a piece of the pool
        if (pool.size() > values.size()) {
            const auto from = static_cast<std::ptrdiff_t>(random() % (pool.size() - values.size()));
            std::copy_n(pool.begin() + from, values.size(), values.begin());
        }
        break;
    default: // noise
        for (int32_t& value : values) {
            value = static_cast<int32_t>(random());
        }
    }
    return values;
}

TEST(SteppedEncoding, AgreesWithTheLiteralDefinitionOnAMillionChannels) {
    std::mt19937 random(1);
    constexpr int kScenes = 20000;
    constexpr int kChannels = 50;
    constexpr int64_t kTolerances[] = {0, 1, 3, 40, 409, 4096, 40960};
    for (int scene = 0; scene < kScenes; ++scene) {
        NumberPool pool;
        LiteralEncoder literal;
        for (int i = 0; i < kChannels; ++i) {
            const std::vector<int32_t> values = randomChannel(random, literal.pool.values);
            const StepRule rule{static_cast<int32_t>(random() % 4), kTolerances[random() % 7], random() % 2 == 0};
            const AnimTrack ours = encoded(values, rule, pool);
            const AnimTrack theirs = literal.encode(values, rule);
            ASSERT_EQ(ours.constant, theirs.constant);
            ASSERT_EQ(ours.frameStep, theirs.frameStep);
            ASSERT_EQ(ours.dataSize, theirs.dataSize);
            ASSERT_EQ(ours.dataHead, theirs.dataHead);
        }
        ASSERT_EQ(pool.symbols(), literal.pool.values);
    }
}

} // namespace
} // namespace tvk
