#include "animation/RunPool.h"

#include "LiteralPool.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace tvk {
namespace {

using SmallGrams = RunPool<int32_t, NumberHash, 4>;

// Every symbol looks the same to it.
struct BlindHash {
    uint64_t operator()(int32_t /*value*/) const { return 7; }
};

TEST(RunPool, StoresARunOnce) {
    NumberPool pool;
    EXPECT_EQ(pool.findOrAppend({1, 2, 3}), 0);
    EXPECT_EQ(pool.findOrAppend({4, 5}), 3);
    EXPECT_EQ(pool.findOrAppend({1, 2, 3}), 0);
    EXPECT_EQ(pool.symbols(), (std::vector<int32_t>{1, 2, 3, 4, 5}));
}

TEST(RunPool, FindsRunsInsideOthersAndAcrossThem) {
    NumberPool pool;
    pool.findOrAppend({1, 2, 3});
    pool.findOrAppend({4, 5});
    EXPECT_EQ(pool.findOrAppend({2, 3}), 1);
    EXPECT_EQ(pool.findOrAppend({3, 4}), 2);
    EXPECT_EQ(pool.symbols().size(), 5U);
}

TEST(RunPool, ASingleValueIsTheFirstEqualOneAnywhere) {
    NumberPool pool;
    pool.findOrAppend({9, 8, 7, 8});
    EXPECT_EQ(pool.findOrAppend({8}), 1);
    EXPECT_EQ(pool.findOrAppend({6}), 4);
    EXPECT_EQ(pool.findOrAppend({6}), 4);
}

TEST(RunPool, AnEmptyRunStandsAtTheStart) {
    NumberPool pool;
    EXPECT_EQ(pool.findOrAppend({}), 0);
    EXPECT_TRUE(pool.symbols().empty());
}

TEST(RunPool, LooksNoFurtherThanItsEnd) {
    NumberPool pool;
    pool.findOrAppend({1, 2});
    EXPECT_EQ(pool.findOrAppend({2, 2}), 2);
    EXPECT_EQ(pool.findOrAppend({2, 2, 2}), 1);
    EXPECT_EQ(pool.findOrAppend({2, 2, 2, 2}), 4);
}

template <typename Pool>
void compareWithLiteral(std::mt19937& random, int runs, std::size_t longest, int32_t alphabet) {
    Pool pool;
    LiteralPool literal;
    for (int i = 0; i < runs; ++i) {
        std::vector<int32_t> run(1 + random() % longest);
        const bool isCopy = random() % 3 == 0 && literal.values.size() > run.size();
        const std::size_t from = isCopy ? random() % (literal.values.size() - run.size()) : 0;
        for (std::size_t k = 0; k < run.size(); ++k) {
            run[k] =
                isCopy ? literal.values[from + k] : static_cast<int32_t>(random() % static_cast<unsigned>(alphabet));
        }
        ASSERT_EQ(pool.findOrAppend(run), literal.findOrAppend(run)) << "run " << i << " of " << run.size();
        ASSERT_EQ(pool.symbols().size(), literal.values.size());
    }
    ASSERT_EQ(pool.symbols(), literal.values);
}

TEST(RunPool, GivesTheSameHeadsAsTheLiteralSearch) {
    std::mt19937 random(3);
    for (int round = 0; round < 60; ++round) {
        const int32_t alphabet = 1 + static_cast<int32_t>(random() % 5);
        const std::size_t longest = 1 + random() % 120;
        compareWithLiteral<NumberPool>(random, 60, longest, alphabet);
        compareWithLiteral<SmallGrams>(random, 60, longest, alphabet);
    }
    compareWithLiteral<NumberPool>(random, 200, 300, 1000);
}

TEST(RunPool, GivesTheSameHeadsWhenHashesSayNothing) {
    std::mt19937 random(4);
    for (int round = 0; round < 20; ++round) {
        compareWithLiteral<RunPool<int32_t, BlindHash, 4>>(random, 30, 1 + random() % 30, 3);
    }
}

// Held poses: long level runs that differ at the end only.
TEST(RunPool, GivesTheSameHeadsForLevelRuns) {
    NumberPool pool;
    LiteralPool literal;
    std::mt19937 random(5);
    for (int i = 0; i < 150; ++i) {
        std::vector<int32_t> run(200, 0);
        run.back() = i % 40;
        run[random() % run.size()] = static_cast<int32_t>(random() % 2);
        ASSERT_EQ(pool.findOrAppend(run), literal.findOrAppend(run)) << i;
    }
}

// Poses that are held, and change now to values that are rare, now to ones that are everywhere.
TEST(RunPool, GivesTheSameHeadsForHeldPoses) {
    std::mt19937 random(12);
    for (int scene = 0; scene < 40; ++scene) {
        NumberPool pool;
        LiteralPool literal;
        for (int i = 0; i < 120; ++i) {
            std::vector<int32_t> run(i % 3 == 0 ? 5 + random() % 50 : 63 + random() % 60);
            int32_t value = 0;
            for (int32_t& symbol : run) {
                const auto chance = random() % 40;
                value = chance == 0 ? static_cast<int32_t>(random() % 50) : chance < 3 ? 1 - value : value;
                symbol = value;
            }
            if (random() % 4 == 0 && literal.values.size() > run.size()) {
                const auto from = static_cast<std::ptrdiff_t>(random() % (literal.values.size() - run.size()));
                std::copy_n(literal.values.begin() + from, run.size(), run.begin());
            }
            ASSERT_EQ(pool.findOrAppend(run), literal.findOrAppend(run)) << scene;
        }
        ASSERT_EQ(pool.symbols(), literal.values);
    }
}

} // namespace
} // namespace tvk
