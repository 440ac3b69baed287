#include "host/scene/Selection.h"

#include "OpenedScene.h"

#include <gtest/gtest.h>

namespace host {

namespace {

class SelectionTest : public testing::Test {
protected:
    SelectionItem item(const char* name) {
        std::vector<SelectionItem> items;
        EXPECT_TRUE(opened.scene.findItems(name, items).ok()) << name;
        return items.front();
    }
    std::string names() {
        std::string all;
        for (const SelectionItem& each : selection.items()) {
            all += (all.empty() ? "" : " ") + opened.scene.itemName(each, false);
            for (const std::string& component : each.components) {
                all += "." + component;
            }
        }
        return all;
    }

    OpenedScene opened{
        "createNode transform -n \"a\";\ncreateNode mesh -n \"aShape\" -p \"a\";\ncreateNode transform -n \"b\";\n"
        "parent -add \"|a|aShape\" \"b\";\ncreateNode transform -n \"c\";\n"};
    Selection selection;
};

TEST_F(SelectionTest, NothingStandsTwice) {
    selection.add(item("c"));
    selection.add(item("a"));
    selection.add(item("c"));
    EXPECT_EQ(names(), "c a");
    EXPECT_TRUE(selection.contains(item("a")));
    EXPECT_FALSE(selection.contains(item("b")));
}

TEST_F(SelectionTest, InstancesAreTwoThings) {
    selection.add(item("|a|aShape"));
    selection.add(item("|b|aShape"));
    EXPECT_EQ(names(), "a|aShape b|aShape");
    selection.remove(item("|a|aShape"));
    EXPECT_EQ(names(), "b|aShape");
}

TEST_F(SelectionTest, ComponentsGatherInOneEntry) {
    selection.add(item("a.f[0]"));
    selection.add(item("a.f[2:3]"));
    selection.add(item("a.f[0]"));
    selection.add(item("|a|aShape"));
    EXPECT_EQ(names(), "a|aShape.f[0].f[2:3] a|aShape");
    selection.remove(item("a.f[0]"));
    selection.remove(item("a.f[9]"));
    EXPECT_EQ(names(), "a|aShape.f[2:3] a|aShape");
    selection.remove(item("a.f[2:3]"));
    EXPECT_EQ(names(), "a|aShape");
}

TEST_F(SelectionTest, AttributesAreEntriesOfTheirOwn) {
    selection.add(item("a.tx"));
    selection.add(item("a"));
    selection.add(item("a.ty"));
    EXPECT_EQ(names(), "a.translateX a a.translateY");
}

TEST_F(SelectionTest, EntriesGoWithTheirNodes) {
    selection.add(item("|a|aShape"));
    selection.add(item("c"));
    selection.add(item("|b|aShape"));
    selection.nodesDeleted({opened.node("a")});
    EXPECT_EQ(names(), "c b|aShape");
    selection.clear();
    EXPECT_TRUE(selection.empty());
    EXPECT_TRUE(selection.items().empty());
}

} // namespace

} // namespace host
