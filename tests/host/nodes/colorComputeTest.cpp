#include "host/nodes/colorCompute.h"

#include "GraphFixture.h"

namespace host {
namespace {

class ColorNodes : public GraphFixture {
protected:
    void expectTriple(Node& node, const std::string& path, const Imath::V3d& expected) {
        const Plug parent = plug(node, path);
        for (int i = 0; i < 3; ++i) {
            Plug child = parent;
            child.at.attr = node.attribute(parent.at.attr).children[static_cast<std::size_t>(i)];
            EXPECT_NEAR(graph.number(child), expected[i], 1e-6) << path << " " << i;
        }
    }
};

TEST_F(ColorNodes, TurnHuesToColours) {
    struct Row {
        Imath::V3d hsv, rgb;
    };
    const Row rowsOfColours[] = {{{0, 1, 1}, {1, 0, 0}},         {{60, 1, 1}, {1, 1, 0}},
                                 {{120, 1, 0.5}, {0, 0.5, 0}},   {{180, 1, 1}, {0, 1, 1}},
                                 {{240, 1, 1}, {0, 0, 1}},       {{300, 1, 1}, {1, 0, 1}},
                                 {{30, 0.5, 1}, {1, 0.75, 0.5}}, {{0, 0, 0.25}, {0.25, 0.25, 0.25}}};
    for (const Row& row : rowsOfColours) {
        Node& there = make("hsvToRgb", "there");
        Node& back = make("rgbToHsv", "back");
        set3(there, "inHsv", row.hsv.x, row.hsv.y, row.hsv.z);
        set3(back, "inRgb", row.rgb.x, row.rgb.y, row.rgb.z);
        expectTriple(there, "outRgb", row.rgb);
        expectTriple(back, "outHsv", row.hsv);
    }
}

TEST_F(ColorNodes, GoRoundWithHues) {
    Node& node = make("hsvToRgb", "node");
    set3(node, "inHsv", -120, 1, 1);
    expectTriple(node, "outRgb", {0, 0, 1});
    set3(node, "inHsv", 420, 1, 1);
    expectTriple(node, "outRgb", {1, 1, 0});
}

TEST_F(ColorNodes, CorrectGamma) {
    Node& node = make("gammaCorrect", "node");
    set3(node, "value", 0.25, 0.25, -1);
    set3(node, "gamma", 2, 0, 2);
    expectTriple(node, "outValue", {0.5, 0.25, 0});
}

TEST_F(ColorNodes, WeighLight) {
    Node& node = make("luminance", "node");
    set3(node, "value", 1, 0, 0);
    EXPECT_NEAR(number(node, "outValue"), 0.3, 1e-6);
    set3(node, "value", 1, 1, 1);
    EXPECT_NEAR(number(node, "outValue"), 1, 1e-6);
}

} // namespace
} // namespace host
