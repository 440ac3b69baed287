#include "host/app/verify/checkFaces.h"

#include "host/app/report/nameText.h"
#include "host/app/verify/FaceComparison.h"
#include "host/app/verify/checkBoxes.h"
#include "host/app/verify/materialNames.h"

#include <maya/MFnMesh.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <set>

namespace host::app::verify {
namespace {

constexpr double kHalfStep = 0.51; // and what is lost before the rounding
constexpr double kSinglePrecision = 4e-7;
constexpr double kNormalUnit = 512.0;
constexpr double kSameFrame = 1e-3; // of matrices that count as one

using Mesh = ExportedScene::MeshOfNode;

// What one mesh should look like, and how its vertices come to where they are.
struct Expected {
    std::vector<SceneFace> faces;
    std::vector<SceneFace> unshaded; // in no shading group: not drawn, but their vertices are in the file
    bool hasLooseVertices = false;   // such as no face has
    bool isLocal = false;            // in the space of the node, not in the world
    std::vector<std::map<int, int>> weightsOfVertex; // by file node, in percent; empty when there is no skin
};

double reachOf(const std::vector<SceneFace>& faces) {
    double reach = 1.0;
    for (const SceneFace& face : faces) {
        for (const SceneCorner& corner : face.corners) {
            reach = std::max(reach, corner.position.length());
        }
    }
    return reach;
}

void addFaces(Expected& expected, const MDagPath& shape, const Imath::M44d& world, double magnify) {
    std::set<int> vertices;
    for (const SceneFace& face : sceneFaces(shape, &world, magnify)) {
        (face.inGroup ? expected.faces : expected.unshaded).push_back(face);
        for (const SceneCorner& corner : face.corners) {
            vertices.insert(corner.vertex);
        }
    }
    const auto count = static_cast<std::size_t>(MFnMesh(shape).numVertices());
    expected.hasLooseVertices = expected.hasLooseVertices || vertices.size() < count;
}

Imath::M44d atOrigin(const Imath::V3d& origin) {
    Imath::M44d matrix;
    matrix.setTranslation(-origin);
    return matrix;
}

bool isClose(const Imath::M44d& a, const Imath::M44d& b) {
    for (int r = 0; r < 4; ++r) {
        for (int c = 0; c < 4; ++c) {
            if (std::abs(a[r][c] - b[r][c]) > kSameFrame) {
                return false;
            }
        }
    }
    return true;
}

class SkinnedMesh {
public:
    SkinnedMesh(const Mesh& mesh, const ExportedScene& scene) : mesh_(mesh), skin_(*mesh.skin), scene_(scene) {
        for (const SkinInfluence& influence : skin_.influences) {
            nodes_.push_back(scene.nodes.fileNodeOf(influence.path));
        }
        const SceneNode* const own = scene.nodes.of(mesh.node);
        const SceneNode* const first = nodes_.empty() ? nullptr : scene.nodes.of(nodes_.front());
        place_ = scene.nodes.placeOf(first == nullptr ? *own : *first).inverse();
        bound_ = skin_.geometry * place_;
        if (std::abs(bound_.determinant()) < 1e-12) {
            bound_ = scene.nodes.frameOf(*own) * place_;
        }
    }

    Expected expected() {
        Expected result;
        {
            const WithoutDeformer off(skin_.node);
            addFaces(result, mesh_.shape, bound_, scene_.nodes.magnify());
        }
        for (const auto& weights : skin_.weights) {
            percentages_.push_back(percentagesOf(weights, scene_.takesStrongest, nodes_));
            std::map<int, int> ofNodes;
            for (const auto& [influence, percent] : percentages_.back()) {
                ofNodes[nodes_.at(influence)] += percent;
            }
            result.weightsOfVertex.push_back(ofNodes);
        }
        moveToFilesPose(result.faces);
        moveToFilesPose(result.unshaded);
        return result;
    }

private:
    // The shape is in the file as it was bound, but what was bound at another pose than the joints have there.
    void moveToFilesPose(std::vector<SceneFace>& faces) const {
        const Imath::M44d back = bound_.inverse();
        for (SceneFace& face : faces) {
            for (SceneCorner& corner : face.corners) {
                const auto vertex = static_cast<std::size_t>(corner.vertex);
                const std::optional<Imath::M44d> other =
                    vertex < percentages_.size() ? poseOf(percentages_[vertex]) : std::nullopt;
                if (other) {
                    const Imath::M44d moved = back * *other;
                    corner.position = corner.position * moved;
                    moved.inverse().transposed().multDirMatrix(Imath::V3d(corner.normal), corner.normal);
                    corner.normal.normalize();
                }
            }
        }
    }

