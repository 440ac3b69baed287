#include "export/exportOptions.h"

#include "ExportSession.h"

#include "scene/Run.h"
#include "scene/messages.h"

#include <gtest/gtest.h>

namespace tvk {
namespace {

const ExportOptions& options() {
    return run().options;
}

/// A run whose options are reset over an animation range.
class Options : public testing::Test {
protected:
    void SetUp() override { setRange(1, 100, 10, 20); }

    // Whole range and played range.
    void setRange(double first, double last, double playedFirst, double playedLast) {
        const auto text = [](double value) { return std::to_string(value); };
        session.mel("playbackOptions -ast " + text(first) + " -aet " + text(last) + " -min " + text(playedFirst) +
                    " -max " + text(playedLast));
        reset();
    }

    void reset(const std::string& file = "model.imd") {
        MFileObject object;
        object.setRawFullName(session.folder.path(file).c_str());
        run().resetMessages();
        resetOptions(object, MPxFileTranslator::kExportAccessMode);
    }

    MStatus validate(const std::string& optionString) {
        EXPECT_TRUE(parseOptions(optionString.c_str()));
        return validateOptions();
    }

    void expectRange(int start, int end) {
        EXPECT_EQ(options().startFrame, start);
        EXPECT_EQ(options().endFrame, end);
        EXPECT_EQ(options().frameCount, end - start + 1);
    }

