#include "ModelGeometry.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace tvk {
namespace {

constexpr std::size_t kSlots = 31;
constexpr int kUnknown = -1;

Imath::V3d vectorOf(const FileElement& element, const char* name) {
    const std::vector<double> parts = element.reals(name);
    EXPECT_EQ(parts.size(), 3U) << element.name << "." << name;
    return parts.size() == 3 ? Imath::V3d(parts[0], parts[1], parts[2]) : Imath::V3d(0.0);
}

bool isOn(const FileElement& element, const char* name) {
    return element.value(name) == "on";
}

// The elements of an array whose size and indices must be true.
const std::vector<FileElement>& countedChildren(const FileElement& array, bool indexed = true) {
    EXPECT_EQ(array.integer("size"), static_cast<int>(array.children.size())) << array.name;
    for (std::size_t i = 0; indexed && i < array.children.size(); ++i) {
        EXPECT_EQ(array.children[i].integer("index"), static_cast<int>(i)) << array.name;
    }
    return array.children;
}

std::vector<double> countedNumbers(const FileElement& element, const char* sizeName, std::size_t perEntry) {
    std::vector<double> numbers = readNumbers(element.text);
    EXPECT_EQ(static_cast<std::size_t>(element.integer(sizeName)) * perEntry, numbers.size()) << element.name;
    return numbers;
}

std::vector<DrawnMatrix> readMatrices(const FileElement& body, int nodeCount) {
    std::vector<double> weights;
    std::vector<double> nodes;
    if (const FileElement* const envelope = body.find("envelope")) {
        weights = countedNumbers(*envelope->find("weight"), "size", 1);
        nodes = countedNumbers(*envelope->find("node_idx"), "size", 1);
        EXPECT_EQ(weights.size(), nodes.size());
    }
    std::vector<DrawnMatrix> matrices;
    const FileElement* const array = body.find("matrix_array");
    if (array == nullptr) {
        return matrices;
    }
    for (const FileElement& element : countedChildren(*array)) {
        DrawnMatrix matrix;
        const int count = element.integer("mtx_weight");
        if (count == 1) {
            matrix.emplace_back(element.integer("node_idx"), 1.0);
        } else {
            const auto head = static_cast<std::size_t>(element.integer("envelope_head"));
            EXPECT_LE(head + static_cast<std::size_t>(count), weights.size());
            for (std::size_t i = head; i < head + static_cast<std::size_t>(count) && i < weights.size(); ++i) {
                matrix.emplace_back(static_cast<int>(nodes[i]), weights[i] / 100.0);
            }
        }
        for (const auto& [node, weight] : matrix) {
            EXPECT_TRUE(node >= 0 && node < nodeCount) << "a matrix of node " << node;
            EXPECT_GT(weight, 0.0);
        }
        matrices.push_back(matrix);
    }
    return matrices;
}

// The geometry engine as far as one polygon goes.
class Console {
public:
    Console(const FileElement& body, const DrawnPolygon& polygon, std::size_t matrixCount)
        : polygon_(polygon), matrixCount_(matrixCount) {
        if (const FileElement* const table = body.find("vtx_pos_data")) {
            positions_ = countedNumbers(*table, "pos_size", 3);
        }
        if (const FileElement* const table = body.find("vtx_color_data")) {
            colors_ = countedNumbers(*table, "color_size", 3);
        }
        slots_.fill(kUnknown);
    }

    void load(const std::vector<int>& list) {
        for (std::size_t slot = 0; slot < list.size() && slot < kSlots; ++slot) {
            if (list[slot] >= 0) {
                EXPECT_LT(static_cast<std::size_t>(list[slot]), matrixCount_);
                slots_.at(slot) = list[slot];
            }
        }
        EXPECT_TRUE(std::all_of(slots_.begin(), slots_.begin() + static_cast<std::ptrdiff_t>(list.size()),
                                [](int matrix) { return matrix != kUnknown; }))
            << polygon_.name << ": a slot is in use and was never loaded";
        // Without matrix commands the whole polygon stands on the only matrix.
        matrix_ = std::count_if(list.begin(), list.end(), [](int entry) { return entry >= 0; }) == 1 && list.size() == 1
                      ? list.front()
                      : kUnknown;
    }

