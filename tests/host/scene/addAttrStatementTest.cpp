#include "host/scene/addAttrStatement.h"

#include "OpenedScene.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace host {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct RefusedRow {
    const char* name;
    const char* statement;
    const char* warning;
};

class RefusedAttribute : public testing::TestWithParam<RefusedRow> {};

TEST_P(RefusedAttribute, IsTold) {
    OpenedScene opened(std::string("createNode transform -n \"a\";\n") + GetParam().statement);
    EXPECT_EQ(opened.result.error, "");
    EXPECT_THAT(opened.warnings, ElementsAre(GetParam().warning));
}

INSTANTIATE_TEST_SUITE_P(
    All, RefusedAttribute,
    testing::Values(RefusedRow{"WithoutName", "addAttr -at \"bool\";", "s.ma(3): an attribute needs a name"},
                    RefusedRow{"IllegalName", "addAttr -ln \"a b\" -at \"bool\";",
                               "s.ma(3): attribute name 'a b' is not legal"},
                    RefusedRow{"UnknownType", "addAttr -ln \"x\" -at \"quaternion\";",
                               "s.ma(3): unknown attribute type 'quaternion'"},
                    RefusedRow{"NoType", "addAttr -ln \"x\";", "s.ma(3): unknown attribute type ''"},
                    RefusedRow{"NoSuchParent", "addAttr -ln \"x\" -at \"bool\" -p \"gone\";",
                               "s.ma(3): no compound attribute 'gone' to add 'x' to"},
                    RefusedRow{"ParentThatIsNoCompound",
                               "addAttr -ln \"y\" -at \"bool\";\naddAttr -ln \"x\" -at \"bool\" -p \"y\";",
                               "s.ma(4): no compound attribute 'y' to add 'x' to"}),
    [](const auto& row) { return row.param.name; });

struct TypeRow {
    const char* name;
    const char* statement; // of the attribute "x"
    AttrKind kind;
    double defaultNumber; // internal
};

class AddedAttribute : public testing::TestWithParam<TypeRow> {};

TEST_P(AddedAttribute, HasItsKindAndDefault) {
    OpenedScene opened(std::string("createNode transform -n \"a\";\n") + GetParam().statement);
    ASSERT_EQ(opened.result.error, "");
    EXPECT_THAT(opened.warnings, IsEmpty());
    const Node* node = opened.node("a");
    const AttrIndex attr = node->findAttribute("x");
    ASSERT_NE(attr, kNoAttr);
    EXPECT_EQ(node->attribute(attr).kind, GetParam().kind);
    EXPECT_TRUE(node->attribute(attr).dynamic);
    EXPECT_NEAR(node->attribute(attr).defaultNumber, GetParam().defaultNumber, 1e-12);
}

