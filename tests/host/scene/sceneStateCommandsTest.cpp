#include "MelScene.h"
#include "TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fstream>

namespace host {

namespace {

TEST(TimeCommands, UnitsTimeAndRange) {
    MelScene mel;
    expectRows(mel, {{"currentUnit -q -t;", "film"},
                     {"currentUnit -q -l;", "cm"},
                     {"currentUnit -q -a;", "deg"},
                     {"currentUnit -t ntsc -l meter; currentUnit -q -t;", "ntsc"},
                     {"currentUnit -q -linear;", "m"},
                     {"currentUnit -l parsec;", "ERROR: unknown unit 'parsec'"},
                     {"currentUnit -q;", "ERROR: currentUnit needs a flag that says what is asked"},
                     {"currentTime 12.5;", "12.5"},
                     {"currentTime -q;", "12.5"},
                     {"currentTime -e 3; currentTime -q;", "3"},
                     {"currentTime;", "ERROR: expected a time, found the end of the command"},
                     {"playbackOptions -min 2 -max 20.5; playbackOptions -q -min;", "2"},
                     {"playbackOptions -q -max;", "20.5"},
                     {"playbackOptions -e -ast -5 -aet 100 -loop \"continuous\"; playbackOptions -q -ast;", "-5"},
                     {"playbackOptions -q -aet;", "100"}});
    EXPECT_EQ(mel.typeOf("playbackOptions -q -aet;"), mel::ValueType::kFloat);
    EXPECT_EQ(mel.typeOf("currentTime -q;"), mel::ValueType::kFloat);
}

class FileCommand : public testing::Test {
protected:
    void write(const std::string& name, const std::string& text) {
        std::ofstream(folder.path(name), std::ios::binary) << text;
    }
    std::string run(const std::string& script) { return mel.run(script); }

