#include "decode/polygonReader.h"

#include "decode/FileError.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace decode {
namespace {

constexpr std::size_t kSlots = 31;
constexpr int kUnknown = -1;
constexpr int kBrightest = 31;

Imath::V3d vectorOf(const FileElement& element, const char* name) {
    const std::vector<double> parts = element.reals(name, 3);
    return {parts[0], parts[1], parts[2]};
}

// The geometry engine as far as one polygon goes.
class Console {
public:
    Console(const PolygonTables& tables, const DrawnPolygon& polygon) : tables_(tables), polygon_(polygon) {
        slots_.fill(kUnknown);
    }

    void load(const FileElement& element, const std::vector<int>& list) {
        require(list.size() <= kSlots, element, list.size(), " matrices for ", kSlots, " slots");
        for (std::size_t slot = 0; slot < list.size(); ++slot) {
            const int entry = list[slot];
            require(entry >= -1 && entry < static_cast<int>(tables_.matrixCount), element, "there is no matrix ",
                    entry);
            if (entry >= 0) {
                slots_.at(slot) = entry;
            }
            require(slots_.at(slot) != kUnknown, element, "slot ", slot, " is in use and was never loaded");
        }
        // Without matrix commands the whole polygon stands on the only matrix.
        matrix_ = list.size() == 1 && list.front() >= 0 ? list.front() : kUnknown;
    }

    // True when the command sends a vertex.
    bool run(const FileElement& command) {
        if (command.name == "mtx") {
            const int slot = command.integer("idx");
            require(slot >= 0 && slot < static_cast<int>(kSlots), command, "there is no slot ", slot);
            matrix_ = slots_.at(static_cast<std::size_t>(slot));
            normal_.reset();
        } else if (command.name == "tex") {
            const std::vector<double> st = command.reals("st", 2);
            texCoord_ = Imath::V2d(st[0], st[1]);
        } else if (command.name == "clr") {
            setColor(command, command.reals("rgb", 3));
        } else if (command.name == "clr_idx") {
            setColor(command, entry(command, tables_.colors));
        } else if (command.name == "nrm") {
            normal_ = vectorOf(command, "xyz");
        } else {
            move(command);
            return true;
        }
        return false;
    }

    DrawnVertex vertex(const FileElement& command) const {
        require(matrix_ != kUnknown, command, "a vertex on no known matrix");
        require(!polygon_.hasNormals || normal_.has_value(), command, "a vertex without its normal");
        require(!polygon_.hasColors || color_.has_value(), command, "a vertex without its colour");
        require(!polygon_.hasTexCoords || texCoord_.has_value(), command, "a vertex without its texture coordinate");
        DrawnVertex vertex;
        vertex.matrix = matrix_;
        vertex.position = position_.value_or(Imath::V3d(0.0)) * tables_.scale;
        vertex.normal = normal_;
        vertex.texCoord = texCoord_;
        vertex.color = color_;
        return vertex;
    }

private:
    // Three numbers of a table.
    static std::vector<double> entry(const FileElement& command, const std::vector<double>& table) {
        const int index = command.integer("idx");
        require(index >= 0 && static_cast<std::size_t>(index) < table.size() / 3, command, "there is no entry ", index);
        const auto first = table.begin() + std::ptrdiff_t{index} * 3;
        return {first, first + 3};
    }

    void setColor(const FileElement& command, const std::vector<double>& rgb) {
        std::array<int, 3> color{};
        for (std::size_t i = 0; i < color.size(); ++i) {
            require(rgb[i] >= 0.0 && rgb[i] <= kBrightest, command, "a colour that is not between 0 and ", kBrightest);
            color.at(i) = static_cast<int>(rgb[i]);
        }
        color_ = color;
        normal_.reset();
    }

    void move(const FileElement& command) {
        const Imath::V3d previous = position_.value_or(Imath::V3d(0.0));
        Imath::V3d next = previous;
        const std::string& name = command.name;
        const bool keepsAxis = name == "pos_xy" || name == "pos_xz" || name == "pos_yz";
        require(!(keepsAxis || name == "pos_diff") || position_.has_value(), command, "is relative to nothing");
        if (name == "pos_xyz" || name == "pos_s") {
            next = vectorOf(command, "xyz");
        } else if (name == "pos_diff") {
            next = previous + vectorOf(command, "xyz");
        } else if (name == "pos_idx") {
            const std::vector<double> xyz = entry(command, tables_.positions);
            next = Imath::V3d(xyz[0], xyz[1], xyz[2]);
        } else {
            require(keepsAxis, command, "is an unknown command");
            const std::string axes = name.substr(4);
            const std::vector<double> parts = command.reals(axes, 2);
            next[axes[0] - 'x'] = parts[0];
            next[axes[1] - 'x'] = parts[1];
        }
        position_ = next;
    }

