// What a console draws of every real scene, held against what the host evaluates: where the file has it, and where the
// scene moves it.

#include "RecordedScene.h"

#include "ExportSession.h"
#include "decode/ModelGeometry.h"
#include "drawnFaces.h"
#include "host/app/verify/verifyExport.h"

#include <maya/MAnimControl.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MFnMatrixData.h>
#include <maya/MFnMesh.h>
#include <maya/MIntArray.h>
#include <maya/MObjectArray.h>
#include <maya/MPlug.h>
#include <maya/MPlugArray.h>
#include <maya/MPointArray.h>
#include <maya/MSelectionList.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <string>

namespace tvk {
namespace {

bool isOn(const MFnDependencyNode& node, const char* attribute) {
    bool value = false;
    node.findPlug(attribute, false).getValue(value);
    return value;
}

// Every path to a mesh that is there to be seen.
std::vector<MDagPath> meshPaths() {
    std::vector<MDagPath> paths;
    const std::function<void(const MDagPath&)> walk = [&](const MDagPath& path) {
        for (unsigned int i = 0; i < path.childCount(); ++i) {
            MDagPath below = path;
            below.push(path.child(i));
            const MFnDependencyNode node(below.node());
            if (below.node().apiType() == MFn::kMesh && !isOn(node, "intermediateObject") && !isOn(node, "template")) {
                paths.push_back(below);
            }
            walk(below);
        }
    };
    MDagPath world;
    MSelectionList list;
    list.add("persp");
    list.getDagPath(0, world);
    world.pop();
    walk(world);
    return paths;
}

// The skin that makes the mesh; a null object when none does.
MObject skinOf(const MDagPath& shape) {
    MPlugArray sources;
    MFnDependencyNode(shape.node()).findPlug("inMesh", false).connectedTo(sources, true, false);
    const bool isSkin = sources.length() == 1 && sources[0].node().hasFn(MFn::kSkinClusterFilter);
    return isSkin ? sources[0].node() : MObject();
}

Imath::M44d bindMatrixOf(const MObject& skin) {
    const MMatrix matrix = MFnMatrixData(MFnDependencyNode(skin).findPlug("geomMatrix", false).asMObject()).matrix();
    Imath::M44d result;
    for (unsigned int r = 0; r < 4; ++r) {
        for (unsigned int c = 0; c < 4; ++c) {
            result[r][c] = matrix(r, c);
        }
    }
    return result;
}

const std::string kAllFiles = "ica_file_out=1;ima_file_out=1;itp_file_out=1;iva_file_out=1;ita_file_out=1";

// What the product's own proof finds in the files of an export.
std::vector<std::string> proofOf(const ExportSession& session) {
    namespace report = host::app::report;
    const std::vector<std::string> kinds{"imd", "ica", "ima", "itp", "iva", "ita"};
    const report::ExportedFiles files = report::readExportedFiles(session.folder.path("model"), "model", kinds);
    return host::app::verify::verifyExport(files, false).findings();
}

class RealFaces : public testing::TestWithParam<RecordedScene> {
protected:
    // Pictures that no console tool reads, and meshes in no shading group, would end the export.
    void makeExportable() {
        session.mel("string $files[] = `ls -type \"file\"`; for ($f in $files) delete $f;");
        for (const MDagPath& path : meshPaths()) {
            MObjectArray groups;
            MIntArray indices;
            const unsigned int instance = path.isInstanced() ? path.instanceNumber() : 0;
            MFnMesh(path).getConnectedShaders(instance, groups, indices);
            if (groups.length() == 0) {
                session.mel("connectAttr -na \"" + std::string(path.fullPathName().asChar()) + ".iog[" +
                            std::to_string(instance) + "]\" \":initialShadingGroup.dsm\"");
            }
        }
    }

    // A skinned mesh as it was bound, any other as it is. Faces in no shading group are not exported.
    std::vector<SceneFace> facesAsExported() {
        std::vector<SceneFace> faces;
        for (const MDagPath& path : meshPaths()) {
            MObject skin = skinOf(path);
            if (skin.isNull()) {
                faces = faces + sceneFaces(path);
                continue;
            }
            const Imath::M44d bound = bindMatrixOf(skin);
            const std::string state = std::string(MFnDependencyNode(skin).name().asChar()) + ".nodeState";
            session.mel("setAttr " + state + " 1");
            faces = faces + sceneFaces(path, &bound);
            session.mel("setAttr " + state + " 0");
        }
        return withShader(faces);
    }

