#include "TinyTypes.h"

#include <limits>

using namespace host;

namespace {

using GraphValuesTest = TinyScene;

DataPtr dataOf(DataKind kind) {
    return std::make_shared<const Data>(kind);
}

} // namespace

TEST_F(GraphValuesTest, RefusesWhatAPlugCannotHold) {
    Node& h = make("holder", "h");
    Node& a = make("adder", "a");
    const Matrix44 matrix;
    EXPECT_EQ(graph.setNumber({}, 1.0).error, "There is no such plug to set");
    EXPECT_EQ(graph.setNumber(plug(h, "nothing"), 1.0).error, "There is no such plug to set");
    EXPECT_EQ(graph.setNumber(plug(h, "text"), 1.0).error, "h.text does not hold a number");
    EXPECT_EQ(graph.setNumber(plug(h, "translate"), 1.0).error, "h.translate does not hold a number");
    EXPECT_EQ(graph.setNumber(plug(h, "numbers"), 1.0).error, "h.numbers does not hold a number");
    EXPECT_EQ(graph.setNumber(plug(h, "weightList[1].weights"), 1.0).error,
              "h.weightList[1].weights does not hold a number");
    EXPECT_EQ(graph.setString(plug(h, "real"), "x").error, "h.real does not hold a string");
    EXPECT_EQ(graph.setMatrix(plug(h, "mesh"), matrix).error, "h.mesh does not hold a matrix");
    EXPECT_EQ(graph.setData(plug(h, "mesh"), dataOf(DataKind::kNurbsCurve)).error,
              "h.mesh does not hold this kind of data");
    EXPECT_EQ(graph.setNumber(plug(h, "fixed"), 1.0).error, "h.fixed cannot be set");
    EXPECT_EQ(graph.setNumber(plug(a, "sum"), 1.0).error, "a.sum cannot be set");
}

TEST_F(GraphValuesTest, NegativeElementsDoNotExist) {
    Node& h = make("holder", "h");
    Plug element = plug(h, "numbers[0]");
    element.at.index[0] = -3;
    EXPECT_EQ(graph.setNumber(element, 1.0).error, "h.numbers[-3] does not hold a number");
    EXPECT_EQ(graph.number(element), 0.0);
    EXPECT_FALSE(graph.hasStored(element));
}

TEST_F(GraphValuesTest, RefusesLockedConnectedAndComputedPlugs) {
    Node& h = make("holder", "h");
    Node& a = make("adder", "a");
    PlugFlags locked;
    locked.locked = true;
    graph.setFlags(plug(h, "translate"), locked);
    EXPECT_EQ(graph.setNumber(plug(h, "ty"), 1.0).error, "h.translateY is locked");
    connect(h, "real", h, "length");
    EXPECT_EQ(graph.setNumber(plug(h, "length"), 1.0).error, "h.length is connected");
    connect(a, "r", a, "v");
    EXPECT_EQ(graph.setNumber(plug(a, "vX"), 1.0).error, "a.vX is connected");
    EXPECT_EQ(graph.isFreeToChange(plug(a, "sum")).error, "a.sum is computed");
    EXPECT_TRUE(graph.isFreeToChange(plug(h, "real")).ok());
}

TEST_F(GraphValuesTest, WhatIsNotSetHasItsDefault) {
    Node& h = make("holder", "h");
    EXPECT_EQ(number(h, "ratio"), 0.5);
    EXPECT_EQ(graph.string(plug(h, "text")), "");
    EXPECT_EQ(graph.matrix(plug(h, "frame")), Matrix44());
    EXPECT_EQ(graph.data(plug(h, "mesh")), nullptr);
    EXPECT_EQ(number(h, "points[1000000].pointsX"), 0.0);
    EXPECT_EQ(graph.stored(plug(h, "ratio")), nullptr);
    EXPECT_FALSE(graph.hasStored(plug(h, "ratio")));
}

TEST_F(GraphValuesTest, KeepsValuesOfEveryKind) {
    Node& h = make("holder", "h");
    set(h, "whole", -7.9);
    set(h, "flag", 3.0);
    set(h, "angle", 1.25);
    EXPECT_EQ(number(h, "whole"), -7.0);
    EXPECT_EQ(number(h, "flag"), 1.0);
    EXPECT_EQ(number(h, "angle"), 1.25);
    EXPECT_EQ(graph.setString(plug(h, "text"), "words").error, "");
    EXPECT_EQ(graph.string(plug(h, "text")), "words");
    const Matrix44 moved = Matrix44().translate(Imath::V3d(1.0, 2.0, 3.0));
    EXPECT_EQ(graph.setMatrix(plug(h, "matrices[4]"), moved).error, "");
    EXPECT_EQ(graph.matrix(plug(h, "matrices[4]")), moved);
    EXPECT_EQ(graph.matrix(plug(h, "matrices[3]")), Matrix44());
    const DataPtr mesh = dataOf(DataKind::kMesh);
    EXPECT_EQ(graph.setData(plug(h, "mesh"), mesh).error, "");
    EXPECT_EQ(graph.data(plug(h, "mesh")), mesh);
    EXPECT_EQ(graph.setData(plug(h, "mesh"), nullptr).error, "");
    EXPECT_EQ(graph.data(plug(h, "mesh")), nullptr);
}

