#include <gtest/gtest.h>

#include "ScriptRunner.h"

namespace host::mel {
namespace {

TEST(evaluateCalls, refuseWrongCalls) {
    expectResults({
        {"noSuchThing 1;", "1:1 Cannot find procedure \"noSuchThing\"."},
        {"int $x = noSuchThing(1);", "1:10 Cannot find procedure \"noSuchThing\"."},
        {"proc f(int $a) {} f;", "1:19 Wrong number of arguments on call to f."},
        {"proc f(int $a) {} f(1, 2);", "1:19 Wrong number of arguments on call to f."},
        {"size();", "1:1 Wrong number of arguments on call to size."},
        {"proc f(int $a) {} f({1});", "1:21 Cannot convert data of type int[] to type int."},
        {"proc f(int $a[]) {} f(1);", "1:23 Cannot convert data of type int to type int[]."},
        {"proc f() { return 1; } f;", "1:12 Procedure \"f\" has no return type but returns a value."},
        {"proc int f() { return {1}; } f;", "1:16 Cannot convert data of type int[] to type int."},
        {"proc int f(int $d) { return f($d + 1); } f(0);", "1:22 Too many nested calls"},
        {"proc int f() {\n  return 1 / 0;\n}\nf;", "2:12 Division by zero"},
    });
}

TEST(evaluateCalls, procedures) {
    expectResults({
        {"proc int fact(int $n) { if ($n < 2) return 1; return $n * fact($n - 1); } fact(10);", "int 3628800"},
        {"proc float half(float $x) { return $x / 2; } half(3);", "float 1.5"},
        {"proc string[] pair(string $a, string $b) { return {$a, $b}; } pair \"x\" -y;", "string[] x\n-y\n"},
        {"proc int f() { } f;", "int 0"},
        {"proc f() { return; } f;", "none "},
        {"int $r = first(); proc int first() { return second(); } proc int second() { return 2; } $r;", "int 2"},
        {"proc int f() { for (;;) { while (1) { return 3; } } } f;", "int 3"},
        {"proc int f() { switch (1) { case 1: return 4; } return 5; } f;", "int 4"},
        {"proc vector f(vector $v) { return $v * 2; } f(<<1,2,3>>);", "vector 2 4 6"},
        {"proc int f(int $x) { $x = 9; return $x; } int $y = 1; f($y); $y;", "int 1"},
    });
}

TEST(evaluateCalls, arraysArePassedByReference) {
    expectResults({
        {"proc add(int $a[]) { $a[size($a)] = 7; } int $n[]; add($n); add $n; size($n);", "int 2"},
        {"proc add(string $a[]) { $a[0] = \"x\"; } proc outer(string $b[]) { add($b); } string $s[]; outer($s); $s;",
         "string[] x\n"},
        {R"(proc set(string $a[]) { $a = {"p", "q"}; } string $s[]; set($s); size($s);)", "int 2"},
        {"proc set(float $a[]) { $a[0] = 2.5; } int $n[] = {1}; set($n); $n;", "int[] 1\n"},
        {"proc int count(int $a[]) { return size($a); } count({1, 2, 3});", "int 3"},
        {"global int $g[]; proc add(int $a[]) { global int $g[]; $g[0] = 1; $a[1] = 2; } add($g); $g;", "int[] 1\n2\n"},
    });
}

TEST(evaluateCalls, catchHoldsErrorsUp) {
    ScriptRunner runner;
    EXPECT_EQ(runner.run("proc int deep() { int $x = 1 / 0; return $x; }"
                         "int $a = catch(deep()); int $b = catchQuiet(`noSuch`); int $c = `catch(size(\"a\"))`;"
                         "if (catch(`error \"mine\"`)) print \"held\"; ({$a, $b, $c});"),
              "int[] 1\n1\n0\n");
    EXPECT_EQ(runner.printed, "held");
    EXPECT_EQ(runner.errors, (std::vector<std::string>{"Division by zero", "mine"}));
}

TEST(evaluateCalls, anErrorBehindACaughtOneHasItsOwnPlace) {
    expectResults(
        {{"proc f() { error \"inner\"; }\ncatchQuiet(`f`);\n  noSuch;", "3:3 Cannot find procedure \"noSuch\"."}});
}

TEST(evaluateCalls, aFailingCommandEndsTheScript) {
    ScriptRunner runner;
    ASSERT_TRUE(runner.interpreter.commands().add("fails", [](Interpreter& inner, const Invocation&) -> CommandResult {
        EXPECT_TRUE(inner.eval("print inner;\n\n;").ok());
        EXPECT_FALSE(inner.eval("\n\nnoSuch;").ok());
        return CommandResult::failure("No object matches name: x");
    }));
    EXPECT_EQ(runner.run("print 1;\n fails; print 2;"), "2:2 No object matches name: x");
    EXPECT_EQ(runner.printed, "1inner");
}

TEST(evaluateCalls, localProceduresBelongToTheirText) {
    ScriptRunner runner;
    EXPECT_EQ(runner.run("proc int hidden() { return 1; } global proc int shown() { return hidden() + 1; } shown;"),
              "int 2");
    EXPECT_EQ(runner.run("shown;"), "int 2");
    EXPECT_EQ(runner.run("hidden;"), "1:1 Cannot find procedure \"hidden\".");
    EXPECT_EQ(runner.run("global proc int shown() { return 9; }"), "none ");
    EXPECT_EQ(runner.run("shown;"), "int 9");
}

TEST(evaluateCalls, aProcedureMayRedeclareItself) {
    ScriptRunner runner;
    EXPECT_EQ(
        runner.run(
            "global proc int f() { eval(\"global proc int f() { return 2; }\"); return 1 + f(); } f() * 10 + f();"),
        "int 32");
    EXPECT_EQ(runner.run("global proc g() { eval(\"global proc g() {}\"); error \"after\"; }\ng;"), "1:47 after");
}

} // namespace
} // namespace host::mel
