#include <gtest/gtest.h>

#include "ScriptRunner.h"

namespace host::mel {
namespace {

TEST(parseExpressions, precedenceIsMels) {
    expectResults({
        {"1 + 2 * 3;", "int 7"},
        {"(1 + 2) * 3;", "int 9"},
        {"10 - 4 - 3;", "int 3"},
        {"100 / 5 / 2;", "int 10"},
        {"7 % 4 * 2;", "int 6"},
        {"-2 * -3;", "int 6"},
        {"- - 2;", "int 2"},
        {"!0 + 1;", "int 2"},
        {"1 < 2 == 1;", "int 1"},
        {"0 || 1 && 0;", "int 0"},
        {"1 || 0 && 0;", "int 1"},
        {"1 + 1 == 2 && 3 > 2;", "int 1"},
        {"0 ? 1 : 0 ? 2 : 3;", "int 3"},
        {"1 ? 2 : 3 + 10;", "int 2"},
        {"int $a; int $b; $a = $b = 4; $a + $b;", "int 8"},
        {"int $a = 5; $a += 2 * 3; $a;", "int 11"},
        {"<<1,0,0>> ^ <<0,1,0>> * 2;", "vector 0 0 2"},
        {"2 + 3 > 4 - 1 == true;", "int 1"},
    });
}

TEST(parseExpressions, literals) {
    expectResults({
        {"0x1F;", "int 31"},
        {"1e3;", "float 1000"},
        {".5;", "float 0.5"},
        {"99999999999999999999;", "int 9223372036854775807"},
        {"0 + true + on + yes + false + off + no;", "int 3"},
        {R"("a\tb\"\\";)", "string a\tb\"\\"},
        {"<<1, 2.5, -3>>;", "vector 1 2.5 -3"},
        {"<<1,2;3,4>>;", "matrix 1 2\n3 4\n"},
        {"({1, 2});", "int[] 1\n2\n"},
        {"({1, 2.5});", "float[] 1\n2.5\n"},
        {"({1, \"a\"});", "string[] 1\na\n"},
        {"({<<1,2,3>>, <<4,5,6>>});", "vector[] 1 2 3\n4 5 6\n"},
        {"({});", "int[] "},
        {"\"long \"\n + \"text\";", "string long text"},
    });
}

TEST(parseExpressions, castsAndComponents) {
    expectResults({
        {"(int)3.9;", "int 3"},
        {"int(3.9) + 1;", "int 4"},
        {"float(\"2.5\") * 2;", "float 5"},
        {"string(5) + 1;", "string 51"},
        {"(string)5 + 1;", "string 51"},
        {"vector $v = <<1,2,3>>; $v.x + $v.z;", "float 4"},
        {"vector $v[]; $v[1] = <<4,5,6>>; $v[1].y;", "float 5"},
        {"matrix $m[2][2] = <<1,2;3,4>>; $m[1][0];", "float 3"},
    });
}

} // namespace
} // namespace host::mel