TEST_F(GraphValuesTest, AGenericPlugHoldsWhatWasSetLast) {
    Node& h = make("holder", "h");
    set(h, "any", 2.5);
    EXPECT_EQ(number(h, "any"), 2.5);
    EXPECT_EQ(graph.setString(plug(h, "any"), "x").error, "");
    EXPECT_EQ(graph.string(plug(h, "any")), "x");
    EXPECT_EQ(number(h, "any"), 0.0);
    EXPECT_EQ(graph.setData(plug(h, "any"), dataOf(DataKind::kLattice)).error, "");
    EXPECT_EQ(graph.string(plug(h, "any")), "");
    EXPECT_NE(graph.data(plug(h, "any")), nullptr);
}

TEST_F(GraphValuesTest, AnotherKindThanAskedForGivesNothing) {
    Node& h = make("holder", "h");
    set(h, "real", 2.5);
    EXPECT_EQ(graph.string(plug(h, "real")), "");
    EXPECT_EQ(graph.matrix(plug(h, "real")), Matrix44());
    EXPECT_EQ(graph.data(plug(h, "real")), nullptr);
    EXPECT_EQ(number(h, "text"), 0.0);
    EXPECT_EQ(number(h, "translate"), 0.0);
    EXPECT_EQ(graph.number({}), 0.0);
    EXPECT_EQ(graph.string({}), "");
}

TEST_F(GraphValuesTest, ElementsAreSparseAndNested) {
    Node& h = make("holder", "h");
    set(h, "weightList[2000000000].weights[3]", 0.25);
    set(h, "weightList[5].weights[2147483647]", 0.75);
    EXPECT_EQ(number(h, "weightList[2000000000].weights[3]"), 0.25);
    EXPECT_EQ(number(h, "weightList[5].weights[2147483647]"), 0.75);
    EXPECT_EQ(number(h, "weightList[5].weights[3]"), 0.0);
    EXPECT_EQ(graph.elementIndices(plug(h, "weightList")), (std::vector<std::int32_t>{5, 2000000000}));
    EXPECT_EQ(graph.elementIndices(plug(h, "weightList[5].weights")), std::vector<std::int32_t>{2147483647});
    set(h, "colorEntryList[3].colourG", 0.5);
    EXPECT_EQ(number(h, "colorEntryList[3].colour.colourG"), 0.5);
    EXPECT_EQ(graph.setString(plug(h, "texts[9]"), "nine").error, "");
    EXPECT_EQ(graph.string(plug(h, "texts[9]")), "nine");
    EXPECT_TRUE(graph.hasStored(plug(h, "weightList[5].weights[2147483647]")));
    EXPECT_FALSE(graph.hasStored(plug(h, "weightList[5].weights[0]")));
}

TEST_F(GraphValuesTest, AHugeIndexTakesTheMemoryOfOneElement) {
    Node& h = make("holder", "h");
    set(h, "points[2000000000].pointsY", 1.5);
    const NumberRows* rows = graph.storedRows(plug(h, "points"));
    ASSERT_NE(rows, nullptr);
    EXPECT_EQ(rows->rowCount(), 1U);
    EXPECT_LE(rows->floats().capacity(), 16U);
    EXPECT_EQ(number(h, "points[2000000000].pointsX"), 0.0);
    EXPECT_EQ(number(h, "points[2000000000].pointsY"), 1.5);
}

TEST_F(GraphValuesTest, RowsAreWrittenInBulk) {
    Node& h = make("holder", "h");
    NumberRows& rows = graph.rowsForWriting(plug(h, "points"));
    EXPECT_EQ(rows.width(), 3);
    EXPECT_EQ(rows.storage(), NumberRows::Storage::kFloat);
    const std::size_t place = rows.appendDense(0, 2);
    ASSERT_EQ(place, 0U);
    rows.floats()[4] = 2.5F;
    graph.changed(plug(h, "points"));
    EXPECT_EQ(number(h, "points[1].pointsY"), 2.5);
    EXPECT_EQ(&graph.rowsForWriting(plug(h, "points")), &rows);
    EXPECT_EQ(graph.rowsForWriting(plug(h, "numbers")).storage(), NumberRows::Storage::kInt);
    EXPECT_EQ(graph.rowsForWriting(plug(h, "weightList[1].weights")).storage(), NumberRows::Storage::kDouble);
    EXPECT_EQ(graph.storedRows(plug(h, "texts")), nullptr);
}

TEST_F(GraphValuesTest, NewRowsHoldTheDefaultsOfTheirColumns) {
    Node& h = make("holder", "h");
    Attribute list;
    list.longName = "list";
    list.kind = AttrKind::kCompound;
    list.array = true;
    const AttrIndex parent = h.addAttribute(list);
    for (const auto& [name, value] : {std::pair{"one", 1.0}, std::pair{"two", 2.0}}) {
        Attribute child;
        child.longName = name;
        child.kind = AttrKind::kFloat;
        child.parent = parent;
        child.defaultNumber = value;
        ASSERT_NE(h.addAttribute(child), kNoAttr);
    }
    set(h, "list[3].one", 9.0);
    EXPECT_EQ(number(h, "list[3].one"), 9.0);
    EXPECT_EQ(number(h, "list[3].two"), 2.0);
    EXPECT_EQ(number(h, "list[4].two"), 2.0);
}

TEST_F(GraphValuesTest, NotANumberIsKeptWhereItFits) {
    Node& h = make("holder", "h");
    set(h, "real", std::numeric_limits<double>::quiet_NaN());
    set(h, "whole", std::numeric_limits<double>::quiet_NaN());
    EXPECT_NE(number(h, "real"), number(h, "real"));
    EXPECT_EQ(number(h, "whole"), 0.0);
}
