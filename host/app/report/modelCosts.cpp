#include "host/app/report/modelCosts.h"

#include "host/app/report/nameText.h"

#include <algorithm>
#include <map>
#include <set>
#include <tuple>

namespace host::app::report {

namespace {

using decode::FileElement;

// Vertices that the first face of a primitive takes, and each further one.
struct PrimitiveType {
    const char* type;
    bool isStrip;
    int firstFace, nextFace;
};
constexpr std::array<PrimitiveType, 4> kPrimitiveTypes{
    {{"quad_strip", true, 4, 2}, {"triangle_strip", true, 3, 1}, {"quads", false, 4, 4}, {"triangles", false, 3, 3}}};

std::int64_t count(std::size_t size) {
    return static_cast<std::int64_t>(size);
}

/// The children of a child, or none.
const std::vector<FileElement>& elementsOf(const FileElement& parent, const char* name) {
    static const std::vector<FileElement> kNone;
    const FileElement* const found = parent.find(name);
    return found == nullptr ? kNone : found->children;
}

const std::vector<FileElement>& arrayOf(const decode::ModelFile& file, const char* name) {
    static const std::vector<FileElement> kNone;
    const FileElement* const body = file.root.find("body");
    return body == nullptr ? kNone : elementsOf(*body, name);
}

void add(const DrawCosts& part, DrawCosts& whole) {
    whole.vertices += part.vertices;
    whole.triangles += part.triangles;
    whole.quads += part.quads;
    whole.matrixLoads += part.matrixLoads;
    whole.matrixSwitches += part.matrixSwitches;
}

void addPrimitive(const FileElement& primitive, std::array<PrimitiveCosts, 4>& primitives) {
    for (std::size_t i = 0; i < kPrimitiveTypes.size(); ++i) {
        const PrimitiveType& type = kPrimitiveTypes.at(i);
        if (primitive.value("type") == type.type) {
            const int vertices = primitive.integer("vertex_size");
            primitives.at(i).count += 1;
            primitives.at(i).vertices += vertices;
            primitives.at(i).faces += 1 + (vertices - type.firstFace) / type.nextFace;
        }
    }
}

/// The commands of one polygon, beyond what the decoded polygon tells.
std::int64_t readPrimitives(const FileElement& polygon, std::array<PrimitiveCosts, 4>& primitives) {
    std::int64_t matrixSwitches = 0;
    for (const FileElement& group : polygon.children) {
        for (const FileElement& primitive : elementsOf(group, "primitive_array")) {
            addPrimitive(primitive, primitives);
            matrixSwitches += std::count_if(primitive.children.begin(), primitive.children.end(),
                                            [](const FileElement& command) { return command.name == "mtx"; });
        }
    }
    return matrixSwitches;
}

DrawCosts costsOf(const decode::DrawnPolygon& polygon, std::int64_t matrixSwitches) {
    DrawCosts costs;
    costs.vertices = polygon.verticesSent;
    costs.quads = std::count_if(polygon.faces.begin(), polygon.faces.end(),
                                [](const decode::DrawnFace& face) { return face.size() == 4; });
    costs.triangles = count(polygon.faces.size()) - costs.quads;
    costs.matrixLoads = polygon.matricesLoaded;
    costs.matrixSwitches = matrixSwitches;
    return costs;
}

/// The names of the images that each material shows, by the material's name: its own, and those of its pattern.
std::map<std::string, std::set<std::string>> shownImages(const ExportedFiles& files) {
    std::map<std::string, std::set<std::string>> shown;
    for (const FileElement& material : arrayOf(files.model->file, "material_array")) {
        const int image = material.integer("tex_image_idx");
        std::set<std::string>& images = shown[material.value("name")];
        if (image >= 0 && count(files.textures.images.size()) > image) {
            images.insert(files.textures.images[static_cast<std::size_t>(image)].name);
        }
    }
    if (files.patterns) {
        for (const decode::PatternFile::Entry& entry : files.patterns->entries) {
            shown[entry.materialName].insert(entry.images.begin(), entry.images.end());
        }
    }
    return shown;
}

/// Bytes of these images, palettes that several of them use once.
std::int64_t bytesOf(const std::set<std::string>& names, const TextureMemory& textures) {
    std::int64_t bytes = 0;
    std::set<std::string> palettes;
    for (const std::string& bytesOfName : names) {
        const std::string name = utf8Name(bytesOfName);
        const auto image = std::find_if(textures.images.begin(), textures.images.end(),
                                        [&](const TextureCosts& costs) { return costs.name == name; });
        if (image != textures.images.end()) {
            bytes += image->texelBytes + image->indexBytes;
            bytes += palettes.insert(image->palette).second ? image->paletteBytes : 0;
        }
    }
    return bytes;
}

std::vector<MaterialCosts> costsOfMaterials(const ExportedFiles& files, const TextureMemory& textures) {
    const auto shown = shownImages(files);
    std::vector<MaterialCosts> materials;
    for (const FileElement& element : arrayOf(files.model->file, "material_array")) {
        const std::string& name = element.value("name");
        materials.push_back({utf8Name(name), 0, bytesOf(shown.at(name), textures)});
    }
    for (const decode::DrawnPolygon& polygon : files.model->geometry.polygons) {
        if (polygon.material >= 0 && count(materials.size()) > polygon.material) {
            materials[static_cast<std::size_t>(polygon.material)].vertices += polygon.verticesSent;
        }
    }
    std::stable_sort(materials.begin(), materials.end(), [](const MaterialCosts& a, const MaterialCosts& b) {
        return std::tie(a.vertices, a.textureBytes) > std::tie(b.vertices, b.textureBytes);
    });
    return materials;
}

bool isMoreExpensive(const NodeCosts& a, const NodeCosts& b) {
    const auto order = [](const DrawCosts& costs) {
        return std::make_tuple(costs.vertices, costs.polygonCost(), costs.matrixLoads);
    };
    return order(a.draws) > order(b.draws);
}

void addPolygons(const ExportedModel& exported, ModelCosts& model) {
    const std::vector<FileElement>& elements = arrayOf(exported.file, "polygon_array");
    std::map<int, DrawCosts> ofNodes;
    for (const decode::DrawnPolygon& polygon : exported.geometry.polygons) {
        const FileElement& element = elements.at(static_cast<std::size_t>(polygon.index));
        const DrawCosts costs = costsOf(polygon, readPrimitives(element, model.primitives));
        model.matrixGroups += count(polygon.matrixLists.size());
        add(costs, model.draws);
        add(costs, ofNodes[polygon.node]);
    }
    for (const auto& [node, costs] : ofNodes) {
        model.meshNodes.push_back({utf8Name(exported.file.nodes.at(static_cast<std::size_t>(node)).name), costs});
    }
    std::stable_sort(model.meshNodes.begin(), model.meshNodes.end(), isMoreExpensive);
}

} // namespace

ModelCosts costsOfModel(const ExportedFiles& files, const TextureMemory& textures) {
    const ExportedModel& exported = *files.model;
    ModelCosts model;
    for (std::size_t i = 0; i < kPrimitiveTypes.size(); ++i) {
        model.primitives.at(i).type = kPrimitiveTypes.at(i).type;
        model.primitives.at(i).isStrip = kPrimitiveTypes.at(i).isStrip;
    }
    model.nodes = count(exported.file.nodes.size());
    model.polygons = count(exported.geometry.polygons.size());
    model.matrices = count(exported.geometry.matrices.size());
    addPolygons(exported, model);
    model.drawn = costsOfMaterials(files, textures);
    model.materials = count(model.drawn.size());
    return model;
}

std::vector<Limit> limitsOf(const ModelCosts& model) {
    return {{"vertices", "vertices", model.draws.vertices, kMostVertices},
            {"polygon_cost", "polygon cost", model.draws.polygonCost(), kMostPolygonCost},
            {"matrices", "matrices", model.matrices, kMostMatrices}};
}

} // namespace host::app::report
