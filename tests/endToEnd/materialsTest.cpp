// Shaded scenes through the finished program.

#include "FinishedProgram.h"
#include "decode/IntermediateFile.h"
#include "sceneText.h"
#include "shadingText.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace tvk {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;

std::vector<std::string> materialsOf(const FinishedProgram& program, const std::string& file) {
    const decode::FileElement root = decode::readIntermediateFile(program.bytes(file));
    const decode::FileElement* const array = root.find("body")->find("material_array");
    std::vector<std::string> names;
    for (const decode::FileElement& material :
         array == nullptr ? std::vector<decode::FileElement>() : array->children) {
        names.push_back(material.value("name"));
    }
    return names;
}

TEST(MaterialsOfAScene, MergeWhenTheUserWantsIt) {
    const FinishedProgram program;
    program.write("scene.ma",
                  sceneOf(shadingText("phong", "b") + shadingText("phong", "a") + shadingText("lambert", "c") +
                          shadedMesh("m1", "bSG") + shadedMesh("m2", "aSG") + shadedMesh("m3", "cSG")));
    ProgramRun run = program.run({"scene.ma", "-o", "apart"});
    ASSERT_EQ(run.status, 0) << run.error;
    EXPECT_THAT(run.out, HasSubstr("Compress Material\t: None ( 3 )"));
    EXPECT_THAT(materialsOf(program, "apart.imd"), ElementsAre("a", "b", "c"));
    run = program.run({"scene.ma", "-o", "merged", "--set", "compress_material=1"});
    ASSERT_EQ(run.status, 0) << run.error;
    EXPECT_THAT(run.out, HasSubstr("Compress Material\t: Compress Same Material ( 3 -> 2 )"));
    EXPECT_THAT(materialsOf(program, "merged.imd"), ElementsAre("a", "c"));
}

// What a broken or hostile file may connect: everything to itself and to each other, attributes of wrong types, groups
// without anything.
TEST(MaterialsOfAScene, ThatIsTangledAreWarnedOfAndDoNotStopTheExport) {
    const FinishedProgram program;
    const auto text = [](const std::string& name) {
        return "addAttr -ci true -sn \"" + name + "\" -ln \"" + name + "\" -dt \"string\";\n\tsetAttr \"." + name +
               "\" -type \"string\" \"nonsense\";\n\t";
    };
    const std::string tangled =
        shadingText("lambert", "selfish", text("tvk_lighting") + text("tvk_poly_id") + text("tvk_tex_effect_mtx")) +
        connectText("selfish.oc", "selfish.c") + connectText("selfish.oc", "selfish.ambc") +
        shadingText("blinn", "one") + shadingText("blinn", "two") + connectText("one.oc", "two.c") +
        connectText("two.oc", "one.c") + shadingText("lambert", "blended") + nodeText("pairBlend", "blend") +
        connectText("blend.otx", "blend.itx1") + connectText("blend.otx", "blended.cr") +
        shadingText("lambert", "layered") + nodeText("layeredTexture", "layers") +
        connectText("layers.oc", "layers.cs[0].c") + connectText("layers.oc", "layered.c") +
        nodeText("shadingEngine", "emptySG") + shadedMesh("m1", "selfishSG") + shadedMesh("m2", "oneSG") +
        shadedMesh("m3", "twoSG") + shadedMesh("m4", "blendedSG") + shadedMesh("m5", "layeredSG") +
        shadedMesh("m6", "emptySG");
    program.write("scene.ma", sceneOf(tangled));
    const ProgramRun run = program.run({"scene.ma", "-o", "out", "--set", "compress_material=1"});
    ASSERT_EQ(run.status, 0) << run.error;
    EXPECT_THAT(run.errorLines(), Contains("Warning: No shader: emptySG"));
    EXPECT_THAT(run.errorLines(), Contains("Warning: Layered texture is used (use first layer only): layers"));
    EXPECT_THAT(materialsOf(program, "out.imd"), Contains("dummy_material"));
}

} // namespace
} // namespace tvk
