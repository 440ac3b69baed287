#include <gtest/gtest.h>

#include "ScriptRunner.h"

namespace host::mel {
namespace {

TEST(executeStatements, loopsAndBranches) {
    expectPrints({
        {"if (0) print 1; else if (1) print 2; else print 3;", "2"},
        {"if (1) { if (0) print 1; else print 2; }", "2"},
        {"for ($i = 0; $i < 3; $i++) print $i;", "012"},
        {R"(for (int $i = 0, $j = 9; $i < $j; $i += 3, $j--) print ($i + " " + $j + ";");)", "0 9;3 8;6 7;"},
        {"int $i; for (;;) { if (++$i > 3) break; print $i; }", "123"},
        {"for ($i = 0; $i < 5; $i++) { if ($i % 2) continue; print $i; }", "024"},
        {R"(for ($s in {"a", "b"}) print $s;)", "ab"},
        {R"(string $s; for ($s in {"a", "b"}) if ($s == "a") continue; else print $s;)", "b"},
        {"for (string $s in {1, 2}) print ($s + \",\");", "1,2,"},
        {"int $i = 3; while ($i) print ($i--);", "321"},
        {"int $i; do { print $i; } while (++$i < 2);", "01"},
        {"int $a[] = {1, 2}; for ($x in $a) { $a[size($a)] = 9; print $x; }", "12"},
        {";;{;}", ""},
    });
}

TEST(executeStatements, switchesFallThrough) {
    const std::string body =
        R"() { case 1: print "a"; case 2: print "b"; break; default: print "d"; case 3: print "c"; })";
    const std::vector<std::pair<std::string, std::string>> cases = {{"1", "ab"}, {"2", "b"}, {"3", "c"}, {"4", "dc"}};
    for (const auto& [value, printed] : cases) {
        ScriptRunner runner;
        EXPECT_EQ(runner.run(std::string("switch (").append(value).append(body)), "none ");
        EXPECT_EQ(runner.printed, printed) << value;
    }
    expectPrints({
        {R"(switch ("x") { case "y": print 1; break; case "x": case "z": print 2; })", "2"},
        {"for ($i = 0; $i < 3; $i++) { switch ($i) { case 1: continue; } print $i; }", "02"},
        {"switch (5) { case 1: print 1; }", ""},
    });
}

TEST(executeStatements, variablesLiveInTheirBlock) {
    expectPrints({
        {"int $x = 1; { int $x = 2; print $x; } print $x;", "21"},
        {"for ($i = 0; $i < 2; $i++) { int $n; $n++; print $n; }", "11"},
        {"for ($i = 0; $i < 2; $i++) { $list[size({1})] = \"x\"; print (size($list)); }", "22"},
        {"proc f() { if (1) { $a = 5; } for ($i = 0; $i < 1; $i++) {} print $i; } f;", "1"},
        {"int $x = 4; int $x; print $x;", "4"},
        {"int $a[3]; print (size($a)); print $a[2];", "30"},
        {"matrix $m[2][3]; print $m;", "0 0 0\n0 0 0\n"},
    });
}

TEST(executeStatements, aGlobalIsInitialisedOnce) {
    ScriptRunner runner;
    EXPECT_EQ(runner.run("global proc int next() { global int $gCount = 5; $gCount++; return $gCount; }"), "none ");
    EXPECT_EQ(runner.run("next(); next();"), "int 7");
    EXPECT_EQ(runner.interpreter.findGlobal("gCount")->toInt(), 7);
}

TEST(executeStatements, wrongDeclarationsAndLoopsAreErrors) {
    expectResults({
        {"int $a[-1];", "1:8 Array index is negative"},
        {"int $a[20000000];", "1:8 Array is too large"},
        {"matrix $m[100000][100000];", "1:8 Array is too large"},
        {"int $x = {1};", "1:5 Cannot convert data of type int[] to type int."},
        {"string $s[] = \"a\";", "1:8 Cannot convert data of type string to type string[]."},
        {"for ($x in 5) print $x;", "1:6 Cannot index data of type int."},
        {"switch ({1}) { case 1: print 1; }", "1:21 Cannot use '==' on int[] and int."},
    });
}

} // namespace
} // namespace host::mel
