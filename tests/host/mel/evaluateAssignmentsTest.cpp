#include <gtest/gtest.h>

#include "ScriptRunner.h"

namespace host::mel {
namespace {

TEST(evaluateAssignments, refuseWhatDoesNotFit) {
    expectResults({
        {"int $a[]; $a[-1] = 2;", "1:14 Array index is negative"},
        {"int $a[]; $a[16777216] = 2;", "1:13 Array is too large"},
        {"int $x; $x[0] = 2;", "1:11 Cannot index data of type int."},
        {"int $x; print $x[0];", "1:17 Cannot index data of type int."},
        {"int $a[]; print $a[0][0];", "1:19 Cannot index data of type int[]."},
        {"matrix $m[1][1]; $m[0] = 2;", "1:20 A matrix needs two indices"},
        {"matrix $m[1][1]; $m[0][1] = 2;", "1:20 Matrix index is out of range"},
        {"matrix $m[1][1]; print $m[1][0];", "1:26 Matrix index is out of range"},
        {"string $s; $s++;", "1:14 Cannot convert data of type string to type int."},
        {"int $x; $x = `clear $gone`;", "1:21 \"$gone\" is an undeclared variable."},
        {"int $a[]; $x = `clear $a`;", "1:14 Cannot convert data of type none to type int."},
        {"vector $v; $v = \"1 2 3\";", "1:15 Cannot convert data of type string to type vector."},
        {"int $x; print $x.x;", "1:17 Cannot convert data of type int to type vector."},
    });
}

TEST(evaluateAssignments, convertToTheVariablesType) {
    expectResults({
        {"int $x = 3.9; $x;", "int 3"},
        {"int $x; $x = \"12 apples\";", "int 12"},
        {"float $f = 1 / 2; $f;", "float 0"},
        {"string $s = 1.50; $s;", "string 1.5"},
        {"$x = 1; $x = 2.7; $x;", "int 2"},
        {"float $f[] = {1, 2}; $f;", "float[] 1\n2\n"},
        {"string $s[]; $s[0] = 5; $s;", "string[] 5\n"},
        {"vector $v = {1.0, 2.0, 3.0}; $v;", "vector 1 2 3"},
        {"int $x = 5; $x += 0.9; $x;", "int 5"},
        {"string $s = \"a\"; $s += 1; $s;", "string a1"},
    });
}

TEST(evaluateAssignments, arraysGrowAndCopyByValue) {
    expectResults({
        {"int $a[]; $a[2] = 7; $a;", "int[] 0\n0\n7\n"},
        {"$fresh[1] = \"x\"; $fresh;", "string[] \nx\n"},
        {"int $a[] = {1}; int $b[] = $a; $b[0] = 2; $a[0];", "int 1"},
        {"int $a[] = {1}; $a[0] += 4; $a[0]++; ++$a[0];", "int 7"},
        {"int $a[] = {1, 2}; $a[5];", "int 0"},
        {"string $s[]; $s[0] == \"\";", "int 1"},
        {"matrix $m[2][2]; $m[1][0] = 5; $m[1][0] += 1; $m;", "matrix 0 0\n6 0\n"},
        {"vector $v[]; $v[0] = <<1,2,3>>; $v[0].z;", "float 3"},
        {"float $a[] = {1, 2}; $a = {}; size($a);", "int 0"},
    });
}

TEST(evaluateAssignments, incrementsGiveTheOldOrTheNewValue) {
    expectResults({
        {"int $x = 5; $x++;", "int 5"},
        {"int $x = 5; ++$x;", "int 6"},
        {"float $f = 0.5; $f--; $f;", "float -0.5"},
        {"int $i; int $a[]; $a[$i++] = $i++; $a[1] + \" \" + $i;", "string 0 2"},
    });
}

TEST(evaluateAssignments, buildingALongTextIsLinear) {
    ScriptRunner runner;
    EXPECT_EQ(
        runner.run("proc string f() { string $s; for ($i = 0; $i < 200000; $i++) $s += \"0123456789\"; return $s; }"
                   "size(f());"),
        "int 2000000");
}

} // namespace
} // namespace host::mel
