#include "GeometryExport.h"

#include <algorithm>

namespace tvk {

void GeometryExport::exportScene(const std::string& statements, const std::string& options) {
    session.open(statements);
    exportOpen(options);
}

void GeometryExport::exportOpen(const std::string& options, bool selected) {
    const MStatus status = selected ? session.exportSelected(options) : session.exportAll(options);
    ASSERT_TRUE(status) << session.takeMessages();
    file = session.model();
    model = decode::readModelGeometry(file);
}

void GeometryExport::expectRefused(const std::string& statements, const std::string& messages,
                                   const std::string& options) {
    session.open(statements);
    EXPECT_FALSE(session.exportAll(options));
    EXPECT_EQ(session.takeMessages(), messages);
    EXPECT_FALSE(session.hasFile("model.imd"));
    EXPECT_EQ(std::count(session.infos.begin(), session.infos.end(), "---- No Output File ----"), 1);
}

void GeometryExport::poseAsTheHost() {
    std::vector<Imath::M44d> worlds;
    for (const decode::ModelNode& node : file.nodes) {
        worlds.push_back(node.name == "world_root" ? Imath::M44d() : session.expectedWorld(node.name));
    }
    decode::poseModel(file, worlds, model);
}

void GeometryExport::play(const decode::AnimationFile& animation, int frame) {
    std::vector<Imath::M44d> worlds;
    for (const decode::ModelNode& node : decode::posed(file, animation, static_cast<std::size_t>(frame))) {
        worlds.push_back(node.world);
    }
    decode::poseModel(file, worlds, model);
    session.mel("currentTime " + std::to_string(frame + file.info->integer("tool_start_frame")));
}

void GeometryExport::expectDrawnAs(const std::vector<SceneFace>& faces, double position) const {
    FaceTolerance tolerance;
    tolerance.position = position;
    expectDrawn(file, model, faces, tolerance);
}

const decode::DrawnVertex& GeometryExport::vertexAt(const Imath::V3d& world) const {
    static const decode::DrawnVertex none;
    const decode::DrawnVertex* best = &none;
    double least = 2.0 / 4096;
    for (const decode::DrawnPolygon& polygon : model.polygons) {
        for (const decode::DrawnFace& face : polygon.faces) {
            for (const decode::DrawnVertex& vertex : face) {
                if ((vertex.world - world).length() <= least) {
                    best = &vertex;
                    least = (vertex.world - world).length();
                }
            }
        }
    }
    EXPECT_NE(best, &none) << "no vertex at " << world;
    return *best;
}

const decode::FileElement& GeometryExport::part(const char* name) const {
    static const decode::FileElement none;
    const decode::FileElement* const body = file.root.find("body");
    const decode::FileElement* const found = body == nullptr ? nullptr : body->find(name);
    EXPECT_NE(found, nullptr) << name;
    return found == nullptr ? none : *found;
}

MeshSpec box(const Imath::V3d& least, const Imath::V3d& greatest) {
    MeshSpec mesh;
    for (int i = 0; i < 8; ++i) {
        mesh.points.push_back({i % 2 == 0 ? least.x : greatest.x, i / 2 % 2 == 0 ? least.y : greatest.y,
                               i / 4 == 0 ? least.z : greatest.z});
    }
    mesh.faces = {{0, 2, 3, 1}, {4, 5, 7, 6}, {0, 1, 5, 4}, {2, 6, 7, 3}, {0, 4, 6, 2}, {1, 3, 7, 5}};
    return mesh;
}

MeshSpec grid(int across, int up, double size) {
    MeshSpec mesh;
    for (int y = 0; y <= up; ++y) {
        for (int x = 0; x <= across; ++x) {
            mesh.points.push_back({x * size, y * size, 0});
        }
    }
    for (int y = 0; y < up; ++y) {
        for (int x = 0; x < across; ++x) {
            const int corner = y * (across + 1) + x;
            mesh.faces.push_back({corner, corner + 1, corner + across + 2, corner + across + 1});
        }
    }
    return mesh;
}

MeshSpec withUvIslands(MeshSpec mesh) {
    for (const auto& face : mesh.faces) {
        mesh.faceUvs.emplace_back();
        for (std::size_t i = 0; i < face.size(); ++i) {
            const auto island = static_cast<double>(mesh.faceUvs.size() - 1);
            mesh.faceUvs.back().push_back(static_cast<int>(mesh.uvs.size()));
            mesh.uvs.push_back({(static_cast<double>(i == 1 || i == 2) + island) / 8, static_cast<double>(i / 2) / 8});
        }
    }
    return mesh;
}

} // namespace tvk
