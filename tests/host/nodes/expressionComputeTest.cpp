#include "host/nodes/expressionCompute.h"

#include "GraphFixture.h"

#include "host/graph/Units.h"

#include <vector>

namespace host {
namespace {

class Expressions : public GraphFixture {
protected:
    Expressions() {
        graph.onWarning = [this](const std::string& text) { warnings.push_back(text); };
    }
    Node& makeExpression(const std::string& text, const char* name = "expression1") {
        Node& node = make("expression", name);
        setText(node, text);
        return node;
    }
    void setText(Node& node, const std::string& text) { EXPECT_EQ(graph.setString(plug(node, "ixp"), text).error, ""); }
    /// What a text makes of inputs 2, 3, 0.5 at frame 12 (film).
    double valueOf(const std::string& text) {
        Node& node = makeExpression(text);
        set(node, "in[0]", 2);
        set(node, "in[1]", 3);
        set(node, "in[2]", 0.5);
        graph.setTime(kTicksPerSecond / 2);
        return number(node, "out[0]");
    }

    std::vector<std::string> warnings;
};

TEST_F(Expressions, CountLikeMel) {
    struct Row {
        const char* text;
        double value;
    };
    const Row rows[] = {
        {".O[0] = .I[0] * .I[1] + .I[2]", 6.5},
        {".O[0] = (.I[0] + 1) / (.I[1] - 1) - -.I[2];", 2},
        {".O[0] = 7 / 2", 3},
        {".O[0] = 7.0 / 2", 3.5},
        {".O[0] = .I[1] % .I[0]", 1},
        {".O[0] = frame", 12},
        {".O[0] = time", 0.5},
        {"$a = .I[0]; float $b = $a * 10; .O[0] = $a + $b;", 22},
        {"int $n = 5; $n += 2; $n++; .O[0] = $n;", 8},
        {"if (.I[0] > .I[1]) .O[0] = 1; else if (frame == 12) .O[0] = 2; else .O[0] = 3;", 2},
        {"if (.I[0] < .I[1] && !(time > 1)) { .O[0] = 1; } else { .O[0] = 3; }", 1},
        {".O[0] = .I[0] >= 2 ? 10 : 20", 10},
        {"for ($i = 0; $i < 4; $i++) .O[0] += $i;", 6},
        {"while (.O[0] < 5) .O[0] += 2;", 6},
        {".O[0] = max(.I[0], .I[1]) + min(1, 2) + abs(-4) + pow(2, 3) + sqrt(16)", 20},
        {".O[0] = floor(2.7) + ceil(2.1) + clamp(0, 1, 5) + sign(-3)", 5},
        {".O[0] = sin(0) + cos(0) + tan(0) + exp(0) + log(1) + atan2(0, 1)", 2},
        {".O[0] = sind(30) + cosd(60) + deg_to_rad(180) - rad_to_deg(0)", 1 + 3.14159265358979323846},
        {".O[0] = linstep(0, 4, 1) + smoothstep(0, 1, 0.5) + fmod(7, 4) + hypot(3, 4)", 8.75},
        {"// a comment\r\n.O[0] = 1; /* another */\r\n", 1},
        {".O[0] = .I[77]", 0},
        {"vector $v = <<1, 2, 3>>; .O[0] = $v.y;", 2},
        {"print(\"time \" + frame); .O[0] = 4", 4},
    };
    for (const Row& row : rows) {
        EXPECT_NEAR(valueOf(row.text), row.value, 1e-12) << row.text;
    }
    EXPECT_EQ(warnings, std::vector<std::string>{});
}

TEST_F(Expressions, ReadAndDriveChannelsThroughTheirPlugs) {
    Node& node = makeExpression(".O[0] = .I[0] * 2;\n.O[2] = .I[0] + .I[4];");
    Node& driver = make("transform", "driver");
    Node& driven = make("transform", "driven");
    connect(driver, "tx", node, "in[0]");
    connect(driver, "ty", node, "in[4]");
    connect(node, "out[0]", driven, "tx");
    connect(node, "out[2]", driven, "ty");
    set3(driver, "t", 5, 1, 0);
    EXPECT_EQ(number(driven, "tx"), 10.0);
    EXPECT_EQ(number(driven, "ty"), 6.0);
    set(driver, "ty", 2);
    EXPECT_EQ(number(driven, "ty"), 7.0);
    EXPECT_EQ(matrix(driven, "matrix")[3][1], 7.0);
}

TEST_F(Expressions, FollowTheTimeInFramesOfTheScene) {
    Node& node = makeExpression(".O[0] = frame; .O[1] = time;");
    Node& clock = make("time", "time1");
    Node& other = makeExpression(".O[0] = frame;", "expression2");
    connect(clock, "o", other, "tim");
    graph.setTime(kTicksPerSecond * 2);
    EXPECT_EQ(number(node, "out[0]"), 48.0);
    EXPECT_EQ(number(node, "out[1]"), 2.0);
    EXPECT_EQ(number(other, "out[0]"), 48.0);
    graph.setFramesPerSecond(25);
    EXPECT_EQ(number(node, "out[0]"), 50.0);
    EXPECT_EQ(number(other, "out[0]"), 50.0);
    graph.setTime(-kTicksPerSecond);
    EXPECT_EQ(number(node, "out[0]"), -25.0);
}

TEST_F(Expressions, AreParsedOnceForAllTimes) {
    Node& node = makeExpression(".O[0] = frame;");
    number(node, "out[0]");
    const std::size_t before = graph.computeCount();
    graph.setTime(1000);
    number(node, "out[0]");
    EXPECT_EQ(graph.computeCount(), before + 1);
    setText(node, ".O[0] = 7;");
    EXPECT_EQ(number(node, "out[0]"), 7.0);
}

TEST_F(Expressions, OutputsThatAreNotSetKeepWhatTheirChannelsStore) {
    Node& node = makeExpression("if (frame > 100) .O[0] = 1; .O[1] += 1;");
    Node& driven = make("transform", "driven");
    set3(driven, "t", 4, 5, 6);
    connect(node, "out[0]", driven, "tx");
    connect(node, "out[1]", driven, "ty");
    connect(node, "out[9]", driven, "tz");
    EXPECT_EQ(number(driven, "tx"), 4.0);
    EXPECT_EQ(number(driven, "ty"), 6.0);
    EXPECT_EQ(number(driven, "tz"), 6.0) << "an output that the text does not know";
    graph.setTime(kTicksPerSecond * 5);
    EXPECT_EQ(number(driven, "tx"), 1.0);
}

TEST_F(Expressions, ThatFailSaySoOnceAndKeepWhatIsStored) {
    const char* const texts[] = {
        ".O[0] = (1 + ;",
        ".O[0] = $undeclared;",
        "pCube1.tx = 3; .O[0] = 1;",
        ".O[0] = noSuchFunction(2);",
        ".O[0] = `getAttr pCube1.tx`;",
        "setAttr pCube1.tx 3; .O[0] = 1;",
        "source \"other.mel\"; .O[0] = 1;",
        ".O[0] = 1 / 0;",
        "proc f() {} .O[0] = 1;",
        "} global proc x() {",
    };
    for (const char* text : texts) {
        warnings.clear();
        graph.forgetWarnings();
        Node& node = makeExpression(text, "bad");
        Node& driven = make("transform", "driven");
        set(driven, "tx", 4);
        connect(node, "out[0]", driven, "tx");
        for (Ticks time = 0; time < 3; ++time) {
            graph.setTime(time);
            EXPECT_EQ(number(driven, "tx"), 4.0) << text;
        }
        ASSERT_EQ(warnings.size(), 1U) << text;
        EXPECT_EQ(warnings.front().find("The expression of bad cannot be evaluated (its outputs keep their values): "),
                  0U)
            << warnings.front();
    }
}

TEST_F(Expressions, ThatDoNotEndAreStopped) {
    EXPECT_EQ(valueOf("while (1) $x = 1; .O[0] = 5;"), 0.0);
    EXPECT_EQ(warnings, std::vector<std::string>{"The expression of expression1 cannot be evaluated (its outputs keep "
                                                 "their values): Step limit reached"});
}

TEST_F(Expressions, WithoutTextSayNothing) {
    Node& node = make("expression", "empty");
    EXPECT_EQ(number(node, "out[0]"), 0.0);
    setText(node, "// nothing\n");
    EXPECT_EQ(number(node, "out[3]"), 0.0);
    EXPECT_TRUE(warnings.empty());
}

TEST_F(Expressions, ResultsThatAreNoNumbersKeepWhatIsStored) {
    EXPECT_EQ(valueOf(".O[0] = sqrt(-1);"), 0.0);
    EXPECT_EQ(valueOf(".O[0] = exp(1000);"), 0.0);
}

TEST_F(Expressions, ThatReadWhatTheyDriveEndWithAWarning) {
    Node& node = makeExpression(".O[0] = .I[0] + 1;");
    Node& driven = make("transform", "driven");
    connect(node, "out[0]", driven, "tx");
    connect(driven, "tx", node, "in[0]");
    EXPECT_TRUE(std::isfinite(number(driven, "tx")));
    ASSERT_EQ(warnings.size(), 1U);
    EXPECT_EQ(warnings.front().find("Cycle in the graph at "), 0U);
}

} // namespace
} // namespace host
