#include "host/scene/SceneNames.h"

#include "OpenedScene.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace host {

namespace {

using testing::ElementsAre;

struct LegalRow {
    const char* wanted;
    const char* legal;
};

TEST(SceneNames, IllegalBytesBecomeUnderscores) {
    const LegalRow rows[] = {{"", ""},
                             {"a", "a"},
                             {"a b", "a_b"},
                             {"1a", "_1a"},
                             {"a.b[2]", "a_b_2_"},
                             {"ns:a", "ns:a"},
                             {":a", "a"},
                             {"ns::a", "ns:a"},
                             {"ns:1", "ns:_1"},
                             {"ns:", "ns"},
                             {"\xE3\x81\x82", "\xE3\x81\x82"},
                             {"|a", "_a"}};
    for (const LegalRow& row : rows) {
        EXPECT_EQ(SceneNames::legalName(row.wanted), row.legal) << row.wanted;
    }
}

struct FreeRow {
    const char* wanted;
    const char* given;
};

TEST(SceneNames, TakenNamesGetTheNextFreeNumber) {
    OpenedScene opened(
        "createNode transform -n \"a\";\ncreateNode transform -n \"a1\";\ncreateNode transform -n \"a2\" -p \"a\";\n"
        "createNode transform -n \"b7\";\ncreateNode transform -n \"b008\";\ncreateNode blinn -n \"shader\";\n"
        "createNode transform -n \"n99999999999\";\n");
    const Node& world = opened.scene.graph().world();
    const FreeRow rows[] = {{"fresh", "fresh"},
                            {"a", "a2"}, // a2 is below another parent
                            {"a1", "a2"},
                            {"b7", "b8"},
                            {"b008", "b009"},
                            {"shader", "shader1"}, // a name outside the DAG is nobody else's
                            {"n99999999999", "n999999999991"},
                            {"a#", "a2"},
                            {"c#", "c1"}};
    for (const FreeRow& row : rows) {
        EXPECT_EQ(opened.scene.names().freeName(row.wanted, &world), row.given) << row.wanted;
    }
    EXPECT_EQ(opened.scene.names().freeName("a2", nullptr), "a3");
    EXPECT_EQ(opened.scene.names().freeName("a", nullptr), "a3");
}

// The result is that of trying 1, 2, 3 … anew each time, whatever was asked, made or freed before.
TEST(SceneNames, CountingForgetsWhatBecameFree) {
    OpenedScene opened;
    const NodeType& type = *opened.scene.types().find("transform");
    std::vector<Node*> nodes;
    for (int count = 0; count < 5; ++count) {
        nodes.push_back(opened.scene.createNode(type, "a"));
    }
    EXPECT_EQ(nodes[4]->name(), "a4");
    EXPECT_TRUE(opened.scene.deleteNode(*nodes[2]).ok());
    EXPECT_EQ(opened.scene.createNode(type, "a")->name(), "a2");
    EXPECT_EQ(opened.scene.createNode(type, "a")->name(), "a5");
    EXPECT_TRUE(opened.scene.renameNode(*nodes[0], "other").ok());
    EXPECT_EQ(opened.scene.createNode(type, "a")->name(), "a");
}

struct FindRow {
    const char* name;
    const char* found; // a full path or name; "" for an error
    const char* error;
};

TEST(SceneNames, NamesPathsAndTheirEnds) {
    OpenedScene opened("createNode transform -n \"a\";\ncreateNode transform -n \"x\" -p \"a\";\ncreateNode transform "
                       "-n \"c\" -p \"x\";\n"
                       "createNode transform -n \"b\";\ncreateNode transform -n \"x\" -p \"b\";\ncreateNode transform "
                       "-n \"d\" -p \"|b|x\";\n"
                       "createNode transform -n \"ns:e\";\ncreateNode blinn -n \"ns:s\";\n");
    ASSERT_EQ(opened.result.error, "");
    const FindRow rows[] = {
        {"a", "|a", ""},
        {":a", "|a", ""},
        {"|a", "|a", ""},
        {"|:a|:x", "|a|x", ""},
        {"a|x", "|a|x", ""},
        {"|a|x|c", "|a|x|c", ""},
        {"x|d", "|b|x|d", ""},
        {"ns:e", "|ns:e", ""},
        {":ns:e", "|ns:e", ""},
        {"ns:s", "", ""},
        {"x", "", "More than one object matches name: x"},
        {"y", "", "No object matches name: y"},
        {"e", "", "No object matches name: e"},
        {"", "", "No object matches name: "},
        {"|", "", "No object matches name: |"},
        {"a|", "", "No object matches name: a|"},
        {"a||x", "", "No object matches name: a||x"},
        {"|x", "", "No object matches name: |x"},
        {"b|c", "", "No object matches name: b|c"},
        {"A", "", "No object matches name: A"},
        {"|ns:s", "", "No object matches name: |ns:s"},
    };
    for (const FindRow& row : rows) {
        DagPath path;
        const NodeMatch match = opened.scene.names().findPath(row.name, path);
        EXPECT_EQ(match.error, row.error) << row.name;
        EXPECT_EQ(fullPathName(path), row.found) << row.name;
        EXPECT_EQ(opened.scene.find(row.name).node, match.node) << row.name;
    }
}

const std::string kInstances =
    "createNode transform -n \"a\";\ncreateNode mesh -n \"s\" -p \"a\";\ncreateNode transform -n \"b\";\n"
    "createNode transform -n \"c\";\nparent -s -nc -r -add \"|a|s\" \"b\";\nparent -add \"|b\" \"c\";\n";

// b stands below the world and below c, and s below a and b: three paths, one node.
TEST(SceneNames, PathsOfInstancesAreOneNode) {
    OpenedScene opened(kInstances);
    ASSERT_EQ(opened.result.error, "");
    Node* shape = opened.node("s");
    ASSERT_NE(shape, nullptr);
    for (const char* name : {"s", "|a|s", "|b|s", "|c|b|s", "b|s"}) {
        EXPECT_EQ(opened.node(name), shape) << name;
    }
    DagPath path;
    EXPECT_TRUE(opened.scene.names().findPath("s", path).ok());
    EXPECT_EQ(fullPathName(path), "|a|s");
    EXPECT_TRUE(opened.scene.names().findPath("c|b|s", path).ok());
    EXPECT_EQ(fullPathName(path), "|c|b|s");
    EXPECT_EQ(opened.scene.instanceOf(*shape, "s"), 0);
    EXPECT_EQ(opened.scene.instanceOf(*shape, "|b|s"), 1);
    EXPECT_EQ(opened.scene.instanceOf(*shape, "|c|b|s"), 2);
}

TEST(SceneNames, ShortestNamesAreUnique) {
    OpenedScene opened(
        "createNode transform -n \"a\";\ncreateNode transform -n \"x\" -p \"a\";\ncreateNode transform -n \"b\";\n"
        "createNode transform -n \"x\" -p \"b\";\ncreateNode transform -n \"x\";\n");
    EXPECT_EQ(opened.scene.names().shortestName(*opened.node("a")), "a");
    EXPECT_EQ(opened.scene.names().shortestName(*opened.node("|a|x")), "a|x");
    EXPECT_EQ(opened.scene.names().shortestName(*opened.node("|x")), "|x");
    opened.open(kInstances);
    const auto shortest = [&](const char* name) {
        DagPath path;
        EXPECT_TRUE(opened.scene.names().findPath(name, path).ok());
        return opened.scene.names().shortestName(path);
    };
    EXPECT_EQ(shortest("|a|s"), "a|s");
    EXPECT_EQ(shortest("|c|b|s"), "c|b|s");
    EXPECT_EQ(shortest("|b|s"), "|b|s");
    EXPECT_EQ(shortest("|a"), "a");
    EXPECT_EQ(shortest("|c|b"), "c|b");
}

struct PatternRow {
    const char* pattern;
    const char* name;
    bool matches;
};

TEST(SceneNames, Patterns) {
    const PatternRow rows[] = {
        {"*", "a", true},       {"*", "", true},        {"*", "ns:a", false},   {"*:*", "ns:a", true},
        {"a*", "abc", true},    {"a*c", "abc", true},   {"a*c", "abd", false},  {"a?c", "abc", true},
        {"a?c", "ac", false},   {"?", ":", false},      {"*b*b", "abab", true}, {"*b*b", "abba", false},
        {"abc", "abc", true},   {"abc", "ab", false},   {"ab", "abc", false},   {"", "", true},
        {"ns:*", "ns:a", true}, {"ns*", "ns:a", false}, {"**", "a", true}};
    for (const PatternRow& row : rows) {
        EXPECT_EQ(matchesPattern(row.pattern, row.name), row.matches) << row.pattern << " " << row.name;
    }
}

// Thousands of nodes of one name, and names that clash a thousand times, are found and given in no more than a moment
// each: the test would not end otherwise.
TEST(SceneNames, ManyNodesOfOneName) {
    std::string text;
    constexpr int kCount = 20000;
    for (int at = 0; at < kCount; ++at) {
        const std::string parent = "p" + std::to_string(at);
        text += "createNode transform -n \"" + parent + "\";\ncreateNode transform -n \"c\" -p \"" + parent +
                "\";\n"
                "createNode transform -n \"clash\";\nsetAttr \"" +
                parent + "|c.tx\" 2;\n";
    }
    OpenedScene opened(text);
    ASSERT_EQ(opened.result.error, "");
    EXPECT_EQ(opened.scene.names().nodesNamed("c").size(), static_cast<std::size_t>(kCount));
    EXPECT_NE(opened.node("clash" + std::to_string(kCount - 1)), nullptr);
    EXPECT_EQ(opened.number("p77|c.tx"), 2.0);
    EXPECT_EQ(opened.scene.find("c").error, "More than one object matches name: c");
}

} // namespace

} // namespace host
