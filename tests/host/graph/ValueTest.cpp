#include "host/graph/Value.h"

#include <gtest/gtest.h>

using namespace host;

TEST(Block, FindsNothingWhereNothingWasSet) {
    Block block;
    EXPECT_EQ(block.find(0), nullptr);
    block.at(5) = 1.0;
    EXPECT_EQ(block.find(4), nullptr);
    EXPECT_EQ(block.find(6), nullptr);
}

TEST(Block, KeepsEntriesAscendingInAnyOrderOfSetting) {
    Block block;
    for (const AttrIndex attr : {3, 1, 9, 1, 2}) {
        block.at(attr) = static_cast<double>(attr);
    }
    std::vector<AttrIndex> order;
    for (const auto& [attr, value] : block.entries()) {
        order.push_back(attr);
        EXPECT_EQ(std::get<double>(value), attr);
    }
    EXPECT_EQ(order, (std::vector<AttrIndex>{1, 2, 3, 9}));
}

TEST(Block, ForgetsWhatIsErased) {
    Block block;
    block.at(1) = 1.0;
    block.at(2) = 2.0;
    block.erase(1);
    block.erase(7);
    EXPECT_EQ(block.find(1), nullptr);
    EXPECT_NE(block.find(2), nullptr);
}

TEST(ElementArray, MakesElementsWhereTheyAreMissing) {
    ElementArray array;
    array.at(1000000000).at(0) = 1.0;
    array.at(4).at(0) = 2.0;
    array.at(4).at(1) = 3.0;
    ASSERT_EQ(array.elements.size(), 2U);
    EXPECT_EQ(array.elements.begin()->first, 4);
    EXPECT_EQ(array.find(5), nullptr);
    ASSERT_NE(array.find(4), nullptr);
    EXPECT_EQ(std::get<double>(*array.find(4)->find(1)), 3.0);
}
