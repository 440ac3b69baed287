#include "animation/keyEncoding.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

namespace tvk {
namespace {

KeyRule tolerance(double value) {
    KeyRule rule;
    rule.tolerance = value;
    return rule;
}

std::vector<double> framesOf(const std::vector<CurveKey>& keys) {
    std::vector<double> frames;
    std::transform(keys.begin(), keys.end(), std::back_inserter(frames), [](const CurveKey& key) { return key.frame; });
    return frames;
}

TEST(KeyEncoding, AStraightLineKeepsItsEnds) {
    std::vector<float> samples;
    for (int i = 0; i <= 48; ++i) {
        samples.push_back(15.0F * static_cast<float>(i)); // 0 to 720 degrees
    }
    const std::vector<CurveKey> keys = reducedKeys(samples, tolerance(0.1));
    ASSERT_EQ(framesOf(keys), (std::vector<double>{0, 48}));
    EXPECT_EQ(keys[0].slope, 15.0);
    EXPECT_EQ(keys[1].slope, 15.0);
}

TEST(KeyEncoding, FewFramesAreNotReduced) {
    EXPECT_TRUE(reducedKeys({}, tolerance(1)).empty());
    EXPECT_EQ(framesOf(reducedKeys({5}, tolerance(1))), (std::vector<double>{0}));
    EXPECT_EQ(reducedKeys({5}, tolerance(1))[0].slope, 0.0);
    EXPECT_EQ(framesOf(reducedKeys({5, 5}, tolerance(1))), (std::vector<double>{0, 1}));
}

TEST(KeyEncoding, ALevelChannelKeepsItsFirstAndLastKey) {
    EXPECT_EQ(framesOf(reducedKeys({5, 5, 5, 5}, tolerance(0))), (std::vector<double>{0, 3}));
}

TEST(KeyEncoding, ASpikeKeepsItsSurroundings) {
    const std::vector<float> samples{0, 0, 0, 0, 9, 0, 0, 0, 0};
    EXPECT_EQ(framesOf(reducedKeys(samples, tolerance(0.5))), (std::vector<double>{0, 2, 3, 4, 5, 6, 8}));
}

TEST(KeyEncoding, SlopesAreHalfTheStepBetweenNeighboursAndClamped) {
    const std::vector<CurveKey> keys = reducedKeys({0, 100, 50, 1e6F}, tolerance(0));
    ASSERT_EQ(keys.size(), 4U);
    EXPECT_EQ(keys[0].slope, 100.0);
    EXPECT_EQ(keys[1].slope, 25.0);
    EXPECT_EQ(keys[2].slope, 32768.0);
    EXPECT_EQ(keys[3].slope, 32768.0);
}

TEST(KeyEncoding, ALoopGoesBackToTheFirstValue) {
    KeyRule rule = tolerance(0);
    rule.loops = true;
    const std::vector<CurveKey> keys = reducedKeys({1, 5, 2}, rule);
    ASSERT_EQ(keys.size(), 4U);
    EXPECT_EQ(keys.back().frame, 3.0);
    EXPECT_EQ(keys.back().value, 1.0);
}

TEST(KeyEncoding, ALoopOfAnglesGoesOnTheShortWay) {
    KeyRule rule = tolerance(0);
    rule.loops = true;
    rule.isAngle = true;
    EXPECT_EQ(reducedKeys({0, 100, 350}, rule).back().value, 360.0);
    EXPECT_EQ(reducedKeys({0, -100, -350}, rule).back().value, -360.0);
    EXPECT_EQ(reducedKeys({0, 100, 740}, rule).back().value, 720.0);
    EXPECT_EQ(reducedKeys({0, 90, 180}, rule).back().value, 0.0);      // -180 from there
    EXPECT_EQ(reducedKeys({0, -90, -180}, rule).back().value, -360.0); // half a turn counts as negative
}

std::vector<CurveKey> keyPerFrame(const std::vector<float>& samples) {
    std::vector<CurveKey> keys;
    const std::size_t last = samples.size() - 1;
    for (std::size_t f = 0; f < samples.size(); ++f) {
        const double before = f == 0 ? 0.0 : static_cast<double>(samples[f]) - static_cast<double>(samples[f - 1]);
        const double after = f == last ? 0.0 : static_cast<double>(samples[f + 1]) - static_cast<double>(samples[f]);
        const double share = f == 0 || f == last ? 1.0 : 0.5;
        keys.push_back({static_cast<double>(f), static_cast<double>(samples[f]), (before + after) * share});
    }
    return keys;
}

// The definition: try one key after the other, look at the whole curve each time.
std::vector<CurveKey> literallyReduced(const std::vector<float>& samples, const std::vector<CurveKey>& all,
                                       double limit) {
    std::vector<CurveKey> keys = all;
    for (std::size_t i = 1; keys.size() >= 3 && i + 1 < keys.size();) {
        std::vector<CurveKey> fewer = keys;
        fewer.erase(fewer.begin() + static_cast<std::ptrdiff_t>(i));
        double error = 0.0;
        for (std::size_t f = 0; f < samples.size(); ++f) {
            error =
                std::max(error, std::abs(curveValue(fewer, static_cast<double>(f)) - static_cast<double>(samples[f])));
        }
        if (error != 0.0 && error >= limit) {
            ++i;
        } else {
            keys = fewer;
        }
    }
    return keys;
}

// The same, looking at the segment alone that a key's removal changes.
std::vector<CurveKey> greedilyReduced(const std::vector<float>& samples, const std::vector<CurveKey>& all,
                                      double limit) {
    std::vector<CurveKey> kept{all.front()};
    for (std::size_t i = 1; i + 1 < all.size(); ++i) {
        const std::vector<CurveKey> segment{kept.back(), all[i + 1]};
        bool isGood = true;
        for (auto f = static_cast<std::size_t>(kept.back().frame) + 1; f <= i && isGood; ++f) {
            const double error =
                std::abs(curveValue(segment, static_cast<double>(f)) - static_cast<double>(samples[f]));
            isGood = error == 0.0 || error < limit;
        }
        if (!isGood) {
            kept.push_back(all[i]);
        }
    }
    kept.push_back(all.back());
    return kept;
}

TEST(KeyEncoding, ReducesAsTheDefinitionDoes) {
    std::mt19937 random(8);
    for (int round = 0; round < 3000; ++round) {
        std::vector<float> samples(3 + random() % 30);
        float value = 0;
        float speed = 0;
        for (float& sample : samples) {
            speed += static_cast<float>(static_cast<int>(random() % 7) - 3);
            value += speed;
            sample = value;
        }
        const KeyRule rule = tolerance(0.5 + static_cast<double>(random() % 20));
        const std::vector<CurveKey> keys = reducedKeys(samples, rule);
        ASSERT_EQ(framesOf(keys), framesOf(literallyReduced(samples, keyPerFrame(samples), rule.tolerance))) << round;
        for (std::size_t f = 0; f < samples.size(); ++f) {
            ASSERT_NEAR(curveValue(keys, static_cast<double>(f)), static_cast<double>(samples[f]), rule.tolerance);
        }
    }
}

// Straight and curved stretches that are longer than the blocks whose bounds stand for their frames.
TEST(KeyEncoding, ReducesLongChannelsAsTheDefinitionDoes) {
    std::mt19937 random(21);
    for (const double limit : {0.004, 0.1, 2.0}) {
        std::vector<float> samples;
        double value = 0.0;
        while (samples.size() < 2600) {
            const double speed = static_cast<double>(random() % 100) / 37.0 - 1.3;
            const double bend = random() % 2 == 0 ? 0.0 : static_cast<double>(random() % 9) / 4000.0;
            const std::size_t length = 1 + random() % 1500;
            for (std::size_t i = 0; i < length && samples.size() < 2600; ++i) {
                value += speed + bend * static_cast<double>(i % 700);
                samples.push_back(static_cast<float>(value));
            }
        }
        EXPECT_EQ(framesOf(reducedKeys(samples, tolerance(limit))),
                  framesOf(greedilyReduced(samples, keyPerFrame(samples), limit)))
            << limit;
    }
}

TEST(KeyEncoding, OfAHundredThousandFramesInALineTakesNoTime) {
    std::vector<float> samples(100000);
    for (std::size_t i = 0; i < samples.size(); ++i) {
        samples[i] = static_cast<float>(i) / 4.0F;
    }
    EXPECT_EQ(framesOf(reducedKeys(samples, tolerance(0.1))), (std::vector<double>{0, 99999}));
}

TEST(KeyEncoding, StoresFrameValueAndSlopesInFixedPoint) {
    KeyPool pool;
    AnimTrack track;
    encodeKeys({1.0F, 1.5F}, tolerance(0), pool, track);
    EXPECT_EQ(keyNumbers(pool), (std::vector<int32_t>{0, 4096, 2048, 2048, 4096, 6144, 2048, 2048}));
    EXPECT_FALSE(track.constant);
    EXPECT_EQ(track.frameStep, 1);
    EXPECT_EQ(track.dataSize, 2);
    EXPECT_EQ(track.dataHead, 0);
}

// Of the longest range that is exported, with one more frame for the way back.
TEST(KeyEncoding, HoldsTheLastFrameOfTheLongestRange) {
    constexpr int32_t kFrames = 524287;
    KeyRule rule = tolerance(0);
    rule.loops = true;
    KeyPool pool;
    AnimTrack track;
    encodeKeys(std::vector<float>(kFrames, 1.0F), rule, pool, track);
    EXPECT_EQ(keyNumbers(pool), (std::vector<int32_t>{0, 4096, 0, 0, kFrames * 4096, 4096, 0, 0}));
}

TEST(KeyEncoding, SharesWholeKeys) {
    KeyPool pool;
    AnimTrack first;
    AnimTrack second;
    encodeKeys({3, 3, 3}, tolerance(0), pool, first);
    encodeKeys({1, 2}, tolerance(0), pool, second);
    EXPECT_EQ(second.dataHead, 2); // counts keys
    encodeKeys({3, 3, 3}, tolerance(0), pool, second);
    EXPECT_TRUE(second.constant);
    EXPECT_EQ(second.dataHead, 0);
    EXPECT_EQ(keyNumbers(pool).size(), 16U);
}

} // namespace
} // namespace tvk
