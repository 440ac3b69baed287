#include "host/app/outputFiles.h"

#include "TemporaryFolder.h"

#include <gmock/gmock.h>

#include <fstream>

namespace host::app {
namespace {

namespace fs = std::filesystem;

class OutputFilesTest : public testing::Test {
protected:
    OutputFilesTest() { fs::current_path(folder); }
    ~OutputFilesTest() override { fs::current_path(before); }

    static void write(const std::string& path, const std::string& text) { std::ofstream(path) << text; }

    const fs::path before = fs::current_path();
    const tvk::TemporaryFolder temporary;
    const std::string folder = temporary.path();
};

TEST_F(OutputFilesTest, theBaseIsTheUsersOrTheScenes) {
    fs::create_directory(folder + "/made");
    struct Row {
        const char* output;
        const char* scene;
        const char* base; // below the folder
    };
    static constexpr Row kRows[] = {
        {"", "/scenes/house.ma", "house"}, {"", "house.v2.ma", "house.v2"},  {"", "house", "house"},
        {"base", "x.ma", "base"},          {"sub/base", "x.ma", "sub/base"}, {"sub/", "x.ma", "sub/x"},
        {"made", "x.ma", "made/x"},        {"base.imd", "x.ma", "base.imd"},
    };
    for (const Row& row : kRows) {
        EXPECT_EQ(outputBase(row.output, row.scene), folder + "/" + row.base) << row.output;
    }
    EXPECT_EQ(outputBase("/elsewhere/base", "x.ma"), "/elsewhere/base");
}

TEST(outputFiles, endingsOfKindsAreNoPartOfTheBase) {
    EXPECT_EQ(withoutKind("out/base.imd"), "out/base");
    EXPECT_EQ(withoutKind("out/base.v2.ita"), "out/base.v2");
    EXPECT_EQ(withoutKind("base.ma"), "base.ma");
    EXPECT_EQ(withoutKind("base.IMD"), "base.IMD");
    EXPECT_EQ(withoutKind(".imd"), ".imd");
}

TEST_F(OutputFilesTest, pathsAreShownFromTheCurrentFolder) {
    EXPECT_EQ(shownPath(folder + "/out/base.imd"), "out/base.imd");
    EXPECT_EQ(shownPath("out/base.imd"), "out/base.imd");
    EXPECT_EQ(shownPath("/elsewhere/base.imd"), "/elsewhere/base.imd");
}

TEST_F(OutputFilesTest, foldersThatCannotBeUsedAreTold) {
    write("file", "");
    EXPECT_EQ(OutputFolder(folder + "/file/").prepare(), "the output folder is a file: " + folder + "/file");
    EXPECT_EQ(OutputFolder(folder + "/no/deep/").prepare(), "the output folder does not exist: " + folder + "/no/deep");
    EXPECT_EQ(OutputFolder(folder + "/file/deep/").prepare(),
              "the output folder does not exist: " + folder + "/file/deep");
    EXPECT_THAT(OutputFolder("/proc/none/").prepare(),
                testing::StartsWith("the output folder cannot be made: /proc/none ("));
}

TEST_F(OutputFilesTest, aFolderIsMadeAndStaysWhenItIsUsed) {
    for (const bool used : {false, true}) {
        {
            OutputFolder output(folder + "/fresh/");
            EXPECT_EQ(output.prepare(), "");
            EXPECT_TRUE(fs::is_directory("fresh"));
            if (used) {
                write("fresh/file", "x");
            }
        }
        EXPECT_EQ(fs::exists("fresh"), used);
    }
    fs::create_directory("empty");
    EXPECT_EQ(OutputFolder(folder + "/empty/").prepare(), "");
    EXPECT_TRUE(fs::exists("empty")) << "it was there before";
}

TEST_F(OutputFilesTest, onlyWhatIsNewCounts) {
    write("base.imd", "old");
    write("base.ita", "old");
    fs::last_write_time("base.imd", fs::file_time_type::clock::now() - std::chrono::hours(1));
    fs::last_write_time("base.ita", fs::file_time_type::clock::now() - std::chrono::hours(1));
    const OutputFiles files(folder + "/base");
    EXPECT_TRUE(files.written().empty());
    write("base.ita", "rewritten");
    write("base.ica", "new!");
    write("base.txt", "another's");
    const std::vector<WrittenFile> written = files.written();
    ASSERT_EQ(written.size(), 2U);
    EXPECT_EQ(written[0].path, folder + "/base.ica") << "in the order of the kinds";
    EXPECT_EQ(written[0].lengthBytes, 4U);
    EXPECT_EQ(written[1].path, folder + "/base.ita");
}

} // namespace
} // namespace host::app
