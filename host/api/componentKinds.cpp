#include "host/api/componentKinds.h"

#include "host/api/Host.h"
#include "host/nodes/meshQueries.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace host {

namespace {

struct KindRow {
    std::string_view word; // before the bracket
    std::string_view shape;
    MFn::Type type;
    std::int32_t (*count)(const MeshData& mesh); // null: counted with more than one number, or not of a mesh
};

std::int32_t vertices(const MeshData& mesh) {
    return mesh.topology->vertexCount();
}
std::int32_t edges(const MeshData& mesh) {
    return mesh.topology->edgeCount();
}
std::int32_t faces(const MeshData& mesh) {
    return mesh.topology->faceCount();
}
std::int32_t uvs(const MeshData& mesh) {
    const UvSet* set = mesh.findUvSet({});
    return set != nullptr ? static_cast<std::int32_t>(set->points->size()) : 0;
}

constexpr std::array<KindRow, 7> kKinds = {{
    {"vtx", "mesh", MFn::kMeshVertComponent, vertices},
    {"e", "mesh", MFn::kMeshEdgeComponent, edges},
    {"f", "mesh", MFn::kMeshPolygonComponent, faces},
    {"map", "mesh", MFn::kMeshMapComponent, uvs},
    {"vtxFace", "mesh", MFn::kMeshFaceVertComponent, nullptr},
    {"cv", "nurbsCurve", MFn::kCurveCVComponent, nullptr},
    {"cv", "nurbsSurface", MFn::kSurfaceCVComponent, nullptr},
}};

/// Of shapes that do not say how many components they have, numbers up to here are believed.
constexpr std::int32_t kMostUncounted = 1 << 24;

const KindRow* rowOf(const std::string& text, const Node& shape) {
    const std::string_view word = std::string_view(text).substr(0, text.find('['));
    const auto row = std::find_if(kKinds.begin(), kKinds.end(), [&](const KindRow& kind) {
        return kind.word == word && shape.type().isKindOf(kind.shape);
    });
    return row == kKinds.end() ? nullptr : &*row;
}

class Sorter {
public:
    explicit Sorter(Node& shape) : shape_(shape) {}

    void add(const ComponentRange& range) { add(componentText(range), &range); }

    void add(const std::string& text) {
        ComponentRange range;
        add(text, parseComponent(text, range) ? &range : nullptr);
    }

    std::vector<ComponentObject> kinds;

private:
    void add(const std::string& text, const ComponentRange* range) {
        const KindRow* row = rowOf(text, shape_);
        ComponentObject& kind = kindOf(row != nullptr ? row->type : MFn::kComponent);
        if (range == nullptr || !isSingleIndexed(kind.type)) {
            kind.texts.push_back(text);
            return;
        }
        const std::int32_t count = countOf(*row);
        const IndexRange wanted = range->index[0];
        if (wanted.isAll()) {
            kind.indices.setComplete(count == kMostUncounted ? 0 : count);
        } else if (wanted.first < count && !kind.indices.isComplete()) {
            kind.indices.add({wanted.first, std::min(wanted.last, count - 1)});
        }
    }

    /// How many components of the kind the shape has; as many as may be when it does not say.
    std::int32_t countOf(const KindRow& kind) {
        if (!mesh_) {
            mesh_ = evaluatedMesh(Host::instance().graph(), shape_);
        }
        return kind.count != nullptr && mesh_->topology->vertexCount() > 0 ? kind.count(*mesh_) : kMostUncounted;
    }

    ComponentObject& kindOf(MFn::Type type) {
        const auto kind = std::find_if(kinds.begin(), kinds.end(), [&](const auto& one) { return one.type == type; });
        return kind != kinds.end() ? *kind : kinds.emplace_back(ComponentObject{type, {}, {}});
    }

    Node& shape_;
    MeshPtr mesh_; // once it was needed; never null then
};

template <class Components>
std::vector<ComponentObject> sortOut(const Components& components, Node& shape) {
    Sorter sorter(shape);
    for (const auto& component : components) {
        sorter.add(component);
    }
    return std::move(sorter.kinds);
}

} // namespace

bool isSingleIndexed(MFn::Type componentType) {
    static constexpr std::array kSingle = {MFn::kMeshVertComponent, MFn::kMeshEdgeComponent, MFn::kMeshPolygonComponent,
                                           MFn::kMeshMapComponent, MFn::kCurveCVComponent};
    return std::find(kSingle.begin(), kSingle.end(), componentType) != kSingle.end();
}

std::vector<ComponentObject> componentsByKind(const std::vector<std::string>& texts, Node& shape) {
    return sortOut(texts, shape);
}

std::vector<ComponentObject> componentsByKind(const std::vector<ComponentRange>& ranges, Node& shape) {
    return sortOut(ranges, shape);
}

std::vector<std::string> componentTexts(const ComponentObject& component) {
    const auto row =
        std::find_if(kKinds.begin(), kKinds.end(), [&](const KindRow& kind) { return kind.type == component.type; });
    std::vector<std::string> texts = component.texts;
    if (row == kKinds.end() || !isSingleIndexed(component.type)) {
        return texts;
    }
    const std::string word(row->word);
    if (component.indices.isComplete()) {
        return {word + "[*]"};
    }
    for (const IndexRange range : component.indices.ranges()) {
        texts.push_back(word + "[" + std::to_string(range.first) +
                        (range.first != range.last ? ":" + std::to_string(range.last) : "") + "]");
    }
    return texts;
}

} // namespace host
