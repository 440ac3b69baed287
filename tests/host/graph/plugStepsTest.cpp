#include "TinyTypes.h"

#include "host/graph/plugSteps.h"

using namespace host;

namespace {

using PlugStepsTest = TinyScene;

} // namespace

TEST_F(PlugStepsTest, TellsElementsFromArrays) {
    Node& node = make("holder", "h");
    const std::tuple<const char*, bool, bool> cases[] = {
        {"tx", false, true},        {"translate", false, true},         {"points", true, false},
        {"points[3]", false, true}, {"points[3].pointsX", false, true}, {"weightList[2].weights", true, false},
        {"weights", false, false},
    };
    for (const auto& [path, whole, one] : cases) {
        const PlugAddress at = graph.findPlug(node, path);
        EXPECT_EQ(isWholeArray(node, at), whole) << path;
        EXPECT_EQ(isOneValue(node, at), one) << path;
    }
    PlugAddress negative = graph.findPlug(node, "numbers[0]");
    negative.index[0] = -1;
    EXPECT_FALSE(isOneValue(node, negative));
}

TEST_F(PlugStepsTest, OwnersLeadToTheTop) {
    Node& node = make("holder", "h");
    std::vector<std::string> way;
    for (PlugAddress at = graph.findPlug(node, "cel[4].ec.ecg"); at.attr != kNoAttr; at = ownerOf(node, at)) {
        way.push_back(graph.plugName(node, at, true));
    }
    EXPECT_EQ(way, (std::vector<std::string>{"colorEntryList[4].colourG", "colorEntryList[4].colour",
                                             "colorEntryList[4]", "colorEntryList"}));
}

TEST_F(PlugStepsTest, ChildrenMatchByPosition) {
    Node& node = make("holder", "h");
    Node& other = make("adder", "a");
    const PlugAddress translate = graph.findPlug(node, "translate");
    EXPECT_EQ(childPosition(node, graph.findPlug(node, "ty").attr), 1);
    EXPECT_EQ(childPosition(node, translate.attr), -1);
    const Plug match = matchingBelow(node, translate, graph.findPlug(node, "ty"), plug(other, "bent"));
    EXPECT_EQ(match, plug(other, "bentY"));
    EXPECT_FALSE(matchingBelow(node, translate, graph.findPlug(node, "tz"), plug(node, "pair"))); // has two only
    EXPECT_FALSE(matchingBelow(node, translate, graph.findPlug(node, "real"), plug(other, "bent")));
}

TEST_F(PlugStepsTest, ElementsMatchByIndex) {
    Node& node = make("holder", "h");
    Node& other = make("holder", "o");
    const Plug match =
        matchingBelow(node, graph.findPlug(node, "wl"), graph.findPlug(node, "wl[3].w[9]"), plug(other, "wl"));
    EXPECT_EQ(match, plug(other, "wl[3].w[9]"));
    EXPECT_FALSE(matchingBelow(node, graph.findPlug(node, "nu"), graph.findPlug(node, "nu[1]"), plug(other, "real")));
}
