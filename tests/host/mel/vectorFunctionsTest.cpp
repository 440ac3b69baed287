#include <gtest/gtest.h>

#include "ScriptRunner.h"

namespace host::mel {
namespace {

TEST(vectorFunctions, refuseTexts) {
    expectResults({{"mag(\"1 2 3\");", "1:1 Cannot convert data of type string to type vector."}});
}

TEST(vectorFunctions, valuesOfTheTextbooks) {
    expectResults({
        {"mag(<<3,4,0>>);", "float 5"},
        {"dot(<<1,2,3>>, <<4,5,6>>);", "float 32"},
        {"cross(<<0,1,0>>, <<0,0,1>>);", "vector 1 0 0"},
        {"unit(<<0,5,0>>);", "vector 0 1 0"},
        {"unit(<<0,0,0>>);", "vector 0 0 0"},
        {"angle(<<1,0,0>>, <<0,2,0>>);", "float 1.570796327"},
        {"vector $r = rot(<<1,0,0>>, <<0,0,2>>, deg_to_rad(90)); abs($r.x) < 1e-9 && $r.y == 1 && $r.z == 0;", "int 1"},
    });
}

} // namespace
} // namespace host::mel