    tvk::TemporaryFolder folder;
    MelScene mel;
};

TEST_F(FileCommand, OpensAndTellsTheScene) {
    write("a.ma", "//Maya ASCII 2018 scene\ncreateNode transform -n \"a\";\n");
    const std::string path = folder.path("a.ma");
    EXPECT_EQ(run("file -f -o \"" + path + "\";"), path);
    EXPECT_EQ(run("objExists a;"), "1");
    EXPECT_EQ(run("file -q -sn;"), path);
    EXPECT_EQ(run("file -q -sceneName;"), path);
    EXPECT_EQ(run("file -q -shn;"), "a.ma");
    EXPECT_EQ(run("file -q -ns;"), "");
    EXPECT_EQ(run("file -q -mf;"), "0");
    EXPECT_EQ(run("file -q -l;"), "(" + path + ")");
    EXPECT_EQ(run("file -q -ex \"" + path + "\";"), "1");
    EXPECT_EQ(run("file -q -ex \"" + path + "x\";"), "0");
    EXPECT_EQ(run("file -rn \"b.ma\"; file -q -sn;"), "b.ma");
    EXPECT_EQ(run("file -f -new; file -q -sn;"), "");
    EXPECT_EQ(run("objExists a;"), "0");
}

TEST_F(FileCommand, FailsWithTheReadersText) {
    const std::string path = folder.path("gone.ma");
    EXPECT_EQ(run("file -f -o \"" + path + "\";"), "ERROR: File not found: " + path);
    write("bad.ma", "//Maya ASCII 2018 scene\ncreateNode;\n");
    const std::string bad = folder.path("bad.ma");
    EXPECT_EQ(run("file -f -o \"" + bad + "\";"), "ERROR: " + bad + ":2:11: expected a node type, found ';'");
    EXPECT_EQ(run("file -o;"), "ERROR: file -open needs one path");
    EXPECT_EQ(run("file;"), "ERROR: file needs -open, -newFile, -exportAll or -exportSelected");
    EXPECT_EQ(run("file -save;"), "ERROR: Invalid flag '-save'");
}

TEST_F(FileCommand, UnsavedChangesNeedForce) {
    write("a.ma", "//Maya ASCII 2018 scene\n");
    EXPECT_EQ(run("createNode transform; file -o \"" + folder.path("a.ma") + "\";"),
              "ERROR: The scene has unsaved changes; -force drops them");
    EXPECT_EQ(run("file -new;"), "ERROR: The scene has unsaved changes; -force drops them");
    EXPECT_EQ(run("file -mf 0; file -new;"), "untitled");
}

TEST_F(FileCommand, RelativePathsAreLookedForInTheProject) {
    write("a.ma", "//Maya ASCII 2018 scene\n");
    run("workspace -o \"" + folder.path() + "\";");
    EXPECT_EQ(run("file -f -o \"a.ma\";"), folder.path("a.ma"));
}

TEST_F(FileCommand, ExportsThroughTheHandler) {
    EXPECT_EQ(run("file -f -ea -typ \"T\" \"out\";"), "ERROR: no translator writes files of type 'T'");
    std::vector<ExportRequest> requests;
    mel.scene.exportHandler = [&](const ExportRequest& request) {
        requests.push_back(request);
        return request.options == "fail" ? ExportOutcome{"", "T said no"} : ExportOutcome{request.path + ".x", ""};
    };
    EXPECT_EQ(run("file -f -ea -typ \"T\" -op \"a=1;b=2;\" -de 0 -pr \"out\";"), "out.x");
    EXPECT_EQ(run("file -es -typ \"T\" \"out\";"), "ERROR: nothing is selected");
    EXPECT_EQ(run("select persp; file -es -typ \"T\" \"out\";"), "out.x");
    EXPECT_EQ(run("file -ea -typ \"T\" -op \"fail\" \"out\";"), "ERROR: T said no");
    ASSERT_EQ(requests.size(), 3U);
    EXPECT_EQ(requests[0].path, "out");
    EXPECT_EQ(requests[0].type, "T");
    EXPECT_EQ(requests[0].options, "a=1;b=2;");
    EXPECT_TRUE(requests[0].hasOptions && requests[0].force && requests[0].preserveReferences);
    EXPECT_FALSE(requests[0].selectionOnly || requests[0].defaultExtensions);
    EXPECT_TRUE(requests[1].selectionOnly && requests[1].defaultExtensions);
    EXPECT_FALSE(requests[1].hasOptions || requests[1].force);
}

TEST_F(FileCommand, Workspace) {
    write("workspace.mel", "workspace -ot \"scene\" \"scenes\";\nworkspace -fr \"images\" \"img\";\n");
    EXPECT_EQ(run("workspace -o \"" + folder.path() + "\";"), folder.path());
    EXPECT_EQ(run("workspace -q -rd;"), folder.path() + "/");
    EXPECT_EQ(run("workspace -q -dir;"), folder.path() + "/");
    EXPECT_EQ(run("workspace -q -fn;"), folder.path());
    EXPECT_EQ(run("workspace -q -ote \"scene\";"), "scenes");
    EXPECT_EQ(run("workspace -q -ote \"zebra\";"), "");
    EXPECT_EQ(run("workspace -q -fre \"images\";"), "img");
    EXPECT_EQ(run("workspace -fre \"images\";"), "img");
    EXPECT_EQ(run("workspace -fr \"sound\" \"snd\"; workspace -q -fre \"sound\";"), "snd");
    EXPECT_EQ(run("workspace -ot \"scene\" \"s2\"; workspace -q -ote \"scene\";"), "s2");
    EXPECT_EQ(run("workspace -o \"" + folder.path("gone") + "\";"),
              "ERROR: Project folder not found: " + folder.path("gone"));
    EXPECT_EQ(run("workspace -dir \"" + folder.path("gone") + "\";"),
              "ERROR: Project folder not found: " + folder.path("gone"));
    EXPECT_EQ(run("workspace -q;"), "ERROR: workspace needs a flag that says what is asked");
}

TEST(HostCommands, About) {
    MelScene mel;
    expectRows(mel, {{"about -v;", "2020-embedded"},
                     {"about -api;", "20200000"},
                     {"about -batch;", "1"},
                     {"about -os;", "linux64"},
                     {"about;", "ERROR: about needs a flag that says what is asked"}});
}

TEST(HostCommands, OptionVariables) {
    MelScene mel;
    expectRows(mel, {{"optionVar -ex x;", "0"},
                     {"optionVar -q x;", "0"},
                     {"optionVar -iv x 3; optionVar -q x;", "3"},
                     {"optionVar -fv y 2.5 -sv s \"text\"; optionVar -q y;", "2.5"},
                     {"optionVar -q s;", "text"},
                     {"optionVar -ex s;", "1"},
                     {"optionVar -sva list \"a\"; optionVar -sva list \"b\"; optionVar -q list;", "(a|b)"},
                     {"optionVar -q -as list;", "2"},
                     {"optionVar -rfa list 0; optionVar -q list;", "(b)"},
                     {"optionVar -ca list; optionVar -q -as list;", "0"},
                     {"optionVar -iva x 4; optionVar -q x;", "(3|4)"},
                     {"optionVar -fva f 0.5; optionVar -q f;", "(0.5)"},
                     {"optionVar -rm x; optionVar -ex x;", "0"},
                     {"optionVar -l;", "(f|list|s|y)"},
                     {"optionVar -iv x;", "ERROR: Flag '-iv' needs 2 argument(s)"}});
    mel.scene.newScene();
    EXPECT_EQ(mel.run("optionVar -q s;"), "text");
}

} // namespace

} // namespace host