    // Nothing for a vertex whose influences all stand where they were bound.
    std::optional<Imath::M44d> poseOf(const std::map<std::size_t, int>& weights) const {
        Imath::M44d sum(0.0);
        double all = 0.0;
        bool isBound = true;
        for (const auto& [influence, percent] : weights) {
            const int node = nodes_.at(influence);
            if (node < 0) {
                return std::nullopt;
            }
            const Imath::M44d carried = skin_.influences[influence].bindInverse *
                                        atOrigin(scene_.nodes.of(node)->origin) *
                                        scene_.written[static_cast<std::size_t>(node)].world;
            isBound = isBound && isClose(carried, place_);
            sum += skin_.geometry * carried * static_cast<double>(percent);
            all += percent;
        }
        return isBound || all == 0.0 ? std::nullopt : std::optional<Imath::M44d>(sum * (1.0 / all));
    }

    const Mesh& mesh_;
    const SkinOfShape& skin_;
    const ExportedScene& scene_;
    std::vector<int> nodes_;                              // of the file, by influence
    std::vector<std::map<std::size_t, int>> percentages_; // by vertex
    Imath::M44d place_, bound_;
};

// Whether a vertex is what was to be written, to half a step.
class VertexCheck {
public:
    VertexCheck(const report::ExportedModel& model, const std::vector<decode::ModelNode>& nodes,
                const Expected& expected, int ownNode, double step)
        : model_(model), expected_(expected), ownNode_(ownNode), step_(step) {
        for (const decode::DrawnMatrix& matrix : model.geometry.matrices) {
            const bool isRigid = matrix.size() == 1 && !expected.isLocal;
            carriers_.push_back(isRigid ? nodes[static_cast<std::size_t>(matrix.front().first)].world : Imath::M44d());
            inverses_.push_back(carriers_.back().inverse());
        }
        std::transform(nodes.begin(), nodes.end(), std::back_inserter(nodeInverses_),
                       [](const decode::ModelNode& node) { return node.world.inverse(); });
    }

    /// Where a vertex is sent: in the space of the one node that it follows.
    Imath::V3d sentOf(const SceneCorner& corner) const {
        const auto vertex = static_cast<std::size_t>(corner.vertex);
        const bool isSkinned = vertex < expected_.weightsOfVertex.size() && !expected_.weightsOfVertex[vertex].empty();
        if (expected_.isLocal || (isSkinned && expected_.weightsOfVertex[vertex].size() > 1)) {
            return corner.position;
        }
        const int node = isSkinned ? expected_.weightsOfVertex[vertex].begin()->first : ownNode_;
        return node < 0 ? corner.position : corner.position * nodeInverses_[static_cast<std::size_t>(node)];
    }

    bool fits(const decode::DrawnPolygon& polygon, const decode::DrawnVertex& vertex, const SceneCorner& corner) const {
        const auto matrix = static_cast<std::size_t>(vertex.matrix);
        const Imath::V3d sent = corner.position * inverses_[matrix];
        // Inverting a matrix that makes things small costs digits.
        const double reach = std::max(1.0, std::max(sent.length(), corner.position.length()));
        for (int i = 0; i < 3; ++i) {
            const double written = std::round(vertex.position[i] / step_) * step_;
            if (std::abs(written - sent[i]) > kHalfStep * step_ + kSinglePrecision * reach) {
                return false;
            }
        }
        return (!polygon.hasNormals || hasNormal(vertex, corner, carriers_[matrix])) && hasWeights(vertex, corner);
    }

private:
    static bool hasNormal(const decode::DrawnVertex& vertex, const SceneCorner& corner, const Imath::M44d& carrier) {
        Imath::V3d sent;
        carrier.transposed().multDirMatrix(corner.normal, sent);
        sent = sent.length() > 1e-12 ? sent.normalized() * kNormalUnit : Imath::V3d(0.0);
        for (int i = 0; i < 3; ++i) {
            const double wanted = std::clamp(sent[i], -kNormalUnit, kNormalUnit - 1.0);
            if (std::abs((*vertex.normal)[i] * kNormalUnit - wanted) > kHalfStep + 0.02) {
                return false;
            }
        }
        return true;
    }

