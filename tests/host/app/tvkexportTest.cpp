// The built program from outside, with a stand-in for the exporter.

#include "TemporaryFolder.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sys/wait.h>

namespace host::app {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::StartsWith;

struct Outcome {
    int status = -1;
    std::string output, error;
};

class TvkexportTest : public testing::Test {
protected:
    TvkexportTest() {
        fs::current_path(folder);
        std::ofstream("scene.ma")
            << "//Maya ASCII 2020 scene\nrequires maya \"2020\";\ncreateNode transform -n \"a\";\n"
               "createNode transform -n \"b\";\ncreateNode transform -n \"c\" -p \"b\";\n";
    }
    ~TvkexportTest() override { fs::current_path(before); }

    static std::string contents(const std::string& path) {
        std::ifstream stream(path);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    /// Runs the program with these words of a shell, and redirections if there are any.
    static Outcome run(const std::string& arguments, const std::string& redirection = "> out.txt") {
        const std::string command = "TVK_PLUGIN='" HOST_TEST_FAKE_EXPORTER "' '" HOST_TEST_TVKEXPORT "' " + arguments +
                                    " " + redirection + " 2> err.txt";
        const int status = std::system(command.c_str());
        Outcome outcome = {WIFEXITED(status) ? WEXITSTATUS(status) : -1, contents("out.txt"), contents("err.txt")};
        fs::remove("out.txt");
        fs::remove("err.txt");
        return outcome;
    }

    const fs::path before = fs::current_path();
    const tvk::TemporaryFolder temporary;
    const std::string folder = temporary.path();
};

struct FailingRun {
    const char* arguments;
    int status;
    const char* error; // all that is printed
};

class FailingRunTest : public TvkexportTest, public testing::WithParamInterface<FailingRun> {};

TEST_P(FailingRunTest, isToldInOneLineAndLeavesNoFile) {
    std::ofstream("broken.ma") << "//Maya ASCII 2020 scene\ncreateNode transform -n \"a;\n";
    fs::create_directory("folder.ma");
    std::ofstream("binary.mb") << "FOR4";
    const auto count = [] { return std::distance(fs::directory_iterator("."), fs::directory_iterator()); };
    const auto entries = count();
    const Outcome outcome = run(GetParam().arguments);
    EXPECT_EQ(outcome.status, GetParam().status);
    EXPECT_THAT(outcome.error, StartsWith(GetParam().error));
    EXPECT_EQ(std::count(outcome.error.begin(), outcome.error.end(), '\n'), 1) << outcome.error;
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(count(), entries);
}

INSTANTIATE_TEST_SUITE_P(
    Runs, FailingRunTest,
    testing::Values(FailingRun{"", 64, "Error: no scene was named (tvkexport --help tells more)\n"},
                    FailingRun{"--batch list.z3be scene.ma", 64, "Error: --batch takes all from its list: "},
                    FailingRun{"--batch list.z3be", 1, "Error: "} /* this exporter has no such command */,
                    FailingRun{"scene.ma --check", 1, "Error: "},
                    FailingRun{"scene.ma --settings f.z3es", 1, "Error: not a settings file: f.z3es\n"},
                    FailingRun{"none.ma", 1, "Error: the scene does not exist: none.ma\n"},
                    FailingRun{"folder.ma", 1, "Error: the scene is a folder: folder.ma\n"},
                    FailingRun{"binary.mb", 1, "Error: only Maya ASCII scenes (.ma) can be read: binary.mb\n"},
                    FailingRun{"broken.ma", 1, "Error: "},
                    FailingRun{"scene.ma -o none/deep/x", 1, "Error: the output folder does not exist: "},
                    FailingRun{"none.ma -o fresh/x", 1, "Error: the scene does not exist: none.ma\n"},
                    FailingRun{"scene.ma --select nobody", 1, "Error: No object matches name: nobody\n"},
                    FailingRun{"scene.ma --set fail=1", 1, "Error: made to fail\n"},
                    FailingRun{"scene.ma --set silent=1 -o fresh/x", 1, "Error: "},
                    FailingRun{"scene.ma --set memory=1", 1, "Error: out of memory in plug-in 'fakeExporter'\n"},
                    FailingRun{"scene.ma --plugin gone.so", 1, "Error: Plug-in, \""},
                    FailingRun{"--script none.mel", 1, "Error: "},
                    FailingRun{"--command 'error \"mine\"'", 1, "Error: "},
                    FailingRun{"--command 'nonsense'", 1, "Error: "}, FailingRun{"--command 'if ('", 1, "Error: "}));

TEST_F(TvkexportTest, anExportTellsWhatWasWritten) {
    const Outcome outcome = run("scene.ma -o out/base --kinds imd,ita --set magnify=2");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.error, "") << "piped, there is no status line";
    const std::string options =
        "options imd_file_out=1;ica_file_out=0;ima_file_out=0;itp_file_out=0;iva_file_out=0;ita_file_out=1;magnify=2;\n"
        "mode 5\n";
    const std::string bytes = std::to_string(options.size()) + " bytes)\n";
    EXPECT_EQ(outcome.output, "summary\nWritten: out/base.imd (" + bytes + "Written: out/base.ita (" + bytes);
    EXPECT_EQ(contents("out/base.imd"), options);
}

TEST_F(TvkexportTest, withoutABaseTheSceneNamesTheFiles) {
    fs::create_directory("scenes");
    fs::rename("scene.ma", "scenes/house.v2.ma");
    EXPECT_EQ(run("scenes/house.v2.ma").status, 0);
    EXPECT_EQ(contents("house.v2.imd"), "options \nmode 5\n");
    EXPECT_EQ(run("scenes/house.v2.ma -o named.imd").status, 0);
    EXPECT_TRUE(fs::exists("named.imd"));
}

TEST_F(TvkexportTest, nodesCanBeChosen) {
    EXPECT_EQ(run("scene.ma --select 'b|c,a'").status, 0);
    EXPECT_EQ(contents("scene.imd"), "options \nmode 6\nselected c\nselected a\n");
}

TEST_F(TvkexportTest, warningsCountWithStrictOnly) {
    EXPECT_EQ(run("scene.ma --set warn=1").status, 0);
    const Outcome outcome = run("scene.ma --set warn=1 --strict -q");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(outcome.error, "Warning: made to warn\n");
    EXPECT_EQ(run("scene.ma --strict").status, 0);
    EXPECT_EQ(run("scene.ma --strict --set warn=1 --set fail=1").status, 1);
}

TEST_F(TvkexportTest, scriptsRunAfterOpening) {
    std::ofstream("script.mel") << "print(size(`ls -tr a b c`) + \"\\n\");\n";
    EXPECT_EQ(run("scene.ma --script script.mel --command 'print(`file -q -shn`)'").output, "3\nscene.ma");
    EXPECT_EQ(run("--command 'print(`about -batch`)'").output, "1");
    EXPECT_FALSE(fs::exists("scene.imd"));
}

TEST_F(TvkexportTest, theSceneIsOpenedWithinItsProject) {
    fs::create_directories("show/shot/scenes");
    fs::create_directories("other");
    for (const char* scene : {"show/a.ma", "show/shot/scenes/a.ma"}) {
        fs::copy_file("scene.ma", scene);
    }
    std::ofstream("show/workspace.mel") << "workspace -fr \"sourceImages\" \"pictures\";\n";
    const std::string root = fs::canonical(".").generic_string() + "/";
    const std::string ask = " --command 'print(`workspace -q -rd` + `workspace -q -fre \"sourceImages\"`)'";
    EXPECT_EQ(run("show/a.ma" + ask).output, root + "show/pictures");
    EXPECT_EQ(run("other/../show/shot/scenes/a.ma" + ask).output, root + "show/pictures") << "a folder above has one";
    EXPECT_EQ(run("scene.ma" + ask).output, root) << "nobody around has one";
    std::ofstream("show/shot/workspace.mel") << "\n";
    EXPECT_EQ(run("show/shot/scenes/a.ma" + ask).output, root + "show/shot/") << "the nearest one counts";
    EXPECT_EQ(run("show/a.ma -o out/base").status, 0);
    EXPECT_TRUE(fs::exists("out/base.imd")) << "what is written stays where the program runs";
}

TEST_F(TvkexportTest, aProjectOfTheEnvironmentWins) {
    fs::create_directories("show");
    fs::create_directories("mine");
    fs::copy_file("scene.ma", "show/a.ma");
    std::ofstream("show/workspace.mel") << "\n";
    ::setenv("MAYA_PROJECT", "mine", 1);
    const Outcome outcome = run("show/a.ma --command 'print(`workspace -q -rd`)'");
    ::unsetenv("MAYA_PROJECT");
    EXPECT_EQ(outcome.output, fs::canonical(".").generic_string() + "/mine/");
}

TEST_F(TvkexportTest, scriptsMayExportByThemselves) {
    const Outcome outcome =
        run("scene.ma --command 'file -f -ea -typ \"KALDERA_ZEPHRA_System\" -op \"x=1\" \"" + folder + "/mine\"'");
    EXPECT_EQ(outcome.status, 0) << outcome.error;
    EXPECT_EQ(contents("mine.imd"), "options x=1\nmode 5\n");
}

TEST_F(TvkexportTest, scriptsMayQuit) {
    EXPECT_EQ(run("--command 'quit -f -ec 7; print \"not here\"'").status, 7);
    EXPECT_EQ(run("--command 'quit -f; error \"not here\"'").status, 0);
    const Outcome caught = run("--command 'catch(`quit -ec 3`); while (true) {}'");
    EXPECT_EQ(caught.status, 3);
}

TEST_F(TvkexportTest, aFullDiskBehindTheOutputIsTold) {
    const Outcome outcome = run("scene.ma", "> /dev/full");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.error, "Error: cannot write to standard output\n");
    EXPECT_TRUE(fs::exists("scene.imd"));
}

