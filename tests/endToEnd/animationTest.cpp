// Animation through the finished program: the walking sample's files, and scenes whose frames are no plain range.

#include "FinishedProgram.h"
#include "decode/AnimationFile.h"
#include "motionChecks.h"
#include "sceneText.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace tvk {
namespace {

const std::string kSamples = TVK_SAMPLES;

std::string sampleBytes(const std::string& name) {
    std::ifstream in(kSamples + "/" + name, std::ios_base::binary);
    EXPECT_TRUE(in.is_open()) << name;
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

std::vector<double> framesOf(const FinishedProgram& program, const std::string& word) {
    const decode::AnimationFile file = decode::readAnimationFile(program.bytes("out.ica"));
    return file.things.empty() ? std::vector<double>() : file.thing(0).channel(word).frames;
}

TEST(Animation, OfTheWalkingSampleIsWhatStandsBesideIt) {
    const FinishedProgram program;
    std::filesystem::create_directory(program.path("sourceimages"));
    for (const char* const name : {"walk.ma", "workspace.mel", "sourceimages/eyes.1.tga", "sourceimages/eyes.2.tga",
                                   "sourceimages/eyes.3.tga", "sourceimages/pond.tga"}) {
        program.write(name, sampleBytes(name));
    }
    const ProgramRun run = program.run({"walk.ma", "-o", "out/walk", "--kinds", "imd,ica,ima,itp,iva,ita", "--set",
                                        "anime_interp=1", "--set", "frame_step_mode=0"});
    ASSERT_EQ(run.status, 0) << run.error;
    EXPECT_TRUE(run.errorLines().empty()) << run.error;
    for (const char* const kind : {"ica", "ima", "itp", "iva", "ita"}) {
        const std::string name = std::string("walk.") + kind;
        EXPECT_EQ(withoutMaker(program.bytes("out/" + name)), withoutMaker(sampleBytes(name))) << name;
    }
    EXPECT_EQ(decode::readModelFile(program.bytes("out/walk.imd")).names(),
              decode::readModelFile(sampleBytes("walk.imd")).names());
}

TEST(Animation, OfFramesBeforeZeroIsWritten) {
    const FinishedProgram program;
    program.write("scene.ma", sceneOf(nodeText("transform", "a") + keyed("a.tx", "-3 -3 1 1") + playback(-3, 1)));
    const ProgramRun run = program.run({"scene.ma", "-o", "out", "--kinds", "ica"});
    ASSERT_EQ(run.status, 0) << run.error;
    EXPECT_EQ(framesOf(program, "translate_x"), (std::vector<double>{-3, -2, -1, 0, 1}));
}

TEST(Animation, OfAHundredThousandFramesIsWrittenInTime) {
    const FinishedProgram program;
    program.write("scene.ma",
                  sceneOf(nodeText("transform", "a") + keyed("a.tx", "0 0 99999 25000") + playback(0, 99999)));
    for (const char* const way : {"anime_interp=1", "anime_interp=2"}) {
        const ProgramRun run =
            program.run({"scene.ma", "-o", "out", "--kinds", "ica", "--set", way, "--set", "frame_step_mode=0"});
        ASSERT_EQ(run.status, 0) << run.error;
        const std::vector<double> frames = framesOf(program, "translate_x");
        ASSERT_EQ(frames.size(), 100000U);
        EXPECT_NEAR(frames[50000], 12500.125, 0.2);
    }
}

TEST(Animation, OfMoreThanAMillionFramesIsRefused) {
    const FinishedProgram program;
    program.write("scene.ma", sceneOf(nodeText("transform", "a") + playback(0, 1000000)));
    const ProgramRun run = program.run({"scene.ma", "-o", "out", "--kinds", "ica"});
    EXPECT_EQ(run.status, 1);
    EXPECT_NE(run.error.find("Error: Too many frames: 1000001\n"), std::string::npos) << run.error;
    EXPECT_EQ(program.names(), std::vector<std::string>{"scene.ma"});
}

} // namespace
} // namespace tvk
