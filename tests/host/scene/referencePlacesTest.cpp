#include "host/scene/referencePlaces.h"

#include "EnvironmentVariable.h"
#include "SceneFiles.h"

#include <gmock/gmock.h>

namespace host {

namespace {

using testing::IsEmpty;

struct Written {
    const char* name;
    std::string path; // '@' is the folder
    std::string file; // where it is
};

void PrintTo(const Written& row, std::ostream* out) {
    *out << row.name;
}

class WrittenReference : public testing::TestWithParam<Written> {};

TEST_P(WrittenReference, IsFound) {
    const tvk::EnvironmentVariable variable("TVK_TEST_CHARS", "chars");
    SceneFiles files;
    files.write(GetParam().file, "createNode transform -n \"a\";");
    files.write("shots/main.ma", referenceText("x", GetParam().path));
    EXPECT_THAT(files.open("shots/main.ma"), IsEmpty());
    EXPECT_NE(files.opened.node("x:a"), nullptr);
}

INSTANTIATE_TEST_SUITE_P(
    All, WrittenReference,
    testing::Values(Written{"AsItIsWritten", "@/far/away/rig.ma", "far/away/rig.ma"},
                    Written{"NextToTheScene", "rig.ma", "shots/rig.ma"},
                    Written{"BelowTheScene", "parts/rig.ma", "shots/parts/rig.ma"},
                    Written{"AboveTheScene", "../rig.ma", "rig.ma"},
                    Written{"InTheProject", "assets/rig.ma", "assets/rig.ma"},
                    Written{"InTheScenesFolder", "rig.ma", "scenes/rig.ma"},
                    Written{"OfAnotherMachine", "C:/Users/me/project/assets/chars/rig.ma", "assets/chars/rig.ma"},
                    Written{"ByItsNameNextToTheScene", "/gone/rig.ma", "shots/rig.ma"},
                    Written{"ByItsNameInTheScenesFolder", "/gone/rig.ma", "scenes/rig.ma"},
                    Written{"Backslashes", "D:\\\\work\\\\chars\\\\rig.ma", "chars/rig.ma"},
                    Written{"BehindTheProject", "C:/old/project//assets/rig.ma", "assets/rig.ma"},
                    Written{"CopyNumber", "rig.ma{12}", "shots/rig.ma"},
                    Written{"Variable", "$TVK_TEST_CHARS/rig.ma", "chars/rig.ma"},
                    Written{"VariableInBraces", "${TVK_TEST_CHARS}/rig.ma", "chars/rig.ma"},
                    Written{"VariableThatIsNotSet", "$TVK_TEST_GONE/rig.ma", "shots/$TVK_TEST_GONE/rig.ma"},
                    Written{"BracesOfItsOwn", "rig{}.ma", "shots/rig{}.ma"},
                    Written{"Japanese", "\xE5\x89\xA3/rig.ma", "shots/\xE5\x89\xA3/rig.ma"}),
    [](const auto& row) { return row.param.name; });

TEST(ReferencePlaces, TheProjectSaysWhereScenesAre) {
    SceneFiles files;
    files.writeBytes("workspace.mel", "workspace -fr \"mayaAscii\" \"my scenes\";\n");
    files.opened.scene.workspace().open(files.folder.path());
    files.write("my scenes/rig.ma", "createNode transform -n \"a\";");
    files.write("shots/main.ma", referenceText("x", "rig.ma"));
    EXPECT_THAT(files.open("shots/main.ma"), IsEmpty());
}

// What is there but cannot be read gives way to what is further down the list.
TEST(ReferencePlaces, AFolderIsNoFile) {
    SceneFiles files;
    files.write("shots/rig.ma/note.ma", "createNode transform;");
    files.write("scenes/rig.ma", "createNode transform -n \"a\";");
    files.write("shots/main.ma", referenceText("x", "rig.ma"));
    EXPECT_THAT(files.open("shots/main.ma"), IsEmpty());
    EXPECT_NE(files.opened.node("x:a"), nullptr);
}

// Rigs are Maya Binary more often than not; saving them as Maya ASCII in the same folder is enough.
TEST(ReferencePlaces, AMayaBinaryFileMayHaveATwin) {
    SceneFiles files;
    files.writeBytes("chars/rig.mb", "FOR8\1\2\3");
    files.write("chars/rig.ma", "createNode transform -n \"a\";");
    files.write("main.ma", referenceText("x", "chars/rig.mb") + referenceText("y", "chars/rig.ma"));
    EXPECT_THAT(files.open("main.ma"),
                testing::ElementsAre("@/main.ma(3): reference 'xRN' is Maya Binary, which cannot be read; this file is "
                                     "read instead: @/chars/rig.ma"));
    EXPECT_NE(files.opened.node("x:a"), nullptr);
    EXPECT_NE(files.opened.node("y:a"), nullptr);
    std::filesystem::remove(files.folder.path("chars/rig.mb"));
    EXPECT_THAT(files.open("main.ma"), testing::SizeIs(1));
    EXPECT_NE(files.opened.node("x:a"), nullptr);
}

// The file that names a nested reference was moved; the scene knows where it went.
TEST(ReferencePlaces, AnOuterSceneKnowsWhereANestedFileIs) {
    SceneFiles files;
    files.write("moved/new.ma", "createNode transform -n \"a\";");
    files.write("inner.ma", referenceText("x", "/gone/old.ma"));
    files.write("main.ma", "file -rdi 1 -ns \"o\" -rfn \"oRN\" \"inner.ma\";\n"
                           "file -rdi 2 -ns \"x\" -rfn \"o:xRN\" \"moved/new.ma\";\n"
                           "file -r -ns \"o\" -dr 1 -rfn \"oRN\" \"inner.ma\";\n");
    EXPECT_THAT(files.open("main.ma"), IsEmpty());
    EXPECT_NE(files.opened.node("o:x:a"), nullptr);
}

TEST(ReferencePlaces, OddPathsGiveFewPlaces) {
    const Workspace workspace;
    EXPECT_THAT(referencePlaces("", "main.ma", workspace), IsEmpty());
    EXPECT_THAT(referencePlaces("{1}", "main.ma", workspace), IsEmpty());
    std::string deep;
    for (int level = 0; level < 5000; ++level) {
        deep += "a/";
    }
    EXPECT_LT(referencePlaces(deep + "rig.ma", "main.ma", workspace).size(), 60U);
    EXPECT_EQ(referencePlaces("$", "main.ma", workspace).front(), "$");
    EXPECT_EQ(referencePlaces("a${", "main.ma", workspace).front(), "a${");
}

} // namespace

} // namespace host
