#include "host/nodes/clipTiming.h"

#include <gtest/gtest.h>

namespace host {
namespace {

/// Plays 10 … 20 of its source from 100 on.
ClipTiming timing() {
    ClipTiming result;
    result.start = 100;
    result.sourceStart = 10;
    result.sourceEnd = 20;
    return result;
}

AnimCurve curve(const std::vector<std::pair<double, double>>& keys) {
    CurveDescription description;
    for (const auto& [input, value] : keys) {
        CurveKey key;
        key.input = input;
        key.value = value;
        key.inType = key.outType = TangentType::kLinear;
        key.index = static_cast<std::int32_t>(description.keys.size());
        description.keys.push_back(key);
    }
    return AnimCurve(description);
}

PlayedClip clip(const AnimCurve& curve, double start, bool isAbsolute) {
    PlayedClip result;
    result.timing = timing();
    result.timing.start = start;
    result.channels = {{&curve, isAbsolute}};
    return result;
}

TEST(ClipMoment, StaysAtTheEndsOutsideOfTheClip) {
    EXPECT_EQ(clipMomentAt(timing(), 0).sourceTime, 10.0);
    EXPECT_EQ(clipMomentAt(timing(), 500).sourceTime, 20.0);
    EXPECT_EQ(clipMomentAt(timing(), 500).cycle, 0.0);
}

TEST(ClipMoment, RunsThroughTheSource) {
    EXPECT_EQ(clipMomentAt(timing(), 103).sourceTime, 13.0);
    ClipTiming slow = timing();
    slow.scale = 2;
    EXPECT_EQ(slow.lastTime(), 120.0);
    EXPECT_EQ(clipMomentAt(slow, 103).sourceTime, 11.5);
}

TEST(ClipMoment, RepeatsBeforeAndAfter) {
    ClipTiming cycled = timing();
    cycled.preCycle = 1;
    cycled.postCycle = 1.5;
    cycled.hold = 7;
    EXPECT_EQ(cycled.firstTime(), 90.0);
    EXPECT_EQ(cycled.lastTime(), 125.0);
    EXPECT_EQ(cycled.lastTimeHeld(), 132.0);
    struct Row {
        double time, sourceTime, cycle;
    };
    constexpr Row kRows[] = {{80, 10, -1}, {90, 10, -1}, {96, 16, -1}, {100, 10, 0},
                             {110, 10, 1}, {121, 11, 2}, {125, 15, 2}, {130, 15, 2}};
    for (const Row& row : kRows) {
        EXPECT_EQ(clipMomentAt(cycled, row.time).sourceTime, row.sourceTime) << row.time;
        EXPECT_EQ(clipMomentAt(cycled, row.time).cycle, row.cycle) << row.time;
    }
}

TEST(ClipMoment, OfAPoseIsItsOneTime) {
    ClipTiming pose = timing();
    pose.sourceEnd = pose.sourceStart;
    EXPECT_EQ(clipMomentAt(pose, 104).sourceTime, 10.0);
    EXPECT_EQ(clipMomentAt(pose, 104).cycle, 0.0);
}

TEST(PlayedValue, IsNothingBeforeTheFirstClip) {
    const AnimCurve ramp = curve({{10, 1}, {20, 5}});
    const std::vector<PlayedClip> clips{clip(ramp, 100, true)};
    EXPECT_FALSE(playedValue(clips, 0, 99).has_value());
    EXPECT_FALSE(playedValue(clips, 1, 105).has_value()) << "a channel that the clip does not have";
    EXPECT_FALSE(playedValue({}, 0, 105).has_value());
}

TEST(PlayedValue, OfAnAbsoluteChannelIsThatOfTheCurve) {
    const AnimCurve ramp = curve({{10, 1}, {20, 5}});
    const std::vector<PlayedClip> clips{clip(ramp, 100, true), clip(ramp, 200, true)};
    EXPECT_NEAR(playedValue(clips, 0, 100).value(), 1.0, 1e-12);
    EXPECT_NEAR(playedValue(clips, 0, 105).value(), 3.0, 1e-12);
    EXPECT_NEAR(playedValue(clips, 0, 150).value(), 5.0, 1e-12) << "held when it is over";
    EXPECT_NEAR(playedValue(clips, 0, 205).value(), 3.0, 1e-12);
}

TEST(PlayedValue, OfARelativeChannelGoesOnFromTheClipBefore) {
    const AnimCurve ramp = curve({{10, 1}, {20, 5}});
    const std::vector<PlayedClip> clips{clip(ramp, 100, false), clip(ramp, 200, false)};
    EXPECT_NEAR(playedValue(clips, 0, 105).value(), 3.0, 1e-12) << "the first as it is";
    EXPECT_NEAR(playedValue(clips, 0, 200).value(), 5.0, 1e-12);
    EXPECT_NEAR(playedValue(clips, 0, 205).value(), 7.0, 1e-12);
    EXPECT_NEAR(playedValue(clips, 0, 900).value(), 9.0, 1e-12);
}

TEST(PlayedValue, OfARelativeChannelGoesOnInRepetitions) {
    const AnimCurve ramp = curve({{10, 1}, {20, 5}});
    std::vector<PlayedClip> clips{clip(ramp, 100, false)};
    clips[0].timing.postCycle = 2;
    EXPECT_NEAR(playedValue(clips, 0, 110).value(), 5.0, 1e-12);
    EXPECT_NEAR(playedValue(clips, 0, 115).value(), 7.0, 1e-12);
    EXPECT_NEAR(playedValue(clips, 0, 130).value(), 13.0, 1e-12);
    clips[0].channels[0].isAbsolute = true;
    EXPECT_NEAR(playedValue(clips, 0, 115).value(), 3.0, 1e-12);
    EXPECT_NEAR(playedValue(clips, 0, 130).value(), 5.0, 1e-12);
}

TEST(PlayedValue, OfClipsThatOverlapIsThatOfTheLaterOneUnlessItIsRelative) {
    const AnimCurve slow = curve({{10, 0}, {20, 10}});
    const AnimCurve other = curve({{10, 100}, {20, 120}});
    std::vector<PlayedClip> clips{clip(slow, 100, true), clip(other, 105, true)};
    EXPECT_NEAR(playedValue(clips, 0, 104).value(), 4.0, 1e-12);
    EXPECT_NEAR(playedValue(clips, 0, 106).value(), 102.0, 1e-12);
    EXPECT_NEAR(playedValue(clips, 0, 113).value(), 116.0, 1e-12);
    clips[1].channels[0].isAbsolute = false;
    EXPECT_NEAR(playedValue(clips, 0, 106).value(), 6.0 + 2.0, 1e-12);
    EXPECT_NEAR(playedValue(clips, 0, 115).value(), 10.0 + 20.0, 1e-12);
}

TEST(PlayedValue, WeighsTheChangeOrTheValue) {
    const AnimCurve ramp = curve({{10, 2}, {20, 6}});
    std::vector<PlayedClip> clips{clip(ramp, 100, true)};
    clips[0].weight = 0.5;
    EXPECT_NEAR(playedValue(clips, 0, 105).value(), 2.0 + 1.0, 1e-12);
    clips[0].weightStyle = ClipWeightStyle::kFromZero;
    EXPECT_NEAR(playedValue(clips, 0, 105).value(), 2.0, 1e-12) << "half of 4";
}

} // namespace
} // namespace host
