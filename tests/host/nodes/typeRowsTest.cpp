#include "host/nodes/typeRows.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace host {
namespace {

constexpr AttributeRow kBase[] = {{"message", "msg", "message"}};
constexpr TypeRow kBaseTypes[] = {{"base", "", 4, kBase}};

template <std::size_t Count>
std::string refusalOf(const AttributeRow (&rows)[Count]) {
    NodeTypeRegistry types;
    registerRows(types, kBaseTypes);
    const TypeRow type[] = {{"made", "base", 5, rows}};
    try {
        registerRows(types, type);
    } catch (const std::logic_error& error) {
        return error.what();
    }
    return "";
}

TEST(TypeRows, RefuseRowsThatContradictThemselves) {
    constexpr AttributeRow kUnknownKind[] = {{"a", "a", "quaternion"}};
    EXPECT_EQ(refusalOf(kUnknownKind), "node type table: made.a: unknown kind");
    constexpr AttributeRow kCountedText[] = {{"a", "a", "string3", "XYZ"}};
    EXPECT_EQ(refusalOf(kCountedText), "node type table: made.a: unknown kind");
    constexpr AttributeRow kTaken[] = {{"a", "b", "double"}, {"c", "b", "double"}};
    EXPECT_EQ(refusalOf(kTaken), "node type table: made.c: the long or the short name is taken");
    constexpr AttributeRow kTakenAbove[] = {{"a", "msg", "double"}};
    EXPECT_EQ(refusalOf(kTakenAbove), "node type table: made.a: the long or the short name is taken");
    constexpr AttributeRow kNameless[] = {{"a", "", "double"}};
    EXPECT_EQ(refusalOf(kNameless), "node type table: made.a: a name is missing");
    constexpr AttributeRow kOrphan[] = {{".a", "a", "double"}};
    EXPECT_EQ(refusalOf(kOrphan), "node type table: made..a: no compound to belong to");
    constexpr AttributeRow kChildOfNumber[] = {{"a", "a", "double"}, {".b", "b", "double"}};
    EXPECT_EQ(refusalOf(kChildOfNumber), "node type table: made.b: its parent is no compound");
    constexpr AttributeRow kTooFewChildren[] = {{"a", "a", "double3", "XY"}};
    EXPECT_EQ(refusalOf(kTooFewChildren), "node type table: made.a: as many children are wanted as its kind counts");
}

TEST(TypeRows, RefuseTypesWithoutParentAndTypesRegisteredTwice) {
    NodeTypeRegistry types;
    registerRows(types, kBaseTypes);
    constexpr TypeRow kOrphan[] = {{"made", "missing", 5}};
    EXPECT_THROW(registerRows(types, kOrphan), std::logic_error);
    EXPECT_THROW(registerRows(types, kBaseTypes), std::logic_error);
    EXPECT_EQ(types.all().size(), 1U);
}

constexpr AttributeRow kForms[] = {
    {"place", "p", "distance3", "XYZ", {1, 2, 3}, row::kKeyable},
    {"turn", "t", "angle3", "XYZ=tt", 180},
    {"slant", "s", "double3", "slantXY sxy slantXZ sxz slantYZ syz"},
    {"mode", "m", "enum", {}, 0, 0, "Off:On=4:Auto"},
    {"list", "l", "compound", {}, 0, row::kArray},
    {".entry", "e", "compound", {}, 0, row::kArray},
    {"..weight", "w", "float", {}, 1, row::kArray},
    {".name", "n", "string"},
    {"outMatrix", "om", "matrix", {}, 0, row::kWorld | row::kComputed},
};
constexpr TypeRow kFormTypes[] = {{"base", "", 4, kBase}, {"forms", "base", 5, kForms}};

class TypeRowForms : public ::testing::Test {
protected:
    TypeRowForms() {
        registerRows(types, kFormTypes);
        type = types.find("forms");
    }
    const Attribute& at(const char* name) {
        const AttrIndex index = type->find(name);
        EXPECT_NE(index, kNoAttr) << name;
        return type->attributes()[static_cast<std::size_t>(index == kNoAttr ? 0 : index)];
    }

    NodeTypeRegistry types;
    const NodeType* type = nullptr;
};

TEST_F(TypeRowForms, CountedKindsBecomeACompoundWithItsNumbers) {
    const Attribute& place = at("p");
    EXPECT_EQ(place.kind, AttrKind::kCompound);
    EXPECT_EQ(place.fileType, "double3");
    EXPECT_TRUE(place.keyable);
    ASSERT_EQ(place.children.size(), 3U);
    const Attribute& y = type->attributes()[static_cast<std::size_t>(place.children[1])];
    EXPECT_EQ(y.longName, "placeY");
    EXPECT_EQ(y.shortName, "py");
    EXPECT_EQ(y.kind, AttrKind::kDistance);
    EXPECT_EQ(y.fileType, "doubleLinear");
    EXPECT_EQ(y.defaultNumber, 2.0);
    EXPECT_TRUE(y.keyable);
}

TEST_F(TypeRowForms, ChildNamesComeFromLettersStemsOrAList) {
    EXPECT_EQ(at("turnZ").shortName, "ttz");
    EXPECT_EQ(at("slantXZ").shortName, "sxz");
    EXPECT_EQ(at("sxy").longName, "slantXY");
}

TEST_F(TypeRowForms, AnglesAreGivenInDegreesAndHeldInRadians) {
    EXPECT_DOUBLE_EQ(at("turnX").defaultNumber, 3.141592653589793);
}

TEST_F(TypeRowForms, EnumLabelsCountOnFromTheLastNumber) {
    const std::vector<EnumLabel>& labels = at("mode").labels;
    ASSERT_EQ(labels.size(), 3U);
    EXPECT_EQ(labels[0].value, 0);
    EXPECT_EQ(labels[1].label, "On");
    EXPECT_EQ(labels[1].value, 4);
    EXPECT_EQ(labels[2].value, 5);
}

TEST_F(TypeRowForms, DotsNestCompounds) {
    EXPECT_EQ(at("entry").parent, type->find("list"));
    EXPECT_EQ(at("weight").parent, type->find("entry"));
    EXPECT_EQ(at("name").parent, type->find("list"));
    EXPECT_EQ(at("weight").arrayDepth, 3);
    EXPECT_TRUE(at("weight").rows);
}

TEST_F(TypeRowForms, ComputedAttributesCannotBeSetOrStored) {
    const Attribute& output = at("outMatrix");
    EXPECT_TRUE(output.computed);
    EXPECT_TRUE(output.array);
    EXPECT_TRUE(output.worldSpace);
    EXPECT_FALSE(output.writable);
    EXPECT_FALSE(output.storable);
}

} // namespace
} // namespace host