INSTANTIATE_TEST_SUITE_P(
    All, AddedAttribute,
    testing::Values(
        TypeRow{"Bool", "addAttr -ci true -sn \"x\" -ln \"xLong\" -min 0 -max 1 -at \"bool\";", AttrKind::kBool, 0},
        TypeRow{"BoolWithWord", "addAttr -ln \"x\" -at \"bool\" -dv yes;", AttrKind::kBool, 1},
        TypeRow{"Long", "addAttr -ln \"x\" -at \"long\" -dv 7;", AttrKind::kInt, 7},
        TypeRow{"Short", "addAttr -ln \"x\" -at \"short\";", AttrKind::kShort, 0},
        TypeRow{"Byte", "addAttr -ln \"x\" -at \"byte\";", AttrKind::kByte, 0},
        TypeRow{"Char", "addAttr -ln \"x\" -at \"char\";", AttrKind::kChar, 0},
        TypeRow{"Float", "addAttr -ln \"x\" -at \"float\" -dv 0.5;", AttrKind::kFloat, 0.5},
        TypeRow{"Double", "addAttr -is true -k true -ln \"x\" -dv 1e-3 -smn 0 -smx 1 -at \"double\";",
                AttrKind::kDouble, 1e-3},
        TypeRow{"Angle", "addAttr -ln \"x\" -at \"doubleAngle\" -dv 180;", AttrKind::kAngle, 3.14159265358979},
        TypeRow{"FloatAngle", "addAttr -ln \"x\" -at \"floatAngle\";", AttrKind::kAngle, 0},
        TypeRow{"Linear", "addAttr -ln \"x\" -at \"doubleLinear\" -dv 3;", AttrKind::kDistance, 3},
        TypeRow{"Time", "addAttr -ln \"x\" -at \"time\" -dv 24;", AttrKind::kTime, kTicksPerSecond},
        TypeRow{"Matrix", "addAttr -ln \"x\" -dt \"matrix\";", AttrKind::kMatrix, 0},
        TypeRow{"FloatMatrix", "addAttr -ln \"x\" -at \"fltMatrix\";", AttrKind::kMatrix, 0},
        TypeRow{"Message", "addAttr -s false -ci true -sn \"x\" -ln \"x\" -at \"message\";", AttrKind::kMessage, 0},
        TypeRow{"String", "addAttr -ci true -h true -sn \"x\" -ln \"x\" -dt \"string\";", AttrKind::kString, 0},
        TypeRow{"Generic", "addAttr -ln \"x\" -at \"generic\";", AttrKind::kGeneric, 0},
        TypeRow{"StringArray", "addAttr -ln \"x\" -dt \"stringArray\";", AttrKind::kData, 0},
        TypeRow{"DataOfAPlugIn", "addAttr -ln \"x\" -dt \"zebraData\";", AttrKind::kData, 0},
        TypeRow{
            "LongFlags",
            "addAttr -cachedInternally true -hidden true -shortName \"x\" -longName \"xLong\" -attributeType \"bool\";",
            AttrKind::kBool, 0},
        TypeRow{"FlagsWithoutMeaning", "addAttr -ln \"x\" -bt \"UNKN\" -dcb 0 -ct \"cat\" -at \"double\";",
                AttrKind::kDouble, 0}),
    [](const auto& row) { return row.param.name; });

TEST(AddAttr, FlagsBecomeProperties) {
    OpenedScene opened("createNode transform -n \"a\";\naddAttr -k true -h true -r false -w false -s false -m -im "
                       "false -uac -uaf true "
                       "-nn \"Nice one\" -sn \"x\" -ln \"xLong\" -min -1 -max 2.5 -smn -0.5 -smx 1 -at \"double\";\n");
    ASSERT_EQ(opened.result.error, "");
    const Node* node = opened.node("a");
    const Attribute& x = node->attribute(node->findAttribute("x"));
    EXPECT_EQ(x.longName, "xLong");
    EXPECT_EQ(x.niceName, "Nice one");
    EXPECT_EQ(x.fileType, "double");
    EXPECT_TRUE(x.keyable && x.hidden && x.array && x.usedAsColor && x.usedAsFilename);
    EXPECT_FALSE(x.readable || x.writable || x.storable || x.indexMatters);
    EXPECT_EQ(x.minimum, -1.0);
    EXPECT_EQ(x.maximum, 2.5);
    EXPECT_EQ(x.softMinimum, -0.5);
    EXPECT_EQ(x.softMaximum, 1.0);
}

TEST(AddAttr, EnumLabelsCountOn) {
    OpenedScene opened(
        "createNode transform -n \"a\";\naddAttr -ln \"x\" -dv 5 -min 0 -max 7 -en \"A:B=5:C:D=1\" -at \"enum\";\n");
    ASSERT_EQ(opened.result.error, "");
    const Node* node = opened.node("a");
    const Attribute& x = node->attribute(node->findAttribute("x"));
    ASSERT_EQ(x.labels.size(), 4U);
    EXPECT_EQ(x.labels[0].label, "A");
    EXPECT_EQ(x.labels[1].label, "B");
    const auto value = [&](std::size_t at) { return x.labels[at].value; };
    EXPECT_THAT((std::vector<int>{value(0), value(1), value(2), value(3)}), ElementsAre(0, 5, 6, 1));
    EXPECT_EQ(opened.number("a.x"), 5.0);
}

