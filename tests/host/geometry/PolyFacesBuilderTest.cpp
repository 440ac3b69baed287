#include "host/geometry/PolyFacesBuilder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <sstream>

namespace host {
namespace {

using Ints = std::vector<std::int32_t>;

/// Feeds a text word by word, as the scene reader does; false at the first refusal.
bool feed(PolyFacesBuilder& builder, const std::string& text) {
    std::istringstream words(text);
    for (std::string word; words >> word;) {
        const bool isNumber = std::isdigit(static_cast<unsigned char>(word.back())) != 0;
        if (!(isNumber ? builder.number(std::atoi(word.c_str())) : builder.token(word))) {
            return false;
        }
    }
    return builder.endChunk();
}

Ints idsOf(const std::map<std::int32_t, FaceIds>& sets, std::int32_t set, std::int32_t face) {
    const auto found = sets.find(set);
    std::int32_t count = 0;
    const std::int32_t* ids = found == sets.end() ? nullptr : found->second.find(face, count);
    return Ints(ids, ids + count);
}

TEST(PolyFacesBuilder, RefusesBrokenFacesWithTheReason) {
    struct Row {
        const char* text;
        const char* error;
    };
    const Row rows[] = {
        {"1", "face 0: expected one of f, h, mu, mf, mh, mc, fc, got 1"},
        {"g 1", "face 0: unknown word 'g'"},
        {"mu 0 3 0 1 2", "face 0: 'mu' before the first 'f'"},
        {"h 3 0 1 2", "face 0: 'h' before the first 'f'"},
        {"f", "face 0: expected a count"},
        {"f 2 0 1", "face 0: expected a number of edges of at least 3, got 2"},
        {"f -1", "face 0: expected a number of edges of at least 3, got -1"},
        {"f 3 0 1", "face 0: 1 numbers are missing"},
        {"f 2000000000 0 1", "face 0: 1999999998 numbers are missing"},
        {"f 3 0 1 2 7", "face 0: expected one of f, h, mu, mf, mh, mc, fc, got 7"},
        {"f 3 0 1 2 mu -1", "face 0: expected the index of a set, got -1"},
        {"f 3 0 1 2 mu 0 -3", "face 0: expected a number of ids, got -3"},
        {"f 3 0 1 2 mu 0 f 3", "face 0: expected a count"},
        {"f 3 0 1 2 f 4 0 1 2 3 mu 0 3 5 6 7", "face 1: 4 corners but 3 ids in set 0"},
        {"f 3 0 1 2 mc 2 4 5 6 7 8 f 3 0 1 2", "face 0: 3 corners but 4 ids in set 2"},
    };
    for (const Row& row : rows) {
        PolyFacesBuilder builder;
        EXPECT_FALSE(feed(builder, row.text)) << row.text;
        EXPECT_EQ(builder.error(), row.error) << row.text;
        EXPECT_FALSE(builder.token("f")) << row.text;
        EXPECT_FALSE(builder.number(3)) << row.text;
        EXPECT_FALSE(builder.startChunk(0)) << row.text;
        EXPECT_EQ(builder.finish(), nullptr) << row.text;
    }
}

TEST(PolyFacesBuilder, RefusesAChunkThatDoesNotFollow) {
    PolyFacesBuilder builder;
    ASSERT_TRUE(builder.startChunk(0));
    ASSERT_TRUE(feed(builder, "f 3 0 1 2"));
    EXPECT_FALSE(builder.startChunk(500));
    EXPECT_EQ(builder.error(), "face 1: expected the faces from 1 on, got those from 500 on");
}

TEST(PolyFacesBuilder, KeepsLoopsAndSignedEdges) {
    PolyFacesBuilder builder;
    ASSERT_TRUE(feed(builder, "f 4 0 5 -2 -5 f 3 1 2 -1"));
    const auto faces = builder.finish();
    ASSERT_NE(faces, nullptr);
    EXPECT_EQ(faces->faceCount(), 2);
    EXPECT_EQ(faces->edges, (Ints{0, 5, -2, -5, 1, 2, -1}));
    EXPECT_EQ(faces->firstCorner(1), 4);
    EXPECT_EQ(faces->cornerCount(0), 4);
    EXPECT_EQ(faces->cornerCount(1), 3);
    EXPECT_FALSE(faces->hasHoles(0));
    EXPECT_TRUE(faces->uvIds.empty());
    EXPECT_EQ(builder.faceCount(), 0) << "the builder is empty after finish()";
}

TEST(PolyFacesBuilder, CountsTheCornersOfHolesWithTheFace) {
    PolyFacesBuilder builder;
    ASSERT_TRUE(feed(builder, "f 4 0 1 2 3 h 3 4 5 6 mu 0 7 0 1 2 3 4 5 6 f 3 7 8 9"));
    const auto faces = builder.finish();
    ASSERT_NE(faces, nullptr);
    EXPECT_TRUE(faces->hasHoles(0));
    EXPECT_FALSE(faces->hasHoles(1));
    EXPECT_EQ(faces->cornerCount(0), 7);
    EXPECT_EQ(faces->loopStarts, (Ints{0, 4, 7, 10}));
    EXPECT_EQ(faces->faceStarts, (Ints{0, 2, 3}));
    EXPECT_EQ(idsOf(faces->uvIds, 0, 0), (Ints{0, 1, 2, 3, 4, 5, 6}));
    EXPECT_EQ(idsOf(faces->uvIds, 0, 1), Ints{});
}

TEST(PolyFacesBuilder, ReadsTheOldWordsAsSetZero) {
    PolyFacesBuilder builder;
    ASSERT_TRUE(feed(builder, "f 3 0 1 2 mf 3 10 11 12 h 3 3 4 5 mh 3 13 14 15 fc 6 0 1 2 3 4 -1"));
    const auto faces = builder.finish();
    ASSERT_NE(faces, nullptr);
    EXPECT_EQ(idsOf(faces->uvIds, 0, 0), (Ints{10, 11, 12, 13, 14, 15}));
    EXPECT_EQ(idsOf(faces->colorIds, 0, 0), (Ints{0, 1, 2, 3, 4, -1}));
}

TEST(PolyFacesBuilder, KeepsIdsOfSeveralSetsWithFacesLeftOut) {
    PolyFacesBuilder builder;
    ASSERT_TRUE(feed(builder, "f 3 0 1 2 mu 1 3 7 8 9 "
                              "f 3 0 1 2 mu 0 3 1 2 3 mc 5 3 0 -1 1 "
                              "f 3 0 1 2 "
                              "f 3 0 1 2 mu 0 3 4 5 6 mu 1 3 6 5 4"));
    const auto faces = builder.finish();
    ASSERT_NE(faces, nullptr);
    EXPECT_EQ(idsOf(faces->uvIds, 0, 0), Ints{});
    EXPECT_EQ(idsOf(faces->uvIds, 0, 1), (Ints{1, 2, 3}));
    EXPECT_EQ(idsOf(faces->uvIds, 0, 2), Ints{});
    EXPECT_EQ(idsOf(faces->uvIds, 0, 3), (Ints{4, 5, 6}));
    EXPECT_EQ(idsOf(faces->uvIds, 1, 0), (Ints{7, 8, 9}));
    EXPECT_EQ(idsOf(faces->uvIds, 1, 3), (Ints{6, 5, 4}));
    EXPECT_EQ(idsOf(faces->uvIds, 2, 3), Ints{});
    EXPECT_EQ(idsOf(faces->colorIds, 5, 1), (Ints{0, -1, 1}));
    EXPECT_EQ(idsOf(faces->uvIds, 0, -1), Ints{});
    EXPECT_EQ(idsOf(faces->uvIds, 0, 4), Ints{});
}

TEST(PolyFacesBuilder, AppendsChunksAndGoesOnFromEarlierFaces) {
    PolyFacesBuilder first;
    ASSERT_TRUE(first.startChunk(0));
    ASSERT_TRUE(feed(first, "f 3 0 1 2 mu 0 3 0 1 2"));
    EXPECT_EQ(first.faceCount(), 1);
    ASSERT_TRUE(first.startChunk(1));
    ASSERT_TRUE(feed(first, "f 3 2 1 0 mu 0 3 2 1 0"));
    const auto two = first.finish();
    ASSERT_NE(two, nullptr);
    ASSERT_EQ(two->faceCount(), 2);

    PolyFacesBuilder second(*two);
    ASSERT_TRUE(second.startChunk(2));
    ASSERT_TRUE(feed(second, "f 4 0 1 2 3 mu 0 4 5 6 7 8"));
    const auto three = second.finish();
    ASSERT_NE(three, nullptr);
    EXPECT_EQ(three->faceCount(), 3);
    EXPECT_EQ(idsOf(three->uvIds, 0, 1), (Ints{2, 1, 0}));
    EXPECT_EQ(idsOf(three->uvIds, 0, 2), (Ints{5, 6, 7, 8}));
    EXPECT_EQ(two->faceCount(), 2) << "the earlier faces are not touched";

    PolyFacesBuilder anew(*two);
    ASSERT_TRUE(anew.startChunk(0));
    EXPECT_EQ(anew.faceCount(), 0);
}

} // namespace
} // namespace host