    // True when the command sends a vertex.
    bool run(const FileElement& command) {
        if (command.name == "mtx") {
            const int slot = command.integer("idx");
            EXPECT_TRUE(slot >= 0 && slot < static_cast<int>(kSlots)) << polygon_.name << ": slot " << slot;
            matrix_ = slots_.at(static_cast<std::size_t>(std::clamp(slot, 0, 30)));
            normal_.reset();
        } else if (command.name == "tex") {
            const std::vector<double> st = command.reals("st");
            texCoord_ = Imath::V2d(st.at(0), st.at(1));
        } else if (command.name == "clr") {
            setColor(command.reals("rgb"));
        } else if (command.name == "clr_idx") {
            setColor(entry(colors_, command.integer("idx")));
        } else if (command.name == "nrm") {
            normal_ = vectorOf(command, "xyz");
        } else {
            move(command);
            return true;
        }
        return false;
    }

    DrawnVertex vertex(double scale) const {
        EXPECT_NE(matrix_, kUnknown) << polygon_.name << ": a vertex on no known matrix";
        EXPECT_TRUE(!polygon_.hasNormals || normal_.has_value()) << polygon_.name << ": a vertex without its normal";
        EXPECT_TRUE(!polygon_.hasColors || color_.has_value()) << polygon_.name << ": a vertex without its colour";
        EXPECT_TRUE(!polygon_.hasTexCoords || texCoord_.has_value()) << polygon_.name << ": no texture coordinate";
        DrawnVertex vertex;
        vertex.matrix = matrix_;
        vertex.position = position_.value_or(Imath::V3d(0.0)) * scale;
        vertex.normal = normal_;
        vertex.texCoord = texCoord_;
        vertex.color = color_;
        return vertex;
    }

private:
    std::vector<double> entry(const std::vector<double>& table, int index) const {
        const auto start = static_cast<std::size_t>(index) * 3;
        EXPECT_TRUE(index >= 0 && start + 3 <= table.size()) << polygon_.name << ": entry " << index;
        return index >= 0 && start + 3 <= table.size()
                   ? std::vector<double>(table.begin() + static_cast<std::ptrdiff_t>(start),
                                         table.begin() + static_cast<std::ptrdiff_t>(start) + 3)
                   : std::vector<double>(3, 0.0);
    }

    void setColor(const std::vector<double>& rgb) {
        std::array<int, 3> color{};
        std::transform(rgb.begin(), rgb.begin() + 3, color.begin(), [](double part) { return static_cast<int>(part); });
        EXPECT_TRUE(std::all_of(color.begin(), color.end(), [](int part) { return part >= 0 && part <= 31; }));
        color_ = color;
        normal_.reset();
    }

    void move(const FileElement& command) {
        const Imath::V3d previous = position_.value_or(Imath::V3d(0.0));
        Imath::V3d next = previous;
        const std::string& name = command.name;
        const bool isRelative = name == "pos_xy" || name == "pos_xz" || name == "pos_yz" || name == "pos_diff";
        EXPECT_TRUE(!isRelative || position_.has_value()) << polygon_.name << ": " << name << " comes first";
        if (name == "pos_xyz" || name == "pos_s") {
            next = vectorOf(command, "xyz");
        } else if (name == "pos_diff") {
            next = previous + vectorOf(command, "xyz");
        } else if (name == "pos_idx") {
            const std::vector<double> xyz = entry(positions_, command.integer("idx"));
            next = Imath::V3d(xyz[0], xyz[1], xyz[2]);
        } else if (isRelative) {
            const std::string axes = name.substr(4);
            const std::vector<double> parts = command.reals(axes.c_str());
            next[axes[0] - 'x'] = parts.at(0);
            next[axes[1] - 'x'] = parts.at(1);
        } else {
            ADD_FAILURE() << polygon_.name << ": unknown command " << name;
        }
        position_ = next;
    }

