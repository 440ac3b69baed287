// What --verify tells of exports by the finished program.

#include "FinishedProgram.h"
#include "guidePages.h"
#include "sceneText.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

namespace tvk {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

constexpr const char* kAllKinds = "imd,ica,ima,itp,iva,ita";

std::vector<std::string> scenesIn(const std::string& folder) {
    std::vector<std::string> scenes;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        if (entry.path().extension() == ".ma") {
            scenes.push_back(entry.path().generic_string());
        }
    }
    std::sort(scenes.begin(), scenes.end());
    return scenes;
}

TEST(Verify, PassesForEverySample) {
    const std::vector<std::string> samples = scenesIn(TVK_SAMPLES);
    ASSERT_GE(samples.size(), 4U);
    for (const std::string& sample : samples) {
        const FinishedProgram program;
        const ProgramRun run = program.run({sample, "--kinds", kAllKinds, "--verify"});
        EXPECT_EQ(run.status, 0) << sample << run.error;
        EXPECT_THAT(run.out, HasSubstr("\nVerified: "));
    }
}

// Those that cannot be exported as they are (pictures that no console tool reads, meshes in no shading group) are made
// so and proved by the tests of real scenes.
class VerifiedRealScene : public testing::TestWithParam<std::string> {};

TEST_P(VerifiedRealScene, PassesWhenItIsExported) {
    const FinishedProgram program;
    const ProgramRun run = program.run({GetParam(), "-o", "out", "--kinds", kAllKinds, "--verify"});
    const bool isExported = run.out.find("\nWritten: out.imd ") != std::string::npos;
    EXPECT_EQ(run.status, isExported ? 0 : 1) << run.error;
    EXPECT_EQ(run.out.find("\nVerified: out\n") != std::string::npos, isExported);
}

INSTANTIATE_TEST_SUITE_P(Corpus, VerifiedRealScene, testing::ValuesIn(scenesIn(TVK_SCENES)), [](const auto& row) {
    std::string name = std::filesystem::path(row.param).parent_path().filename().string();
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
});

TEST(Verify, PrintsWhatItsPageShows) {
    const FinishedProgram program;
    const ProgramRun run = program.run({std::string(TVK_SAMPLES) + "/walk.ma", "--kinds", kAllKinds, "--verify"});
    EXPECT_EQ(run.status, 0) << run.error;
    EXPECT_THAT(run.out, HasSubstr(guideBlock("verify.md", "Verified: walk")));
}

TEST(Verify, PrintsBehindAReportWhatTheFirstPageShows) {
    const FinishedProgram program;
    const ProgramRun run =
        program.run({std::string(TVK_SAMPLES) + "/walk.ma", "--kinds", kAllKinds, "--verify", "--report"});
    EXPECT_EQ(run.status, 0) << run.error;
    EXPECT_THAT(run.out, EndsWith(guideBlock("../README.md", "Limits\n")));
}

TEST(Verify, NamesFilesThatWereNotWritten) {
    const FinishedProgram program;
    const ProgramRun run = program.run({std::string(TVK_SAMPLES) + "/walk.ma", "--verify"});
    EXPECT_EQ(run.status, 0) << run.error;
    EXPECT_THAT(run.out, HasSubstr("\n  ica  not written, not compared\n"));
}

TEST(Verify, IsOfAnExportOnly) {
    const FinishedProgram program;
    const ProgramRun run = program.run({"--batch", "list.z3be", "--verify"});
    EXPECT_EQ(run.status, 64);
    EXPECT_THAT(run.error, HasSubstr("Error: --verify goes with the export of a scene only"));
}

TEST(Verify, ComparesNothingWhenTheExportFails) {
    const FinishedProgram program;
    program.write("scene.ma", sceneOf(""));
    const ProgramRun run = program.run({"scene.ma", "--verify"});
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.out, Not(HasSubstr("Verified")));
    EXPECT_THAT(program.names(), testing::ElementsAre("scene.ma"));
}

} // namespace
} // namespace tvk