    ExportSession session;
};

// --- reset

TEST_F(Options, ResetTakesTheFileApart) {
    reset("char.v2.imd");
    EXPECT_EQ(options().outputFolder, session.folder.path() + "/");
    EXPECT_EQ(options().fullName, session.folder.path("char.v2.imd"));
    EXPECT_EQ(options().baseName, "char.v2");
    EXPECT_EQ(options().accessMode, MPxFileTranslator::kExportAccessMode);
}

TEST_F(Options, APointInAFolderIsNoExtension) {
    reset("folder.v1/model");
    EXPECT_EQ(options().outputFolder, session.folder.path("folder.v1") + "/");
    EXPECT_EQ(options().baseName, "model");
}

TEST_F(Options, AFileThatIsAllExtensionHasNoBaseName) {
    reset(".imd");
    EXPECT_EQ(options().baseName, "");
}

TEST_F(Options, ResetAsksForTheProject) {
    session.mel("workspace -o \"" + session.folder.path() + "\"");
    reset();
    EXPECT_EQ(options().workspaceRoot, session.folder.path() + "/");
    EXPECT_EQ("/tmp/" + options().projectName, session.folder.path());
    EXPECT_EQ(options().sceneNamespace, "");
}

TEST_F(Options, AProjectWithoutFoldersLeavesTheProjectName) {
    run().options.projectName = "before";
    session.mel("workspace -o \"/tmp\"");
    reset();
    EXPECT_EQ(options().workspaceRoot, "/tmp/");
    EXPECT_EQ(options().projectName, "before");
}

TEST_F(Options, ResetTakesTheAnimationRangeTowardZero) {
    setRange(-0.5, 7.9, 0, 1);
    EXPECT_EQ(options().startTime, -0.5);
    EXPECT_EQ(options().endTime, 7.9);
    expectRange(0, 7);
}

TEST_F(Options, AnEmptyStringGivesTheDefaultsWithTheModelAlone) {
    run().options.rawValues = true;
    run().options.quietTextureWarnings = true;
    run().options.optimizeNode = 4;
    reset();
    ASSERT_TRUE(validate(""));
    EXPECT_TRUE(options().outImd);
    EXPECT_FALSE(options().outIca || options().outIma || options().outItp || options().outIva || options().outIta);
    EXPECT_FALSE(options().animationOutput);
    EXPECT_EQ(options().magnify, 1.0);
    EXPECT_EQ(options().optimizeNode, 0);
    EXPECT_FALSE(options().unite || options().uniteCombine || options().rawValues || options().quietTextureWarnings);
    EXPECT_TRUE(options().separateNodes && options().atBindPose());
    EXPECT_FALSE(options().ignoreSkinning());
    EXPECT_EQ(options().requestedStartFrame, 1);
    EXPECT_EQ(options().requestedEndFrame, 9999);
    expectRange(1, 100);
    EXPECT_EQ(session.takeMessages(), "");
    EXPECT_FALSE(warningRaised());
}

// --- parsing

TEST_F(Options, ParsingForgetsAnEarlierRequest) {
    run().options.requestedStartFrame = 5;
    run().options.requestedEndFrame = 6;
    EXPECT_TRUE(parseOptions(""));
    EXPECT_EQ(options().requestedStartFrame, 1);
    EXPECT_EQ(options().requestedEndFrame, 9999);
}

TEST_F(Options, UnknownKeysAndBarePiecesArePassedOver) {
    EXPECT_TRUE(parseOptions("nonsense=3;magnify=2;anime_tol_c;=5;loop_interp=;;Frame_Range=2;frame_range =1"));
    EXPECT_EQ(options().magnify, 2.0);
    EXPECT_EQ(options().animeTolC, 3);
    EXPECT_FALSE(options().loopInterp);
    EXPECT_EQ(options().frameRange, 0);
    EXPECT_EQ(session.takeMessages(), "");
}

TEST_F(Options, TheLastOfTwoEqualKeysWins) {
    EXPECT_TRUE(parseOptions("magnify=2;magnify=3;magnify="));
    EXPECT_EQ(options().magnify, 3.0);
}

TEST_F(Options, AValueEndsAtASecondEqualsSign) {
    EXPECT_TRUE(parseOptions("merge_imd_path=C:/a=b/c.imd;batch_log_path==x=y"));
    EXPECT_EQ(options().mergeImdPath, "C:/a");
    EXPECT_EQ(options().batchLogPath, "x");
}

TEST_F(Options, EveryKeyOfAFullStringIsStored) {
    EXPECT_TRUE(parseOptions(
        "magnify=2;optimize_node=1;compress_material=1;frame_range=2;start_frame=3;end_frame=4;imd_file_out=0;"
        "ica_file_out=1;ima_file_out=1;itp_file_out=1;iva_file_out=1;ita_file_out=1;vertex_table_flag=1;out_all_tex=1;"
        "force_full_weight=1;use_primitive_strip=0;anime_interp=2;loop_interp=1;frame_step_mode=3;anime_tol_t=1;"
        "anime_tol_r=2;anime_tol_s=3;anime_tol_c=4;anime_tol_uv_t=5;anime_tol_uv_r=6;anime_tol_uv_s=7;"
        "use_mtworkbench=1;merge_imd_flag=1;merge_imd_path=m;batch_flag=1;batch_log_path=l;"));
    const ExportOptions& o = options();
    EXPECT_EQ(o.magnify, 2.0);
    EXPECT_EQ(o.optimizeNode, 1);
    EXPECT_TRUE(o.compressMaterial);
    EXPECT_EQ(o.frameRange, 2);
    EXPECT_EQ(o.requestedStartFrame, 3);
    EXPECT_EQ(o.requestedEndFrame, 4);
    EXPECT_FALSE(o.outImd);
    EXPECT_TRUE(o.outIca && o.outIma && o.outItp && o.outIva && o.outIta);
    EXPECT_TRUE(o.vertexTableFlag && o.outAllTex && o.forceFullWeight);
    EXPECT_FALSE(o.usePrimitiveStrip);
    EXPECT_EQ(o.animeInterp, 2);
    EXPECT_TRUE(o.loopInterp);
    EXPECT_EQ(o.frameStepMode, 3);
    EXPECT_EQ(o.animeTolT, 1.0F);
    EXPECT_EQ(o.animeTolR, 2.0F);
    EXPECT_EQ(o.animeTolS, 3.0F);
    EXPECT_EQ(o.animeTolC, 4);
    EXPECT_EQ(o.animeTolUvT, 5.0F);
    EXPECT_EQ(o.animeTolUvR, 6.0F);
    EXPECT_EQ(o.animeTolUvS, 7.0F);
    EXPECT_TRUE(o.useMtworkbench && o.mergeImdFlag && o.batchFlag);
    EXPECT_EQ(o.mergeImdPath, "m");
    EXPECT_EQ(o.batchLogPath, "l");
}

// --- validation

TEST_F(Options, NoOutputIsRefusedBeforeAnyFrameRangeIsLookedAt) {
    EXPECT_FALSE(validate("imd_file_out=0;frame_range=2;start_frame=500;end_frame=600"));
    EXPECT_EQ(session.takeMessages(), "Error: No output file\n");
    EXPECT_FALSE(warningRaised());
}

TEST_F(Options, AnEmptyRangeIsRefused) {
    setRange(1, 100, 1, 100);
    run().options.startFrame = 8; // as hosts may say that let a range end before it begins
    run().options.endFrame = 7;
    EXPECT_FALSE(validate(""));
    EXPECT_EQ(session.takeMessages(), "Error: Invalid frame range (8 - 7)\n");
}

TEST_F(Options, AMagnifyThatIsNoPositiveNumberIsOne) {
    for (const char* value : {"0", "-2", "nan", "abc", "inf", "-inf", "1e400"}) {
        ASSERT_TRUE(validate(std::string("magnify=") + value));
        EXPECT_EQ(options().magnify, 1.0) << value;
    }
    EXPECT_EQ(session.takeMessages(), "");
}

TEST_F(Options, AnyAnimationFileMakesARunSample) {
    for (const char* key : {"ica", "ima", "itp", "iva", "ita"}) {
        reset();
        ASSERT_TRUE(validate(std::string("imd_file_out=0;") + key + "_file_out=1")) << key;
        EXPECT_TRUE(options().animationOutput) << key;
    }
}

TEST_F(Options, TheWholeRangeIsKept) {
    ASSERT_TRUE(validate("frame_range=0;start_frame=5;end_frame=6"));
    expectRange(1, 100);
    EXPECT_EQ(options().startTime, 1.0);
    EXPECT_EQ(options().endTime, 100.0);
}

TEST_F(Options, ThePlayedRangeIsAskedFor) {
    setRange(1, 100, 10.75, 20.25);
    ASSERT_TRUE(validate("frame_range=1"));
    expectRange(10, 20);
    EXPECT_EQ(options().startTime, 10.75);
    EXPECT_EQ(options().endTime, 20.25);
}

TEST_F(Options, ARequestedRangeMayBeTheWrongWayRound) {
    ASSERT_TRUE(validate("frame_range=2;start_frame=50;end_frame=10"));
    expectRange(10, 50);
    EXPECT_EQ(options().startTime, 10.0);
    EXPECT_EQ(options().endTime, 50.0);
    EXPECT_EQ(options().requestedStartFrame, 50); // the swap is not stored
    EXPECT_EQ(session.takeMessages(), "");
}

TEST_F(Options, ARequestNeverWidensTheRange) {
    ASSERT_TRUE(validate("frame_range=2;start_frame=-5;end_frame=500"));
    expectRange(1, 100);
    EXPECT_EQ(session.takeMessages(), "");
    EXPECT_FALSE(warningRaised());
}

TEST_F(Options, AStartBehindTheRangeIsIgnoredWithAWarning) {
    ASSERT_TRUE(validate("frame_range=2;start_frame=150"));
    expectRange(1, 100);
    EXPECT_EQ(session.takeMessages(), "Warning: Invalid start frame (ignored): 150\n");
    EXPECT_TRUE(warningRaised());
}

TEST_F(Options, AnEndBeforeTheRangeIsIgnoredWithAWarning) {
    ASSERT_TRUE(validate("frame_range=2;start_frame=-10;end_frame=0"));
    expectRange(1, 100);
    EXPECT_EQ(session.takeMessages(), "Warning: Invalid end frame (ignored): 0\n");
    EXPECT_TRUE(warningRaised());
}

// The numbers printed are those after swapping.
TEST_F(Options, BothEndsCanBeIgnored) {
    setRange(10, 20, 10, 20);
    ASSERT_TRUE(validate("frame_range=3;start_frame=40;end_frame=30"));
    expectRange(10, 20);
    EXPECT_EQ(session.takeMessages(), "Warning: Invalid start frame (ignored): 30\n");
    ASSERT_TRUE(validate("frame_range=-1;start_frame=5;end_frame=3"));
    expectRange(10, 20);
    EXPECT_EQ(session.takeMessages(), "Warning: Invalid end frame (ignored): 5\n");
}

TEST_F(Options, AnEndBeforeTheNewStartIsImpossibleAfterSwapping) {
    ASSERT_TRUE(validate("frame_range=2;start_frame=30;end_frame=30"));
    expectRange(30, 30);
}

TEST_F(Options, UnitedNodesAreFlagged) {
    struct Case {
        const char* mode;
        bool unite, combine;
    };
    const Case cases[] = {{"0", false, false}, {"1", false, false}, {"2", false, false}, {"3", true, false},
                          {"4", true, true},   {"5", false, false}, {"-1", false, false}};
    for (const Case& c : cases) {
        ASSERT_TRUE(validate(std::string("optimize_node=") + c.mode));
        EXPECT_EQ(options().unite, c.unite) << c.mode;
        EXPECT_EQ(options().uniteCombine, c.combine) << c.mode;
        EXPECT_EQ(options().separateNodes, !c.unite) << c.mode;
    }
    EXPECT_EQ(session.takeMessages(), "");
}

TEST_F(Options, UnitingWithVisibilityAnimationWarnsInTwoLines) {
    ASSERT_TRUE(validate("optimize_node=3;iva_file_out=1"));
    EXPECT_EQ(session.takeMessages(), "Warning: Compress Node \"Unite\" can be undesirable\n"
                                      "         when you export visibility animation\n");
    EXPECT_TRUE(warningRaised());
    reset();
    ASSERT_TRUE(validate("optimize_node=3;ica_file_out=1"));
    EXPECT_EQ(session.takeMessages(), "");
}

TEST_F(Options, HugeRangesDoNotOverflow) {
    run().options.startFrame = -2147483647 - 1;
    run().options.endFrame = 2147483647;
    ASSERT_TRUE(validate(""));
    EXPECT_EQ(options().frameCount, 2147483647);
}

} // namespace
} // namespace tvk
