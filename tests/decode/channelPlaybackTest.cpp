#include "decode/channelPlayback.h"

#include "decode/FileError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace decode {
namespace {

using testing::DoubleNear;
using testing::ElementsAre;

constexpr int32_t kDegree = 4096;

TEST(ChannelPlayback, RefusesCurvesThatDoNotCoverTheRange) {
    const PlaybackRule rule{Filling::kCurve, 1, 3, false, false};
    EXPECT_EQ(played({0, 5, 0, 0, 2 * 4096, 5, 0, 0}, rule).size(), 3U);
    EXPECT_THROW(played({4096, 5, 0, 0, 2 * 4096, 5, 0, 0}, rule), FileError);
    EXPECT_THROW(played({0, 5, 0, 0, 4096, 5, 0, 0}, rule), FileError);
    EXPECT_THROW(played({0, 5, 0, 0, 4097, 5, 0, 0, 2 * 4096, 5, 0, 0}, rule), FileError);
    EXPECT_THROW(played({0, 5, 0, 0, 0, 5, 0, 0, 2 * 4096, 5, 0, 0}, rule), FileError);
    EXPECT_THROW(played({0, 5}, rule), FileError);
}

TEST(ChannelPlayback, MixedAnglesTakeTheShortWayRound) {
    const PlaybackRule rule{Filling::kMixed, 2, 3, true, false};
    EXPECT_THAT(played({170 * kDegree, -170 * kDegree}, rule),
                ElementsAre(170 * kDegree, -180 * kDegree, -170 * kDegree));
}

TEST(ChannelPlayback, MixedValuesAreRoundedDown) {
    EXPECT_THAT(played({0, -1}, {Filling::kMixed, 2, 3, false, false}), ElementsAre(0, -1, -1));
}

// Behind the last whole step every frame is stored.
TEST(ChannelPlayback, LastFramesAreStoredOneByOne) {
    EXPECT_THAT(played({0, 40, 50, 60}, {Filling::kMixed, 4, 7, false, false}), ElementsAre(0, 10, 20, 30, 40, 50, 60));
}

TEST(ChannelPlayback, CurvesKeepValuesAndSlopes) {
    // From 0 level to 8 level in two frames: half way at half time.
    const std::vector<double> frames = played({0, 0, 0, 0, 2 * 4096, 8, 0, 0}, {Filling::kCurve, 1, 3, false, false});
    EXPECT_THAT(frames, ElementsAre(DoubleNear(0, 1e-12), DoubleNear(4, 1e-12), DoubleNear(8, 1e-12)));
}

} // namespace
} // namespace decode
