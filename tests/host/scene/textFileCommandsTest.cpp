#include "MelScene.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

namespace host {

namespace {

// A folder for a test, which scripts know as $folder.
class TextFileCommands : public testing::Test {
protected:
    void SetUp() override {
        folder = std::filesystem::temp_directory_path() / ("host_text_" + std::to_string(std::random_device()()));
        std::filesystem::create_directory(folder);
        mel.interpreter.setGlobal("folder", folder.generic_u8string());
    }
    ~TextFileCommands() override { std::filesystem::remove_all(folder); }

    std::string bytes(const std::string& name) const {
        std::ifstream in(folder / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    }
    void write(const std::string& name, const std::string& text) const {
        std::ofstream(folder / name, std::ios::binary) << text;
    }

    std::filesystem::path folder;
    MelScene mel;
};

TEST_F(TextFileCommands, RefuseWhatMakesNoSense) {
    expectRows(mel, {{"fopen($folder + \"/none/a\", \"w\");", "0"},
                     {"fopen($folder + \"/none\", \"r\");", "0"},
                     {"fopen($folder, \"r\");", "0"},
                     {"fopen($folder + \"/a\", \"x\");", "0"},
                     {"fopen \"a\";", "ERROR: fopen: a path and a mode are needed"},
                     {"fclose 7;", "ERROR: fclose: no file is open under 7"},
                     {"fclose;", "ERROR: fclose: no file is open under nothing"},
                     {"fprint 7 \"a\";", "ERROR: fprint: no file is open under 7"},
                     {"fgetline 0;", "ERROR: fgetline: no file is open under 0"},
                     {"fprint 7;", "ERROR: fprint: wrong number of arguments"},
                     {"feof;", "ERROR: feof: wrong number of arguments"}});
}

TEST_F(TextFileCommands, AClosedFileIsNoLongerThere) {
    write("a", "x");
    expectRows(mel, {{"$id = fopen($folder + \"/a\", \"r\"); fclose $id; fgetline $id;",
                      "ERROR: fgetline: no file is open under 1"},
                     {"$id = fopen($folder + \"/a\", \"r\");", "2"}});
}

TEST_F(TextFileCommands, AFullDiskIsToldAtTheEnd) {
    std::filesystem::create_symlink("/dev/full", folder / "full");
    EXPECT_EQ(mel.run("$id = fopen($folder + \"/full\", \"w\"); fprint $id \"x\"; fclose $id;"),
              "ERROR: fclose: the file cannot be written in full");
}

TEST_F(TextFileCommands, WriteWhatTheyAreGiven) {
    mel.run(
        "$id = fopen($folder + \"/a\", \"w\"); fprint $id \"-a\\r\\n\"; fprint($id, \"-b\" + 1.5); fprint $id {1, 2};"
        "fclose $id;");
    EXPECT_EQ(bytes("a"), "-a\r\n-b1.51\n2\n");
    mel.run("$id = fopen($folder + \"/a\", \"a\"); fprint $id \"more\"; fclose $id;");
    EXPECT_EQ(bytes("a"), "-a\r\n-b1.51\n2\nmore");
    mel.run("$id = fopen($folder + \"/a\", \"w\"); fclose $id;");
    EXPECT_EQ(bytes("a"), "");
    mel.run("$id = fopen($folder + \"/b\", \"w\"); fprint $id \"held\"; fflush $id;");
    EXPECT_EQ(bytes("b"), "held");
}

TEST_F(TextFileCommands, ReadLinesWithTheirEnds) {
    write("a", "one\n\ntwo\r\nthree");
    mel.run("$id = fopen($folder + \"/a\", \"r\");");
    expectRows(mel, {{"feof $id;", "0"},
                     {"fgetline $id;", "one\n"},
                     {"fgetline $id;", "\n"},
                     {"fgetline $id;", "two\r\n"},
                     {"fgetline $id;", "three"},
                     {"feof $id;", "1"},
                     {"fgetline $id;", ""},
                     {"frewind $id; feof $id;", "0"},
                     {"fgetline $id;", "one\n"},
                     {"fread $id \"\";", "\ntwo\r\nthree"},
                     {"feof $id;", "1"}});
}

TEST_F(TextFileCommands, ReadWords) {
    write("a", "  one two\n\tthree,four,, five");
    mel.run("$id = fopen($folder + \"/a\", \"r\");");
    expectRows(mel, {{"fgetword $id;", "one"},
                     {"fgetword $id;", "two"},
                     {"fgetword($id, \",\");", "\n\tthree"},
                     {"fgetword($id, \",\");", "four"},
                     {"fgetword $id \", \";", "five"},
                     {"fgetword $id;", ""},
                     {"feof $id;", "1"}});
}

TEST_F(TextFileCommands, ScenesCannotUseThem) {
    OpenedScene scene("fopen \"" + (folder / "made").generic_u8string() + "\" \"w\";\n");
    EXPECT_FALSE(std::filesystem::exists(folder / "made"));
    EXPECT_EQ(scene.warnings.size(), 1U);
}

// --- files and folders

TEST_F(TextFileCommands, FilesAreTested) {
    write("full", "x");
    write("empty", "");
    std::filesystem::create_symlink(folder / "full", folder / "link");
    std::filesystem::permissions(folder / "full", std::filesystem::perms::owner_read);
    expectRows(mel, {{"filetest -f ($folder + \"/full\");", "1"},
                     {"filetest -f $folder;", "0"},
                     {"filetest -f ($folder + \"/none\");", "0"},
                     {"filetest -d $folder;", "1"},
                     {"filetest -d ($folder + \"/full\");", "0"},
                     {"filetest -s ($folder + \"/full\");", "1"},
                     {"filetest -s ($folder + \"/empty\");", "0"},
                     {"filetest -r ($folder + \"/full\");", "1"},
                     {"filetest -r $folder;", "1"},
                     {"filetest -r ($folder + \"/none\");", "0"},
                     {"filetest -w ($folder + \"/empty\");", "1"},
                     {"filetest -w ($folder + \"/full\");", "0"},
                     {"filetest -x ($folder + \"/full\");", "0"},
                     {"filetest -x $folder;", "1"},
                     {"filetest -l ($folder + \"/link\");", "1"},
                     {"filetest -l ($folder + \"/full\");", "0"},
                     {"filetest;", "ERROR: filetest needs a flag that says what is asked"}});
}

TEST_F(TextFileCommands, FilesAreMovedAboutAndRemoved) {
    write("a", "x");
    expectRows(mel, {{"sysFile -makeDir ($folder + \"/deep/er\");", "1"},
                     {"sysFile -makeDir ($folder + \"/a\");", "0"},
                     {"sysFile -copy ($folder + \"/b\") ($folder + \"/a\");", "1"},
                     {"sysFile -copy ($folder + \"/c\") ($folder + \"/none\");", "0"},
                     {"sysFile -move ($folder + \"/deep\") ($folder + \"/b\");", "1"},
                     {"filetest -f ($folder + \"/deep/b\");", "1"},
                     {"sysFile -rename ($folder + \"/z\") ($folder + \"/a\");", "1"},
                     {"filetest -f ($folder + \"/a\");", "0"},
                     {"sysFile -delete ($folder + \"/z\");", "1"},
                     {"sysFile -delete ($folder + \"/z\");", "0"},
                     {"sysFile -delete ($folder + \"/deep\");", "0"},
                     {"sysFile -removeEmptyDir ($folder + \"/deep\");", "0"},
                     {"sysFile -removeEmptyDir ($folder + \"/deep/er\");", "1"},
                     {"sysFile -delete;", "ERROR: sysFile needs a flag that says what to do, and a path"}});
    EXPECT_EQ(bytes("deep/b"), "x");
}

} // namespace

} // namespace host
