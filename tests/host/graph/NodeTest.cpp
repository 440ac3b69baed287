#include "TinyTypes.h"

using namespace host;

namespace {

Attribute dynamicAttribute(std::string longName, std::string shortName, AttrKind kind, AttrIndex parent = kNoAttr,
                           bool array = false) {
    Attribute attribute;
    attribute.longName = std::move(longName);
    attribute.shortName = std::move(shortName);
    attribute.kind = kind;
    attribute.parent = parent;
    attribute.array = array;
    return attribute;
}

using NodeTest = TinyScene;

} // namespace

TEST_F(NodeTest, RefusesDynamicAttributesThatCannotBe) {
    Node& node = make("adder", "a");
    const AttrIndex ours = node.addAttribute(dynamicAttribute("ours", "ou", AttrKind::kDouble));
    ASSERT_NE(ours, kNoAttr);
    const AttrIndex count = node.attributeCount();
    const Attribute refused[] = {
        dynamicAttribute("", "x", AttrKind::kInt),
        dynamicAttribute("in1", "x", AttrKind::kInt),
        dynamicAttribute("fresh", "a", AttrKind::kInt), // the short name of in1
        dynamicAttribute("ours", "x", AttrKind::kInt),
        dynamicAttribute("fresh", "ou", AttrKind::kInt),
        dynamicAttribute("fresh", "x", AttrKind::kInt, 9999),
        dynamicAttribute("fresh", "x", AttrKind::kInt, -5),
        dynamicAttribute("fresh", "x", AttrKind::kInt, node.findAttribute("v")), // belongs to the type
        dynamicAttribute("fresh", "x", AttrKind::kInt, ours),                    // is no compound
    };
    for (const Attribute& attribute : refused) {
        EXPECT_EQ(node.addAttribute(attribute), kNoAttr) << attribute.longName << " " << attribute.shortName;
    }
    EXPECT_EQ(node.attributeCount(), count);
}

TEST_F(NodeTest, RefusesArraysNestedDeeperThanAnAddressReaches) {
    Node& node = make("adder", "a");
    AttrIndex parent = kNoAttr;
    for (int level = 0; level < PlugAddress::kMaxDepth; ++level) {
        const std::string name = "level" + std::to_string(level);
        parent = node.addAttribute(dynamicAttribute(name, name + "s", AttrKind::kCompound, parent, true));
        ASSERT_NE(parent, kNoAttr);
    }
    EXPECT_EQ(node.addAttribute(dynamicAttribute("deep", "de", AttrKind::kInt, parent, true)), kNoAttr);
    EXPECT_NE(node.addAttribute(dynamicAttribute("deep", "de", AttrKind::kInt, parent)), kNoAttr);
}

TEST_F(NodeTest, DynamicAttributesStandBehindThoseOfTheType) {
    Node& node = make("adder", "a");
    const auto ofType = static_cast<AttrIndex>(node.type().attributes().size());
    const AttrIndex compound = node.addAttribute(dynamicAttribute("box", "bx", AttrKind::kCompound));
    const AttrIndex child = node.addAttribute(dynamicAttribute("boxWide", "", AttrKind::kDouble, compound));
    EXPECT_EQ(compound, ofType);
    EXPECT_EQ(child, ofType + 1);
    EXPECT_TRUE(node.attribute(child).dynamic);
    EXPECT_EQ(node.attribute(compound).children, std::vector<AttrIndex>{child});
    EXPECT_EQ(node.findAttribute("bx"), compound);
    EXPECT_EQ(node.findAttribute("boxWide"), child);
    EXPECT_EQ(node.findAttribute(""), kNoAttr);
    set(node, "box.boxWide", 4.0);
    EXPECT_EQ(number(node, "boxWide"), 4.0);
    EXPECT_EQ(make("adder", "b").findAttribute("box"), kNoAttr);
}

TEST_F(NodeTest, AliasesNameAttributesThatHaveNoSuchName) {
    Node& node = make("holder", "h");
    const PlugAddress third = graph.findPlug(node, "numbers[3]");
    graph.setAlias(node, "smile", third);
    graph.setAlias(node, "real", third);
    EXPECT_EQ(node.findAttribute("smile"), third.attr);
    EXPECT_EQ(graph.findPlug(node, "smile"), third);
    EXPECT_EQ(graph.findPlug(node, "real").attr, node.type().find("real"));
}

TEST_F(NodeTest, ALateChildOfACompoundArrayDropsWhatTheArrayHeld) {
    Node& node = make("adder", "a");
    const AttrIndex list = node.addAttribute(dynamicAttribute("list", "li", AttrKind::kCompound, kNoAttr, true));
    node.addAttribute(dynamicAttribute("one", "on", AttrKind::kDouble, list));
    set(node, "list[2].one", 1.0);
    ASSERT_EQ(graph.elementIndices(plug(node, "list")), std::vector<std::int32_t>{2});
    node.addAttribute(dynamicAttribute("two", "tw2", AttrKind::kString, list));
    EXPECT_FALSE(node.attribute(list).rows);
    EXPECT_TRUE(graph.elementIndices(plug(node, "list")).empty());
    set(node, "list[2].one", 5.0);
    EXPECT_EQ(graph.setString(plug(node, "list[2].two"), "five").error, "");
    EXPECT_EQ(number(node, "list[2].one"), 5.0);
    EXPECT_EQ(graph.string(plug(node, "list[2].two")), "five");
}

TEST_F(NodeTest, FlagsAreKeptPerPlug) {
    Node& node = make("holder", "h");
    const Plug x = plug(node, "tx");
    EXPECT_EQ(node.flags(x.at), nullptr);
    PlugFlags flags;
    flags.keyable = false;
    graph.setFlags(x, flags);
    ASSERT_NE(node.flags(x.at), nullptr);
    EXPECT_EQ(node.flags(x.at)->keyable, std::optional<bool>(false));
    EXPECT_EQ(node.flags(plug(node, "ty").at), nullptr);
    graph.setFlags(x, {});
    EXPECT_EQ(node.flags(x.at), nullptr);
}
