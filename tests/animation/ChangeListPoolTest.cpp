#include "animation/ChangeListPool.h"

#include "FreshRun.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>
#include <random>
#include <sstream>
#include <utility>
#include <vector>

namespace tvk {
namespace {

using Keys = std::vector<std::pair<int32_t, int32_t>>;

Keys keysOf(const ChangeListPool& pool) {
    Keys keys;
    for (std::size_t i = 0; i < pool.frames().size(); ++i) {
        keys.emplace_back(pool.frames()[i], pool.values()[i]);
    }
    return keys;
}

/// The rule word by word: keys at changes, the first place in the pool where all of them stand in a row, else the end.
class LiteralPool {
public:
    AnimTrack encode(const std::vector<int32_t>& values) {
        Keys keys;
        for (std::size_t f = 0; f < values.size(); ++f) {
            if (keys.empty() || values[f] != keys.back().second) {
                keys.emplace_back(static_cast<int32_t>(f), values[f]);
            }
        }
        AnimTrack track;
        track.constant = keys.size() == 1;
        track.dataSize = static_cast<int32_t>(keys.size());
        track.dataHead = findOrAppend(keys);
        return track;
    }

    Keys pool;

private:
    int32_t findOrAppend(const Keys& keys) {
        const auto found = std::search(pool.begin(), pool.end(), keys.begin(), keys.end());
        const auto head = found - pool.begin();
        if (found == pool.end()) {
            pool.insert(pool.end(), keys.begin(), keys.end());
        }
        return static_cast<int32_t>(head);
    }
};

TEST(ChangeListPool, NoValuesAreReportedAndLeaveTheRecordAlone) {
    std::ostringstream told;
    std::streambuf* const old = std::cerr.rdbuf(told.rdbuf());
    ChangeListPool pool;
    AnimTrack track;
    track.dataSize = 5;
    track.dataHead = 6;
    track.frameStep = 4;
    track.constant = false;
    pool.encode({}, false, track);
    std::cerr.rdbuf(old);
    EXPECT_EQ(told.str(), "Error: adap\n");
    EXPECT_TRUE(pool.empty());
    EXPECT_EQ(track.dataSize, 5);
    EXPECT_EQ(track.dataHead, 6);
    EXPECT_EQ(track.frameStep, 4);
    EXPECT_FALSE(track.constant);
}

TEST(ChangeListPool, SwitchingOffAtFiveAndOnAtNineOverTwelveFramesTakesThreeKeys) {
    ChangeListPool pool;
    AnimTrack track;
    track.frameStep = 4;
    pool.encode({1, 1, 1, 1, 1, 0, 0, 0, 0, 1, 1, 1}, false, track);
    EXPECT_EQ(keysOf(pool), (Keys{{0, 1}, {5, 0}, {9, 1}}));
    EXPECT_FALSE(track.constant);
    EXPECT_EQ(track.frameStep, 1);
    EXPECT_EQ(track.dataSize, 3);
    EXPECT_EQ(track.dataHead, 0);
}

TEST(ChangeListPool, AConstantChannelHasItsKeyInThePool) {
    ChangeListPool pool;
    AnimTrack on;
    AnimTrack off;
    AnimTrack onAgain;
    pool.encode({1, 1, 1}, false, on);
    pool.encode({0, 0, 0}, false, off);
    pool.encode({1}, false, onAgain);
    EXPECT_EQ(keysOf(pool), (Keys{{0, 1}, {0, 0}}));
    EXPECT_TRUE(on.constant && off.constant && onAgain.constant);
    EXPECT_EQ(on.dataSize, 1);
    EXPECT_EQ(on.dataHead, 0);
    EXPECT_EQ(off.dataHead, 1);
    EXPECT_EQ(onAgain.dataHead, 0);
}

TEST(ChangeListPool, AnInlineConstantIsItsOwnHead) {
    ChangeListPool pool;
    AnimTrack constant;
    AnimTrack moving;
    pool.encode({7, 7, 7}, true, constant);
    EXPECT_TRUE(pool.empty());
    EXPECT_EQ(constant.dataHead, 7);
    EXPECT_EQ(constant.dataSize, 1);
    EXPECT_TRUE(constant.constant);
    pool.encode({7, 8}, true, moving);
    EXPECT_EQ(keysOf(pool), (Keys{{0, 7}, {1, 8}}));
    EXPECT_EQ(moving.dataHead, 0);
}

// The first key of a longer channel is all that a shorter one needs; the other way round everything is stored anew.
TEST(ChangeListPool, ShortChannelsAreFoundInLongOnes) {
    ChangeListPool pool;
    AnimTrack longer;
    AnimTrack shorter;
    AnimTrack longest;
    pool.encode({1, 0, 0, 1}, false, longer);
    pool.encode({1, 0, 0, 0}, false, shorter);
    pool.encode({1, 0, 0, 1, 0}, false, longest);
    EXPECT_EQ(keysOf(pool), (Keys{{0, 1}, {1, 0}, {3, 1}, {0, 1}, {1, 0}, {3, 1}, {4, 0}}));
    EXPECT_EQ(shorter.dataHead, 0);
    EXPECT_EQ(shorter.dataSize, 2);
    EXPECT_EQ(longest.dataHead, 3);
}

TEST(ChangeListPool, EqualsALiteralFirstMatchSearchOnRandomChannels) {
    std::mt19937 random(7);
    for (int round = 0; round < 200; ++round) {
        const int frames = std::uniform_int_distribution<int>(1, 12)(random);
        const int largest = std::uniform_int_distribution<int>(1, 3)(random);
        ChangeListPool pool;
        LiteralPool judge;
        for (int channel = 0; channel < 60; ++channel) {
            std::vector<int32_t> values(static_cast<std::size_t>(frames));
            int32_t value = std::uniform_int_distribution<int32_t>(0, largest)(random);
            for (int32_t& frame : values) {
                const bool changes = random() % 3 == 0;
                value = changes ? std::uniform_int_distribution<int32_t>(0, largest)(random) : value;
                frame = value;
            }
            AnimTrack track;
            pool.encode(values, false, track);
            const AnimTrack expected = judge.encode(values);
            ASSERT_EQ(track.dataHead, expected.dataHead) << "round " << round << " channel " << channel;
            ASSERT_EQ(track.dataSize, expected.dataSize);
            ASSERT_EQ(track.constant, expected.constant);
        }
        ASSERT_EQ(keysOf(pool), judge.pool) << "round " << round;
    }
}

std::string blockOf(int count) {
    const FreshRun fresh;
    std::vector<int32_t> values;
    for (int i = 0; i < count; ++i) {
        values.push_back(i);
    }
    std::ostringstream out;
    writeValueBlock(out, "frame_idx", values);
    return out.str();
}

TEST(ValueBlock, StandsTenToALine) {
    EXPECT_EQ(blockOf(0), "\t<frame_idx size=\"0\">\n\t</frame_idx>\n");
    EXPECT_EQ(blockOf(1), "\t<frame_idx size=\"1\">\n\t\t0\n\t</frame_idx>\n");
    EXPECT_EQ(blockOf(9), "\t<frame_idx size=\"9\">\n\t\t0 1 2 3 4 5 6 7 8\n\t</frame_idx>\n");
    EXPECT_EQ(blockOf(10), "\t<frame_idx size=\"10\">\n\t\t0 1 2 3 4 5 6 7 8 9\n\t</frame_idx>\n");
    EXPECT_EQ(blockOf(11), "\t<frame_idx size=\"11\">\n\t\t0 1 2 3 4 5 6 7 8 9\n\t\t10\n\t</frame_idx>\n");
    EXPECT_EQ(blockOf(20), "\t<frame_idx size=\"20\">\n\t\t0 1 2 3 4 5 6 7 8 9\n"
                           "\t\t10 11 12 13 14 15 16 17 18 19\n\t</frame_idx>\n");
}

} // namespace
} // namespace tvk
