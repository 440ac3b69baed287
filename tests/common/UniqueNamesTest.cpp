#include "common/UniqueNames.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace tvk {
namespace {

std::vector<std::string> allocateAll(const std::vector<std::string>& wanted) {
    UniqueNames names;
    std::vector<std::string> given;
    for (const std::string& name : wanted)
        given.push_back(names.allocate(name));
    return given;
}

// The rule word by word: against every earlier name, counters from 1.
std::vector<std::string> searchPairwise(const std::vector<std::string>& wanted) {
    std::vector<std::string> given;
    for (const std::string& name : wanted) {
        std::string candidate = name;
        for (int counter = 1; std::find(given.begin(), given.end(), candidate) != given.end(); ++counter)
            candidate = name + "_" + std::to_string(counter);
        given.push_back(candidate);
    }
    return given;
}

using Names = std::vector<std::string>;

TEST(UniqueNames, LaterDuplicatesGetCounters) {
    EXPECT_EQ(allocateAll({"a", "a", "a"}), (Names{"a", "a_1", "a_2"}));
    EXPECT_EQ(allocateAll({"a", "b", "A"}), (Names{"a", "b", "A"}));
    EXPECT_EQ(allocateAll({"", "", "x"}), (Names{"", "_1", "x"}));
}

TEST(UniqueNames, TakenCountersAreStepped) {
    EXPECT_EQ(allocateAll({"a", "a_1", "a", "a"}), (Names{"a", "a_1", "a_2", "a_3"}));
    EXPECT_EQ(allocateAll({"a", "a", "a_1"}), (Names{"a", "a_1", "a_1_1"}));
    EXPECT_EQ(allocateAll({"a", "a", "a_2", "a", "a"}), (Names{"a", "a_1", "a_2", "a_3", "a_4"}));
    EXPECT_EQ(allocateAll({"a_1", "a", "a_1", "a"}), (Names{"a_1", "a", "a_1_1", "a_2"}));
}

TEST(UniqueNames, ReservingChangesNothing) {
    UniqueNames names;
    names.reserve(1000);
    EXPECT_EQ(names.allocate("world_root"), "world_root");
    EXPECT_EQ(names.allocate("world_root"), "world_root_1");
}

TEST(UniqueNames, EqualsThePairwiseSearch) {
    std::mt19937 random(3);
    const Names words = {"a", "b", "a_1", "a_2", "a_1_1", "a_", "_1", "", "b_1", "a_10"};
    std::uniform_int_distribution<size_t> word(0, words.size() - 1);
    std::uniform_int_distribution<size_t> length(0, 60);
    for (int round = 0; round < 2000; ++round) {
        Names wanted(length(random));
        std::generate(wanted.begin(), wanted.end(), [&] { return words[word(random)]; });
        ASSERT_EQ(allocateAll(wanted), searchPairwise(wanted)) << "round " << round;
    }
}

// 200,000 equal names finish at once only if the search does not start from 1 each time.
TEST(UniqueNames, ManyEqualNamesAreLinear) {
    UniqueNames names;
    std::string last;
    for (int i = 0; i < 200000; ++i)
        last = names.allocate("same");
    EXPECT_EQ(last, "same_199999");
}

} // namespace
} // namespace tvk
