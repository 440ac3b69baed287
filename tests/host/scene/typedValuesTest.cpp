#include "host/scene/typedValues.h"

#include "OpenedScene.h"

#include "host/geometry/LatticeData.h"
#include "host/geometry/NurbsCurve.h"
#include "host/nodes/characterMapping.h"

#include <gmock/gmock.h>

namespace host {

namespace {

using Imath::V3d;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

struct BrokenValue {
    const char* name;
    std::string statement;
    const char* expected;
};

class BrokenValues : public testing::TestWithParam<BrokenValue> {};

TEST_P(BrokenValues, StopTheFile) {
    OpenedScene opened(GetParam().statement + ";\n");
    EXPECT_THAT(opened.result.error, HasSubstr(GetParam().expected));
}

const std::string kMapping = "createNode character -n \"c\"; setAttr \".am\" -type \"characterMapping\" ";
const std::string kLattice = "createNode lattice -n \"l\"; setAttr \".cc\" -type \"lattice\" ";
const std::string kCurve = "createNode nurbsCurve -n \"n\"; setAttr \".cc\" -type \"nurbsCurve\" ";

INSTANTIATE_TEST_SUITE_P(
    All, BrokenValues,
    testing::Values(BrokenValue{"MappingWithoutCount", kMapping + "\"a\"", "expected a count"},
                    BrokenValue{"MappingThatEnds", kMapping + "2 \"a.tx\" 1 0", "expected the name of a channel"},
                    BrokenValue{"MappingWithoutNumbers", kMapping + "1 \"a.tx\" 1", "expected a number"},
                    BrokenValue{"LatticeWithoutPoints", kLattice + "2 2 2", "expected a count"},
                    BrokenValue{"LatticeThatEnds", kLattice + "2 2 2 8 1 2", "expected a number"},
                    BrokenValue{"LatticeOfOtherSides", kLattice + "2 2 3 1 0 0 0",
                                "expected 2 to 100 points along each side of a lattice, and as many in all"},
                    BrokenValue{"LatticeOfNegativeSides", kLattice + "-2 2 2 8", "expected a count"},
                    BrokenValue{"CurveWithoutHead", kCurve + "3 2", "expected degree, spans, form"},
                    BrokenValue{"CurveOfDegree0", kCurve + "0 1 0 no 3 2 0 1 2 0 0 0 1 0 0",
                                "expected degree, spans, form"},
                    BrokenValue{"CurveThatEnds", kCurve + "1 1 0 no 3 2 0 1 2 0 0 0 1", "expected a number"},
                    BrokenValue{"CurveWithoutWeights", kCurve + "1 1 0 yes 3 2 0 1 2 0 0 0", "expected a number"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(TypedValues, ReadTheChannelsOfACharacter) {
    OpenedScene opened(kMapping + "2 \"leg.rotateZ\" 2 1 \n\t\t\"shape.target\" 0 21  ;\n");
    ASSERT_EQ(opened.result.error, "");
    EXPECT_THAT(opened.warnings, IsEmpty());
    const auto mapping = std::dynamic_pointer_cast<const CharacterMapping>(
        opened.scene.graph().data(opened.scene.findPlug("c.am").plug));
    ASSERT_NE(mapping, nullptr);
    ASSERT_EQ(mapping->channels.size(), 2U);
    EXPECT_EQ(mapping->channels[0].attribute, "leg.rotateZ");
    EXPECT_EQ(mapping->channels[0].kind, ChannelKind::kAngular);
    EXPECT_EQ(mapping->channels[1].kind, ChannelKind::kUnitless);
    EXPECT_EQ(mapping->channels[1].element, 21);
}

TEST(TypedValues, ReadLattices) {
    OpenedScene opened(kLattice + "2 2 2 8 0 0 0 1 0 0 0 2 0 1 2 0 0 0 3 1 0 3 0 2 3 1 2 3;\n");
    ASSERT_EQ(opened.result.error, "");
    const LatticePtr lattice = latticeOf(opened.scene.graph().data(opened.scene.findPlug("l.cc").plug));
    ASSERT_NE(lattice, nullptr);
    EXPECT_EQ(lattice->at(1, 1, 0), V3d(1, 2, 0));
    EXPECT_EQ(lattice->at(0, 1, 1), V3d(0, 2, 3));
}

TEST(TypedValues, ReadCurves) {
    OpenedScene opened(kCurve + "3 2 0 no 3\n\t\t7 0 0 0 1 2 2 2\n\t\t5\n\t\t0 0 0\n\t\t1 0 0\n\t\t2 0 0\n\t\t3 0 0\n"
                                "\t\t4 5 6\n\t\t;\n");
    ASSERT_EQ(opened.result.error, "");
    EXPECT_THAT(opened.warnings, IsEmpty());
    const auto curve = nurbsCurveOf(opened.scene.graph().data(opened.scene.findPlug("n.cc").plug));
    ASSERT_NE(curve, nullptr);
    EXPECT_EQ(curve->degree, 3U);
    EXPECT_EQ(curve->form, CurveForm::kOpen);
    EXPECT_EQ(curve->pointAt(2), V3d(4, 5, 6));
}

TEST(TypedValues, ReadWeightsOfRationalCurves) {
    OpenedScene opened(kCurve + "1 2 2 yes 3 3 0 1 2 3 0 0 0 1 5 0 0 0.5 0 0 0 1;\n");
    ASSERT_EQ(opened.result.error, "");
    const auto curve = nurbsCurveOf(opened.scene.graph().data(opened.scene.findPlug("n.cc").plug));
    ASSERT_NE(curve, nullptr);
    EXPECT_EQ(curve->form, CurveForm::kPeriodic);
    EXPECT_THAT(curve->weights, ElementsAre(1, 0.5, 1));
    EXPECT_EQ(curve->points[1], V3d(5, 0, 0));
}

TEST(TypedValues, KeepCurvesThatTheirNumbersDoNotMakeOutOfUse) {
    OpenedScene opened(kCurve + "3 1 0 no 3 2 0 1 2 0 0 0 1 0 0;\n");
    EXPECT_EQ(opened.result.error, "");
    EXPECT_EQ(nurbsCurveOf(opened.scene.graph().data(opened.scene.findPlug("n.cc").plug)), nullptr);
}

} // namespace

} // namespace host
