#include "host/geometry/ComponentList.h"

#include <gtest/gtest.h>

namespace host {
namespace {

TEST(ComponentList, RefusesWhatIsNoComponent) {
    for (const char* text : {"",           "f",
                             "f[",         "f[]",
                             "f[1",        "f[1]x",
                             "f[-1]",      "f[3:1]",
                             "f[1:]",      "f[:2]",
                             "f[**]",      "f[1][2]",
                             "foo[1]",     "F[1]",
                             "vtxFace[1]", "pt[1]",
                             "pt[1][2]",   "pt[0][0][0][0]",
                             "uv[1]",      "e[4294967296]",
                             "vtx[0x1]",   " f[1]",
                             "f [1]",      "cv[1][2][3]"}) {
        ComponentRange range;
        range.kind = ComponentKind::kEdge;
        range.index[0] = {7, 9};
        EXPECT_FALSE(parseComponent(text, range)) << text;
        EXPECT_EQ(range.kind, ComponentKind::kEdge) << text;
        EXPECT_EQ(range.index[0], (IndexRange{7, 9})) << text;
    }
}

TEST(ComponentList, ReadsEveryFormThatFilesHoldAndWritesItBack) {
    struct Row {
        const char* text;
        ComponentKind kind;
        int dimensions;
        IndexRange first, second, third;
    };
    const IndexRange none;
    const Row rows[] = {
        {"vtx[0:7]", ComponentKind::kVertex, 1, {0, 7}, none, none},
        {"f[3]", ComponentKind::kFace, 1, {3, 3}, none, none},
        {"f[*]", ComponentKind::kFace, 1, IndexRange::all(), none, none},
        {"e[0]", ComponentKind::kEdge, 1, {0, 0}, none, none},
        {"map[2:5]", ComponentKind::kUv, 1, {2, 5}, none, none},
        {"uv[1][0:2]", ComponentKind::kUv, 2, {1, 1}, {0, 2}, none},
        {"vtxFace[4][9]", ComponentKind::kFaceVertex, 2, {4, 4}, {9, 9}, none},
        {"cv[5]", ComponentKind::kControlPoint, 1, {5, 5}, none, none},
        {"cv[0:3][*]", ComponentKind::kControlPoint, 2, {0, 3}, IndexRange::all(), none},
        {"pt[0:1][2][0:4]", ComponentKind::kLatticePoint, 3, {0, 1}, {2, 2}, {0, 4}},
    };
    for (const Row& row : rows) {
        ComponentRange range;
        ASSERT_TRUE(parseComponent(row.text, range)) << row.text;
        EXPECT_EQ(range.kind, row.kind) << row.text;
        EXPECT_EQ(range.dimensions, row.dimensions) << row.text;
        EXPECT_EQ(range.index[0], row.first) << row.text;
        EXPECT_EQ(range.index[1], row.second) << row.text;
        EXPECT_EQ(range.index[2], row.third) << row.text;
        EXPECT_EQ(componentText(range), row.text);
    }
}

ComponentList listOf(std::initializer_list<const char*> texts) {
    ComponentList list;
    for (const char* text : texts) {
        ComponentRange range;
        EXPECT_TRUE(parseComponent(text, range)) << text;
        list.ranges.push_back(range);
    }
    return list;
}

TEST(ComponentList, MergesRangesThatOverlapOrTouch) {
    using Ranges = std::vector<IndexRange>;
    EXPECT_EQ(mergedRanges(listOf({}), ComponentKind::kFace), Ranges{});
    EXPECT_EQ(mergedRanges(listOf({"f[4]", "f[0:2]", "f[3]", "f[8:9]", "f[8]"}), ComponentKind::kFace),
              (Ranges{{0, 4}, {8, 9}}));
    EXPECT_EQ(mergedRanges(listOf({"f[2]", "f[*]"}), ComponentKind::kFace), Ranges{IndexRange::all()});
    EXPECT_EQ(mergedRanges(listOf({"vtx[1]", "f[5]", "vtxFace[0][0]"}), ComponentKind::kVertex), (Ranges{{1, 1}}));
}

} // namespace
} // namespace host