    bool hasWeights(const decode::DrawnVertex& vertex, const SceneCorner& corner) const {
        std::map<int, int> drawn;
        for (const auto& [node, weight] : model_.geometry.matrices[static_cast<std::size_t>(vertex.matrix)]) {
            drawn[node] += static_cast<int>(std::lround(weight * 100.0));
        }
        const auto number = static_cast<std::size_t>(corner.vertex);
        const bool isSkinned = number < expected_.weightsOfVertex.size() && !expected_.weightsOfVertex[number].empty();
        const bool isSame =
            isSkinned ? drawn == expected_.weightsOfVertex[number] : drawn == std::map<int, int>{{ownNode_, 100}};
        return isSame;
    }

    const report::ExportedModel& model_;
    const Expected& expected_;
    int ownNode_;
    double step_;
    std::vector<Imath::M44d> carriers_, inverses_, nodeInverses_;
};

class FaceCheck {
public:
    FaceCheck(const report::ExportedModel& model, const ExportedScene& scene, Verification& result)
        : model_(model), scene_(scene), result_(result), materials_(drawnMaterials(model.file)),
          names_(scene.mergesMaterials), boxes_(model, result) {
        for (const decode::DrawnPolygon& polygon : model.geometry.polygons) {
            polygons_[polygon.node].push_back(polygon);
        }
    }

    void run() {
        if (scene_.isUnited) {
            checkUnited();
        } else {
            for (const Mesh& mesh : scene_.meshes) {
                checkMesh(mesh);
            }
        }
        for (const auto& [node, polygons] : polygons_) {
            const bool isKnown = scene_.isUnited ? node == 0
                                                 : std::any_of(scene_.meshes.begin(), scene_.meshes.end(),
                                                               [n = node](const Mesh& mesh) { return mesh.node == n; });
            if (!isKnown) {
                result_.find("imd: " + report::utf8Name(polygons.front().name) +
                             " is drawn by a node that shows no mesh in the scene");
            }
        }
        boxes_.run();
    }

private:
    void checkUnited() {
        Expected expected;
        for (const Mesh& mesh : scene_.meshes) {
            Imath::M44d world = scene_.nodes.frameOf(SceneNode{mesh.transform, "", Imath::V3d(0.0), std::nullopt});
            addFaces(expected, mesh.shape, world, scene_.nodes.magnify());
        }
        compare(0, expected, "imd: the united meshes");
    }

    void checkMesh(const Mesh& mesh) {
        const std::string place = "imd: " + std::string(mesh.shape.fullPathName().asUTF8());
        if (mesh.isOtherwiseDeformed) {
            result_.note("vertices of " + place.substr(5) + ", which a skeleton moves by something else than a skin");
            boxes_.leaveOutNode(mesh.node, place.substr(5));
            boxes_.leaveOutModel(place.substr(5));
            return;
        }
        if (mesh.skin) {
            compare(mesh.node, SkinnedMesh(mesh, scene_).expected(), place);
            return;
        }
        Expected expected;
        expected.isLocal = true;
        const Imath::M44d local = atOrigin(scene_.nodes.of(mesh.node)->origin);
        addFaces(expected, mesh.shape, local, scene_.nodes.magnify());
        // Seen from its own space a face shows nothing of the mirror that its node stands in.
        if (model_.file.nodes[static_cast<std::size_t>(mesh.node)].world.determinant() < 0.0) {
            for (SceneFace& face : expected.faces) {
                const std::vector<SceneCorner> corners = face.corners;
                face.corners.assign(corners.rbegin(), corners.rend());
            }
        }
        compare(mesh.node, expected, place);
    }

    // The polygons of a node, placed in the space of what is expected of them.
    std::vector<decode::DrawnPolygon> placed(int node, bool isLocal) const {
        const auto found = polygons_.find(node);
        std::vector<decode::DrawnPolygon> polygons =
            found == polygons_.end() ? std::vector<decode::DrawnPolygon>() : found->second;
        for (decode::DrawnPolygon& polygon : polygons) {
            for (decode::DrawnFace& face : polygon.faces) {
                for (decode::DrawnVertex& vertex : face) {
                    vertex.world = isLocal ? vertex.position : vertex.world;
                    vertex.worldNormal = isLocal ? vertex.normal : vertex.worldNormal;
                }
            }
        }
        return polygons;
    }

