#include "decode/ModelGeometry.h"

#include "decode/FileError.h"
#include "decode/polygonReader.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace decode {
namespace {

// Weights are whole percents, none of which rounds from less than half of one.
constexpr int kMostWeights = 200;
// A position has 16 bits, so that a shift by more leaves nothing of it.
constexpr int kLargestPositionScale = 31;

DrawnMatrix readMatrix(const FileElement& element, const std::vector<double>& weights, const std::vector<int>& nodes) {
    const int count = element.integer("mtx_weight");
    if (count == 1) {
        return {{element.integer("node_idx"), 1.0}};
    }
    require(count > 1 && count <= kMostWeights, element, "mtx_weight is ", count);
    const int head = element.integer("envelope_head");
    require(head >= 0 && head <= static_cast<int>(weights.size()) - count, element, "the weights ", head, " to ",
            int64_t{head} + count, " are not there");
    DrawnMatrix matrix;
    for (auto i = static_cast<std::size_t>(head); i < static_cast<std::size_t>(head + count); ++i) {
        matrix.emplace_back(nodes[i], weights[i] / 100.0);
    }
    return matrix;
}

std::vector<DrawnMatrix> readMatrices(const FileElement& body, int nodeCount) {
    std::vector<double> weights;
    std::vector<int> nodes;
    if (const FileElement* const envelope = body.find("envelope")) {
        weights = envelope->child("weight").countedNumbers("size");
        nodes = envelope->child("node_idx").countedIntegers("size");
        require(weights.size() == nodes.size(), *envelope, weights.size(), " weights of ", nodes.size(), " nodes");
    }
    std::vector<DrawnMatrix> matrices;
    const FileElement* const array = body.find("matrix_array");
    if (array == nullptr) {
        return matrices;
    }
    for (const FileElement& element : array->countedChildren()) {
        matrices.push_back(readMatrix(element, weights, nodes));
        for (const auto& [node, weight] : matrices.back()) {
            require(node >= 0 && node < nodeCount, element, "there is no node ", node);
            require(weight > 0.0, element, "a weight is not above zero");
        }
    }
    return matrices;
}

// What carries a vertex on a matrix to the world. A blend was brought to the world when it was bound, so that it stands
// there at the pose of the file, and from there goes with its nodes; weights add up to about 1 only.
Imath::M44d carrierOf(const ModelFile& file, const std::vector<Imath::M44d>& worlds, const DrawnMatrix& matrix) {
    const auto nodeOf = [](const auto& part) { return static_cast<std::size_t>(part.first); };
    if (matrix.size() == 1) {
        return worlds.at(nodeOf(matrix.front()));
    }
    Imath::M44d sum(0.0);
    double weights = 0.0;
    for (const auto& part : matrix) {
        sum += file.nodes.at(nodeOf(part)).world.inverse() * worlds.at(nodeOf(part)) * part.second;
        weights += part.second;
    }
    return sum * (1.0 / weights);
}

// What brings positions and normals from a matrix to the world.
struct Carrier {
    Imath::M44d positions, normals;
};

void place(const Carrier& carrier, DrawnVertex& vertex) {
    carrier.positions.multVecMatrix(vertex.position, vertex.world);
    vertex.worldNormal = vertex.normal;
    if (vertex.normal.has_value()) {
        carrier.normals.multDirMatrix(*vertex.normal, *vertex.worldNormal);
    }
}

void readDisplays(const FileElement& body, ModelGeometry& model) {
    const FileElement* const array = body.find("node_array");
    if (array == nullptr) {
        return;
    }
    for (const FileElement& node : array->children) {
        for (const FileElement& display : node.children) {
            const int index = display.integer("polygon");
            require(index >= 0 && index < static_cast<int>(model.polygons.size()), display, "there is no polygon ",
                    index);
            DrawnPolygon& polygon = model.polygons[static_cast<std::size_t>(index)];
            require(polygon.node == -1, display, "polygon ", index, " is drawn twice");
            polygon.node = node.integer("index");
            polygon.material = display.integer("material");
        }
    }
    for (const DrawnPolygon& polygon : model.polygons) {
        require(polygon.node != -1, *array, "nobody draws polygon ", polygon.name);
    }
}

PolygonTables readTables(const FileElement& body, const ModelGeometry& model) {
    PolygonTables tables;
    if (const FileElement* const table = body.find("vtx_pos_data")) {
        tables.positions = table->countedNumbers("pos_size", 3);
    }
    if (const FileElement* const table = body.find("vtx_color_data")) {
        tables.colors = table->countedNumbers("color_size", 3);
    }
    tables.matrixCount = model.matrices.size();
    tables.scale = std::ldexp(1.0, model.positionScale);
    return tables;
}

} // namespace

const DrawnPolygon& ModelGeometry::polygon(std::string_view name) const {
    const auto found = std::find_if(polygons.begin(), polygons.end(),
                                    [&](const DrawnPolygon& polygon) { return polygon.name == name; });
    if (found == polygons.end()) {
        throw FileError("there is no polygon " + excerpt(name));
    }
    return *found;
}

std::vector<DrawnFace> ModelGeometry::allFaces() const {
    std::vector<DrawnFace> faces;
    for (const DrawnPolygon& polygon : polygons) {
        faces.insert(faces.end(), polygon.faces.begin(), polygon.faces.end());
    }
    return faces;
}

ModelGeometry readModelGeometry(const ModelFile& file) {
    const FileElement& body = file.root.child("body");
    const FileElement& array = body.child("polygon_array");
    ModelGeometry model;
    model.positionScale = file.info->integer("pos_scale");
    require(model.positionScale >= 0 && model.positionScale <= kLargestPositionScale, *file.info, "pos_scale is ",
            model.positionScale);
    model.matrices = readMatrices(body, static_cast<int>(file.nodes.size()));
    const PolygonTables tables = readTables(body, model);
    for (const FileElement& element : array.countedChildren()) {
        model.polygons.push_back(readPolygon(element, tables));
    }
    std::vector<Imath::M44d> worlds;
    std::transform(file.nodes.begin(), file.nodes.end(), std::back_inserter(worlds),
                   [](const ModelNode& node) { return node.world; });
    poseModel(file, worlds, model);
    readDisplays(body, model);
    return model;
}

void poseModel(const ModelFile& file, const std::vector<Imath::M44d>& worlds, ModelGeometry& model) {
    if (worlds.size() != file.nodes.size()) {
        throw FileError(std::to_string(worlds.size()) + " world matrices for " + std::to_string(file.nodes.size()) +
                        " nodes");
    }
    std::vector<Carrier> carriers;
    for (const DrawnMatrix& matrix : model.matrices) {
        const Imath::M44d carrier = carrierOf(file, worlds, matrix);
        carriers.push_back({carrier, carrier.inverse().transposed()});
    }
    for (DrawnPolygon& polygon : model.polygons) {
        for (DrawnFace& face : polygon.faces) {
            for (DrawnVertex& vertex : face) {
                place(carriers[static_cast<std::size_t>(vertex.matrix)], vertex);
            }
        }
    }
}

} // namespace decode