// The short name is that of an attribute which every transform has; the long one stands for both then.
TEST(AddAttr, CompoundsAreFollowedByTheirChildren) {
    OpenedScene opened(
        "createNode transform -n \"a\";\naddAttr -ci true -sn \"c\" -ln \"color\" -uac -at \"float3\" -nc 3;\n"
        "addAttr -ci true -sn \"cr\" -ln \"colorR\" -at \"float\" -p \"color\";\n"
        "addAttr -ci true -sn \"cg\" -ln \"colorG\" -at \"float\" -p \"color\";\n"
        "addAttr -ci true -sn \"cb\" -ln \"colorB\" -at \"float\" -p \"color\";\n"
        "\tsetAttr \".color\" -type \"float3\" 0.25 0.5 1 ;\n\tsetAttr \".cg\" 0.75;\n");
    ASSERT_EQ(opened.result.error, "");
    EXPECT_THAT(opened.warnings, IsEmpty());
    EXPECT_THAT(opened.numbers("a.color"), ElementsAre(0.25, 0.75, 1));
    EXPECT_EQ(opened.node("a")->attribute(opened.node("a")->findAttribute("c")).longName, "center");
}

TEST(AddAttr, MultiCompound) {
    OpenedScene opened(
        "createNode transform -n \"a\";\naddAttr -ln \"list\" -at \"compound\" -m -nc 2;\n"
        "addAttr -ln \"key\" -dt \"string\" -p \"list\";\naddAttr -ln \"num\" -at \"long\" -p \"list\";\n"
        "\tsetAttr \".list[3].key\" -type \"string\" \"k\";\n\tsetAttr \".list[3].num\" 9;\n");
    ASSERT_EQ(opened.result.error, "");
    EXPECT_THAT(opened.warnings, IsEmpty());
    EXPECT_EQ(opened.text("a.list[3].key"), "k");
    EXPECT_EQ(opened.number("a.list[3].num"), 9.0);
}

// A chain of compounds as long as the file would end in as many nested calls.
TEST(AddAttr, CompoundsWithinCompoundsEndSomewhere) {
    std::string text = "createNode transform -n \"a\";\naddAttr -ln \"x0\" -at \"compound\" -nc 1;\n";
    for (int level = 1; level < 100000; ++level) {
        const std::string name = "x" + std::to_string(level);
        text += "addAttr -ln \"" + name + "\" -at \"compound\" -nc 1 -p \"x" + std::to_string(level - 1) + "\";\n";
    }
    OpenedScene opened(text + "setAttr \".x0\" 1;\n");
    EXPECT_EQ(opened.result.error, "");
    ASSERT_FALSE(opened.warnings.empty());
    EXPECT_EQ(opened.warnings.front(), "s.ma(36): attribute 'x33' would lie in too many compounds");
}

TEST(AddAttr, NumbersInOneDataTypeKeepTheirValue) {
    OpenedScene opened("createNode transform -n \"a\";\naddAttr -ln \"x\" -dt \"double3\";\n\tsetAttr \".x\" -type "
                       "\"double3\" 1 2 3 ;\n");
    ASSERT_EQ(opened.result.error, "");
    EXPECT_THAT(opened.numbers("a.x"), ElementsAre(1, 2, 3));
}

TEST(AddAttr, AttributeOfTheTypeStaysAsItIs) {
    OpenedScene opened(
        "createNode transform -n \"a\";\naddAttr -ln \"visibility\" -at \"double\";\n\tsetAttr \".v\" no;\n");
    ASSERT_EQ(opened.result.error, "");
    EXPECT_THAT(opened.warnings, IsEmpty());
    EXPECT_FALSE(opened.node("a")->attribute(opened.node("a")->findAttribute("visibility")).dynamic);
}

TEST(AddAttr, NodesNamedInTheStatement) {
    OpenedScene opened(
        "createNode transform -n \"a\";\ncreateNode transform -n \"b\";\naddAttr -ln \"x\" -at \"long\" \"a\";\n");
    ASSERT_EQ(opened.result.error, "");
    EXPECT_NE(opened.node("a")->findAttribute("x"), kNoAttr);
    EXPECT_EQ(opened.node("b")->findAttribute("x"), kNoAttr);
}

TEST(AddAttr, UnknownNodesKeepWhatIsAdded) {
    OpenedScene opened("createNode flux -n \"f\";\naddAttr -ln \"x\" -at \"long\";\n\tsetAttr \".x\" 4;\n"
                       "createNode transform -n \"a\";\nconnectAttr \"f.x\" \"a.tx\";\n");
    ASSERT_EQ(opened.result.error, "");
    EXPECT_EQ(opened.number("a.tx"), 4.0);
}

} // namespace

} // namespace host
