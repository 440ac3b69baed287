#include "host/nodes/expressionText.h"

#include <gtest/gtest.h>

#include <string>

namespace host {
namespace {

/// What an expression becomes, without the procedure around it.
std::string bodyOf(std::string_view text) {
    const std::string procedure = expressionProcedure(text);
    const std::size_t begin = procedure.find("{\n") + 2;
    return procedure.substr(begin, procedure.rfind("\n;return ") - begin);
}

TEST(ExpressionText, TurnsPlugsAndTheTimeIntoVariables) {
    struct Row {
        const char* text;
        const char* body;
    };
    const Row rows[] = {
        {"", ""},
        {".O[0]=frame", "$hostOut[0]=$hostFrame"},
        {".O[12] = .I[0] * .I[1];\r\n", "$hostOut[12] = $hostIn[0] * $hostIn[1];\r\n"},
        {".O[0]=sin(time*2)-time", "$hostOut[0]=sin($hostTime*2)-$hostTime"},
        {".O[0]+=-.I[3]", "$hostOut[0]+=-$hostIn[3]"},
        {"// .O[0]=frame\n.O[1]=1", "// .O[0]=frame\n$hostOut[1]=1"},
        {"/* .I[0] time */ 1", "/* .I[0] time */ 1"},
        {"/* time", "/* time"},
        {R"(print("time \" .I[0]"); .O[0]=1)", R"(print("time \" .I[0]"); $hostOut[0]=1)"},
        {"\"frame", "\"frame"},
        {"$frame = timeline + frame2 + my_time + 3frame", "$frame = timeline + frame2 + my_time + 3frame"},
        {"frame(1) + time (2)", "frame(1) + time (2)"},
        {"$a.I[0] + b.I[1] + $c[0].I[2] + .I[x] + .I", "$a.I[0] + b.I[1] + $c[0].I[2] + .I[x] + .I"},
        {".5 + 1. + .I[0]", ".5 + 1. + $hostIn[0]"},
        {"a.frame", "a.frame"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(bodyOf(row.text), row.body);
    }
}

TEST(ExpressionText, CountsItsOutputs) {
    struct Row {
        const char* text;
        std::size_t count;
    };
    const Row rows[] = {{"", 0},        {".I[5]", 0},         {"// .O[7]\n", 0},
                        {".O[0]=1", 1}, {".O[4]=.O[18]", 19}, {".O[99999999999999999999999]=1", 65536},
                        {".O[3", 4}};
    for (const Row& row : rows) {
        EXPECT_EQ(expressionOutputCount(row.text), row.count) << row.text;
    }
}

} // namespace
} // namespace host
