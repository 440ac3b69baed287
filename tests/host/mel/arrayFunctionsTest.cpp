#include <gtest/gtest.h>

#include "ScriptRunner.h"

namespace host::mel {
namespace {

TEST(arrayFunctions, refuseWhatIsNoArray) {
    expectResults({
        {"int $x; clear $x;", "1:9 clear needs an array variable."},
        {"clear({1});", "1:1 clear needs an array variable."},
        {"sort(5);", "1:1 sort does not take an argument of type int."},
        {"vector $v[]; sort($v); vector $w[] = {<<1,2,3>>}; sort($w);",
         "1:14 sort does not take an argument of type vector[]."},
        {R"(stringArrayContains("a", "b");)", "1:1 Cannot convert data of type string to type string[]."},
        {"int $n[]; appendStringArray($n, {\"a\"}, 1);", "1:11 appendStringArray needs an array variable."},
        {"stringArrayRemoveAtIndex(0, {\"a\"});", "1:1 stringArrayRemoveAtIndex needs an array variable."},
    });
}

TEST(arrayFunctions, searchAndSort) {
    expectResults({
        {"sort({3, 1, 2});", "int[] 1\n2\n3\n"},
        {"sort({2.5, -1});", "float[] -1\n2.5\n"},
        {R"(sort({"b", "a", "B"});)", "string[] B\na\nb\n"},
        {"int $a[] = {2, 1}; sort($a); $a;", "int[] 2\n1\n"},
        {R"(stringArrayContains("b", {"a", "b"}) + stringArrayContains("c", {"a"});)", "int 1"},
        {R"(stringArrayCount("a", {"a", "b", "a"});)", "int 2"},
        {R"(stringArrayFind("a", 1, {"a", "b", "a"});)", "int 2"},
        {R"(stringArrayFind("x", 0, {"a"});)", "int -1"},
        {"intArrayFind(5, -3, {1, 5});", "int 1"},
        {"intArrayContains(5, {1, 5}) + floatArrayContains(0.5, {0.5});", "int 2"},
        {"intArrayCount(1, {1, 1}) + floatArrayCount(2, {2.0});", "int 3"},
        {R"(intArrayToString({1, 2}, "-") + floatArrayToString({0.5, 1}, " ");)", "string 1-20.5 1"},
        {"floatArrayFind(1, 0, {0.0, 1.0});", "int 1"},
    });
}

TEST(arrayFunctions, removeAndInsert) {
    expectResults({
        {R"(stringArrayRemove({"a", "x"}, {"a", "b", "a", "c"});)", "string[] b\nc\n"},
        {"intArrayRemove({1}, {1, 2, 1});", "int[] 2\n"},
        {"floatArrayRemove({0.5}, {0.5, 2.0});", "float[] 2\n"},
        {R"(stringArrayRemoveDuplicates({"a", "b", "a"});)", "string[] a\nb\n"},
        {R"(string $s[] = {"a", "b", "c"}; stringArrayRemoveAtIndex(1, $s); $s;)", "string[] a\nc\n"},
        {"string $s[] = {\"a\"}; stringArrayRemoveAtIndex(1, $s) + stringArrayRemoveAtIndex(-1, $s);", "int 0"},
        {R"(string $s[] = {"a"}; stringArrayInsertAtIndex(0, $s, "z"); $s;)", "string[] z\na\n"},
        {"int $n[]; intArrayInsertAtIndex(0, $n, 4) + intArrayInsertAtIndex(5, $n, 4);", "int 1"},
        {"float $f[] = {1, 2}; floatArrayRemoveAtIndex(0, $f); floatArrayInsertAtIndex(1, $f, 3); $f;",
         "float[] 2\n3\n"},
        {R"(string $s[] = {"a"}; appendStringArray($s, {"b", "c"}, 1); $s;)", "string[] a\nb\n"},
        {R"(string $s[]; appendStringArray $s {"b"} 9; appendStringArray $s {"x"} -1; size($s);)", "int 1"},
        {"string $s[] = {\"a\"}; clear $s; size($s);", "int 0"},
        {"int $n[] = {1, 2}; int $m[] = $n; clear($n); size($m);", "int 2"},
    });
}

} // namespace
} // namespace host::mel
