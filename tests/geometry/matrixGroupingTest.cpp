#include "geometry/matrixGrouping.h"

#include "geometry/MatrixSlots.h"
#include "randomFaces.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <vector>

namespace tvk::test {
namespace {

// Faces from their corners' matrices.
FaceList facesOn(const std::vector<std::vector<int32_t>>& matrices) {
    FaceList faces;
    for (const std::vector<int32_t>& face : matrices) {
        for (const int32_t matrix : face) {
            Corner corner;
            corner.matrix = matrix;
            corner.position = static_cast<int32_t>(faces.corners.size());
            faces.corners.push_back(corner);
        }
        faces.sizes.push_back(static_cast<uint8_t>(face.size()));
    }
    return faces;
}

// The matrices loaded by each group.
std::vector<std::size_t> loadsOf(const std::vector<FaceGroup>& groups) {
    MatrixSlots slots;
    std::vector<std::size_t> loads;
    for (const FaceGroup& group : groups) {
        const std::vector<int32_t> list = slots.load(group.matrices);
        loads.push_back(list.size() - static_cast<std::size_t>(std::count(list.begin(), list.end(), -1)));
    }
    return loads;
}

std::size_t sum(const std::vector<std::size_t>& numbers) {
    std::size_t total = 0;
    for (const std::size_t number : numbers)
        total += number;
    return total;
}

// What grouping faces in their own order would load.
std::size_t loadsInFaceOrder(const FaceList& faces) {
    MatrixSlots slots;
    std::size_t loads = 0;
    std::set<int32_t> group;
    std::size_t at = 0;
    const auto close = [&] {
        const std::vector<int32_t> list = slots.load({group.begin(), group.end()});
        loads += list.size() - static_cast<std::size_t>(std::count(list.begin(), list.end(), -1));
    };
    for (const uint8_t size : faces.sizes) {
        std::set<int32_t> grown = group;
        for (std::size_t i = 0; i < size; ++i)
            grown.insert(faces.corners[at++].matrix);
        if (grown.size() > static_cast<std::size_t>(kMatrixSlotCount)) {
            close();
            grown.clear();
            for (std::size_t i = at - size; i < at; ++i)
                grown.insert(faces.corners[i].matrix);
        }
        group = std::move(grown);
    }
    close();
    return loads;
}

TEST(MatrixGrouping, NoFacesGiveNoGroups) {
    EXPECT_TRUE(groupByMatrices({}).empty());
}

TEST(MatrixGrouping, OneGroupListsMatricesByFirstUse) {
    const std::vector<FaceGroup> groups = groupByMatrices(facesOn({{9, 2, 9}, {2, 5, 7, 9}}));
    ASSERT_EQ(groups.size(), 1u);
    EXPECT_EQ(groups[0].matrices, (std::vector<int32_t>{9, 2, 5, 7}));
    EXPECT_EQ(groups[0].faces, (std::vector<int32_t>{0, 1}));
}

TEST(MatrixGrouping, ThirtyOneMatricesAreOneGroupAndThirtyTwoAreTwo) {
    std::vector<std::vector<int32_t>> faces;
    for (int32_t i = 0; i < 31; ++i)
        faces.push_back({i, i, i});
    EXPECT_EQ(groupByMatrices(facesOn(faces)).size(), 1u);
    faces.push_back({31, 31, 31});
    const std::vector<FaceGroup> groups = groupByMatrices(facesOn(faces));
    ASSERT_EQ(groups.size(), 2u);
    EXPECT_EQ(loadsOf(groups), (std::vector<std::size_t>{31, 1}));
}

TEST(MatrixGrouping, ThirtyThreeRigidBonesLoadTwoMore) {
    std::vector<std::vector<int32_t>> faces;
    for (int32_t i = 0; i < 33; ++i) {
        faces.push_back({i, i, i, i});
        faces.push_back({i, i, i});
    }
    EXPECT_EQ(loadsOf(groupByMatrices(facesOn(faces))), (std::vector<std::size_t>{31, 2}));
}

TEST(MatrixGrouping, RingOverThirtyTwoMatricesLoadsEachOnce) {
    std::vector<std::vector<int32_t>> faces;
    for (int32_t i = 0; i < 40; ++i) {
        const int32_t here = i * 32 / 40;
        const int32_t next = (i + 1) % 40 * 32 / 40;
        faces.push_back({here, next, next, here});
    }
    const std::vector<FaceGroup> groups = groupByMatrices(facesOn(faces));
    EXPECT_EQ(loadsOf(groups), (std::vector<std::size_t>{31, 1}));
}

TEST(MatrixGrouping, HeldMatricesComeFirstInSlotOrder) {
    std::vector<std::vector<int32_t>> faces;
    for (int32_t i = 0; i < 32; ++i)
        faces.push_back({i, (i + 1) % 32, i});
    const std::vector<FaceGroup> groups = groupByMatrices(facesOn(faces));
    ASSERT_EQ(groups.size(), 2u);
    MatrixSlots slots;
    slots.load(groups[0].matrices);
    const std::vector<int32_t>& list = groups[1].matrices;
    ASSERT_EQ(list.size(), 3u);
    EXPECT_LT(slots.slotOf(list[0]), slots.slotOf(list[1]));
    EXPECT_FALSE(slots.holds(list[2]));
}

TEST(MatrixGrouping, RandomSkinsKeepEveryFaceOnceAndLoadInEveryGroup) {
    for (uint32_t seed = 0; seed < 20; ++seed) {
        RandomFaces settings;
        settings.faces = 400;
        settings.matrices = 40 + static_cast<int32_t>(seed) * 20;
        settings.strayMatrices = seed % 4 == 0 ? 0 : 0.05 * seed;
        settings.isShuffled = seed % 2 == 0;
        settings.seed = seed;
        const FaceList faces = makeRandomFaces(settings);
        const std::vector<std::size_t> starts = faceStarts(faces);
        std::vector<int> found(faces.sizes.size(), 0);
        const std::vector<FaceGroup> groups = groupByMatrices(faces);
        for (const FaceGroup& group : groups) {
            EXPECT_LE(group.matrices.size(), 31u);
            EXPECT_TRUE(std::is_sorted(group.faces.begin(), group.faces.end()));
            std::set<int32_t> used;
            for (const int32_t face : group.faces) {
                ++found[static_cast<std::size_t>(face)];
                for (std::size_t i = starts[static_cast<std::size_t>(face)];
                     i < starts[static_cast<std::size_t>(face) + 1]; ++i)
                    used.insert(faces.corners[i].matrix);
            }
            EXPECT_EQ(used, std::set<int32_t>(group.matrices.begin(), group.matrices.end()));
        }
        EXPECT_EQ(std::count(found.begin(), found.end(), 1), static_cast<std::ptrdiff_t>(found.size()));
        const std::vector<std::size_t> loads = loadsOf(groups);
        EXPECT_EQ(std::count(loads.begin(), loads.end(), 0u), 0) << seed;
        // Taking along what fits may cost a load or two later on.
        EXPECT_LE(sum(loads) * 20, loadsInFaceOrder(faces) * 21) << seed;
    }
}

TEST(MatrixGrouping, PatchesOfASkinLoadHardlyMoreThanOncePerMatrix) {
    // 100 bands of matrices: a group of 31 neighbours shares one or two with the next.
    RandomFaces settings;
    settings.faces = 2500;
    settings.matrices = 100;
    const FaceList faces = makeRandomFaces(settings);
    const std::vector<std::size_t> loads = loadsOf(groupByMatrices(faces));
    EXPECT_LE(loads.size(), 5u);
    EXPECT_LE(sum(loads), 120u);
}

TEST(MatrixGrouping, ProgressRisesToOne) {
    RandomFaces settings;
    settings.matrices = 80;
    std::vector<double> told;
    groupByMatrices(makeRandomFaces(settings), [&](double done) { told.push_back(done); });
    ASSERT_FALSE(told.empty());
    EXPECT_TRUE(std::is_sorted(told.begin(), told.end()));
    EXPECT_EQ(told.back(), 1);
}

} // namespace
} // namespace tvk::test