    const DrawnPolygon& polygon_;
    std::size_t matrixCount_;
    std::vector<double> positions_, colors_;
    std::array<int, kSlots> slots_{};
    int matrix_ = kUnknown;
    std::optional<Imath::V3d> position_, normal_;
    std::optional<Imath::V2d> texCoord_;
    std::optional<std::array<int, 3>> color_;
};

// Places of the corners of each face in what a primitive sends.
std::vector<std::vector<std::size_t>> facesOf(const std::string& type, std::size_t count) {
    std::vector<std::vector<std::size_t>> faces;
    const bool isStrip = type == "triangle_strip" || type == "quad_strip";
    const bool isQuad = type == "quads" || type == "quad_strip";
    EXPECT_TRUE(isStrip || isQuad || type == "triangles") << type;
    const std::size_t step = type == "triangle_strip" ? 1 : type == "quad_strip" ? 2 : isQuad ? 4 : 3;
    const std::size_t size = isQuad ? 4 : 3;
    EXPECT_TRUE(count >= size && (count - size) % step == 0) << count << " vertices of " << type;
    for (std::size_t at = 0; at + size <= count; at += step) {
        std::vector<std::size_t> face(size);
        std::iota(face.begin(), face.end(), at);
        if (type == "quad_strip") {
            std::swap(face[2], face[3]);
        } else if (type == "triangle_strip" && at % 2 == 1) {
            std::swap(face[0], face[1]);
        }
        faces.push_back(face);
    }
    return faces;
}

class PolygonReader {
public:
    PolygonReader(const FileElement& body, const ModelGeometry& model) : body_(body), model_(model) {}

    DrawnPolygon read(const FileElement& element) const {
        DrawnPolygon polygon;
        polygon.index = element.integer("index");
        polygon.name = element.value("name");
        polygon.hasNormals = isOn(element, "nrm_flag");
        polygon.hasColors = isOn(element, "clr_flag");
        polygon.hasTexCoords = isOn(element, "tex_flag");
        polygon.volumeMin = vectorOf(element, "volume_min");
        polygon.volumeMax = vectorOf(element, "volume_max");
        polygon.volumeRadius = element.reals("volume_r").at(0);
        EXPECT_EQ(element.integer("mtx_prim_size"), static_cast<int>(element.children.size())) << polygon.name;
        Console console(body_, polygon, model_.matrices.size());
        for (const FileElement& group : element.children) {
            readGroup(group, console, polygon);
        }
        checkCounts(element, polygon);
        return polygon;
    }

private:
    void readGroup(const FileElement& group, Console& console, DrawnPolygon& polygon) const {
        const FileElement& list = *group.find("mtx_list");
        std::vector<int> entries;
        for (const double entry : countedNumbers(list, "size", 1)) {
            entries.push_back(static_cast<int>(entry));
            polygon.matricesLoaded += entry >= 0 ? 1 : 0;
        }
        EXPECT_LE(entries.size(), kSlots) << polygon.name;
        polygon.matrixLists.push_back(entries);
        console.load(entries);
        for (const FileElement& primitive : countedChildren(*group.find("primitive_array"))) {
            readPrimitive(primitive, console, polygon);
        }
    }

    void readPrimitive(const FileElement& primitive, Console& console, DrawnPolygon& polygon) const {
        const double scale = std::ldexp(1.0, model_.positionScale);
        std::vector<DrawnVertex> sent;
        for (const FileElement& command : primitive.children) {
            if (console.run(command)) {
                sent.push_back(console.vertex(scale));
            }
        }
        EXPECT_EQ(primitive.integer("vertex_size"), static_cast<int>(sent.size())) << polygon.name;
        polygon.verticesSent += static_cast<int>(sent.size());
        polygon.primitiveTypes.push_back(primitive.value("type"));
        for (const auto& places : facesOf(primitive.value("type"), sent.size())) {
            DrawnFace face;
            std::transform(places.begin(), places.end(), std::back_inserter(face),
                           [&](std::size_t place) { return sent[place]; });
            polygon.faces.push_back(face);
        }
    }

