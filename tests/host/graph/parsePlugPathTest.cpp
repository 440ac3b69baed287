#include "TinyTypes.h"

#include "host/graph/parsePlugPath.h"

using namespace host;

namespace {

using ParsePlugPathTest = TinyScene;

const char* const kMalformed[] = {
    "",
    ".",
    "..",
    "a.",
    ".a.",
    "a..b",
    "[0]",
    "a[",
    "a]",
    "a[]",
    "a[0",
    "a0]",
    "a[0]b",
    "a[-1]",
    "a[x]",
    "a[0x]",
    "a[2147483648]",
    "a[1:]",
    "a[:1]",
    "a[2:1]",
    "a[0:-1]",
    "a[1:2:3]",
    "a[ 0]",
    "a[0][1]",
    "a[99999999999999999999]",
    "a[+1]",
};

} // namespace

TEST_F(ParsePlugPathTest, RefusesWhatIsMalformed) {
    Node& node = make("adder", "n");
    for (const char* path : kMalformed) {
        EXPECT_FALSE(parsePlugPath(path)) << path;
        EXPECT_EQ(graph.findPlug(node, path).attr, kNoAttr) << path;
        EXPECT_FALSE(findPlugRange(node, path)) << path;
    }
}

TEST_F(ParsePlugPathTest, SplitsWordsAndIndices) {
    const auto steps = parsePlugPath(".wl[2147483647].w[3:8]");
    ASSERT_TRUE(steps);
    ASSERT_EQ(steps->size(), 2U);
    EXPECT_EQ((*steps)[0].name, "wl");
    EXPECT_EQ((*steps)[0].first, 2147483647);
    EXPECT_FALSE((*steps)[0].isRange);
    EXPECT_EQ((*steps)[1].name, "w");
    EXPECT_TRUE((*steps)[1].isRange);
    EXPECT_EQ((*steps)[1].first, 3);
    EXPECT_EQ((*steps)[1].last, 8);
    EXPECT_FALSE(parsePlugPath("tx")->front().hasIndex);
}

TEST_F(ParsePlugPathTest, FindsPlugsByEveryKindOfPath) {
    Node& node = make("holder", "h");
    const std::pair<const char*, const char*> cases[] = {
        {"translateX", "translateX"},
        {"tx", "translateX"},
        {".tx", "translateX"},
        {"t.tx", "translateX"},
        {"translate.translateX", "translateX"},
        {"t", "translate"},
        {"pt", "points"},
        {"pt[7]", "points[7]"},
        {"pt[7].ptx", "points[7].pointsX"},
        {"wl[3].w[1]", "weightList[3].weights[1]"},
        {"weightList[3].weights", "weightList[3].weights"},
        {"iog", "instObjGroups"},
        {"iog[2]", "instObjGroups[2]"},
        {"iog[2].og[1].gcl", "instObjGroups[2].objectGroups[1].objectGrpCompList"},
        {"iog.og[1].gcl", "instObjGroups[0].objectGroups[1].objectGrpCompList"}, // the first instance
        {"og[1].gid", "instObjGroups[0].objectGroups[1].objectGroupId"},
        {"iog.og", "instObjGroups[0].objectGroups"},
        {"cel[2].ec.ecr", "colorEntryList[2].colourR"},
        {"cel[2].ecr", "colorEntryList[2].colourR"},
        {"weights", "weightList.weights"}, // no element is meant
    };
    for (const auto& [path, name] : cases) {
        const PlugAddress at = graph.findPlug(node, path);
        ASSERT_NE(at.attr, kNoAttr) << path;
        EXPECT_EQ(graph.plugName(node, at, true), name) << path;
    }
}

TEST_F(ParsePlugPathTest, FindsNoPlugWhereThereIsNone) {
    Node& node = make("holder", "h");
    for (const char* path : {"nothing", "tx[0]", "t[0].tx", "tx.t", "t.nothing", "t.real", "pt[0].tx", "wl.w[1]", "t.t",
                             "pt[0].ptx[0]", "weights[1]", "wl[0].w[0].w"}) {
        EXPECT_EQ(graph.findPlug(node, path).attr, kNoAttr) << path;
    }
}

TEST_F(ParsePlugPathTest, AnOmittedInstanceIsTheOneOfTheCaller) {
    Node& node = make("holder", "h");
    EXPECT_EQ(graph.findPlug(node, "iog.og[1].gid", 4), graph.findPlug(node, "iog[4].og[1].gid"));
    EXPECT_EQ(graph.findPlug(node, "iog[2].og[1].gid", 4), graph.findPlug(node, "iog[2].og[1].gid"));
    EXPECT_EQ(graph.findPlug(node, "iog", 4), graph.findPlug(node, "iog"));
}

TEST_F(ParsePlugPathTest, NamesComeBackToTheirPlugs) {
    Node& node = make("holder", "h");
    for (const char* path : {"tx", "pt[7].ptx", "wl[3].w[1]", "iog[2].og[1].gcl", "cel[2].ecr", "wl[3].w", "t"}) {
        const PlugAddress at = graph.findPlug(node, path);
        EXPECT_EQ(graph.findPlug(node, graph.plugName(node, at, true)), at) << path;
        EXPECT_EQ(graph.plugName(node, at, false), path);
    }
}

TEST_F(ParsePlugPathTest, RangesNameElementsOfAnArray) {
    Node& node = make("holder", "h");
    const PlugRange points = findPlugRange(node, ".pt[0:2000000000]");
    EXPECT_EQ(points.at, graph.findPlug(node, "pt"));
    EXPECT_TRUE(points.isRange);
    EXPECT_EQ(points.first, 0);
    EXPECT_EQ(points.last, 2000000000);
    EXPECT_EQ(points.below, kNoAttr);

    const PlugRange weights = findPlugRange(node, "wl[4:7].w");
    EXPECT_EQ(weights.at, graph.findPlug(node, "wl"));
    EXPECT_EQ(weights.first, 4);
    EXPECT_EQ(weights.below, node.type().find("weights"));

    const PlugRange inner = findPlugRange(node, "wl[4].w[1:2]");
    EXPECT_EQ(inner.at, graph.findPlug(node, "wl[4].w"));
    EXPECT_EQ(inner.at.element(1), graph.findPlug(node, "wl[4].w[1]"));
    EXPECT_EQ(findPlugRange(node, "pt[1:2].pty").below, node.type().find("pointsY"));
    EXPECT_EQ(findPlugRange(node, "cel[1:2].ec").below, node.type().find("colour"));

    const PlugRange single = findPlugRange(node, "pt[3]");
    EXPECT_FALSE(single.isRange);
    EXPECT_EQ(single.at, graph.findPlug(node, "pt[3]"));
}

TEST_F(ParsePlugPathTest, RefusesRangesThatNameNoOneArray) {
    Node& node = make("holder", "h");
    for (const char* path : {"wl[0:1].w[0:1]", "wl[0:1].w[0]", "wl.w[0:1]", "tx[0:1]", "w[0:1]"}) {
        EXPECT_FALSE(findPlugRange(node, path)) << path;
    }
    EXPECT_EQ(graph.findPlug(node, "pt[0:1]").attr, kNoAttr); // a range is not one plug
}
