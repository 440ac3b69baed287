#include "host/nodes/storedMesh.h"

#include "host/nodes/meshRows.h"

#include "host/geometry/checkIds.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace host {

namespace {

struct MeshAttributes {
    explicit MeshAttributes(const NodeType& type)
        : points(type.find("vrts")), edges(type.find("edge")), faces(type.find("face")), normals(type.find("normals")),
          oldUvs(type.find("uvpt")), oldColors(type.find("colors")), uvSets(type.find("uvSet")),
          uvName(type.find("uvSetName")), uvPoints(type.find("uvSetPoints")), colorSets(type.find("colorSet")),
          colorName(type.find("colorName")), colors(type.find("colorSetPoints")), clamped(type.find("clamped")),
          representation(type.find("representation")) {}

    AttrIndex points, edges, faces, normals, oldUvs, oldColors, uvSets, uvName, uvPoints, colorSets, colorName, colors,
        clamped, representation;
};

const MeshAttributes& meshAttributes(const Node& mesh) {
    static const MeshAttributes kAttributes(mesh.type());
    return kAttributes;
}

constexpr const char* kFirstUvSet = "map1";
constexpr const char* kFirstColorSet = "colorSet1";

ColorRepresentation representationOf(double number) {
    return number == 1.0   ? ColorRepresentation::kAlpha
           : number == 3.0 ? ColorRepresentation::kRgb
                           : ColorRepresentation::kRgba;
}

/// Reads one shape.
class StoredMeshReader {
public:
    StoredMeshReader(Evaluation& evaluation, Node& node)
        : evaluation_(evaluation), graph_(evaluation.graph()), node_(node), attr_(meshAttributes(node)) {}

    MeshPtr run() {
        readFaces();
        if (!readTopology()) {
            return std::make_shared<MeshData>();
        }
        readUvSets();
        readColorSets();
        readNormals();
        return mesh_;
    }

private:
    Plug array(AttrIndex attr) const { return {&node_, {attr, 0, {}}}; }
    Plug inElement(AttrIndex attr, std::int32_t element) const {
        return {&node_, PlugAddress{attr, 0, {}}.element(element)};
    }
    void warn(const std::string& text) { evaluation_.warn(node_.name() + ": " + text); }

    void readFaces() {
        const DataPtr data = graph_.data(inElement(attr_.faces, 0));
        faces_ = data != nullptr && data->kind == DataKind::kPolyFaces ? std::static_pointer_cast<const PolyFaces>(data)
                                                                       : std::make_shared<const PolyFaces>();
    }

    bool readTopology() {
        const NumberRows* points = graph_.storedRows(array(attr_.points));
        const NumberRows* edges = graph_.storedRows(array(attr_.edges));
        if (denseCount(points) < 0 || denseCount(edges) < 0) {
            warn("its vertices or edges have indices far beyond their number (its mesh is empty)");
            return false;
        }
        auto read = std::make_shared<Points>(storedVectors<Imath::V3f>(graph_, array(attr_.points)));
        std::string problem;
        const auto vertexCount = static_cast<std::int32_t>(read->size());
        mesh_->topology = MeshTopology::make(vertexCount, readEdges(edges), faces_, problem);
        if (!problem.empty()) {
            const bool isCut = mesh_->topology->vertexCount() == vertexCount;
            warn(problem + (isCut ? " (the faces from there on are left out)" : " (its mesh is empty)"));
            if (!isCut) {
                return false;
            }
        }
        warnOfStrangePoint(*read);
        mesh_->points = std::move(read);
        return true;
    }

    /// What reads the mesh decides what to do about it.
    void warnOfStrangePoint(const Points& points) {
        const auto strange = std::find_if(points.begin(), points.end(), [](const Imath::V3f& point) {
            return !std::isfinite(point.x) || !std::isfinite(point.y) || !std::isfinite(point.z);
        });
        if (strange != points.end()) {
            warn("vertex " + std::to_string(strange - points.begin()) + " has no finite place");
        }
    }

    static std::vector<MeshEdge> readEdges(const NumberRows* rows) {
        std::vector<MeshEdge> edges(static_cast<std::size_t>(denseCount(rows)));
        for (std::size_t row = 0; rows != nullptr && row < rows->rowCount(); ++row) {
            MeshEdge& edge = edges[static_cast<std::size_t>(rows->logicalIndex(row))];
            edge.start = static_cast<std::int32_t>(rows->value(row, 0));
            edge.end = static_cast<std::int32_t>(rows->value(row, 1));
            edge.smooth = rows->value(row, 2) != 0.0;
        }
        return edges;
    }