    static void checkCounts(const FileElement& element, const DrawnPolygon& polygon) {
        const auto quads = static_cast<int>(std::count_if(polygon.faces.begin(), polygon.faces.end(),
                                                          [](const DrawnFace& face) { return face.size() == 4; }));
        EXPECT_EQ(element.integer("vertex_size"), polygon.verticesSent) << polygon.name;
        EXPECT_EQ(element.integer("polygon_size"), static_cast<int>(polygon.faces.size())) << polygon.name;
        EXPECT_EQ(element.integer("quad_size"), quads) << polygon.name;
        EXPECT_EQ(element.integer("triangle_size"), static_cast<int>(polygon.faces.size()) - quads) << polygon.name;
    }

    const FileElement& body_;
    const ModelGeometry& model_;
};

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

void place(const std::vector<Imath::M44d>& carriers, DrawnVertex& vertex) {
    vertex.world = vertex.position;
    vertex.worldNormal = vertex.normal;
    if (vertex.matrix < 0 || vertex.matrix >= static_cast<int>(carriers.size())) {
        return;
    }
    const Imath::M44d& carrier = carriers[static_cast<std::size_t>(vertex.matrix)];
    carrier.multVecMatrix(vertex.position, vertex.world);
    if (vertex.normal.has_value()) {
        Imath::V3d turned;
        carrier.inverse().transposed().multDirMatrix(*vertex.normal, turned);
        vertex.worldNormal = turned;
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
            if (index < 0 || index >= static_cast<int>(model.polygons.size())) {
                ADD_FAILURE() << node.value("name") << " draws polygon " << index;
                continue;
            }
            DrawnPolygon& polygon = model.polygons[static_cast<std::size_t>(index)];
            EXPECT_EQ(polygon.node, -1) << polygon.name << " is drawn twice";
            polygon.node = node.integer("index");
            polygon.material = display.integer("material");
        }
    }
    for (const DrawnPolygon& polygon : model.polygons) {
        EXPECT_NE(polygon.node, -1) << polygon.name << " is drawn by nobody";
    }
}

} // namespace

const DrawnPolygon& ModelGeometry::polygon(std::string_view name) const {
    static const DrawnPolygon none;
    const auto found = std::find_if(polygons.begin(), polygons.end(),
                                    [&](const DrawnPolygon& polygon) { return polygon.name == name; });
    EXPECT_NE(found, polygons.end()) << "no polygon " << name;
    return found == polygons.end() ? none : *found;
}

std::vector<DrawnFace> ModelGeometry::allFaces() const {
    std::vector<DrawnFace> faces;
    for (const DrawnPolygon& polygon : polygons) {
        faces.insert(faces.end(), polygon.faces.begin(), polygon.faces.end());
    }
    return faces;
}

ModelGeometry readModelGeometry(const ModelFile& file) {
    ModelGeometry model;
    const FileElement* const body = file.root.find("body");
    const FileElement* const array = body == nullptr ? nullptr : body->find("polygon_array");
    if (array == nullptr || file.info == nullptr) {
        ADD_FAILURE() << "no polygon array";
        return model;
    }
    model.positionScale = file.info->integer("pos_scale");
    model.matrices = readMatrices(*body, static_cast<int>(file.nodes.size()));
    const PolygonReader reader(*body, model);
    for (const FileElement& element : countedChildren(*array)) {
        model.polygons.push_back(reader.read(element));
    }
    std::vector<Imath::M44d> worlds;
    std::transform(file.nodes.begin(), file.nodes.end(), std::back_inserter(worlds),
                   [](const ModelNode& node) { return node.world; });
    poseModel(file, worlds, model);
    readDisplays(*body, model);
    return model;
}

void poseModel(const ModelFile& file, const std::vector<Imath::M44d>& worlds, ModelGeometry& model) {
    std::vector<Imath::M44d> carriers;
    std::transform(model.matrices.begin(), model.matrices.end(), std::back_inserter(carriers),
                   [&](const DrawnMatrix& matrix) { return carrierOf(file, worlds, matrix); });
    for (DrawnPolygon& polygon : model.polygons) {
        for (DrawnFace& face : polygon.faces) {
            std::for_each(face.begin(), face.end(), [&](DrawnVertex& vertex) { place(carriers, vertex); });
        }
    }
}

} // namespace tvk
