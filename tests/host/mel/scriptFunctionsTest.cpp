#include <cstdlib>

#include <gtest/gtest.h>

#include "ScriptRunner.h"

namespace host::mel {
namespace {

TEST(scriptFunctions, errorEndsTheScriptWithItsText) {
    expectResults({
        {"error \"went wrong\"; print 1;", "1:1 went wrong"},
        {R"(error -n -sl true ("a" + "b");)", "1:1 ab"},
        {"error -zz \"a\";", "1:1 Invalid flag '-zz'"},
        {"error -n;", "1:1 Wrong number of arguments on call to error."},
    });
}

TEST(scriptFunctions, messagesGoToTheirSinks) {
    ScriptRunner runner;
    EXPECT_EQ(runner.run("warning \"careful\"; print (\"a\\n\"); print 1.5; print {1, 2}; evalEcho \"print 7\";"),
              "none ");
    EXPECT_EQ(runner.warnings, std::vector<std::string>{"careful"});
    EXPECT_EQ(runner.printed, "a\n1.51\n2\n7");
    EXPECT_EQ(runner.infos, std::vector<std::string>{"print 7"});
}

TEST(scriptFunctions, evalRunsAtTheOutermostLevel) {
    expectResults({
        {"eval(\"1 + 1\");", "int 2"},
        {R"(eval "int $made = 3"; eval("$made + 1");)", "int 4"},
        {R"(proc f() { eval("$fromEval = 5"); } f; eval("$fromEval");)", "int 5"},
        {"proc int f() { int $local = 1; return eval(\"$local\"); } f;", "1:1 \"$local\" is an undeclared variable."},
        {R"(string $cb = "size"; eval($cb + " \"a b\"");)", "int 3"},
        {R"(eval "size" "abc";)", "int 3"},
        {"eval(\"print (\");", "1:8 Syntax error: expected an expression, found end of text"},
        {R"(eval("\n\n noSuch");)", "3:2 Cannot find procedure \"noSuch\"."},
    });
}

TEST(scriptFunctions, existsAndWhatIsSeeLocalProcedures) {
    expectResults({
        {"proc here() {} exists here;", "int 1"},
        {"proc here() {} whatIs here;", "string Mel procedure entered interactively."},
        {"exists \"size\";", "int 1"},
        {"exists noSuch;", "int 0"},
        {"int $x; exists \"$x\";", "int 0"},
        {"int $x; whatIs \"$x\";", "string int variable"},
        {"whatIs \"\";", "string Unknown"},
    });
}

TEST(scriptFunctions, theEnvironmentCanBeReadAndCovered) {
    expectResults({
        {"getenv \"MEL_TEST_ABSENT\";", "string "},
        {R"(putenv "MEL_TEST_A" "one two"; getenv("MEL_TEST_A");)", "string one two"},
        {"putenv PATH \"\"; getenv PATH;", "string "},
        {R"(putenv MEL_TEST_B x; stringArrayContains("MEL_TEST_B", env()) + stringArrayContains("PATH", `env`);)",
         "int 2"},
    });
    EXPECT_EQ(ScriptRunner().run("getenv PATH;"), std::string("string ") + std::getenv("PATH"));
}

} // namespace
} // namespace host::mel
