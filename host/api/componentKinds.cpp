#include "host/api/componentKinds.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace host {

namespace {

struct ComponentKind {
    std::string_view word; // before the bracket
    std::string_view shape;
    MFn::Type type;
};

constexpr std::array<ComponentKind, 7> kKinds = {{
    {"vtx", "mesh", MFn::kMeshVertComponent},
    {"e", "mesh", MFn::kMeshEdgeComponent},
    {"f", "mesh", MFn::kMeshPolygonComponent},
    {"vtxFace", "mesh", MFn::kMeshFaceVertComponent},
    {"map", "mesh", MFn::kMeshMapComponent},
    {"cv", "nurbsCurve", MFn::kCurveCVComponent},
    {"cv", "nurbsSurface", MFn::kSurfaceCVComponent},
}};

} // namespace

MFn::Type componentType(const std::string& text, const Node& shape) {
    const std::string_view word = std::string_view(text).substr(0, text.find('['));
    const auto row = std::find_if(kKinds.begin(), kKinds.end(), [&](const ComponentKind& kind) {
        return kind.word == word && shape.type().isKindOf(kind.shape);
    });
    return row == kKinds.end() ? MFn::kComponent : row->type;
}

std::vector<ComponentObject> componentsByKind(const std::vector<std::string>& texts, const Node& shape) {
    std::vector<ComponentObject> kinds;
    for (const std::string& text : texts) {
        const MFn::Type type = componentType(text, shape);
        auto kind = std::find_if(kinds.begin(), kinds.end(), [&](const auto& one) { return one.type == type; });
        if (kind == kinds.end()) {
            kinds.push_back({type, {}});
            kind = kinds.end() - 1;
        }
        kind->texts.push_back(text);
    }
    return kinds;
}

} // namespace host
