// What scenes of versions 4 to 8.5 have that later ones do not.

#include "SceneFiles.h"

#include "host/geometry/MeshData.h"
#include "host/nodes/meshQueries.h"

#include <gmock/gmock.h>

#include <cmath>

namespace host {

namespace {

using testing::IsEmpty;

// A heading without a codeset, no fileInfo, numbers in feet.
const char* const kOldHeading = "//Maya ASCII 4.0 scene\n//Name: box.ma\n"
                                "//Last modified: Mon, Apr 02, 2001 10:00:00 AM\n"
                                "requires maya \"4.0\";\ncurrentUnit -l foot -a degree -t ntsc;\n";

struct OldScene : OpenedScene {
    explicit OldScene(const std::string& statements) {
        result = scene.openText(kOldHeading + statements, "old.ma");
        EXPECT_EQ(result.error, "");
        EXPECT_THAT(warnings, IsEmpty());
    }
};

TEST(OldScenes, AreInTheirUnitsAndTheirCodePage) {
    OldScene old("createNode transform -n \"box\";\n\tsetAttr \".t\" -type \"float3\" 1 2 3 ;\n"
                 "\tsetAttr \".r\" -type \"float3\" 0 90 0 ;\n"
                 "\taddAttr -ln \"notes\" -dt \"string\";\n\tsetAttr \".notes\" -type \"string\" \"\xE4\";\n");
    EXPECT_EQ(old.scene.units().linearName, "ft");
    EXPECT_NEAR(old.scene.graph().number(old.scene.findPlug("box.tx").plug), 30.48, 1e-12); // centimetres
    EXPECT_EQ(old.numbers("box.t"), (std::vector<double>{1, 2, 3}));
    EXPECT_NEAR(old.number("box.ry"), 90.0, 1e-12);
    EXPECT_EQ(old.text("box.notes"), "\xC3\xA4"); // code page 1252 where nothing is said
}

// A mesh of that time: UVs and colours in single lists of the face, tweaks from end to end, normals of any length.
TEST(OldScenes, MeshesHaveSingleListsAndDenseTweaks) {
    OldScene old("createNode transform -n \"box\";\ncreateNode mesh -n \"boxShape\" -p \"box\";\n"
                 "\tsetAttr -s 4 \".uv[0:3]\" -type \"float2\" 0 0 1 0 1 1 0 1;\n"
                 "\tsetAttr -s 2 \".clr[0:1]\"  1 0 0 1 0 0 1 1;\n"
                 "\tsetAttr -s 4 \".pt[0:3]\" -type \"float3\"  0 0 1  0 0 1  0 0 1  0 0 1 ;\n"
                 "\tsetAttr -s 4 \".vt[0:3]\"  0 0 0 1 0 0 1 1 0 0 1 0;\n"
                 "\tsetAttr -s 4 \".ed[0:3]\"  0 1 0 1 2 0 2 3 0 3 0 0;\n"
                 "\tsetAttr -s 4 \".n[0:3]\" -type \"float3\"  0 0 0.03 0 0 0.03 0 0 0.03 0.03 0 0 ;\n"
                 "\tsetAttr \".fc[0]\" -type \"polyFaces\" f 4 0 1 2 3 mf 4 0 1 2 3 fc 4 0 1 1 -1 ;\n"
                 "connectAttr \"boxShape.iog\" \":initialShadingGroup.dsm\" -na;\n");
    const MeshPtr mesh = evaluatedMesh(old.scene.graph(), *old.node("boxShape"));
    ASSERT_EQ(mesh->points->size(), 4U);
    EXPECT_EQ((*mesh->points)[1].z, (*mesh->points)[0].z);
    EXPECT_GT((*mesh->points)[0].z, 0.0F);
    ASSERT_EQ(mesh->uvSets.size(), 1U);
    EXPECT_THAT(mesh->uvSets[0].ids->ids, testing::ElementsAre(0, 1, 2, 3));
    ASSERT_EQ(mesh->colorSets.size(), 1U);
    EXPECT_THAT(mesh->colorSets[0].ids->ids, testing::ElementsAre(0, 1, 1, -1));
    ASSERT_EQ(mesh->normals().size(), 4U);
    EXPECT_NEAR(mesh->normals()[0].z / mesh->normals()[0].length(), 1.0, 1e-6);
    EXPECT_NEAR(mesh->normals()[3].x / mesh->normals()[3].length(), 1.0, 1e-6);
}

TEST(OldScenes, LightsAreLinkedByConnections) {
    OldScene old("createNode lightLinker -n \"lightLinker1\";\n\tsetAttr -s 2 \".lnk\";\n"
                 "createNode shadingEngine -n \"sg\";\n"
                 "connectAttr \":defaultLightSet.msg\" \"lightLinker1.lnk[0].llnk\";\n"
                 "connectAttr \":initialShadingGroup.msg\" \"lightLinker1.lnk[0].olnk\";\n"
                 "connectAttr \":defaultLightSet.msg\" \"lightLinker1.lnk[1].llnk\";\n"
                 "connectAttr \"sg.msg\" \"lightLinker1.lnk[1].olnk\";\n"
                 "connectAttr \"lightLinker1.msg\" \":lightList1.ln\" -na;\n");
    EXPECT_NE(old.node("sg"), nullptr);
}

// Animation for characters of other scenes: clips and curves, and nothing that they move.
TEST(OldScenes, LibrariesOfAnimationAreScenes) {
    OldScene old("createNode animClip -n \"walkSource\";\n\tsetAttr \".ihi\" 0;\n\tsetAttr -s 2 \".ac[0:1]\"  0 1;\n"
                 "\tsetAttr \".ss\" 1;\n\tsetAttr \".se\" 24;\n"
                 "createNode animCurveTL -n \"walk_tx\";\n\tsetAttr \".tan\" 9;\n\tsetAttr \".wgt\" no;\n"
                 "\tsetAttr -s 2 \".ktv[0:1]\"  0 1 30 2;\n"
                 "createNode animCurveTA -n \"walk_rx\";\n\tsetAttr \".tan\" 9;\n\tsetAttr \".wgt\" no;\n"
                 "\tsetAttr -s 2 \".ktv[0:1]\"  0 10 30 20;\n"
                 "createNode clipLibrary -n \"clipLibrary1\";\n"
                 "connectAttr \"walkSource.cl\" \"clipLibrary1.sc[0]\";\n");
    old.scene.setCurrentFrame(30.0);
    EXPECT_NEAR(old.number("walk_tx.o"), 2.0, 1e-9); // feet
    EXPECT_NEAR(old.number("walk_rx.o"), 20.0, 1e-9);
}

TEST(OldScenes, ReferToFilesWithPrefixes) {
    SceneFiles files;
    files.writeBytes("rig.ma", std::string(kOldHeading) + "createNode transform -n \"root\";\n\tsetAttr \".tx\" 1;\n"
                                                          "createNode transform -n \"hand\" -p \"root\";\n");
    files.writeBytes("main.ma", std::string("//Maya ASCII 4.0 scene\n//Name: main.ma\n"
                                            "file -r -rpr \"Hero\" -rfn \"HeroRN\" \"C:\\\\chars\\\\rig.ma\";\n"
                                            "requires maya \"4.0\";\ncurrentUnit -l meter -a degree -t ntsc;\n"
                                            "createNode reference -n \"HeroRN\";\n\tsetAttr -s 1 \".phl\";\n"
                                            "\tsetAttr \".phl[1]\" 0;\n"
                                            "\tsetAttr \".ed\" -type \"dataReferenceEdits\" \"HeroRN\" \"HeroRN\" 2\n"
                                            "\t\t2 \"|Hero_root\" \"translateY\" \" 2\"\n"
                                            "\t\t5 4 \"HeroRN\" \"|Hero_root|Hero_hand.rotateZ\" \"HeroRN.phl[1]\" "
                                            "\"\";\n"
                                            "createNode animCurveTA -n \"turn\";\n\tsetAttr \".ktv[0]\"  1 45;\n"
                                            "connectAttr \"turn.o\" \"HeroRN.phl[1]\";\n"));
    EXPECT_THAT(files.open("main.ma"), IsEmpty());
    EXPECT_NEAR(files.opened.number("Hero_root.tx"), 0.3048, 1e-12);
    EXPECT_NEAR(files.opened.number("Hero_root.ty"), 2.0, 1e-12);
    EXPECT_NEAR(files.opened.number("Hero_hand.rz"), 45.0, 1e-9);
}

} // namespace

} // namespace host
