#include "host/nodes/arithmeticCompute.h"

#include "GraphFixture.h"

#include <vector>

namespace host {
namespace {

class Arithmetic : public GraphFixture {
protected:
    Arithmetic() {
        graph.onWarning = [this](const std::string& text) { warnings.push_back(text); };
    }

    std::vector<std::string> warnings;
};

struct OperationRow {
    double operation, expected;
};

TEST_F(Arithmetic, MultiplyDivideKnowsItsOperations) {
    Node& node = make("multiplyDivide", "md1");
    set3(node, "input1", 6, -8, 2);
    set3(node, "input2", 3, 2, 5);
    const OperationRow rows[] = {{0, 2}, {1, 10}, {2, 0.4}, {3, 32}};
    for (const OperationRow& row : rows) {
        set(node, "op", row.operation);
        EXPECT_NEAR(number(node, "oz"), row.expected, 1e-12) << row.operation;
    }
    set(node, "op", 2);
    EXPECT_EQ(number(node, "ox"), 2.0);
    EXPECT_EQ(number(node, "oy"), -4.0);
    EXPECT_EQ(warnings.size(), 0U);
}

TEST_F(Arithmetic, ResultsThatAreNoNumbersAreZeroAndSaidOnce) {
    Node& node = make("multiplyDivide", "md1");
    set3(node, "input1", 1, -1, 0);
    set3(node, "input2", 0, 0, 0);
    set(node, "op", 2);
    EXPECT_EQ(number(node, "ox"), 0.0);
    EXPECT_EQ(number(node, "oy"), 0.0);
    EXPECT_EQ(number(node, "oz"), 0.0);
    set(node, "op", 3);
    set(node, "input2Y", 0.5);
    EXPECT_EQ(number(node, "oy"), 0.0) << "a root of a negative number";
    EXPECT_EQ(number(node, "ox"), 1.0);
    EXPECT_EQ(warnings, std::vector<std::string>{"The result of md1 is not a number (0 is used)"});
}

TEST_F(Arithmetic, PlusMinusAverageTakesTheElementsThatAreThere) {
    Node& node = make("plusMinusAverage", "pma1");
    EXPECT_EQ(number(node, "output1D"), 0.0);
    set(node, "input1D[1]", 10);
    set(node, "input1D[4]", 3);
    set(node, "input1D[7]", 2);
    set3(node, "input3D[0]", 1, 2, 3);
    set3(node, "input3D[9]", 4, 6, 9);
    set(node, "input2D[2].input2Dy", 8);
    struct Row {
        double operation, o1, o3y;
    };
    const Row rows[] = {{0, 10, 2}, {1, 15, 8}, {2, 5, -4}, {3, 5, 4}};
    for (const Row& row : rows) {
        set(node, "op", row.operation);
        EXPECT_EQ(number(node, "o1"), row.o1) << row.operation;
        EXPECT_EQ(number(node, "o3y"), row.o3y) << row.operation;
        EXPECT_EQ(number(node, "output2Dx"), 0.0);
        EXPECT_EQ(number(node, "output2Dy"), 8.0);
    }
}

TEST_F(Arithmetic, PlusMinusAverageAddsWhatIsConnected) {
    Node& node = make("plusMinusAverage", "pma1");
    Node& driver = make("transform", "a");
    set3(driver, "t", 1, 2, 3);
    connect(driver, "t", node, "input3D[3]");
    set3(node, "input3D[5]", 10, 20, 30);
    EXPECT_EQ(number(node, "o3z"), 33.0);
    set(driver, "tz", 4);
    EXPECT_EQ(number(node, "o3z"), 34.0);
}

TEST_F(Arithmetic, ConditionComparesAndChooses) {
    Node& node = make("condition", "condition1");
    EXPECT_EQ(number(node, "ocr"), 0.0) << "0 == 0: colorIfTrue";
    set3(node, "ct", 1, 2, 3);
    set3(node, "cf", 4, 5, 6);
    set(node, "secondTerm", 2);
    struct Row {
        double operation;
        bool less, equal, greater; // of the first term
    };
    const Row rows[] = {{0, false, true, false}, {1, true, false, true},  {2, false, false, true},
                        {3, false, true, true},  {4, true, false, false}, {5, true, true, false}};
    for (const Row& row : rows) {
        set(node, "op", row.operation);
        const bool expected[] = {row.less, row.equal, row.greater};
        for (int i = 0; i < 3; ++i) {
            set(node, "firstTerm", 1.0 + i);
            EXPECT_EQ(number(node, "ocg"), expected[i] ? 2.0 : 5.0) << row.operation << " of " << 1 + i;
        }
    }
}

TEST_F(Arithmetic, BlendsColorsAttributesAndWeights) {
    Node& colors = make("blendColors", "blend1");
    EXPECT_EQ(number(colors, "opr"), 0.5);
    EXPECT_EQ(number(colors, "opb"), 0.5);
    set(colors, "blender", 0.25);
    set3(colors, "c1", 8, 0, 0);
    set3(colors, "c2", 4, 0, 1);
    EXPECT_EQ(number(colors, "opr"), 5.0);
    Node& two = make("blendTwoAttr", "blend2");
    set(two, "input[0]", 2);
    set(two, "input[1]", 10);
    set(two, "attributesBlender", 0.25);
    EXPECT_EQ(number(two, "output"), 4.0);
    Node& weighted = make("blendWeighted", "blend3");
    EXPECT_EQ(number(weighted, "o"), 0.0);
    set(weighted, "i[0]", 3);
    set(weighted, "i[5]", 10);
    EXPECT_EQ(number(weighted, "o"), 13.0) << "weights that are not there are 1";
    set(weighted, "w[5]", 0.5);
    EXPECT_EQ(number(weighted, "o"), 8.0);
}

TEST_F(Arithmetic, DrivenKeysMeetInABlend) {
    Node& driver = make("transform", "driver");
    Node& driven = make("transform", "driven");
    Node& blend = make("blendWeighted", "blend1");
    for (int i = 0; i < 2; ++i) {
        Node& curve = make("animCurveUL", "key");
        set(curve, "tan", 2);
        set(curve, "ktv[0].kt", 0);
        set(curve, "ktv[0].kv", 0);
        set(curve, "ktv[1].kt", 10);
        set(curve, "ktv[1].kv", i == 0 ? 20 : 5);
        connect(driver, i == 0 ? "tx" : "ty", curve, "input");
        connect(curve, "output", blend, "i[" + std::to_string(i) + "]");
    }
    connect(blend, "o", driven, "tz");
    set3(driver, "t", 5, 4, 0);
    EXPECT_DOUBLE_EQ(number(driven, "tz"), 12.0);
    EXPECT_DOUBLE_EQ(matrix(driven, "matrix")[3][2], 12.0);
}

TEST_F(Arithmetic, ChoicePassesWhatItSelects) {
    Node& choice = make("choice", "choice1");
    Node& a = make("transform", "a");
    Node& b = make("transform", "b");
    Node& out = make("transform", "out");
    set(a, "tx", 3);
    set(b, "tx", 7);
    connect(a, "tx", choice, "input[0]");
    connect(b, "tx", choice, "input[2]");
    connect(choice, "output", out, "ty");
    EXPECT_EQ(number(out, "ty"), 3.0);
    set(choice, "selector", 2);
    EXPECT_EQ(number(out, "ty"), 7.0);
    set(choice, "selector", 1);
    EXPECT_EQ(number(out, "ty"), 0.0) << "nothing there";
    set(choice, "selector", -5);
    EXPECT_EQ(number(out, "ty"), 0.0);
}

TEST_F(Arithmetic, ChoicePassesMatricesAndTexts) {
    Node& choice = make("choice", "choice1");
    Node& a = make("transform", "a");
    Node& inverse = make("inverseMatrix", "inverse1");
    set(a, "tx", 3);
    connect(a, "matrix", choice, "input[0]");
    connect(choice, "output", inverse, "inputMatrix");
    EXPECT_EQ(matrix(inverse, "outputMatrix")[3][0], -3.0);
    Node& file = make("file", "file1");
    Node& other = make("file", "file2");
    ASSERT_EQ(graph.setString(plug(file, "fileTextureName"), "a.png").error, "");
    connect(file, "fileTextureName", choice, "input[1]");
    set(choice, "selector", 1);
    Node& texts = make("choice", "choice2");
    connect(file, "fileTextureName", texts, "input[0]");
    connect(texts, "output", other, "fileTextureName");
    EXPECT_EQ(graph.string(plug(other, "fileTextureName")), "a.png");
}

TEST_F(Arithmetic, CyclesEndWithOneWarning) {
    Node& first = make("multiplyDivide", "first");
    Node& second = make("plusMinusAverage", "second");
    Node& out = make("transform", "out");
    connect(first, "ox", second, "i1[0]");
    connect(second, "o1", first, "i1x");
    connect(second, "o1", out, "tx");
    set(second, "i1[1]", 4);
    EXPECT_TRUE(std::isfinite(number(out, "tx")));
    graph.setTime(100);
    set(second, "i1[1]", 5);
    number(out, "tx");
    EXPECT_EQ(warnings.size(), 1U);
    EXPECT_EQ(warnings.front().find("Cycle in the graph at "), 0U) << warnings.front();
}

} // namespace
} // namespace host
