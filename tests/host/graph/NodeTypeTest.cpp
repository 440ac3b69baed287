#include "TinyTypes.h"

using namespace host;

namespace {

Attribute named(std::string longName, std::string shortName, AttrKind kind) {
    Attribute attribute;
    attribute.longName = std::move(longName);
    attribute.shortName = std::move(shortName);
    attribute.kind = kind;
    return attribute;
}

using NodeTypeTest = TinyScene;

} // namespace

TEST_F(NodeTypeTest, UnknownNamesAreNotFound) {
    EXPECT_EQ(types.find("nothing"), nullptr);
    EXPECT_EQ(types.find("adder")->find("nothing"), kNoAttr);
    EXPECT_EQ(types.find("adder")->find(""), kNoAttr);
}

TEST_F(NodeTypeTest, AttributesAreFoundByBothNamesAtAnyLevel) {
    const NodeType& holder = *types.find("holder");
    EXPECT_EQ(holder.find("translateX"), holder.find("tx"));
    EXPECT_EQ(holder.attributes()[static_cast<std::size_t>(holder.find("gid"))].longName, "objectGroupId");
}

TEST_F(NodeTypeTest, CompoundsKnowTheirChildrenAndArraysTheirDepth) {
    const NodeType& holder = *types.find("holder");
    const auto attribute = [&](const char* name) {
        return holder.attributes()[static_cast<std::size_t>(holder.find(name))];
    };
    EXPECT_EQ(attribute("translate").children,
              (std::vector<AttrIndex>{holder.find("tx"), holder.find("ty"), holder.find("tz")}));
    EXPECT_EQ(attribute("translate").arrayDepth, 0);
    EXPECT_EQ(attribute("weightList").arrayDepth, 1);
    EXPECT_EQ(attribute("weights").arrayDepth, 2);
    EXPECT_EQ(attribute("objectGroupId").arrayDepth, 2);
    EXPECT_EQ(attribute("colourR").arrayDepth, 1);
}

TEST_F(NodeTypeTest, OnlyArraysOfPlainNumbersAreRows) {
    const NodeType& holder = *types.find("holder");
    const std::pair<const char*, bool> cases[] = {{"points", true},   {"pointsX", false},       {"numbers", true},
                                                  {"texts", false},   {"matrices", false},      {"weightList", false},
                                                  {"weights", true},  {"objectGroups", false},  {"translate", false},
                                                  {"members", false}, {"colorEntryList", false}};
    for (const auto& [name, rows] : cases) {
        EXPECT_EQ(holder.attributes()[static_cast<std::size_t>(holder.find(name))].rows, rows) << name;
    }
}

TEST_F(NodeTypeTest, ChildrenOfAComputedCompoundAreComputed) {
    const NodeType& adder = *types.find("adder");
    EXPECT_TRUE(adder.attributes()[static_cast<std::size_t>(adder.find("rY"))].computed);
    EXPECT_EQ(adder.outputs(), (std::vector<AttrIndex>{adder.find("sum"), adder.find("twice"), adder.find("r")}));
    EXPECT_TRUE(adder.worldOutputs().empty());
    EXPECT_EQ(types.find("group")->worldOutputs(), (std::vector<AttrIndex>{types.find("group")->find("place")}));
}

TEST_F(NodeTypeTest, InputsAffectWhatTheTableSays) {
    const NodeType& adder = *types.find("adder");
    using Outputs = std::vector<AttrIndex>;
    EXPECT_EQ(adder.outputsAffectedBy(adder.find("in2")), Outputs{adder.find("sum")});
    EXPECT_EQ(adder.outputsAffectedBy(adder.find("bentZ")), Outputs{adder.find("r")}); // the compound's entry
    EXPECT_EQ(adder.outputsAffectedBy(adder.find("note")), Outputs{});
    EXPECT_EQ(adder.outputsAffectedBy(static_cast<AttrIndex>(adder.attributes().size())), Outputs{}); // a dynamic one
    const NodeType& clock = *types.find("clock");
    EXPECT_EQ(clock.outputsAffectedBy(clock.find("offset")), Outputs{clock.find("output")}); // no entry: all
}

TEST_F(NodeTypeTest, ADerivedTypeBehavesLikeItsParent) {
    const NodeType& clock = *types.find("clock");
    NodeType derived("alarm", &clock, 5);
    const AttrIndex own = derived.add(named("ring", "ri", AttrKind::kBool));
    EXPECT_EQ(own, static_cast<AttrIndex>(clock.attributes().size()));
    EXPECT_EQ(derived.find("offset"), clock.find("offset"));
    EXPECT_EQ(derived.compute, clock.compute);
    EXPECT_TRUE(derived.timeDriven);
    EXPECT_EQ(derived.timeInput, clock.timeInput);
    EXPECT_TRUE(derived.isKindOf(clock));
    EXPECT_TRUE(derived.isKindOf("clock"));
    EXPECT_FALSE(clock.isKindOf("alarm"));
    EXPECT_EQ(NodeType("lid", types.find("group"), 0).dagRole, DagRole::kTransform);
}

TEST_F(NodeTypeTest, AnUnknownTypeHoldsWhatItsBaseHolds) {
    const NodeType& made = types.addUnknown("wobbler", "group");
    EXPECT_FALSE(made.known);
    EXPECT_EQ(made.dagRole, DagRole::kTransform);
    EXPECT_NE(made.find("shift"), kNoAttr);
    EXPECT_EQ(types.find("wobbler"), &made);
    EXPECT_EQ(&types.addUnknown("wobbler", "shape"), &made);
    EXPECT_TRUE(types.addUnknown("orphan", "no such base").attributes().empty());
}

TEST_F(NodeTypeTest, OfTwoEqualNamesTheFirstCounts) {
    NodeType type("twins", nullptr, 0);
    const AttrIndex first = type.add(named("same", "a", AttrKind::kInt));
    const AttrIndex second = type.add(named("same", "b", AttrKind::kInt));
    EXPECT_EQ(type.find("same"), first);
    EXPECT_EQ(type.find("b"), second);
}
