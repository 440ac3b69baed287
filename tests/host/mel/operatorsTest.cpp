#include "host/mel/operators.h"

#include <gtest/gtest.h>

#include "ScriptRunner.h"

namespace host::mel {
namespace {

TEST(operators, refuseWhatTheyCannotTake) {
    expectResults({
        {"1 / 0;", "1:3 Division by zero"},
        {"1 % 0;", "1:3 Division by zero"},
        {"1.0 / 0;", "1:5 Division by zero"},
        {"1 % 0.0;", "1:3 Division by zero"},
        {"<<1,2,3>> / 0;", "1:11 Division by zero"},
        {"int $x = 5; $x /= 0;", "1:16 Division by zero"},
        {"0 + {1};", "1:3 Cannot use '+' on int and int[]."},
        {R"("a" - "b";)", "1:5 Cannot use '-' on string and string."},
        {"1 ^ 2;", "1:3 Cannot use '^' on int and int."},
        {"1.5 ^ 2;", "1:5 Cannot use '^' on float and int."},
        {"<<1,2,3>> ^ 2;", "1:11 Cannot use '^' on vector and int."},
        {"<<1,2,3>> % 2;", "1:11 Cannot use '%' on vector and int."},
        {"<<1,2;3,4>> + 1;", "1:13 Cannot use '+' on matrix and int."},
        {"<<1,2>> * <<1,2>>;", "1:9 Cannot use '*' on matrix and matrix."},
        {"if ({1}) 1;", "1:5 Cannot convert data of type int[] to type int."},
        {"!{1};", "1:2 Cannot convert data of type int[] to type int."},
        {"-{1};", "1:1 Cannot convert data of type int[] to type float."},
    });
}

TEST(operators, integersWrapWithoutUndefinedBehaviour) {
    expectResults({
        {"9223372036854775807 + 1;", "int -9223372036854775808"},
        {"-9223372036854775807 - 2;", "int 9223372036854775807"},
        {"9223372036854775807 * 2;", "int -2"},
        {"(-9223372036854775807 - 1) / -1;", "int -9223372036854775808"},
        {"(-9223372036854775807 - 1) % -1;", "int 0"},
        {"-(-9223372036854775807 - 1);", "int -9223372036854775808"},
        {"int $x = 9223372036854775807; ++$x;", "int -9223372036854775808"},
    });
}

TEST(operators, theWiderTypeWins) {
    expectResults({
        {"7 / 2;", "int 3"},
        {"-7 / 2;", "int -3"},
        {"-7 % 3;", "int -1"},
        {"7 / 2.0;", "float 3.5"},
        {"7.5 % 2;", "float 1.5"},
        {"1 + \"2\";", "string 12"},
        {"\"v\" + <<1,2,3>>;", "string v1 2 3"},
        {"1.5 + \"x\" + 2;", "string 1.5x2"},
        {R"("b" > "a";)", "int 1"},
        {"\"1\" == 1;", "int 1"},
        {"1 == 1.0;", "int 1"},
        {R"("A" == "a";)", "int 0"},
    });
}

TEST(operators, vectorsAndMatrices) {
    expectResults({
        {"<<1,2,3>> + <<1,1,1>>;", "vector 2 3 4"},
        {"<<1,2,3>> - 1;", "vector 0 1 2"},
        {"<<1,2,3>> * <<4,5,6>>;", "float 32"},
        {"2 * <<1,2,3>>;", "vector 2 4 6"},
        {"<<2,4,6>> / 2;", "vector 1 2 3"},
        {"<<1,0,0>> ^ <<0,1,0>>;", "vector 0 0 1"},
        {"-<<1,2,3>>;", "vector -1 -2 -3"},
        {"<<1,2,3>> == <<1,2,3>>;", "int 1"},
        {"<<3,4,0>> > <<1,1,1>>;", "int 1"},
        {"<<1,2;3,4>> * <<0,1;1,0>>;", "matrix 2 1\n4 3\n"},
        {"<<1,2;3,4>> - <<1,1;1,1>>;", "matrix 0 1\n2 3\n"},
        {"2 * <<1,2>>;", "matrix 2 4\n"},
    });
}

TEST(operators, everyCompoundAssignmentHasItsOperator) {
    expectResults({
        {"int $x = 7; $x += 2; $x -= 1; $x *= 3; $x /= 2; $x %= 5;", "int 2"},
        {"vector $v = <<1,0,0>>; $v ^= <<0,1,0>>;", "vector 0 0 1"},
    });
}

} // namespace
} // namespace host::mel
