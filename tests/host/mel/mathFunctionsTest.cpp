#include <gtest/gtest.h>

#include "ScriptRunner.h"

namespace host::mel {
namespace {

TEST(mathFunctions, refuseWrongArguments) {
    expectResults({
        {"sin({1});", "1:1 Cannot convert data of type int[] to type float."},
        {"fmod(1, 0);", "1:1 Division by zero"},
        {"clamp(1, 2);", "1:1 Wrong number of arguments on call to clamp."},
    });
}

TEST(mathFunctions, keepIntegersWhereMelDoes) {
    expectResults({
        {"abs(-3);", "int 3"},
        {"abs(-3.5);", "float 3.5"},
        {"abs(<<-1,2,-3>>);", "vector 1 2 3"},
        {"min(3, 2);", "int 2"},
        {"max(3, 2.5);", "float 3"},
        {"clamp(0, 10, 12);", "int 10"},
        {"clamp(0.5, 10, 0);", "float 0.5"},
        {"sign(-4);", "int -1"},
        {"sign(0.25);", "float 1"},
        {"floor(-1.5);", "float -2"},
        {"ceil(-1.5);", "float -1"},
        {"trunc(-1.5);", "float -1"},
    });
}

TEST(mathFunctions, valuesOfTheTextbooks) {
    expectResults({
        {"pow(2, 10);", "float 1024"},
        {"sqrt 16;", "float 4"},
        {"exp(1);", "float 2.718281828"},
        {"log(exp(2));", "float 2"},
        {"log10(1000);", "float 3"},
        {"fmod(7.5, 2);", "float 1.5"},
        {"hypot(3, 4);", "float 5"},
        {"sin(0.5);", "float 0.4794255386"},
        {"cos(0);", "float 1"},
        {"tan(0.5);", "float 0.5463024898"},
        {"asin(1);", "float 1.570796327"},
        {"acos(1);", "float 0"},
        {"atan(1);", "float 0.7853981634"},
        {"atan2(1, -1);", "float 2.35619449"},
        {"atan2d(1, -1);", "float 135"},
        {"sind(90);", "float 1"},
        {"cosd(60);", "float 0.5"},
        {"tand(45);", "float 1"},
        {"asind(1);", "float 90"},
        {"acosd(0);", "float 90"},
        {"atand(1);", "float 45"},
        {"deg_to_rad(180);", "float 3.141592654"},
        {"rad_to_deg(3.14159265358979);", "float 180"},
        {"linstep(0, 10, 2.5);", "float 0.25"},
        {"linstep(0, 10, 20);", "float 1"},
        {"smoothstep(0, 1, 0.25);", "float 0.15625"},
        {"smoothstep(2, 2, 1);", "float 0"},
    });
}

TEST(mathFunctions, randomNumbersRepeatAfterTheSameSeed) {
    expectResults({
        {"seed(42); float $a = rand(10); seed(42); float $b = rand(10); $a == $b;", "int 1"},
        {"seed(1); int $in = 1; for ($i = 0; $i < 1000; $i++) { $r = rand(2, 3); $in = $in && $r >= 2 && $r < 3; } "
         "$in;",
         "int 1"},
        {"vector $v = rand(<<1,0,0>>); $v.x < 1 && $v.y == 0;", "int 1"},
        {"seed(7);", "int 7"},
    });
}

} // namespace
} // namespace host::mel