    const PolygonTables& tables_;
    const DrawnPolygon& polygon_;
    std::array<int, kSlots> slots_{};
    int matrix_ = kUnknown;
    std::optional<Imath::V3d> position_, normal_;
    std::optional<Imath::V2d> texCoord_;
    std::optional<std::array<int, 3>> color_;
};

// Places of the corners of each face in what a primitive sends.
std::vector<std::vector<std::size_t>> facesOf(const FileElement& primitive, std::size_t count) {
    std::vector<std::vector<std::size_t>> faces;
    const std::string& type = primitive.value("type");
    const bool isStrip = type == "triangle_strip" || type == "quad_strip";
    const bool isQuad = type == "quads" || type == "quad_strip";
    require(isStrip || isQuad || type == "triangles", primitive, "is of unknown type ", excerpt(type));
    const std::size_t step = type == "triangle_strip" ? 1 : type == "quad_strip" ? 2 : isQuad ? 4 : 3;
    const std::size_t size = isQuad ? 4 : 3;
    require(count >= size && (count - size) % step == 0, primitive, count, " vertices make no whole number of faces");
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

void readPrimitive(const FileElement& primitive, Console& console, DrawnPolygon& polygon) {
    std::vector<DrawnVertex> sent;
    for (const FileElement& command : primitive.children) {
        if (console.run(command)) {
            sent.push_back(console.vertex(command));
        }
    }
    require(primitive.integer("vertex_size") == static_cast<int>(sent.size()), primitive, "vertex_size is ",
            primitive.integer("vertex_size"), ", but ", sent.size(), " vertices are sent");
    polygon.verticesSent += static_cast<int>(sent.size());
    polygon.primitiveTypes.push_back(primitive.value("type"));
    for (const auto& places : facesOf(primitive, sent.size())) {
        DrawnFace face;
        std::transform(places.begin(), places.end(), std::back_inserter(face),
                       [&](std::size_t place) { return sent[place]; });
        polygon.faces.push_back(std::move(face));
    }
}

void readGroup(const FileElement& group, Console& console, DrawnPolygon& polygon) {
    const FileElement& list = group.child("mtx_list");
    const std::vector<int> entries = list.countedIntegers("size");
    polygon.matricesLoaded +=
        static_cast<int>(std::count_if(entries.begin(), entries.end(), [](int entry) { return entry >= 0; }));
    polygon.matrixLists.push_back(entries);
    console.load(list, entries);
    for (const FileElement& primitive : group.child("primitive_array").countedChildren()) {
        readPrimitive(primitive, console, polygon);
    }
}

void checkCount(const FileElement& element, const char* name, std::size_t found) {
    require(element.integer(name) == static_cast<int>(found), element, name, " is ", element.integer(name),
            ", but there are ", found);
}

} // namespace

DrawnPolygon readPolygon(const FileElement& element, const PolygonTables& tables) {
    DrawnPolygon polygon;
    polygon.index = element.integer("index");
    polygon.name = element.value("name");
    polygon.hasNormals = element.isOn("nrm_flag");
    polygon.hasColors = element.isOn("clr_flag");
    polygon.hasTexCoords = element.isOn("tex_flag");
    polygon.volumeMin = vectorOf(element, "volume_min");
    polygon.volumeMax = vectorOf(element, "volume_max");
    polygon.volumeRadius = element.reals("volume_r", 1).front();
    checkCount(element, "mtx_prim_size", element.children.size());
    Console console(tables, polygon);
    for (const FileElement& group : element.children) {
        readGroup(group, console, polygon);
    }
    const auto quads = static_cast<std::size_t>(std::count_if(polygon.faces.begin(), polygon.faces.end(),
                                                              [](const DrawnFace& face) { return face.size() == 4; }));
    checkCount(element, "vertex_size", static_cast<std::size_t>(polygon.verticesSent));
    checkCount(element, "polygon_size", polygon.faces.size());
    checkCount(element, "quad_size", quads);
    checkCount(element, "triangle_size", polygon.faces.size() - quads);
    return polygon;
}

} // namespace decode
