// Skins of any skeleton: bound at random places, in mirrors, with random weights, and compressed in any mode that keeps
// bones.

#include "GeometryExport.h"
#include "motionChecks.h"
#include "sceneText.h"

#include <gmock/gmock.h>

#include <cmath>
#include <locale>
#include <random>
#include <sstream>

namespace tvk {
namespace {

Imath::M44d placed(const Imath::V3d& degrees, const Imath::V3d& place) {
    constexpr double kRadians = 3.14159265358979323846 / 180;
    Imath::M44d turned;
    for (int axis = 0; axis < 3; ++axis) {
        Imath::V3d direction(0.0);
        direction[axis] = 1.0;
        Imath::M44d turn;
        turn.setAxisAngle(direction, degrees[axis] * kRadians);
        turned = turned * turn;
    }
    turned[3][0] = place.x;
    turned[3][1] = place.y;
    turned[3][2] = place.z;
    return turned;
}

std::string numbersOf(const Imath::M44d& matrix) {
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text.precision(17);
    for (int r = 0; r < 4; ++r) {
        for (int c = 0; c < 4; ++c) {
            text << (r + c == 0 ? "" : " ") << matrix[r][c];
        }
    }
    return text.str();
}

class RandomSkins : public GeometryExport, public testing::WithParamInterface<unsigned> {
protected:
    double between(double least, double greatest) {
        return least + (greatest - least) * static_cast<double>(random() % 10001) / 10000;
    }
    Imath::V3d anyAngles(double most) { return {between(-most, most), between(-most, most), between(-most, most)}; }

    // Bones below each other as they come, with groups that nothing needs between some of them.
    std::string skeleton(int count) {
        std::string text;
        std::vector<Imath::M44d> worlds;
        for (int i = 0; i < count; ++i) {
            const std::string name = "bone" + std::to_string(i);
            const int above = i == 0 ? -1 : static_cast<int>(random() % static_cast<unsigned>(i));
            std::string parent = above < 0 ? "" : "bone" + std::to_string(above);
            if (random() % 3 == 0) {
                text += nodeText("transform", "between" + std::to_string(i), parent);
                parent = "between" + std::to_string(i);
            }
            const Imath::V3d place(between(-1, 1), between(-1, 1), between(-1, 1));
            const Imath::V3d angles = anyAngles(170);
            text += nodeText("joint", name, parent,
                             set3("t", place.x, place.y, place.z) + set3("jo", angles.x, angles.y, angles.z));
            worlds.push_back(placed(angles, place) *
                             (above < 0 ? Imath::M44d() : worlds[static_cast<std::size_t>(above)]));
            skin.influences.push_back(name);
            skin.bindInverses.push_back(numbersOf(worlds.back().inverse()));
            if (random() % 2 == 0) {
                const std::string to = std::to_string(static_cast<int>(between(-80, 80)));
                text += keyed(name + (i % 2 == 0 ? ".rx" : ".rz"), "1 0 7 " + to);
            }
        }
        return text;
    }

    // One to four bones, in whole percents.
    WeightRow anyWeights(std::size_t bones) {
        WeightRow row(bones, 0.0);
        const int count = 1 + static_cast<int>(random() % 4);
        int left = 100;
        for (int i = 0; i < count; ++i) {
            const int share = i + 1 == count ? left : static_cast<int>(random() % static_cast<unsigned>(left + 1));
            row[random() % bones] += share / 100.0;
            left -= share;
        }
        return row;
    }

    SkinSpec skin;
    std::mt19937 random{GetParam()};
};

TEST_P(RandomSkins, AreBoundAndMoveAsInTheHost) {
    const auto bones = static_cast<std::size_t>(2 + random() % 45);
    const std::string joints = skeleton(static_cast<int>(bones));
    MeshSpec mesh = grid(5, 5, 0.5);
    std::vector<WeightRow> palette; // so that some vertices share a matrix
    for (int i = 0; i < 20; ++i) {
        palette.push_back(anyWeights(bones));
    }
    for (auto& point : mesh.points) {
        point[2] = between(-0.5, 0.5);
        skin.weights.push_back(palette[random() % palette.size()]);
    }
    const double mirror = random() % 2 == 0 ? 1.0 : -1.0;
    Imath::M44d bound = placed({0, 0, 0}, {between(-2, 2), 1, 0});
    bound[0][0] = mirror;
    skin.attributes = "setAttr \".gm\" -type \"matrix\" " + numbersOf(bound) + ";";
    const std::string mode = std::to_string(random() % 3);
    exportScene(deformedNode("body", mesh, set3("s", mirror, 1, 1) + set3("t", bound[3][0], 1, 0)) + joints +
                    skinText(skin) + playback(1, 7),
                "ica_file_out=1;anime_tol_t=0.001;anime_tol_r=0.01;anime_tol_s=0.001;optimize_node=" + mode);
    for (const decode::DrawnPolygon& polygon : model.polygons) {
        for (const std::vector<int>& list : polygon.matrixLists) {
            EXPECT_LE(list.size(), 31U);
        }
    }
    FaceTolerance tolerance;
    tolerance.position = std::ldexp(1.0, model.positionScale) / 2048 + 0.01;
    tolerance.normal = 0.02;
    expectDrawn(file, model, sceneFaces(session.path("bodyShapeOrig"), &bound), {tolerance.position, 0.02, false});

    tolerance.normal = 3.0; // the host turns blended normals by a rule of its own
    tolerance.position *= 3;
    const decode::AnimationFile animation = decode::readAnimationFile(session.fileText("model.ica"));
    for (int frame = 0; frame < animation.frameCount; ++frame) {
        play(animation, frame);
        SCOPED_TRACE("mode " + mode + ", frame " + std::to_string(frame));
        expectDrawn(file, model, facesOf("bodyShape"), tolerance);
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomSkins, testing::Range(0U, 20U));

} // namespace
} // namespace tvk
