#include "geometry/polygonCombining.h"

#include <gtest/gtest.h>

namespace tvk {
namespace {

class PolygonCombining : public testing::Test {
protected:
    PolygonRecord& add(const std::string& name, int32_t material) {
        PolygonRecord& polygon = scene.polygons.emplace_back();
        polygon.name = name;
        polygon.material = material;
        polygon.nrmFlag = true;
        polygon.triangleCount = 2;
        polygon.parts.push_back({static_cast<int32_t>(scene.polygons.size()) - 1, {4}, std::vector<CornerSource>(4)});
        return polygon;
    }

    std::vector<int32_t> shapesOf(std::size_t place) const {
        std::vector<int32_t> result;
        for (const PolygonPart& part : scene.polygons[place].parts) {
            result.push_back(part.shape);
        }
        return result;
    }

    SceneData scene;
};

TEST_F(PolygonCombining, OfNothingDoesNothing) {
    combinePolygons(scene);
    EXPECT_TRUE(scene.polygons.empty());
}

TEST_F(PolygonCombining, GivesTheFirstOfAMaterialTheFacesOfAll) {
    add("a", 1);
    add("b", 2);
    add("c", 1);
    add("d", 1);
    combinePolygons(scene);
    EXPECT_EQ(scene.polygons[0].name, "a");
    EXPECT_EQ(shapesOf(0), (std::vector<int32_t>{0, 2, 3}));
    EXPECT_EQ(scene.polygons[0].triangleCount, 6);
    EXPECT_EQ(shapesOf(1), (std::vector<int32_t>{1}));
    EXPECT_FALSE(scene.polygons[0].dropped);
    EXPECT_FALSE(scene.polygons[1].dropped);
    EXPECT_TRUE(scene.polygons[2].dropped);
    EXPECT_TRUE(scene.polygons[3].dropped);
    EXPECT_TRUE(scene.polygons[3].parts.empty());
}

TEST_F(PolygonCombining, KeepsPolygonsWithDifferentFlagsApart) {
    add("a", 1);
    add("b", 1).clrFlag = true;
    add("c", 1).texFlag = true;
    add("d", 1).nrmFlag = false;
    add("e", 1).resetNormalAfterTexture = true;
    combinePolygons(scene);
    for (const PolygonRecord& polygon : scene.polygons) {
        EXPECT_FALSE(polygon.dropped) << polygon.name;
    }
}

} // namespace
} // namespace tvk