    /// The ids of the faces for one set, those left out that name nothing.
    std::shared_ptr<const FaceIds> idsOf(const std::map<std::int32_t, FaceIds>& sets, std::int32_t which,
                                         std::size_t count, std::int32_t lowest, const std::string& name) {
        const auto found = sets.find(which);
        if (found == sets.end()) {
            return std::make_shared<const FaceIds>();
        }
        std::string problem;
        auto ids = checkedIds(std::shared_ptr<const FaceIds>(faces_, &found->second), *mesh_->topology,
                              static_cast<std::int32_t>(count), lowest, problem);
        if (!problem.empty()) {
            warn("set '" + name + "': " + problem + " (the face has no entry there)");
        }
        return ids;
    }

    void addUvSet(std::string name, Plug points, std::int32_t which) {
        UvSet set;
        auto read = std::make_shared<std::vector<Imath::V2f>>(storedVectors<Imath::V2f>(graph_, points));
        set.ids = idsOf(faces_->uvIds, which, read->size(), 0, name);
        set.points = std::move(read);
        set.name = std::move(name);
        mesh_->uvSets.push_back(std::move(set));
    }

    void readUvSets() {
        std::int32_t which = 0; // faces count the sets that there are
        for (const std::int32_t element : graph_.elementIndices(array(attr_.uvSets))) {
            const Plug points = inElement(attr_.uvPoints, element);
            const bool isOld = which == 0 && graph_.storedRows(points) == nullptr;
            std::string name = graph_.string(inElement(attr_.uvName, element));
            addUvSet(name.empty() && which == 0 ? kFirstUvSet : std::move(name), isOld ? array(attr_.oldUvs) : points,
                     which);
            ++which;
        }
        if (which == 0) {
            addUvSet(kFirstUvSet, array(attr_.oldUvs), 0);
        }
    }

    void addColorSet(ColorSet set, Plug colors, std::int32_t which) {
        auto read = std::make_shared<std::vector<Imath::V4f>>(storedVectors<Imath::V4f>(graph_, colors));
        set.ids = idsOf(faces_->colorIds, which, read->size(), -1, set.name);
        set.colors = std::move(read);
        mesh_->colorSets.push_back(std::move(set));
    }

    void readColorSets() {
        bool isAny = false;
        for (const std::int32_t element : graph_.elementIndices(array(attr_.colorSets))) {
            ColorSet set;
            set.name = graph_.string(inElement(attr_.colorName, element));
            set.clamped = graph_.number(inElement(attr_.clamped, element)) != 0.0;
            set.representation = representationOf(graph_.number(inElement(attr_.representation, element)));
            addColorSet(std::move(set), inElement(attr_.colors, element), element);
            isAny = true;
        }
        if (!isAny && graph_.storedRows(array(attr_.oldColors)) != nullptr) {
            ColorSet set;
            set.name = kFirstColorSet;
            addColorSet(std::move(set), array(attr_.oldColors), 0);
        }
    }

    /// One per normal id as files have them; a list with one per corner is that of a mesh whose edges became soft
    /// after its normals were set.
    void readNormals() {
        Points normals = storedVectors<Imath::V3f>(graph_, array(attr_.normals));
        if (normals.empty()) {
            return;
        }
        const NormalFans& fans = mesh_->topology->normalFans();
        if (normals.size() == fans.ofCorner.size() && normals.size() != static_cast<std::size_t>(fans.count)) {
            Points perFan(static_cast<std::size_t>(fans.count));
            for (std::size_t corner = normals.size(); corner-- > 0;) {
                perFan[static_cast<std::size_t>(fans.ofCorner[corner])] = normals[corner];
            }
            normals = std::move(perFan);
        }
        if (normals.size() != static_cast<std::size_t>(fans.count)) {
            warn(std::to_string(normals.size()) + " normals are stored, " + std::to_string(fans.count) +
                 " are needed (the normals are computed)");
            return;
        }
        mesh_->userNormals = std::make_shared<const Points>(std::move(normals));
    }

    Evaluation& evaluation_;
    Graph& graph_;
    Node& node_;
    const MeshAttributes& attr_;
    std::shared_ptr<const PolyFaces> faces_;
    std::shared_ptr<MeshData> mesh_ = std::make_shared<MeshData>();
};

} // namespace

MeshPtr readStoredMesh(Evaluation& evaluation, Node& mesh) {
    return StoredMeshReader(evaluation, mesh).run();
}

} // namespace host