    static std::vector<SceneFace> facesAsTheyStand() {
        std::vector<SceneFace> faces;
        for (const MDagPath& path : meshPaths()) {
            faces = faces + sceneFaces(path);
        }
        return withShader(faces);
    }

    static std::vector<SceneFace> withShader(std::vector<SceneFace> faces) {
        faces.erase(std::remove_if(faces.begin(), faces.end(), [](const SceneFace& face) { return !face.inGroup; }),
                    faces.end());
        return faces;
    }

    static double reachOf(const std::vector<SceneFace>& faces) {
        double reach = 1.0;
        for (const SceneFace& face : faces) {
            for (const SceneCorner& corner : face.corners) {
                reach = std::max(reach, corner.position.length());
            }
        }
        return reach;
    }

    // Points of the meshes that no skin moves, in their own space.
    static std::vector<MPointArray> ownPoints() {
        std::vector<MPointArray> all;
        for (const MDagPath& path : meshPaths()) {
            MPointArray points;
            if (skinOf(path).isNull()) {
                MFnMesh(path).getPoints(points);
            }
            all.push_back(points);
        }
        return all;
    }

    static bool haveKept(const std::vector<MPointArray>& before) {
        const std::vector<MPointArray> now = ownPoints();
        for (std::size_t i = 0; i < now.size(); ++i) {
            for (unsigned int k = 0; k < now[i].length(); ++k) {
                if (!now[i][k].isEquivalent(before[i][k], 1e-6)) {
                    return false;
                }
            }
        }
        return true;
    }

    // False when some node cannot be told by its name.
    bool poseAsTheHost(const decode::ModelFile& file, decode::ModelGeometry& model) {
        std::vector<Imath::M44d> worlds;
        for (const decode::ModelNode& node : file.nodes) {
            const bool isRoot = node.name == "world_root";
            if (!isRoot && !session.melRuns("select -r " + node.name)) {
                return false;
            }
            worlds.push_back(isRoot ? Imath::M44d() : session.expectedWorld(node.name));
        }
        decode::poseModel(file, worlds, model);
        return true;
    }

    ExportSession session;
};

TEST_P(RealFaces, AreDrawnOnceWhereTheHostHasThem) {
    ASSERT_TRUE(session.melRuns("file -f -o \"" + GetParam().path + "\""));
    makeExportable();
    if (!session.exportAll(kAllFiles)) {
        // Only where there is nothing at all: all nodes stand in a reference whose file is missing.
        EXPECT_EQ(session.takeMessages(), "Error: No effective node\n\n");
        EXPECT_TRUE(meshPaths().empty());
        return;
    }
    EXPECT_THAT(proofOf(session), testing::IsEmpty());
    const decode::ModelFile file = session.model();
    decode::ModelGeometry model = decode::readModelGeometry(file);

    session.mel("currentTime `playbackOptions -q -ast`");
    FaceTolerance tolerance;
    tolerance.compareMaterials = false; // of shaders without a shader and of unknown ones the tests of materials tell
    const std::vector<SceneFace> exported = facesAsExported();
    const double step = std::ldexp(1.0, model.positionScale) / 4096;
    tolerance.position = 2 * step + reachOf(exported) * 0.001;
    expectDrawn(file, model, exported, tolerance);

    // What changes the shape of a mesh itself is not in the file: it shows the start.
    const std::vector<MPointArray> atStart = ownPoints();

    // Weights are whole percentages, and normals of a blend are the host's own matter.
    tolerance.normal = 3.0;
    const double start = session.currentTime();
    const double end = MAnimControl::animationEndTime().as(MTime::uiUnit());
    for (const double frame : {start, std::floor((start + end) / 2), end}) {
        SCOPED_TRACE("frame " + std::to_string(frame));
        session.mel("currentTime " + std::to_string(frame));
        const std::vector<SceneFace> faces = facesAsTheyStand();
        tolerance.position = 2 * step + reachOf(faces) * 0.01;
        if (haveKept(atStart) && poseAsTheHost(file, model)) {
            expectDrawn(file, model, faces, tolerance);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Corpus, RealFaces, testing::ValuesIn(recordedScenes()), testName);

} // namespace
} // namespace tvk
