#include "FinishedProgram.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace tvk {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

/// The program and the files of samples/walk.
class Preview : public testing::Test {
protected:
    Preview() {
        for (const char* ending : {"imd", "ica", "ima", "itp", "iva", "ita"}) {
            const std::string name = std::string("walk.") + ending;
            fs::copy_file(TVK_SAMPLES "/" + name, program.path(name));
        }
    }

    /// A run that must fail with this one line and leave the folder as it is.
    void expectRefused(const std::vector<std::string>& arguments, const std::string& line) const {
        const std::vector<std::string> before = program.names();
        const ProgramRun run = program.run(arguments);
        EXPECT_EQ(run.status, 1);
        EXPECT_THAT(run.errorLines(), ElementsAre(line));
        EXPECT_EQ(run.out, "");
        EXPECT_EQ(program.names(), before);
    }

    FinishedProgram program;
};

} // namespace

TEST_F(Preview, WritesAPage) {
    const ProgramRun run = program.run({"--preview", "walk", "-o", "preview.html"});
    EXPECT_EQ(run.status, 0) << run.error;
    EXPECT_EQ(run.error, "");
    const std::string page = program.bytes("preview.html");
    EXPECT_EQ(run.out, "Written: preview.html (" + std::to_string(page.size()) + " bytes)\n");
    EXPECT_THAT(page, StartsWith("<!DOCTYPE html>"));
    EXPECT_THAT(page, HasSubstr(R"({"title":{"path":"walk"})"));
    EXPECT_EQ(page.substr(page.size() - 8), "</html>\n");
}

TEST_F(Preview, GoesWhereItIsSent) {
    fs::create_directory(program.path("folder"));
    for (const auto& [output, written] :
         std::vector<std::pair<std::string, std::string>>{{"", "walk.html"},
                                                          {"folder", "folder/walk.html"},
                                                          {"new/page", "new/page.html"},
                                                          {"walk.imd", "walk.imd.html"}}) {
        std::vector<std::string> arguments = {"--preview", program.path("walk.imd")};
        if (!output.empty()) {
            arguments.insert(arguments.end(), {"-o", output});
        }
        const ProgramRun run = program.run(arguments);
        EXPECT_EQ(run.status, 0) << run.error;
        EXPECT_THAT(run.out, StartsWith("Written: " + written + " ("));
        EXPECT_TRUE(fs::is_regular_file(program.path(written))) << written;
    }
    EXPECT_EQ(program.names("new"), std::vector<std::string>{"page.html"});
}

TEST_F(Preview, ShowsWhatTheProgramExports) {
    const ProgramRun exported = program.run({TVK_SAMPLES "/golem.ma", "-o", "golem"});
    ASSERT_EQ(exported.status, 0) << exported.error;
    const ProgramRun run = program.run({"--preview", "golem"});
    EXPECT_EQ(run.status, 0) << run.error;
    EXPECT_TRUE(fs::is_regular_file(program.path("golem.html")));
}

TEST_F(Preview, NeedsAModel) {
    expectRefused({"--preview", "nothing"}, "Error: there is no nothing.imd: a preview needs the model");
    expectRefused({"--preview", "no/folder/x"}, "Error: there is no no/folder/x.imd: a preview needs the model");
}

TEST_F(Preview, RefusesDamagedAndMixedFiles) {
    const std::string visibility = program.bytes("walk.iva");
    program.write("walk.iva", visibility.substr(0, visibility.size() / 2));
    const ProgramRun run = program.run({"--preview", "walk"});
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.errorLines(), ElementsAre(StartsWith("Error: walk.iva: line ")));
    EXPECT_FALSE(fs::exists(program.path("walk.html")));
    program.write("walk.iva", visibility);
    fs::copy_file(TVK_SAMPLES "/golem.imd", program.path("walk.imd"), fs::copy_options::overwrite_existing);
    expectRefused({"--preview", "walk"},
                  "Error: walk.ica and walk.imd are of different exports: it has 41 nodes, the model has 24");
}

TEST_F(Preview, LeavesAnOlderPageAsItIsWhenItFails) {
    program.write("walk.html", "older");
    program.write("walk.ima", "");
    EXPECT_EQ(program.run({"--preview", "walk"}).status, 1);
    EXPECT_EQ(program.bytes("walk.html"), "older");
}

TEST_F(Preview, TellsWhatCannotBeWritten) {
    fs::create_directories(program.path("page.html/inside"));
    const ProgramRun run = program.run({"--preview", "walk", "-o", "page.html/"});
    EXPECT_EQ(run.status, 0) << run.error; // a folder whose name looks like a page's
    EXPECT_TRUE(fs::is_regular_file(program.path("page.html/walk.html")));
    fs::create_directories(program.path("walk.html/inside"));
    expectRefused({"--preview", "walk"}, "Error: cannot write walk.html: Is a directory");
    program.write("file", "");
    const ProgramRun below = program.run({"--preview", "walk", "-o", "file/page.html"});
    EXPECT_EQ(below.status, 1);
    EXPECT_EQ(below.errorLines().size(), 1U) << below.error;
}

TEST_F(Preview, TellsOfAFullDisk) {
    FinishedProgram::Surroundings small;
    small.environment["LC_ALL"] = "C";
    fs::create_symlink("/dev/full", program.path("full.html.part"));
    const ProgramRun run = program.run({"--preview", "walk", "-o", "full.html"}, small);
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.errorLines(), ElementsAre("Error: cannot write full.html"));
    EXPECT_FALSE(fs::exists(program.path("full.html")));
    EXPECT_TRUE(fs::exists("/dev/full"));
}

} // namespace tvk
