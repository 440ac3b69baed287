#include "host/mel/VariableScopes.h"

#include <gtest/gtest.h>

namespace host::mel {
namespace {

TEST(VariableScopes, refuseASecondTypeInTheSameBlock) {
    GlobalVariables globals;
    VariableScopes scopes(globals, false);
    EXPECT_TRUE(scopes.declare("a", ValueType::kInt).has_value());
    EXPECT_TRUE(scopes.declare("a", ValueType::kInt).has_value());
    EXPECT_FALSE(scopes.declare("a", ValueType::kString).has_value());
    scopes.beginBlock();
    EXPECT_TRUE(scopes.declare("a", ValueType::kString).has_value());
}

TEST(VariableScopes, keepNewGlobalsBackUntilCommit) {
    GlobalVariables globals;
    VariableScopes scopes(globals, true);
    const auto declared = scopes.declare("a", ValueType::kFloat);
    ASSERT_TRUE(declared.has_value());
    EXPECT_TRUE(globals.empty());
    scopes.commit();
    ASSERT_EQ(globals.count("a"), 1U);
    EXPECT_EQ(globals["a"].get(), declared->global);
    EXPECT_EQ(globals["a"]->value.type(), ValueType::kFloat);
}

TEST(VariableScopes, proceduresSeeOnlyWhatTheyDeclare) {
    GlobalVariables globals;
    VariableScopes scopes(globals, true);
    const auto outer = scopes.declare("a", ValueType::kInt);
    scopes.beginProcedure();
    EXPECT_FALSE(scopes.find("a").has_value());
    EXPECT_EQ(scopes.declareGlobal("a", ValueType::kInt)->global, outer->global);
    EXPECT_FALSE(scopes.declareGlobal("a", ValueType::kString).has_value());
    EXPECT_EQ(scopes.declare("b", ValueType::kInt)->slot, 0U);
    EXPECT_EQ(scopes.declare("c", ValueType::kInt)->slot, 1U);
    EXPECT_EQ(scopes.endProcedure(), 2U);
    EXPECT_FALSE(scopes.find("b").has_value());
}

TEST(VariableScopes, blocksKnowTheirSlots) {
    GlobalVariables globals;
    VariableScopes scopes(globals, false);
    scopes.declare("a", ValueType::kInt);
    scopes.beginBlock();
    scopes.declare("b", ValueType::kInt);
    scopes.beginBlock();
    scopes.declare("c", ValueType::kInt);
    Statement inner;
    scopes.endBlock(inner);
    Statement outer;
    scopes.endBlock(outer);
    EXPECT_EQ(inner.firstSlot, 2U);
    EXPECT_EQ(inner.lastSlot, 3U);
    EXPECT_EQ(outer.firstSlot, 1U);
    EXPECT_EQ(outer.lastSlot, 3U);
    EXPECT_EQ(scopes.slotCount(), 3U);
}

} // namespace
} // namespace host::mel