TEST_F(TvkexportTest, aReaderThatHasGoneAwayKillsNothing) {
    const Outcome outcome =
        run("--command 'for ($i = 0; $i < 100000; ++$i) print($i + \"\\n\"); print \"done\\n\"'", "| true; exit 5");
    EXPECT_EQ(outcome.status, 5);
    EXPECT_EQ(run("scene.ma").status, 0);
}

TEST_F(TvkexportTest, deepScenesFitTheStack) {
    std::ofstream deep("deep.ma");
    deep << "//Maya ASCII 2020 scene\ncreateNode transform -n \"n0\";\n";
    for (int i = 1; i < 3000; ++i) {
        deep << "createNode transform -n \"n" << i << "\" -p \"n" << i - 1 << "\";\n";
    }
    deep.close();
    const Outcome outcome = run("deep.ma --command 'setAttr n0.tx 5; print(`getAttr n2999.wm`)'");
    EXPECT_EQ(outcome.status, 0) << outcome.error;
}

TEST_F(TvkexportTest, aTerminalGetsAStatusLine) {
    const std::string program = "TVK_PLUGIN='" HOST_TEST_FAKE_EXPORTER "' '" HOST_TEST_TVKEXPORT "' scene.ma ";
    EXPECT_EQ(std::system(("script -qec \"" + program + "\" typescript > screen.txt").c_str()), 0);
    EXPECT_THAT(contents("screen.txt"), HasSubstr("\r\033[KMaking   of  "));
    EXPECT_EQ(std::system(("script -qec \"" + program + "--no-progress\" typescript > screen.txt").c_str()), 0);
    EXPECT_THAT(contents("screen.txt"), testing::Not(HasSubstr("\033")));
}

} // namespace
} // namespace host::app
