// Skinned meshes: at the pose of the file and at every other one a reader of the file sees what the host shows.

#include "GeometryExport.h"
#include "sceneText.h"
#include "shadingText.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>

namespace tvk {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

class SkinExport : public GeometryExport {
protected:
    static std::string keys(const std::string& plug, const std::string& list) {
        std::string name = plug;
        std::replace(name.begin(), name.end(), '.', '_');
        const bool isAngle = plug.find(".r") != std::string::npos;
        return nodeText(isAngle ? "animCurveTA" : "animCurveTL", name, "",
                        "setAttr \".tan\" 2; setAttr \".wgt\" no; setAttr -s 2 \".ktv[0:1]\"  " + list + ";") +
               connectText(name + ".o", plug);
    }

    // Model and animation together, frame by frame.
    void expectMovesAs(const std::vector<std::string>& shapes, const FaceTolerance& tolerance) {
        const decode::AnimationFile animation = decode::readAnimationFile(session.fileText("model.ica"));
        for (int frame = 0; frame < animation.frameCount; ++frame) {
            play(animation, frame);
            std::vector<SceneFace> faces;
            for (const std::string& shape : shapes) {
                faces = faces + facesOf(shape);
            }
            SCOPED_TRACE("frame " + std::to_string(frame));
            expectDrawn(file, model, faces, tolerance);
        }
    }

