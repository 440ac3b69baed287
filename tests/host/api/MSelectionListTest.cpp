#include <maya/MSelectionList.h>

#include "HostTest.h"

namespace host {
namespace {

class MSelectionListTest : public HostTest {
protected:
    MSelectionListTest() {
        run("createNode transform -n a; createNode mesh -n aShape -p a; createNode transform -n b;"
            "createNode lambert -n red; createNode transform -n twin -p a; createNode transform -n twin -p b");
    }

    static std::vector<std::string> names(const MSelectionList& list) {
        MStringArray strings;
        list.getSelectionStrings(strings);
        std::vector<std::string> result;
        for (unsigned int i = 0; i < strings.length(); ++i) {
            result.emplace_back(strings[i].asChar());
        }
        return result;
    }

    MSelectionList list;
};

TEST_F(MSelectionListTest, namesThatFitNothingOrTooMuchAreRefused) {
    for (const char* name : {"none", "", "a.none", "twin", "none*", "a.f[", "|b|a", "red|a"}) {
        EXPECT_EQ(list.add(name), MStatus::kInvalidParameter) << name;
    }
    EXPECT_EQ(list.add(MObject()), MStatus::kInvalidParameter);
    EXPECT_EQ(list.add(MDagPath()), MStatus::kInvalidParameter);
    EXPECT_EQ(list.add(MPlug()), MStatus::kInvalidParameter);
    EXPECT_EQ(list.add(path("a"), node("b")), MStatus::kInvalidParameter) << "a node is no component";
    EXPECT_TRUE(list.isEmpty());
}

TEST_F(MSelectionListTest, indicesOutOfRangeAreRefused) {
    MDagPath dagPath;
    MObject object;
    MPlug found;
    MStringArray strings;
    list.add("a");
    EXPECT_EQ(list.getDagPath(1, dagPath), MStatus::kInvalidParameter);
    EXPECT_EQ(list.getDagPath(1, dagPath, object), MStatus::kInvalidParameter);
    EXPECT_EQ(list.getDependNode(1, object), MStatus::kInvalidParameter);
    EXPECT_EQ(list.getPlug(1, found), MStatus::kInvalidParameter);
    EXPECT_EQ(list.getSelectionStrings(1, strings), MStatus::kInvalidParameter);
    EXPECT_EQ(list.remove(1), MStatus::kInvalidParameter);
    EXPECT_EQ(list.replace(1, node("b")), MStatus::kInvalidParameter);
    EXPECT_EQ(list.replace(0, MObject()), MStatus::kInvalidParameter);
}

TEST_F(MSelectionListTest, entriesOfOtherKindsAreRefused) {
    MDagPath dagPath;
    MPlug found;
    list.add("red");
    list.add("a.tx");
    EXPECT_EQ(list.getDagPath(0, dagPath), MStatus::kFailure);
    EXPECT_EQ(list.getPlug(0, found), MStatus::kFailure);
    EXPECT_EQ(list.getDagPath(1, dagPath), MStatus::kFailure) << "an attribute is no DAG object";
    EXPECT_EQ(list.getPlug(1, found), MStatus::kSuccess);
    EXPECT_EQ(found.name(), "a.translate.translateX");
}

TEST_F(MSelectionListTest, entriesOfDeletedNodesFail) {
    list.add("a");
    list.add("red");
    run("delete a red");
    MDagPath dagPath;
    MObject object;
    MStringArray strings;
    EXPECT_EQ(list.length(), 2U);
    EXPECT_EQ(list.getDagPath(0, dagPath), MStatus::kFailure);
    EXPECT_EQ(list.getDependNode(1, object), MStatus::kFailure);
    EXPECT_EQ(list.getSelectionStrings(0, strings), MStatus::kFailure);
}

TEST_F(MSelectionListTest, everyKindOfNameIsFound) {
    for (const char* name : {"a", "|a|twin", "red", "b.translateY", "aShape.f[0:3]"}) {
        EXPECT_EQ(list.add(name), MStatus::kSuccess) << name;
    }
    EXPECT_THAT(names(list), testing::ElementsAre("a", "a|twin", "red", "b.translateY", "aShape.f[0:3]"));
    list.clear();
    EXPECT_EQ(list.add("a*"), MStatus::kSuccess);
    EXPECT_EQ(list.length(), 2U) << "a and aShape";
}

TEST_F(MSelectionListTest, componentsComeKindByKind) {
    MDagPath shape;
    MObject component;
    list.add("aShape.f[0:3]");
    ASSERT_EQ(list.getDagPath(0, shape, component), MStatus::kSuccess);
    EXPECT_TRUE(shape == path("aShape"));
    EXPECT_EQ(component.apiType(), MFn::kMeshPolygonComponent);
    EXPECT_TRUE(component.hasFn(MFn::kSingleIndexedComponent));
    EXPECT_TRUE(component.hasFn(MFn::kComponent));
    run("select -r aShape.f[0:3] aShape.vtx[1]");
    ASSERT_EQ(host.scene().selection().items().size(), 1U);
    MSelectionList active;
    active.add("aShape.vtx[1]");
    EXPECT_TRUE(active.hasItem(shape, [&] {
        MObject vertex;
        MDagPath unused;
        active.getDagPath(0, unused, vertex);
        return vertex;
    }()));
    EXPECT_FALSE(active.hasItem(shape, component));
    EXPECT_FALSE(active.hasItem(shape)) << "only a part of it";
}

TEST_F(MSelectionListTest, wholeObjectsHaveANullComponent) {
    MDagPath found;
    MObject component = node("red");
    list.add("a");
    ASSERT_EQ(list.getDagPath(0, found, component), MStatus::kSuccess);
    EXPECT_TRUE(component.isNull());
    EXPECT_EQ(list.getDagPath(0, found, MObject::kNullObj), MStatus::kSuccess);
    EXPECT_TRUE(MObject::kNullObj.isNull());
}

TEST_F(MSelectionListTest, mergingLeavesEachEntryOnce) {
    list.add(node("a"), true);
    list.add(path("a"), MObject(), true);
    list.add(plug("a.tx"), true);
    list.add(plug("a.tx"), true);
    EXPECT_EQ(list.length(), 2U);
    list.add(node("a"));
    EXPECT_EQ(list.length(), 3U);
}

struct MergeRow {
    MSelectionList::MergeStrategy strategy;
    std::vector<std::string> result; // of {a, b} and {b, red}
};

TEST_F(MSelectionListTest, listsAreMerged) {
    const MergeRow rows[] = {{MSelectionList::kMergeNormal, {"a", "b", "red"}},
                             {MSelectionList::kXORWithList, {"a", "red"}},
                             {MSelectionList::kRemoveFromList, {"a"}}};
    MSelectionList second;
    second.add("b");
    second.add("red");
    for (const MergeRow& row : rows) {
        list.clear();
        list.add("a");
        list.add("b");
        EXPECT_EQ(list.merge(second, row.strategy), MStatus::kSuccess);
        EXPECT_EQ(names(list), row.result);
    }
    EXPECT_EQ(list.merge(list, MSelectionList::kXORWithList), MStatus::kSuccess);
    EXPECT_TRUE(list.isEmpty());
}

TEST_F(MSelectionListTest, entriesAreRemovedAndReplaced) {
    list.add("a");
    list.add("b");
    EXPECT_EQ(list.replace(1, node("red")), MStatus::kSuccess);
    EXPECT_EQ(list.remove(0), MStatus::kSuccess);
    EXPECT_THAT(names(list), testing::ElementsAre("red"));
    EXPECT_TRUE(list.hasItem(node("red")));
    EXPECT_FALSE(list.hasItem(node("a")));
    EXPECT_FALSE(list.hasItem(MObject()));
    EXPECT_FALSE(list.hasItem(MPlug()));
}

} // namespace
} // namespace host
