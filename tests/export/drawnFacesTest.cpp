#include "drawnFaces.h"

#include "GeometryExport.h"
#include "sceneText.h"
#include "shadingText.h"

#include <gtest/gtest-spi.h>

#include <algorithm>

namespace tvk {
namespace {

// What a wrong model would look like: the comparison must see each of these.
class DrawnFaces : public GeometryExport {
protected:
    void SetUp() override {
        MeshSpec mesh = grid(2, 2);
        mesh.colors = {{1, 0, 0, 1}};
        mesh.faceColors.assign(4, {0, 0, 0, 0});
        exportScene(meshNode("a", mesh));
        faces = facesOf("aShape");
    }

    // Messages of the comparison, counted by what it says in the end.
    std::string difference() const {
        testing::TestPartResultArray results;
        {
            const testing::ScopedFakeTestPartResultReporter reporter(
                testing::ScopedFakeTestPartResultReporter::INTERCEPT_ONLY_CURRENT_THREAD, &results);
            expectDrawn(file, model, faces);
        }
        std::string text;
        for (int i = 0; i < results.size(); ++i) {
            text += results.GetTestPartResult(i).message();
        }
        return text;
    }

    std::vector<decode::DrawnFace>& drawn() { return model.polygons.front().faces; }

    std::vector<SceneFace> faces;
};

TEST_F(DrawnFaces, ThatAreRightDoNotDiffer) {
    EXPECT_EQ(difference(), "");
}

TEST_F(DrawnFaces, ThatAreMissingAreTold) {
    drawn().pop_back();
    EXPECT_NE(difference().find("is drawn with"), std::string::npos);
}

TEST_F(DrawnFaces, ThatAreSentTwiceAreTold) {
    drawn().push_back(drawn().front());
    EXPECT_NE(difference().find("or is drawn already"), std::string::npos);
}

TEST_F(DrawnFaces, ThatWindTheOtherWayAreTold) {
    const decode::DrawnFace face = drawn().front();
    drawn().front().assign(face.rbegin(), face.rend());
    EXPECT_NE(difference(), "");
}

TEST_F(DrawnFaces, ThatAreElsewhereAreTold) {
    for (decode::DrawnVertex& vertex : drawn().front()) {
        vertex.world.z += 0.01;
    }
    EXPECT_NE(difference(), "");
}

TEST_F(DrawnFaces, ThatAreHalfThereAreTold) {
    drawn().front().pop_back();
    EXPECT_NE(difference(), "");
}

TEST_F(DrawnFaces, WithAnotherNormalAreTold) {
    drawn().front()[1].worldNormal = Imath::V3d(0, 0, -1);
    EXPECT_NE(difference(), "");
}

TEST_F(DrawnFaces, WithAnotherColorAreTold) {
    drawn().front()[1].color = std::array<int, 3>{30, 0, 0};
    EXPECT_NE(difference(), "");
}

TEST_F(DrawnFaces, OfAnotherMaterialAreTold) {
    faces.front().shader = "other";
    EXPECT_NE(difference(), "");
}

} // namespace
} // namespace tvk
