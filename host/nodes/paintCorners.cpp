#include "host/nodes/paintCorners.h"

#include "host/nodes/address.h"

#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace host {

namespace {

using Imath::V4f;

struct PaintAttributes {
    explicit PaintAttributes(const NodeType& type)
        : vertices(type.find("vertexColor")), vertexRed(type.find("vertexColorR")),
          vertexAlpha(type.find("vertexAlpha")), faces(type.find("vertexFaceColor")),
          faceRed(type.find("vertexFaceColorR")), faceAlpha(type.find("vertexFaceAlpha")),
          setName(type.find("colorSetName")), representation(type.find("representation")),
          clamped(type.find("clamped")) {}

    AttrIndex vertices, vertexRed, vertexAlpha, faces, faceRed, faceAlpha, setName, representation, clamped;
};

ColorRepresentation representationOf(double number) {
    return number == 1.0   ? ColorRepresentation::kAlpha
           : number == 3.0 ? ColorRepresentation::kRgb
                           : ColorRepresentation::kRgba;
}

/// Paints one set of a mesh.
class Painter {
public:
    Painter(Evaluation& evaluation, Node& node, MeshData& mesh, const PaintAttributes& attr)
        : evaluation_(evaluation), graph_(evaluation.graph()), node_(node), mesh_(mesh), attr_(attr),
          ids_(static_cast<std::size_t>(mesh.topology->cornerCount()), -1) {}

    void run() {
        ColorSet& set = openSet();
        colors_ = std::make_shared<std::vector<V4f>>(*set.colors);
        readIds(*set.ids);
        for (const std::int32_t vertex : graph_.elementIndices({&node_, address(attr_.vertices)})) {
            if (vertex >= 0 && vertex < mesh_.topology->vertexCount()) {
                paintVertex(vertex, set.representation);
            }
        }
        set.ids = writtenIds();
        set.colors = std::move(colors_);
    }

private:
    ColorSet& openSet() {
        const std::string name = evaluation_.string(node_, address(attr_.setName));
        if (const ColorSet* found = mesh_.findColorSet(name)) {
            return mesh_.colorSets[static_cast<std::size_t>(found - mesh_.colorSets.data())];
        }
        ColorSet set;
        set.name = name.empty() ? "colorSet1" : name;
        set.representation = representationOf(evaluation_.number(node_, attr_.representation));
        set.clamped = evaluation_.number(node_, attr_.clamped) != 0.0;
        set.colors = std::make_shared<std::vector<V4f>>();
        set.ids = std::make_shared<FaceIds>();
        mesh_.colorSets.push_back(std::move(set));
        return mesh_.colorSets.back();
    }

    void readIds(const FaceIds& ids) {
        for (std::size_t i = 0; i < ids.faces.size(); ++i) {
            std::copy(ids.ids.begin() + ids.starts[i], ids.ids.begin() + ids.starts[i + 1],
                      ids_.begin() + mesh_.topology->firstCorner(ids.faces[i]));
        }
    }

    void paintVertex(std::int32_t vertex, ColorRepresentation representation) {
        const PlugAddress red = address(attr_.vertexRed).element(vertex);
        if (graph_.hasStored({&node_, red}) || graph_.isDriven({&node_, red})) {
            paint(vertex, -1, colorAt(red, address(attr_.vertexAlpha).element(vertex), representation));
        }
        const PlugAddress faces = address(attr_.faces).element(vertex);
        for (const std::int32_t face : graph_.elementIndices({&node_, faces})) {
            const PlugAddress faceRed = address(attr_.faceRed).element(vertex).element(face);
            paint(vertex, face,
                  colorAt(faceRed, address(attr_.faceAlpha).element(vertex).element(face), representation));
        }
    }

    /// Green and blue stand behind red.
    V4f colorAt(PlugAddress red, const PlugAddress& alpha, ColorRepresentation representation) {
        V4f color(0.0F, 0.0F, 0.0F, 1.0F);
        for (int i = 0; i < 3 && representation != ColorRepresentation::kAlpha; ++i, ++red.attr) {
            color[i] = static_cast<float>(evaluation_.number(node_, red));
        }
        if (representation != ColorRepresentation::kRgb) {
            color.w = static_cast<float>(evaluation_.number(node_, alpha));
        }
        return color;
    }

    /// The vertex's corners in one face, or (-1) in all.
    void paint(std::int32_t vertex, std::int32_t face, const V4f& color) {
        const IndexLists& corners = mesh_.topology->cornersOfVertex();
        for (const std::int32_t* corner = corners.begin(vertex); corner != corners.end(vertex); ++corner) {
            const auto at = static_cast<std::size_t>(*corner);
            if (face < 0 || mesh_.topology->cornerFaces()[at] == face) {
                ids_[at] = static_cast<std::int32_t>(colors_->size());
                colors_->push_back(color);
            }
        }
    }

    std::shared_ptr<const FaceIds> writtenIds() const {
        auto written = std::make_shared<FaceIds>();
        for (std::int32_t face = 0; face < mesh_.topology->faceCount(); ++face) {
            const auto first = ids_.begin() + mesh_.topology->firstCorner(face);
            const auto last = first + mesh_.topology->cornerCount(face);
            if (std::any_of(first, last, [](std::int32_t id) { return id >= 0; })) {
                written->faces.push_back(face);
                written->ids.insert(written->ids.end(), first, last);
                written->starts.push_back(static_cast<std::int32_t>(written->ids.size()));
            }
        }
        return written;
    }

    Evaluation& evaluation_;
    Graph& graph_;
    Node& node_;
    MeshData& mesh_;
    const PaintAttributes& attr_;
    std::vector<std::int32_t> ids_; // per corner
    std::shared_ptr<std::vector<V4f>> colors_;
};

} // namespace

void paintCorners(Evaluation& evaluation, Node& node, MeshData& mesh) {
    static const PaintAttributes kAttributes(node.type());
    Painter(evaluation, node, mesh, kAttributes).run();
}

} // namespace host
