// Scenes that are well written and make no sense: nothing loops, nothing takes the memory that a file only claims, and
// what is written can be read.

#include "FinishedProgram.h"
#include "decode/ModelFile.h"
#include "sceneText.h"

#include <gmock/gmock.h>

namespace tvk {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Exports one scene whose place in messages is "@".
struct Exported {
    explicit Exported(const std::string& statements) {
        program.write("scene.ma", sceneOf(statements));
        run = program.run({"scene.ma", "-q"});
        for (std::string line : run.errorLines()) {
            if (const std::size_t at = line.find(program.path("scene.ma")); at != std::string::npos) {
                line.replace(at, program.path("scene.ma").size(), "@");
            }
            lines.push_back(line);
        }
    }
    decode::ModelFile model() const { return decode::readModelFile(program.bytes("scene.imd")); }

    const FinishedProgram program;
    ProgramRun run;
    std::vector<std::string> lines; // of the error output
};

std::string nestedGroups(int count) {
    std::string text = nodeText("transform", "g0", "", "setAttr \".ty\" 1;");
    for (int i = 1; i < count; ++i) {
        text += nodeText("transform", "g" + std::to_string(i), "g" + std::to_string(i - 1), "setAttr \".tx\" 1;");
    }
    return text;
}

class NestedGroups : public testing::TestWithParam<int> {};

TEST_P(NestedGroups, AreExportedWhole) {
    const Exported scene(nestedGroups(GetParam()));
    EXPECT_EQ(scene.run.status, 0);
    EXPECT_THAT(scene.lines, IsEmpty());
    EXPECT_LT(scene.run.peakMegabytes, 600.0) << "of which the sanitizers take the most";
    const decode::ModelFile model = scene.model();
    ASSERT_EQ(model.nodes.size(), static_cast<std::size_t>(GetParam()));
    const decode::ModelNode& last = model.nodes.back();
    EXPECT_EQ(last.name, "g" + std::to_string(GetParam() - 1));
    EXPECT_DOUBLE_EQ(last.world[3][0], GetParam() - 1);
    EXPECT_DOUBLE_EQ(last.world[3][1], 1.0);
}

INSTANTIATE_TEST_SUITE_P(FewAndMany, NestedGroups, testing::Values(100, 2000, 20000));

TEST(CyclicParents, AreToldAndTheRestIsExported) {
    const Exported scene(nodeText("transform", "a") + nodeText("transform", "b", "a") +
                         nodeText("transform", "c", "b") +
                         "parent -s -nc -r -add \"|a\" \"|a|b|c\";\nparent -s -nc -r -add \"|a|b\" \"|a|b\";\n" +
                         nodeText("transform", "d", "c"));
    EXPECT_EQ(scene.run.status, 0);
    EXPECT_THAT(scene.lines, ElementsAre("Warning: @(8): a cannot be placed below itself",
                                         "Warning: @(9): b cannot be placed below itself"));
    EXPECT_THAT(scene.model().names(), ElementsAre("a", "b", "c", "d"));
}

TEST(CyclicConnections, UseTheStoredValuesAndAreTold) {
    const Exported scene(nodeText("transform", "a", "", "setAttr \".tx\" 3;") + nodeText("transform", "b", "a") +
                         "connectAttr \"a.tx\" \"b.tx\";\nconnectAttr \"b.tx\" \"a.tx\";\n");
    EXPECT_EQ(scene.run.status, 0);
    EXPECT_THAT(scene.lines, testing::Contains(testing::MatchesRegex(
                                 "Warning: Cycle in the graph at [ab]\\.translateX \\(its stored value is used\\)")));
    const decode::ModelFile model = scene.model();
    EXPECT_THAT(model.names(), ElementsAre("a", "b"));
    EXPECT_EQ(model.node("a").translate.y, 0.0);
}

TEST(CyclicConnections, OfAMatrixWithItself) {
    const Exported scene(nodeText("transform", "a", "", "setAttr \".tx\" 3;") + nodeText("transform", "b", "a") +
                         "connectAttr \"b.wm\" \"a.opm\";\n");
    EXPECT_EQ(scene.run.status, 0);
    EXPECT_THAT(scene.lines, testing::Each(testing::StartsWith("Warning: Cycle in the graph at ")));
    EXPECT_FALSE(scene.lines.empty());
    EXPECT_THAT(scene.model().names(), ElementsAre("a", "b"));
}

struct Absurd {
    const char* name;
    std::string attributes; // of a mesh
    std::string error;      // what the export ends with; @ stands for the scene
};

void PrintTo(const Absurd& row, std::ostream* out) {
    *out << row.name;
}

class AbsurdSize : public testing::TestWithParam<Absurd> {};

TEST_P(AbsurdSize, TakesNeitherMemoryNorTime) {
    const Exported scene(nodeText("transform", "a") + nodeText("mesh", "aShape", "a", GetParam().attributes));
    EXPECT_LT(scene.run.peakMegabytes, 300.0); // of which the sanitizers take the most
    EXPECT_EQ(scene.run.status, 1);
    ASSERT_FALSE(scene.lines.empty());
    EXPECT_EQ(scene.lines.back(), "Error: " + GetParam().error);
    EXPECT_THAT(scene.program.names(), ElementsAre("scene.ma"));
}

constexpr const char* kNoPolygon = "No polygon in mesh node: aShape";

INSTANTIATE_TEST_SUITE_P(
    All, AbsurdSize,
    testing::Values(
        Absurd{"Range", "setAttr \".vt[0:2000000000]\" 0 0 0 1 1 1;", "@:7:41: expected a number, found ';'"},
        Absurd{"SizeFlag", "setAttr -s 2000000000 \".vt[0:1]\" 0 0 0 1 1 1;", kNoPolygon},
        Absurd{"SizeFlagAlone", "setAttr -s 2000000000 \".vt\";", kNoPolygon},
        Absurd{"SizeBeyondIntegers", "setAttr -s 99999999999999999999 \".vt[0]\" 0 0 0;",
               "@:7:13: expected a whole number, found '99999999999999999999'"},
        Absurd{"ChannelFlag", "setAttr -s 1 -ch 2000000000 \".fc[0]\" -type \"polyFaces\" f 3 0 1 2;", kNoPolygon},
        Absurd{"HighElements", "setAttr \".vt[1999999999:2000000000]\" 0 0 0 1 1 1;", kNoPolygon},
        Absurd{"Face", "setAttr \".fc[0]\" -type \"polyFaces\" f 2000000000 0 1 2;",
               "@:7:55: face 0: 1999999997 numbers are missing"}),
    [](const auto& row) { return row.param.name; });

TEST(AbsurdNumbers, BecomeOnesThatAFileCanHold) {
    const std::string huge = "setAttr \".t\" -type \"double3\" 1e999 -1e308 1e300 ;";
    const std::string none = "setAttr \".t\" -type \"double3\" nan 1.#QNAN -1.#IND ; "
                             "setAttr \".r\" -type \"double3\" inf -inf 1.#INF ;";
    const std::string scales = "setAttr \".s\" -type \"double3\" 1e999 1e-320 nan ;";
    const Exported scene(nodeText("transform", "a", "", huge) + nodeText("transform", "b", "a", none) +
                         nodeText("joint", "c", "b", scales) + nodeText("joint", "d", "c", huge + none + scales) +
                         nodeText("transform", "e", "d", "setAttr \".rp\" -type \"double3\" 1e999 nan 1e308 ;") +
                         nodeText("transform", "f", "e", "setAttr \".sh\" -type \"double3\" 1e999 nan 1e308 ;"));
    EXPECT_EQ(scene.run.status, 0);
    const decode::ModelFile model = scene.model(); // refuses what is no number
    EXPECT_THAT(model.names(), ElementsAre("a", "b", "c", "d", "e", "f"));
    const double most = 524288.0; // what 32 bits with 12 behind the point hold
    for (const decode::ModelNode& node : model.nodes) {
        for (const Imath::V3d& values : {node.scale, node.rotate, node.translate}) {
            for (int axis = 0; axis < 3; ++axis) {
                EXPECT_TRUE(values[axis] >= -most && values[axis] <= most) << node.name << ' ' << values;
            }
        }
    }
    EXPECT_EQ(model.node("a").translate.y, -most);
}

} // namespace
} // namespace tvk
