#include <gtest/gtest.h>

#include "ScriptRunner.h"

namespace host::mel {
namespace {

TEST(stringFunctions, refuseWrongArguments) {
    expectResults({
        {R"(match "(" "a";)", "1:1 Invalid regular expression \"(\"."},
        {R"(substitute "[" "a" "b";)", "1:1 Invalid regular expression \"[\"."},
        {"toupper({\"a\"});", "1:1 Cannot convert data of type string[] to type string."},
        {"stringArrayToString(5, \",\");", "1:1 stringArrayToString does not take an argument of type int."},
        {R"(tokenize("a b", " ", "c");)", "1:1 tokenize needs an array variable."},
        {"string $s; tokenize \"a\" $s;", "1:12 tokenize needs an array variable."},
        {"int $n[]; tokenize \"a\" $n;", "1:11 Cannot convert data of type string[] to type int[]."},
        {"format -s;", "1:1 Flag '-s' needs 1 argument(s)"},
        {R"(format -x "a" "b";)", "1:1 Invalid flag '-x'"},
        {R"(format "a" "b";)", "1:1 Wrong number of arguments on call to format."},
        {"substring \"a\";", "1:1 Wrong number of arguments on call to substring."},
    });
}

TEST(stringFunctions, giveTheDocumentedResults) {
    expectResults({
        {"size \"hello\";", "int 5"},
        {"size({1,2,3});", "int 3"},
        {"size(5);", "int 1"},
        {R"(strcmp "a" "b";)", "int -1"},
        {R"(strcmp("same", "same");)", "int 0"},
        {"substring(\"hello\", 2, 4);", "string ell"},
        {"substring(\"hello\", 4, 99);", "string lo"},
        {"substring(\"hello\", 0, 2);", "string "},
        {"substring(\"hello\", 3, 2);", "string "},
        {"substring(\"hello\", 6, 7);", "string "},
        {R"(startString("hello", 2) + endString("hello", 2) + startString("ab", 9) + endString("ab", -1);)",
         "string heloab"},
        {R"(startsWith("abc_d", "abc") + endsWith("a.ma", ".ma") * 2 + startsWith("a", "ab") * 4;)", "int 3"},
        {"toupper \"aB1\" ;", "string AB1"},
        {"tolower(\"aB1\");", "string ab1"},
        {"capitalizeString \"word\";", "string Word"},
        {R"(strip "  a b\n";)", "string a b"},
        {R"(match "[0-9]+" "pCube12";)", "string 12"},
        {R"(match("^b", "ab");)", "string "},
        {R"(gmatch "pCube12" "pCube*";)", "int 1"},
        {R"(substitute "b+" "abbbcb" "X";)", "string aXcb"},
        {R"(substitute("z", "abc", "X");)", "string abc"},
        {R"(substituteAllString("a.b.c", ".", "::");)", "string a::b::c"},
        {R"(substituteAllString("aa", "", "x");)", "string aa"},
        {R"(stringToStringArray("a; b ;;c", " ;");)", "string[] a\nb\nc\n"},
        {R"(stringArrayToString({"a", "b"}, ", ");)", "string a, b"},
        {R"(stringArrayToString({"", "b", ""}, ",");)", "string ,b,"},
        {R"(format -s "one" -stringArg "two" "^2s, ^1s, ^3s, ^^, ^";)", "string two, one, , ^, ^"},
        {R"(format("-s", "x", "<^1s>");)", "string <x>"},
    });
}

TEST(stringFunctions, tokenizeFillsItsArray) {
    expectResults({
        {R"(string $p[]; int $n = tokenize("key=value;x", "=;", $p); $n + $p[1] + $p[2];)", "string 3valuex"},
        {R"(string $p[]; tokenize " a  b\tc " $p;)", "int 3"},
        {R"(string $p[] = {"old"}; tokenize "" $p; size($p);)", "int 0"},
        {R"(string $p[]; tokenize("abc", "", $p); $p;)", "string[] abc\n"},
    });
}

} // namespace
} // namespace host::mel