    void compare(int node, const Expected& expected, const std::string& place) {
        const std::vector<decode::DrawnPolygon> polygons = placed(node, expected.isLocal);
        std::vector<const decode::DrawnPolygon*> pointers;
        std::transform(polygons.begin(), polygons.end(), std::back_inserter(pointers),
                       [](const decode::DrawnPolygon& polygon) { return &polygon; });
        const VertexCheck check(model_, scene_.written, expected, node, scene_.step);
        FaceTolerance tolerance;
        // The vertex itself is judged in the numbers of the file; this only finds its neighbourhood.
        tolerance.position = largestScale(expected.isLocal) * scene_.step + 1e-6 * reachOf(expected.faces);
        tolerance.normal = 0.05;
        tolerance.fits = [&](const decode::DrawnPolygon& polygon, const decode::DrawnVertex& vertex,
                             const SceneCorner& corner) { return check.fits(polygon, vertex, corner); };
        tolerance.isMaterialOf = [&](const std::string& material, const SceneFace& face) {
            return names_.mayBeOf(material, face.shader);
        };
        const FaceDifferences differences = compareFaces(materials_, pointers, expected.faces, tolerance);
        record(differences, !expected.weightsOfVertex.empty(), place);
        addToBoxes(node, expected, differences, check, place);
    }

    void addToBoxes(int node, const Expected& expected, const FaceDifferences& differences, const VertexCheck& check,
                    const std::string& place) {
        const Imath::M44d& world = scene_.written[static_cast<std::size_t>(node)].world;
        if (!expected.isLocal && std::abs(world.determinant()) < 1e-12) {
            boxes_.leaveOutNode(node, place.substr(5) + ", whose node has no size");
        } else {
            boxes_.addFaces(node, expected.faces, differences.polygonOfFace,
                            expected.isLocal ? Imath::M44d() : world.inverse());
        }
        for (const std::vector<SceneFace>* const faces : {&expected.faces, &expected.unshaded}) {
            for (const SceneFace& face : *faces) {
                for (const SceneCorner& corner : face.corners) {
                    boxes_.addSent(check.sentOf(corner), corner.position.length());
                }
            }
        }
        if (expected.hasLooseVertices) {
            boxes_.leaveOutModel("vertices without faces");
        }
    }

    double largestScale(bool isLocal) const {
        double largest = 1.0;
        for (const decode::ModelNode& node : model_.file.nodes) {
            for (int r = 0; !isLocal && r < 3; ++r) {
                largest = std::max(largest, Imath::V3d(node.world[r][0], node.world[r][1], node.world[r][2]).length());
            }
        }
        return largest;
    }

    void record(const FaceDifferences& differences, bool isSkinned, const std::string& place) {
        const FaceErrors& errors = differences.errors;
        result_.measure(Part::kFaces, differences.count == 0 ? 0.0 : 1.0, errors.faces);
        result_.measure(Part::kPositions, errors.position, errors.corners);
        result_.measure(Part::kNormals, errors.normal, errors.normals);
        result_.measure(Part::kTexCoords, errors.texCoord, errors.texCoords);
        result_.measure(Part::kVertexColors, 0.0, errors.colors);
        if (isSkinned) {
            result_.measure(Part::kWeights, 0.0, errors.corners);
        }
        for (const FaceDifference& difference : differences.texts) {
            result_.find(place + ": " + report::utf8Name(difference.what) + firstLine(difference.details));
        }
        for (std::size_t i = differences.texts.size(); i < differences.count; ++i) {
            result_.find(place);
        }
    }

    static std::string firstLine(const std::string& details) {
        const std::size_t begin = details.find_first_not_of(" \n");
        return begin == std::string::npos ? "" : ", " + details.substr(begin, details.find('\n', begin) - begin);
    }

    const report::ExportedModel& model_;
    const ExportedScene& scene_;
    Verification& result_;
    std::vector<DrawnMaterial> materials_;
    MaterialNames names_;
    BoxCheck boxes_;
    std::map<int, std::vector<decode::DrawnPolygon>> polygons_; // by node
};

} // namespace

void checkFaces(const report::ExportedModel& model, const ExportedScene& scene, Verification& result) {
    FaceCheck(model, scene, result).run();
}

} // namespace host::app::verify
