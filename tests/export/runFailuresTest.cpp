#include "export/exportRun.h"

#include "ExportSession.h"
#include "sceneText.h"

#include "host/api/Host.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <new>
#include <stdexcept>

namespace tvk {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

const char* const kNoFile = "---- No Output File ----";

class FailingRun : public testing::Test {
protected:
    void SetUp() override { session.open(nodeText("transform", "a")); }

    // After every failure: nothing is kept, and the next run is like any other.
    void TearDown() override {
        EXPECT_THAT(run().scene.nodes, IsEmpty());
        EXPECT_FALSE(run().underWay);
        EXPECT_EQ(run().messages, &std::cerr);
    }

    MStatus exportTo(const std::string& path, const std::string& options = "") {
        return session.exportTo(path, options, MPxFileTranslator::kExportAccessMode);
    }

    static std::function<void()>& onProgress() { return host::Host::instance().feedbackLine().onChange; }
    static std::string progressNow() { return host::Host::instance().feedbackLine().text(); }

    ExportSession session;
};

// --- options

TEST_F(FailingRun, RefusedOptionsStopItBeforeItBegins) {
    EXPECT_FALSE(session.exportAll("imd_file_out=0"));
    EXPECT_EQ(session.takeMessages(), "Error: No output file\n\n");
    EXPECT_THAT(session.infos, IsEmpty());
    EXPECT_THAT(session.progress, IsEmpty());
    EXPECT_FALSE(session.hasFile("model.imd"));
}

TEST_F(FailingRun, AnEmptyRangeStopsItBeforeItBegins) {
    host::PlaybackRange& range = host::Host::instance().scene().playback();
    range.animationStart = 20;
    range.animationEnd = 10;
    EXPECT_FALSE(session.exportAll());
    EXPECT_EQ(session.takeMessages(), "Error: Invalid frame range (20 - 10)\n\n");
    EXPECT_THAT(session.infos, IsEmpty());
}

TEST_F(FailingRun, AnUnknownModeStopsTheGathering) {
    EXPECT_FALSE(session.exportTo(session.folder.path("model.imd"), "", MPxFileTranslator::kSaveAccessMode));
    EXPECT_EQ(session.takeMessages(), "Error: Unrecognized write mode: 4\n\n");
    EXPECT_THAT(session.infos, Contains(kNoFile));
}

// --- scenes

TEST_F(FailingRun, ASceneWithoutNodesGivesNoFile) {
    session.open("");
    EXPECT_FALSE(session.exportAll());
    EXPECT_EQ(session.takeMessages(), "Error: No effective node\n\n");
    EXPECT_THAT(session.infos, ElementsAre("========== TVK_Export : model ========== imd ", kNoFile));
    EXPECT_THAT(session.progress, ElementsAre("Getting Data ...", "Stopped"));
    EXPECT_FALSE(session.hasFile("model.imd"));
}

TEST_F(FailingRun, AnAbsurdRangeIsRefusedWhenItWouldBeSampled) {
    session.open(nodeText("transform", "a") + playback(1, 2000000000));
    EXPECT_TRUE(session.exportAll());
    EXPECT_FALSE(session.exportAll("iva_file_out=1"));
    EXPECT_EQ(session.takeMessages(), "Error: Too many frames: 2000000000\n\n");
}

// --- files

TEST_F(FailingRun, AMissingFolderIsNamed) {
    const std::string path = session.folder.path("missing/model.imd");
    EXPECT_FALSE(exportTo(path));
    EXPECT_EQ(session.takeMessages(), "Error: Can't open file: " + path + "\n\n");
    EXPECT_THAT(session.infos, ElementsAre(StartsWith("========== "), kNoFile));
    EXPECT_THAT(session.progress, ElementsAre("Getting Data ...", "Stopped"));
}

// Nothing can be made below a file, and nobody, root neither, may write into the kernel's folders.
TEST_F(FailingRun, AFolderThatTakesNoFilesIsNamed) {
    std::ofstream(session.folder.path("file")) << "x";
    for (const std::string& path : {session.folder.path("file/model.imd"), std::string("/proc/model.imd")}) {
        EXPECT_FALSE(exportTo(path));
        EXPECT_EQ(session.takeMessages(), "Error: Can't open file: " + path + "\n\n");
    }
}

TEST_F(FailingRun, AFolderInThePlaceOfTheFileIsNamed) {
    std::filesystem::create_directory(session.folder.path("model.imd"));
    EXPECT_FALSE(session.exportAll());
    EXPECT_EQ(session.takeMessages(), "Error: Can't open file: " + session.folder.path("model.imd") + "\n\n");
}

TEST_F(FailingRun, AFullDiskIsNamed) {
    std::filesystem::create_symlink("/dev/full", session.folder.path("model.imd"));
    EXPECT_FALSE(session.exportAll());
    EXPECT_EQ(session.takeMessages(), "Error: Can't write file: " + session.folder.path("model.imd") + "\n\n");
    EXPECT_EQ(session.progress.back(), "Stopped");
}

// So large that the disk is found full while writing, not only at the end.
TEST_F(FailingRun, ADiskThatFillsUpOnTheWayIsNamed) {
    std::string text = nodeText("transform", "r");
    for (int i = 0; i < 2000; ++i) {
        text += nodeText("transform", "n" + std::to_string(i), "r");
    }
    session.open(text);
    std::filesystem::create_symlink("/dev/full", session.folder.path("model.imd"));
    EXPECT_FALSE(session.exportAll());
    EXPECT_EQ(session.takeMessages(), "Error: Can't write file: " + session.folder.path("model.imd") + "\n\n");
}

TEST_F(FailingRun, FilesThatWereWrittenStayWhenALaterOneFails) {
    std::filesystem::create_directory(session.folder.path("model.iva"));
    EXPECT_FALSE(session.exportAll("iva_file_out=1"));
    EXPECT_EQ(session.takeMessages(),
              "Warning: No visibility animation\nError: Can't open file: " + session.folder.path("model.iva") + "\n\n");
    EXPECT_THAT(session.model().names(), ElementsAre("a"));
    EXPECT_THAT(session.infos, Not(Contains(kNoFile)));
    EXPECT_THAT(session.infos, Not(Contains(StartsWith("Output Folder"))));
    EXPECT_EQ(session.progress.back(), "Stopped");
}

// The longer name would have been a second warning, but the run has failed by then.
TEST_F(FailingRun, NamesAreNotCheckedAfterAFailure) {
    session.open(nodeText("transform", "these_are_17_long"));
    std::filesystem::create_symlink("/dev/full", session.folder.path("model.imd"));
    EXPECT_FALSE(session.exportAll());
    EXPECT_THAT(session.takeMessages(), Not(HasSubstr("Length of name")));
}

// --- a run inside a run

TEST_F(FailingRun, ARunStartedInsideARunFailsAndTouchesNothing) {
    MStatus inner;
    int innerRuns = 0;
    onProgress() = [&] {
        if (progressNow() == "Making ... imd" && innerRuns++ == 0) {
            inner = exportTo(session.folder.path("inner.imd"), "magnify=7;imd_file_out=0");
        }
    };
    session.open(nodeText("transform", "a", "", set3("t", 1, 0, 0)));
    EXPECT_TRUE(session.exportAll("magnify=2"));
    EXPECT_EQ(innerRuns, 1);
    EXPECT_FALSE(inner);
    EXPECT_EQ(session.takeMessages(), "");
    EXPECT_FALSE(session.hasFile("inner.imd"));
    EXPECT_EQ(session.model().node("a").translate.x, 2.0);
    EXPECT_EQ(session.model().info->value("magnify"), "2.000000");
    EXPECT_TRUE(session.exportAll()); // and the next is a run again
}

// --- exceptions

TEST_F(FailingRun, AnExceptionWhileWritingBecomesAnErrorLine) {
    onProgress() = [&] {
        if (progressNow() == "Making ... imd") {
            throw std::runtime_error("no more of it");
        }
        session.progress.push_back(progressNow());
    };
    EXPECT_FALSE(session.exportAll());
    EXPECT_EQ(session.takeMessages(), "Error: Export stopped: no more of it\n\n");
    EXPECT_EQ(session.progress.back(), "Stopped");
    EXPECT_THAT(session.infos, Contains(kNoFile));
    onProgress() = nullptr;
    EXPECT_TRUE(session.exportAll());
}

TEST_F(FailingRun, RunningOutOfMemoryBecomesAnErrorLine) {
    onProgress() = [&] {
        if (progressNow() == "Making ... imd") {
            throw std::bad_alloc();
        }
    };
    EXPECT_FALSE(session.exportAll());
    EXPECT_EQ(session.takeMessages(), "Error: Export stopped: std::bad_alloc\n\n");
}

TEST_F(FailingRun, SomethingThrownThatIsNoExceptionBecomesAnErrorLine) {
    onProgress() = [&] {
        if (progressNow() == "Making ... imd") {
            throw 42;
        }
    };
    EXPECT_FALSE(session.exportAll());
    EXPECT_EQ(session.takeMessages(), "Error: Export stopped: unknown reason\n\n");
}

TEST_F(FailingRun, AnExceptionOutsideOfTheGatheringIsCaughtToo) {
    host::Host::instance().messages().info = [](const std::string&) { throw std::runtime_error("no header"); };
    EXPECT_FALSE(session.exportAll());
    EXPECT_EQ(session.takeMessages(), "Error: Export stopped: no header\n");
}

TEST_F(FailingRun, AnExceptionInABatchRunEndsUpInTheLog) {
    onProgress() = [&] {
        if (progressNow() == "Making ... imd") {
            throw std::runtime_error("no more of it");
        }
    };
    EXPECT_FALSE(session.exportAll("batch_flag=1;batch_log_path=" + session.folder.path("log.txt")));
    EXPECT_EQ(session.fileText("log.txt"), "Error: Export stopped: no more of it\n\n");
    EXPECT_EQ(session.takeMessages(), "");
}

} // namespace
} // namespace tvk
