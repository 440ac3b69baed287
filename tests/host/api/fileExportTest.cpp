#include "host/api/fileExport.h"

#include "HostTest.h"
#include "TemporaryFolder.h"

#include <filesystem>
#include <fstream>
#include <iterator>

namespace host {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

const std::string kRecorder = std::string(HOST_TEST_PLUGINS) + "/recorder" + std::string(SharedLibrary::suffix());

class FileExportTest : public HostTest {
protected:
    FileExportTest() { run("loadPlugin \"" + kRecorder + "\""); }
    ~FileExportTest() override { run("unloadPlugin recorder"); }

    static std::string contents(const std::string& path) {
        std::ifstream stream(path);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    const tvk::TemporaryFolder temporary;
    const std::string folder = temporary.path();
};

struct WrongExport {
    const char* flags;
    const char* error; // a part of it
};

class WrongExportTest : public FileExportTest, public testing::WithParamInterface<WrongExport> {};

TEST_P(WrongExportTest, failsAndWritesNothing) {
    EXPECT_THAT(failure(std::string("file -f ") + GetParam().flags + " \"" + folder + "/a\""),
                HasSubstr(GetParam().error));
    EXPECT_TRUE(std::filesystem::is_empty(folder));
}

INSTANTIATE_TEST_SUITE_P(Calls, WrongExportTest,
                         testing::Values(WrongExport{"-ea -typ Unknown", "Unknown file type: Unknown"},
                                         WrongExport{"-ea", "No file type for "},
                                         WrongExport{"-es -typ Record", "othing is selected"},
                                         WrongExport{"-ea -typ Record -op fail", "/a.rec failed (type Record)"},
                                         WrongExport{"-ea -typ Record -op throw",
                                                     "plug-in 'recorder' threw an exception: the writer gave up"}));

TEST_F(FileExportTest, theWriterSeesPathsOptionsAndMode) {
    const std::string path = folder + "/a.rec";
    EXPECT_EQ(run("file -f -ea -typ Record -op \"x=1;y=2\" \"" + folder + "/a\"").text(), path);
    EXPECT_EQ(contents(path), "path " + folder + "/\nname a.rec\noptions x=1;y=2\nmode 5\ncurrent mode 5\nwriting 1\n" +
                                  "exporting " + path + "\n");
}

TEST_F(FileExportTest, theSelectionIsWhatWasSelected) {
    run("createNode transform -n one; createNode transform -n two; select -r two one");
    run("file -f -es -typ Record \"" + folder + "/a\"");
    EXPECT_THAT(contents(folder + "/a.rec"), HasSubstr("options default=1;\nmode 6\n"));
    EXPECT_THAT(contents(folder + "/a.rec"), HasSubstr("selected two\nselected one\n"));
    EXPECT_THAT(run("ls -sl").strings(), ElementsAre("two", "one"));
}

struct ExportPath {
    const char* name;
    bool defaultExtensions;
    const char* written;
};

class ExportPathTest : public HostTest, public testing::WithParamInterface<ExportPath> {};

TEST_P(ExportPathTest, hasTheExtensionOnce) {
    const ExportPath& row = GetParam();
    EXPECT_EQ(exportPath(std::string("/folder/") + row.name, "rec", row.defaultExtensions),
              std::string("/folder/") + row.written);
}

INSTANTIATE_TEST_SUITE_P(Names, ExportPathTest,
                         testing::Values(ExportPath{"a", true, "a.rec"}, ExportPath{"a.rec", true, "a.rec"},
                                         ExportPath{"a.v2", true, "a.v2.rec"}, ExportPath{"a.REC", true, "a.REC.rec"},
                                         ExportPath{"arec", true, "arec.rec"}, ExportPath{".rec", true, ".rec"},
                                         ExportPath{"a", false, "a"}, ExportPath{"a.rec", false, "a.rec"}));

TEST_F(FileExportTest, defaultExtensionsCanBeTurnedOff) {
    EXPECT_EQ(run("file -f -de 0 -ea -typ Record \"" + folder + "/a\"").text(), folder + "/a");
}

TEST_F(FileExportTest, relativePathsStandBelowTheWorkspace) {
    const std::string before = host.scene().workspace().directory();
    ASSERT_TRUE(host.scene().workspace().setDirectory(folder));
    EXPECT_EQ(run("file -f -ea -typ Record \"./b\"").text(), folder + "/b.rec");
    host.scene().workspace().setDirectory(before);
}

TEST_F(FileExportTest, theTypeMayFollowFromTheExtension) {
    EXPECT_EQ(run("file -f -ea \"" + folder + "/c.rec\"").text(), folder + "/c.rec");
}

TEST_F(FileExportTest, aCommandOfThePluginMayExport) {
    const std::string inner = "file -f -ea -typ Record \\\"" + folder + "/d\\\"";
    EXPECT_EQ(run("recordRun text \"" + inner + "\"").text(), "got " + folder + "/d.rec");
    EXPECT_TRUE(host.exportPath.empty());
}

TEST_F(FileExportTest, withoutAFileNameNothingIsAsked) {
    EXPECT_THAT(exportFile(host, ExportRequest()).error, "No file name: ");
}

} // namespace
} // namespace host
