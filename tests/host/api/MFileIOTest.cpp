#include <maya/MFileIO.h>

#include "HostTest.h"
#include "TemporaryFolder.h"

#include <filesystem>
#include <fstream>

namespace host {
namespace {

class MFileIOTest : public HostTest {};

TEST_F(MFileIOTest, aSceneWithoutAFileIsUntitled) {
    EXPECT_EQ(MFileIO::currentFile(), (host.scene().workspace().rootDirectory() + "untitled").c_str());
    EXPECT_EQ(MFileIO::fileType(), "mayaAscii");
    EXPECT_FALSE(MFileIO::isWritingFile());
    MStatus status;
    EXPECT_EQ(MFileIO::beforeExportFilename(&status), "");
    EXPECT_EQ(status, MStatus::kFailure);
}

TEST_F(MFileIOTest, scenesAreOpenedAndLeft) {
    const tvk::TemporaryFolder folder;
    const std::string path = folder.path("some \"quoted\".ma");
    std::ofstream(path) << "//Maya ASCII 2020 scene\nrequires maya \"2020\";\ncreateNode transform -n \"fromFile\";\n";
    EXPECT_EQ(MFileIO::open(path.c_str(), nullptr, true), MStatus::kSuccess);
    EXPECT_EQ(MFileIO::currentFile(), path.c_str());
    EXPECT_EQ(run("objExists fromFile").toInt(), 1);
    run("createNode transform");
    EXPECT_EQ(MFileIO::newFile(), MStatus::kFailure) << "there are changes";
    EXPECT_EQ(MFileIO::newFile(true), MStatus::kSuccess);
    EXPECT_EQ(run("objExists fromFile").toInt(), 0);
    std::filesystem::remove(path);
    EXPECT_EQ(MFileIO::open(path.c_str(), nullptr, true), MStatus::kFailure);
}

TEST_F(MFileIOTest, exportingNeedsAFileType) {
    EXPECT_EQ(MFileIO::exportAll("/tmp/none.zzz"), MStatus::kFailure);
    EXPECT_EQ(MFileIO::exportSelected("/tmp/none.zzz", "None"), MStatus::kFailure);
    EXPECT_EQ(errors.size(), 2U);
    MStringArray types;
    MFileIO::getFileTypes(types);
    EXPECT_EQ(types[0], "mayaAscii");
}

} // namespace
} // namespace host