    // Percentages move a vertex by half a hundredth of what its nodes are apart; blended normals are turned by the
    // inverse of the blend, those of the host by its own rule.
    static FaceTolerance blended(double position) {
        FaceTolerance tolerance;
        tolerance.position = position;
        tolerance.normal = 3.0;
        return tolerance;
    }
};

// A tube of `rings` squares along y: four vertices a ring, all smooth.
MeshSpec tube(int rings) {
    MeshSpec mesh;
    for (int ring = 0; ring < rings; ++ring) {
        for (int side = 0; side < 4; ++side) {
            mesh.points.push_back({side == 0 || side == 3 ? -0.5 : 0.5, ring * 1.0, side < 2 ? 0.5 : -0.5});
        }
    }
    for (int ring = 0; ring + 1 < rings; ++ring) {
        for (int side = 0; side < 4; ++side) {
            const int a = 4 * ring + side;
            const int b = 4 * ring + (side + 1) % 4;
            mesh.faces.push_back({a, b, b + 4, a + 4});
        }
    }
    mesh.hard = false;
    return mesh;
}

// A chain bone0, bone1 ... below a parent, one unit of y apart, and the inverses of where it stands at y = start.
std::string chain(int count, const std::string& parent) {
    std::string text;
    for (int i = 0; i < count; ++i) {
        text += nodeText("joint", "bone" + std::to_string(i), i == 0 ? parent : "bone" + std::to_string(i - 1),
                         i == 0 ? "" : set3("t", 0, 1, 0));
    }
    return text;
}

SkinSpec skinOfChain(int count) {
    SkinSpec skin;
    for (int i = 0; i < count; ++i) {
        skin.influences.push_back("bone" + std::to_string(i));
        skin.bindInverses.push_back(movedMatrix(0, -i, 0));
    }
    return skin;
}

// Each ring of the tube half on the bone at its height and half on the one below.
SkinSpec softSkin(int rings) {
    SkinSpec skin = skinOfChain(rings);
    for (int vertex = 0; vertex < rings * 4; ++vertex) {
        WeightRow row(static_cast<std::size_t>(rings), 0.0);
        const auto ring = static_cast<std::size_t>(vertex / 4);
        row[ring] = ring == 0 ? 1.0 : 0.5;
        if (ring > 0) {
            row[ring - 1] = 0.5;
        }
        skin.weights.push_back(row);
    }
    return skin;
}

// Each ring wholly on the bone at its height.
SkinSpec rigidSkin(int rings) {
    SkinSpec skin = skinOfChain(rings);
    for (int vertex = 0; vertex < rings * 4; ++vertex) {
        skin.weights.emplace_back(static_cast<std::size_t>(rings), 0.0);
        skin.weights.back()[static_cast<std::size_t>(vertex / 4)] = 1.0;
    }
    return skin;
}

// --- poses

TEST_F(SkinExport, OfACharacterMovedAfterBindingIsBoundAroundTheOriginAndFollowsOnEveryFrame) {
    exportScene(nodeText("transform", "hero") + deformedNode("body", tube(5)) + chain(5, "hero") +
                    skinText(softSkin(5)) + keys("bone0.tx", "1 100 13 120") + keys("bone1.rz", "1 30 13 -60") +
                    keys("bone3.rx", "1 10 13 75") + playback(1, 13),
                "ica_file_out=1");
    EXPECT_THAT(session.takeMessages(), Not(HasSubstr("Bind pose is not found")));
    EXPECT_EQ(file.node("bone0").translate, Imath::V3d(0.0));
    EXPECT_EQ(file.node("bone1").rotate, Imath::V3d(0.0));
    for (const decode::DrawnFace& face : model.allFaces()) {
        for (const decode::DrawnVertex& vertex : face) {
            EXPECT_LT(vertex.world.length(), 4.2);
        }
    }
    expectDrawn(file, model, sceneFaces(session.path("bodyShapeOrig")), {2.0 / 4096, 0.01, false});
    expectMovesAs({"bodyShape"}, blended(0.02));
}

// The second one was bound when the arm stood elsewhere: a file has one bind pose for the joints that both share.
TEST_F(SkinExport, OfASecondSkinBoundInAnotherPoseFollowsOnEveryFrame) {
    SkinSpec second = rigidSkin(4);
    second.name = "sleeveSkin";
    second.from = "sleeveShapeOrig.w";
    second.to = "sleeveShape.i";
    for (std::size_t i = 0; i < second.bindInverses.size(); ++i) {
        second.bindInverses[i] = movedMatrix(3, -static_cast<double>(i), 1);
    }
    exportScene(nodeText("transform", "hero") + deformedNode("body", tube(4)) + deformedNode("sleeve", tube(4)) +
                    chain(4, "hero") + skinText(rigidSkin(4)) + skinText(second) + keys("bone1.rz", "1 0 10 60") +
                    keys("bone2.rx", "1 20 10 -30") + keys("bone0.ty", "1 2 10 3") + playback(1, 10),
                "ica_file_out=1");
    expectMovesAs({"bodyShape", "sleeveShape"}, blended(0.01));
}

// --- weights

SkinSpec weighted(const std::vector<WeightRow>& rows) {
    SkinSpec skin = skinOfChain(static_cast<int>(rows.front().size()));
    skin.weights = rows;
    return skin;
}

std::string skinnedSquares(const std::vector<WeightRow>& rows) {
    return deformedNode("body", row(static_cast<int>(rows.size()) / 2 - 1)) +
           chain(static_cast<int>(rows.front().size()), "") + skinText(weighted(rows));
}

TEST_F(SkinExport, OfThirdsIsWrittenAsThreeTimes33) {
    exportScene(skinnedSquares(std::vector<WeightRow>(4, {0.333, 0.333, 0.334})));
    EXPECT_EQ(decode::readNumbers(part("envelope").find("weight")->text), (std::vector<double>{33, 33, 33}));
    ASSERT_EQ(part("matrix_array").children.size(), 1U);
    EXPECT_EQ(part("matrix_array").children[0].integer("mtx_weight"), 3);
    expectDrawn(file, model, sceneFaces(session.path("bodyShapeOrig")), {2.0 / 4096, 0.01, false});
}

TEST_F(SkinExport, OfAWeightThatRoundsToNothingHasOneInfluence) {
    exportScene(skinnedSquares(std::vector<WeightRow>(4, {0.004, 0.996})));
    ASSERT_EQ(part("matrix_array").children.size(), 1U);
    const decode::FileElement& matrix = part("matrix_array").children[0];
    EXPECT_EQ(matrix.integer("mtx_weight"), 1);
    EXPECT_EQ(matrix.integer("node_idx"), file.node("bone1").index);
    EXPECT_EQ(file.root.find("body")->find("envelope"), nullptr);
}

TEST_F(SkinExport, OfWeightsThatDoNotAddUpIsRefusedAndTheSkinWorksOn) {
    std::vector<WeightRow> rows(4, {1, 0});
    rows[2] = {0.5, 0.49};
    expectRefused(skinnedSquares(rows), "Error: Wrong weighted vertices exist: |body|bodyShape.vtx[2]\n\n");
    EXPECT_EQ(session.mel("getAttr skin.nodeState"), "0");
}

TEST_F(SkinExport, OfEqualInfluencesSharesOneMatrixAndOneRun) {
    exportScene(skinnedSquares({{0.7, 0.3}, {0.25, 0.75}, {0.7, 0.3}, {0.25, 0.75}}));
    EXPECT_EQ(decode::readNumbers(part("envelope").find("weight")->text), (std::vector<double>{70, 30, 25, 75}));
    EXPECT_EQ(part("matrix_array").integer("size"), 2);
}

TEST_F(SkinExport, OfAnInfluenceThatIsNotSelectedIsRefused) {
    session.open(skinnedSquares(std::vector<WeightRow>(4, {1, 0})));
    session.mel("select -r body");
    EXPECT_FALSE(session.exportSelected());
    EXPECT_EQ(session.takeMessages(), "Error: Influence object is not outputted: |bone0 -> bodyShape\n\n");
    EXPECT_FALSE(session.hasFile("model.imd"));
    EXPECT_EQ(session.mel("string $s[] = `ls -sl`; $s[0]"), "body");
    EXPECT_EQ(session.mel("getAttr skin.nodeState"), "0");
}

TEST_F(SkinExport, ThatIsSwitchedOffIsAnUnskinnedMesh) {
    SkinSpec skin = weighted(std::vector<WeightRow>(4, {1, 0}));
    skin.attributes = "setAttr \".en\" 0;";
    exportScene(deformedNode("body", row(1), set3("t", 1, 2, 3)) + chain(2, "") + skinText(skin));
    EXPECT_THAT(session.takeMessages(), HasSubstr("Warning: Deformer is not effective: skin\n"));
    EXPECT_EQ(part("matrix_array").integer("size"), 1);
    EXPECT_EQ(part("matrix_array").children[0].integer("node_idx"), file.node("body").index);
    expectDrawnAs(facesOf("bodyShape"));
}

TEST_F(SkinExport, BehindALockedNodeStateIsReadAtItsBindPose) {
    SkinSpec skin = softSkin(3);
    skin.attributes = "setAttr -l on \".nds\";";
    exportScene(deformedNode("body", tube(3)) + chain(3, "") + skinText(skin) + keys("bone1.rz", "1 40 9 50") +
                    playback(1, 9),
                "ica_file_out=1");
    expectDrawn(file, model, sceneFaces(session.path("bodyShapeOrig")), {2.0 / 4096, 0.01, false});
    EXPECT_EQ(session.mel("getAttr -l skin.nodeState"), "1");
    expectMovesAs({"bodyShape"}, blended(0.02));
}

// --- matrix groups

// Squares in a row, each on a bone of its own.
std::string rigidRow(int bones) {
    MeshSpec mesh;
    SkinSpec skin;
    std::string joints;
    for (int i = 0; i < bones; ++i) {
        const double x = i % 8 * 0.5;
        const double y = i / 8 * 0.5;
        mesh.points.insert(mesh.points.end(), {{x, y, 0}, {x + 0.4, y, 0}, {x + 0.4, y + 0.4, 0}, {x, y + 0.4, 0}});
        mesh.faces.push_back({4 * i, 4 * i + 1, 4 * i + 2, 4 * i + 3});
        joints += nodeText("joint", "bone" + std::to_string(i), "", set3("t", x, y, 0));
        skin.influences.push_back("bone" + std::to_string(i));
        skin.bindInverses.push_back(movedMatrix(-x, -y, 0));
        for (int corner = 0; corner < 4; ++corner) {
            skin.weights.emplace_back(static_cast<std::size_t>(bones), 0.0);
            skin.weights.back()[static_cast<std::size_t>(i)] = 1.0;
        }
    }
    return deformedNode("body", mesh) + joints + skinText(skin);
}

// The first command of each group but the first chooses a matrix: loading slots has changed the console's own.
void expectMatrixFirst(const decode::FileElement& polygon) {
    for (std::size_t group = 1; group < polygon.children.size(); ++group) {
        const decode::FileElement& primitives = *polygon.children[group].find("primitive_array");
        ASSERT_FALSE(primitives.children.empty());
        EXPECT_EQ(primitives.children.front().children.front().name, "mtx") << "group " << group;
    }
}

TEST_F(SkinExport, Of33RigidBonesWarnsAndSplitsIntoGroups) {
    exportScene(rigidRow(33));
    EXPECT_THAT(session.takeMessages(),
                AllOf(HasSubstr("Warning: The number of matrix for displaying this model over 31: 33\n"),
                      HasSubstr("Warning: Mtx_prim_size of <polygon> is over 1: bodyShape\n")));
    const decode::DrawnPolygon& polygon = model.polygon("bodyShape");
    EXPECT_THAT(session.progress, testing::Contains("Optimizing Matrix Loading : 1/1 : bodyShape (33 polygons)"));
    ASSERT_EQ(polygon.matrixLists.size(), 2U);
    EXPECT_EQ(polygon.matricesLoaded, 33);
    EXPECT_GE(std::count(polygon.matrixLists[1].begin(), polygon.matrixLists[1].end(), -1), 29);
    expectMatrixFirst(part("polygon_array").children[0]);
    expectDrawn(file, model, facesOf("bodyShape"), {2.0 / 4096, 0.01, false});
}

TEST_F(SkinExport, Of32BindingsWarnsOnceAndIsWritten) {
    exportScene(rigidRow(32));
    const std::string messages = session.takeMessages();
    EXPECT_THAT(messages, HasSubstr("Warning: The number of matrix for displaying this model over 31: 32\n"));
    EXPECT_EQ(messages.find("over 31"), messages.rfind("over 31"));
    expectDrawn(file, model, facesOf("bodyShape"), {2.0 / 4096, 0.01, false});
}

TEST_F(SkinExport, Of31BonesIsOneGroupWithoutWarning) {
    exportScene(rigidRow(31));
    EXPECT_EQ(session.takeMessages(), "");
    EXPECT_EQ(model.polygon("bodyShape").matrixLists.size(), 1U);
}

// 40 faces round a ring, whose 40 edges take turns on 32 bones.
TEST_F(SkinExport, OfARingOf32BonesLoadsEachOnce) {
    constexpr int kFaces = 40;
    constexpr int kBones = 32;
    MeshSpec mesh;
    SkinSpec skin;
    std::string joints;
    for (int i = 0; i < kBones; ++i) {
        joints += nodeText("joint", "bone" + std::to_string(i));
        skin.influences.push_back("bone" + std::to_string(i));
    }
    for (int i = 0; i < kFaces; ++i) {
        const double angle = i * 2 * 3.14159265358979323846 / kFaces;
        for (const double y : {0.0, 0.5}) {
            mesh.points.push_back({3 * std::cos(angle), y, -3 * std::sin(angle)});
            skin.weights.emplace_back(kBones, 0.0);
            skin.weights.back()[static_cast<std::size_t>(i * kBones / kFaces)] = 1.0;
        }
        const int next = (i + 1) % kFaces;
        mesh.faces.push_back({2 * i, 2 * next, 2 * next + 1, 2 * i + 1});
    }
    mesh.hard = false;
    exportScene(deformedNode("body", mesh) + joints + skinText(skin));
    const decode::DrawnPolygon& polygon = model.polygon("bodyShape");
    EXPECT_EQ(polygon.matrixLists.size(), 2U);
    EXPECT_EQ(polygon.matricesLoaded, kBones); // no matrix is loaded twice
    expectMatrixFirst(part("polygon_array").children[0]);
    expectDrawn(file, model, facesOf("bodyShape"), {2.0 / 4096, 0.01, false});
}

// --- mirrored

// The skin's mesh stands in a mirror at binding: what is drawn winds like the mesh of a twin that stands in none.
TEST_F(SkinExport, OfAMirroredMeshWindsOutwards) {
    SkinSpec skin = rigidSkin(3);
    skin.attributes = "setAttr \".gm\" -type \"matrix\" -1 0 0 0 0 1 0 0 0 0 1 0 0 0 0 1;";
    exportScene(deformedNode("body", tube(3), set3("s", -1, 1, 1)) + chain(3, "") + skinText(skin));
    expectDrawn(file, model, facesOf("bodyShape"), {2.0 / 4096, 0.01, false});
    for (const decode::DrawnFace& face : model.allFaces()) {
        const Imath::V3d outward(face[0].world.x, 0, face[0].world.z);
        EXPECT_GT(vectorArea(outlineOf(face)).dot(outward), 0.0);
        EXPECT_GT(face[0].worldNormal->dot(outward), 0.0);
        EXPECT_NEAR(face[0].normal->length(), 511.0 / 512, 2.0 / 512);
    }
}

// --- clusters

TEST_F(SkinExport, OfAClusterGivesTheRestToTheMeshsOwnNode) {
    exportScene(deformedNode("body", row(1), set3("t", 0, 0, 1)) + nodeText("transform", "handle") +
                nodeText("clusterHandle", "handleShape", "handle") +
                deformerText("cluster", "soft", "bodyShapeOrig.w", "bodyShape.i",
                             "setAttr -s 4 \".wl[0].w[0:3]\" 1 1 0.4 0.4;") +
                connectText("handle.wm", "soft.ma") + deformerSet("soft", "bodyShape", 0, "vtx[0:3]"));
    EXPECT_EQ(part("matrix_array").integer("size"), 2);
    EXPECT_EQ(decode::readNumbers(part("envelope").find("weight")->text).size(), 2U);
    expectDrawnAs(facesOf("bodyShape"));
}

} // namespace
} // namespace tvk
