#include "material/frameList.h"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>
#include <string>

namespace tvk {
namespace {

using testing::ElementsAre;

class BadFrameList : public testing::TestWithParam<const char*> {};

TEST_P(BadFrameList, IsRefusedAndGivesNoFrames) {
    std::vector<int64_t> frames{7};
    EXPECT_FALSE(parseFrameList(GetParam(), frames));
    EXPECT_TRUE(frames.empty());
}

INSTANTIATE_TEST_SUITE_P(OtherCharacter, BadFrameList,
                         testing::Values("a", "1,b", "1;2", "1.5", "+1", "1\t2", "1\n", "0x1", "1/2", "\xE3\x80\x80"));
INSTANTIATE_TEST_SUITE_P(FifteenthDigit, BadFrameList,
                         testing::Values("100000000000000", "1,000000000000001", "1-100000000000000",
                                         "99999999999999999999999999"));
INSTANTIATE_TEST_SUITE_P(HyphenWithoutNumberBefore, BadFrameList,
                         testing::Values("-", "-3", " -3", ",-3", "1,-3", "1, -3", "1,,-3", "1-2,-3"));
INSTANTIATE_TEST_SUITE_P(HyphenWithoutNumberBehind, BadFrameList,
                         testing::Values("3-", "3- ", "1-,3", "1 - , 3", "1,3-"));
INSTANTIATE_TEST_SUITE_P(TwoHyphens, BadFrameList, testing::Values("1--3", "1- -3", "--"));
INSTANTIATE_TEST_SUITE_P(DownwardRange, BadFrameList, testing::Values("3-1", "1,9-8", "1-3-2"));
INSTANTIATE_TEST_SUITE_P(TooManyFrames, BadFrameList,
                         testing::Values("1-4096", "0-4000,5000-5100", "0-99999999999999", "5,0-99999999999998"));

struct GoodList {
    const char* text;
    std::vector<int64_t> frames;
};

class FrameList : public testing::TestWithParam<GoodList> {};

TEST_P(FrameList, GivesItsFramesInOrderAndOnce) {
    std::vector<int64_t> frames{7};
    EXPECT_TRUE(parseFrameList(GetParam().text, frames));
    EXPECT_EQ(frames, GetParam().frames);
}

INSTANTIATE_TEST_SUITE_P(Empty, FrameList, testing::Values(GoodList{"", {}}, GoodList{" ", {}}, GoodList{", ,,", {}}));
INSTANTIATE_TEST_SUITE_P(Numbers, FrameList,
                         testing::Values(GoodList{"5", {5}}, GoodList{"1,2", {1, 2}}, GoodList{"1 2", {1, 2}},
                                         GoodList{" 1 , 2 ", {1, 2}}, GoodList{"1,,2,", {1, 2}},
                                         GoodList{"9,1,5", {1, 5, 9}}, GoodList{"2,2,2", {2}},
                                         GoodList{"007,0", {0, 7}}));
INSTANTIATE_TEST_SUITE_P(FourteenDigits, FrameList,
                         testing::Values(GoodList{"99999999999999", {99999999999999}},
                                         GoodList{"99999999999998-99999999999999", {99999999999998, 99999999999999}},
                                         GoodList{"00000000000001", {1}}));
INSTANTIATE_TEST_SUITE_P(Ranges, FrameList,
                         testing::Values(GoodList{"1-3", {1, 2, 3}}, GoodList{"1 - 3", {1, 2, 3}},
                                         GoodList{"1 -3", {1, 2, 3}}, GoodList{"1- 3", {1, 2, 3}}, GoodList{"4-4", {4}},
                                         GoodList{"1-3,7", {1, 2, 3, 7}}, GoodList{"1-3 2-4", {1, 2, 3, 4}},
                                         GoodList{"8,1-2,2", {1, 2, 8}}, GoodList{"5 6-7", {5, 6, 7}}));
// Each '-' joins the number before it with the one behind it.
INSTANTIATE_TEST_SUITE_P(Chain, FrameList, testing::Values(GoodList{"1-2-4", {1, 2, 3, 4}}));

TEST(FrameListLimit, HoldsWhatTwelveBitsHold) {
    std::vector<int64_t> frames;
    EXPECT_TRUE(parseFrameList("1-4095", frames));
    EXPECT_EQ(frames.size(), 4095U);
    EXPECT_EQ(frames.back(), 4095);
}

TEST(FrameListLimit, CountsFramesThatAreNamedTwiceOnce) {
    std::vector<int64_t> frames;
    EXPECT_TRUE(parseFrameList("1-4000,2-4095,5,5,5", frames));
    EXPECT_EQ(frames.size(), 4095U);
}

TEST(FrameListLimit, LongTextsCostNoMoreThanTheirLength) {
    std::string text;
    for (int i = 0; i < 100'000; ++i) {
        text += "1-4095,";
    }
    std::vector<int64_t> frames;
    EXPECT_TRUE(parseFrameList(text, frames));
    EXPECT_EQ(frames.size(), 4095U);
}

TEST(FrameOfKey, RoundsHalvesAwayFromZero) {
    EXPECT_EQ(frameOfKey(0.0), 0);
    EXPECT_EQ(frameOfKey(2.5), 3);
    EXPECT_EQ(frameOfKey(-2.5), -3);
    EXPECT_EQ(frameOfKey(2.49999999), 2);
    EXPECT_EQ(frameOfKey(-0.4), 0);
}

TEST(FrameOfKey, StaysWithinFourteenDigits) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(frameOfKey(1e300), 99999999999999);
    EXPECT_EQ(frameOfKey(-1e300), -99999999999999);
    EXPECT_EQ(frameOfKey(kInfinity), 99999999999999);
    EXPECT_EQ(frameOfKey(-kInfinity), -99999999999999);
    EXPECT_EQ(frameOfKey(std::nan("")), 0);
}

TEST(SortFrames, PutsThemInOrderAndOnce) {
    std::vector<int64_t> frames{5, -1, 5, 3, -1};
    sortFrames(frames);
    EXPECT_THAT(frames, ElementsAre(-1, 3, 5));
}

} // namespace
} // namespace tvk
