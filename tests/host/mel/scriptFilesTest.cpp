#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>

#include "ScriptRunner.h"

namespace host::mel {
namespace {

struct ScriptFiles : ::testing::Test {
    std::filesystem::path folder =
        std::filesystem::path(::testing::TempDir()) / ::testing::UnitTest::GetInstance()->current_test_info()->name();
    ScriptRunner runner;

    ScriptFiles() {
        std::filesystem::remove_all(folder);
        std::filesystem::create_directories(folder / "sub");
        runner.interpreter.setScriptLoader(folderScriptLoader([this] {
            return std::vector<std::string>{(folder / "absent").string(), folder.string()};
        }));
    }
    ~ScriptFiles() override { std::filesystem::remove_all(folder); }

    void write(const std::string& name, const std::string& text) const { std::ofstream(folder / name) << text; }
};

TEST_F(ScriptFiles, missingOnesAreErrors) {
    EXPECT_EQ(runner.run("source \"absent.mel\";"), "1:1 Cannot find file \"absent.mel\" for source statement.");
    EXPECT_EQ(runner.run("source \"\";"), "1:1 Cannot find file \"\" for source statement.");
    EXPECT_EQ(runner.run("source sub;"), "1:1 Cannot find file \"sub\" for source statement.");
    EXPECT_EQ(runner.run("source \"/absent/x.mel\";"), "1:1 Cannot find file \"/absent/x.mel\" for source statement.");
}

TEST_F(ScriptFiles, areFoundByNameOrPath) {
    write("a.mel", "print \"a\";");
    write("sub/b.mel", "print \"b\";");
    EXPECT_EQ(runner.run("source a; source \"a.mel\"; source \"sub/b\"; source \"" +
                         (folder / "a.mel").generic_string() + "\";"),
              "none ");
    EXPECT_EQ(runner.printed, "aaba");
}

TEST_F(ScriptFiles, keepTheirOutermostVariablesToThemselves) {
    write("a.mel", "int $own = 1; global int $shared = 2; global proc int fromFile() { return 3; }");
    EXPECT_EQ(runner.run("source a; fromFile();"), "int 3");
    EXPECT_EQ(runner.interpreter.findGlobal("own"), nullptr);
    EXPECT_EQ(runner.interpreter.findGlobal("shared")->toInt(), 2);
}

TEST_F(ScriptFiles, aProcedureIsFoundInTheFileOfItsName) {
    write("tool.mel", "proc int helper() { return 4; } global proc int tool(int $x) { return $x + helper(); }");
    write("empty.mel", "");
    EXPECT_EQ(runner.run("exists tool;"), "int 1");
    EXPECT_EQ(runner.run("tool(1);"), "int 5");
    EXPECT_EQ(runner.run("empty;"), "1:1 Cannot find procedure \"empty\".");
}

TEST_F(ScriptFiles, errorsNameTheirFileAndLine) {
    write("bad.mel", "int $x;\nprint (;\n");
    const EvalResult result = runner.interpreter.source("bad");
    ASSERT_FALSE(result.ok());
    EXPECT_EQ(result.error->file, (folder / "bad.mel").generic_string());
    EXPECT_EQ(result.error->line, 2U);
    EXPECT_EQ(result.error->column, 8U);
}

TEST_F(ScriptFiles, thatSourceThemselvesEnd) {
    write("self.mel", "source self;");
    EXPECT_NE(runner.run("source self;").find("Too many nested calls"), std::string::npos);
}

} // namespace
} // namespace host::mel
