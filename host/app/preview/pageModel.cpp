#include "host/app/preview/pageModel.h"

#include "decode/FileError.h"

#include <algorithm>
#include <array>
#include <map>
#include <tuple>

namespace host::app::preview {
namespace {

using decode::DrawnVertex;
using decode::ExportedFiles;
using decode::FileElement;

constexpr int kNoCorner = -1; // the fourth of a triangle

std::vector<double> numbersOf(const Imath::V3d& vector) {
    return {vector.x, vector.y, vector.z};
}

/// A primitive as the file has it.
struct SentPrimitive {
    std::string type;
    int group = 0;
    std::size_t faces = 0;
};

std::size_t faceCount(const std::string& type, std::size_t vertices) {
    if (type == "triangles") {
        return vertices / 3;
    }
    if (type == "quads") {
        return vertices / 4;
    }
    return type == "triangle_strip" ? vertices - 2 : vertices / 2 - 1;
}

std::vector<SentPrimitive> primitivesOf(const FileElement& polygon) {
    std::vector<SentPrimitive> primitives;
    int number = 0;
    for (const FileElement& group : polygon.children) {
        for (const FileElement& primitive : group.child("primitive_array").children) {
            const std::string& type = primitive.value("type");
            primitives.push_back(
                {type, number, faceCount(type, static_cast<std::size_t>(primitive.integer("vertex_size")))});
        }
        ++number;
    }
    return primitives;
}

/// The vertices of a polygon, each once for each primitive that sends it.
class PolygonArrays {
public:
    explicit PolygonArrays(const decode::DrawnPolygon& polygon) : polygon_(polygon) {}

    void add(const decode::DrawnFace& face, int primitive) {
        for (std::size_t corner = 0; corner < 4; ++corner) {
            faces_.push_back(corner < face.size() ? placeOf(face[corner], primitive) : kNoCorner);
        }
    }

    void write(JsonText& json) const {
        json.name("positions").packed(positions_).name("matrices").packed(matrices_);
        json.name("primitiveOfVertex").packed(primitives_).name("faces").packed(faces_);
        json.name("normals");
        polygon_.hasNormals ? json.packed(normals_) : json.null();
        json.name("colors");
        polygon_.hasColors ? json.packed(colors_) : json.null();
        json.name("texels");
        polygon_.hasTexCoords ? json.packed(texels_) : json.null();
    }

private:
    using Key = std::tuple<int, int, std::array<double, 8>, std::array<int, 3>>;

    std::int32_t placeOf(const DrawnVertex& vertex, int primitive) {
        const Imath::V3d normal = vertex.normal.value_or(Imath::V3d(0.0));
        const Imath::V2d texel = vertex.texCoord.value_or(Imath::V2d(0.0));
        const std::array<int, 3> color = vertex.color.value_or(std::array<int, 3>{});
        const Imath::V3d& at = vertex.position;
        const Key key{
            primitive, vertex.matrix, {at.x, at.y, at.z, normal.x, normal.y, normal.z, texel.x, texel.y}, color};
        const auto [found, isNew] = places_.try_emplace(key, static_cast<std::int32_t>(places_.size()));
        if (isNew) {
            append(at, positions_);
            append(normal, normals_);
            texels_.insert(texels_.end(), {static_cast<float>(texel.x), static_cast<float>(texel.y)});
            for (const int part : color) {
                colors_.push_back(static_cast<std::uint8_t>(part));
            }
            matrices_.push_back(vertex.matrix);
            primitives_.push_back(primitive);
        }
        return found->second;
    }

    static void append(const Imath::V3d& vector, std::vector<float>& array) {
        for (const double part : {vector.x, vector.y, vector.z}) {
            array.push_back(static_cast<float>(part));
        }
    }

    const decode::DrawnPolygon& polygon_;
    std::map<Key, std::int32_t> places_;
    std::vector<float> positions_, normals_, texels_;
    std::vector<std::uint8_t> colors_;
    std::vector<std::int32_t> matrices_, primitives_, faces_;
};

void writePolygon(const decode::DrawnPolygon& polygon, const FileElement& element, int priority, JsonText& json) {
    const std::vector<SentPrimitive> primitives = primitivesOf(element);
    PolygonArrays arrays(polygon);
    std::size_t face = 0;
    for (std::size_t number = 0; number < primitives.size(); ++number) {
        for (std::size_t i = 0; i < primitives[number].faces; ++i) {
            arrays.add(polygon.faces.at(face++), static_cast<int>(number));
        }
    }
    json.beginObject().name("name").text(polygon.name).name("node").number(polygon.node);
    json.name("material").number(polygon.material).name("priority").number(priority);
    arrays.write(json);
    json.name("primitives").beginArray();
    for (const SentPrimitive& primitive : primitives) {
        json.beginObject().name("type").word(primitive.type).name("group").number(primitive.group);
        json.name("faces").number(primitive.faces).endObject();
    }
    json.endArray().endObject();
}

/// Display priorities by polygon.
std::vector<int> prioritiesOf(const ExportedFiles& files, const FileElement& body) {
    std::vector<int> priorities(files.model->geometry.polygons.size(), 0);
    const FileElement* const nodes = body.find("node_array");
    for (std::size_t i = 0; nodes != nullptr && i < nodes->children.size(); ++i) {
        for (const FileElement& display : nodes->children[i].children) {
            priorities.at(static_cast<std::size_t>(display.integer("polygon"))) = display.integer("priority");
        }
    }
    return priorities;
}

void writeColors(const FileElement& material, JsonText& json) {
    for (const char* name : {"diffuse", "ambient", "specular", "emission"}) {
        json.name(name).numbers(material.reals(name, 3));
    }
}

std::vector<std::string> wordsOf(const std::string& text) {
    std::vector<std::string> words(1);
    for (const char letter : text) {
        if (letter == ' ') {
            words.emplace_back();
        } else {
            words.back() += letter;
        }
    }
    return words;
}

/// A word of a table that the page knows.
const std::string& wordFrom(const FileElement& element, const char* name, const std::vector<std::string>& table) {
    const std::string& word = element.value(name);
    decode::require(std::find(table.begin(), table.end(), word) != table.end(), element, name,
                    " is unknown: ", decode::excerpt(word));
    return word;
}

void writeTiling(const FileElement& material, JsonText& json) {
    const std::vector<std::string> words = wordsOf(material.value("tex_tiling"));
    const auto isKnown = [](const std::string& word) { return word == "clamp" || word == "repeat" || word == "flip"; };
    decode::require(words.size() == 2 && std::all_of(words.begin(), words.end(), isKnown), material,
                    "tex_tiling is unknown: ", decode::excerpt(material.value("tex_tiling")));
    json.name("tiling").beginArray().word(words[0]).word(words[1]).endArray();
}

void writeTexture(const FileElement& material, JsonText& json) {
    json.name("image").number(material.integer("tex_image_idx"));
    if (material.attribute("tex_tiling") == nullptr) {
        json.name("coordinates").word("none").name("centersCoordinates").boolean(false);
        json.name("effect").numbers(std::vector<double>(16, 0.0));
        return;
    }
    writeTiling(material, json);
    json.name("scale").numbers(material.reals("tex_scale", 2));
    json.name("rotate").number(material.reals("tex_rotate", 1).front());
    json.name("translate").numbers(material.reals("tex_translate", 2));
    const std::string& mode = wordFrom(material, "tex_gen_mode", {"none", "tex", "nrm", "pos"});
    const bool isGenerated = mode == "nrm" || mode == "pos";
    json.name("coordinates").word(mode);
    json.name("centersCoordinates").boolean(isGenerated && material.value("tex_gen_st_src") == "material");
    json.name("effect").numbers(isGenerated ? material.reals("tex_effect_mtx", 16) : std::vector<double>(16, 0.0));
}

void writeMaterial(const FileElement& material, JsonText& json) {
    json.beginObject().name("name").text(material.value("name"));
    json.name("lights").beginArray();
    for (const char* light : {"light0", "light1", "light2", "light3"}) {
        json.boolean(material.isOn(light));
    }
    json.endArray();
    json.name("face").word(wordFrom(material, "face", {"front", "back", "both"}));
    json.name("alpha").number(material.integer("alpha"));
    json.name("isWire").boolean(material.isOn("wire_mode"));
    json.name("mode").word(wordFrom(material, "polygon_mode", {"modulate", "decal", "toon_highlight", "shadow"}));
    json.name("decalsDepth").boolean(material.isOn("depth_test_decal"));
    json.name("writesTranslucentDepth").boolean(material.isOn("translucent_update_depth"));
    writeColors(material, json);
    writeTexture(material, json);
    json.endObject();
}

std::uint8_t eightBits(int component) {
    return static_cast<std::uint8_t>(component << 3 | component >> 2);
}

void writeImage(const decode::ModelTexture& image, JsonText& json) {
    std::vector<std::uint8_t> rgba;
    rgba.reserve(image.texels.size() * 4);
    bool isTranslucent = false;
    for (const decode::ShownTexel& texel : image.texels) {
        rgba.insert(rgba.end(), {eightBits(texel.r), eightBits(texel.g), eightBits(texel.b), eightBits(texel.a)});
        isTranslucent = isTranslucent || (texel.a > 0 && texel.a < 31);
    }
    json.beginObject().name("name").text(image.name).name("format").word(image.format);
    json.name("width").number(image.width).name("height").number(image.height);
    json.name("originalWidth").number(image.originalWidth).name("originalHeight").number(image.originalHeight);
    json.name("isTranslucent").boolean(isTranslucent).name("rgba").packed(rgba).endObject();
}

} // namespace

const FileElement* materialArray(const ExportedFiles& files) {
    return files.model->file.root.child("body").find("material_array");
}

void writeNodes(const ExportedFiles& files, JsonText& json) {
    json.beginArray();
    for (const decode::ModelNode& node : files.model->file.nodes) {
        json.beginObject().name("name").text(node.name).name("kind").text(node.kind);
        json.name("parent").number(node.parent).name("billboard").word(node.billboard);
        json.name("compensates").boolean(node.scaleCompensate.value_or(false));
        json.name("visible").boolean(node.visibility);
        json.name("scale").numbers(numbersOf(node.scale)).name("rotate").numbers(numbersOf(node.rotate));
        json.name("translate").numbers(numbersOf(node.translate)).endObject();
    }
    json.endArray();
}

void writeMatrices(const ExportedFiles& files, JsonText& json) {
    json.beginArray();
    for (const decode::DrawnMatrix& matrix : files.model->geometry.matrices) {
        json.beginArray();
        for (const auto& [node, weight] : matrix) {
            json.number(node).number(weight);
        }
        json.endArray();
    }
    json.endArray();
}

void writePolygons(const ExportedFiles& files, JsonText& json) {
    const FileElement& body = files.model->file.root.child("body");
    const std::vector<int> priorities = prioritiesOf(files, body);
    const FileElement* const materials = materialArray(files);
    const std::size_t materialCount = materials == nullptr ? 0 : materials->children.size();
    const FileElement& array = body.child("polygon_array");
    json.beginArray();
    for (std::size_t i = 0; i < files.model->geometry.polygons.size(); ++i) {
        const decode::DrawnPolygon& polygon = files.model->geometry.polygons[i];
        decode::require(polygon.material >= 0 && static_cast<std::size_t>(polygon.material) < materialCount,
                        array.children[i], "it is drawn with material ", polygon.material, " of ", materialCount);
        writePolygon(polygon, array.children[i], priorities[i], json);
    }
    json.endArray();
}

void writeMaterials(const ExportedFiles& files, JsonText& json) {
    json.beginArray();
    if (const FileElement* const array = materialArray(files)) {
        for (const FileElement& material : array->countedChildren()) {
            writeMaterial(material, json);
        }
    }
    json.endArray();
}

void writeImages(const ExportedFiles& files, JsonText& json) {
    json.beginArray();
    for (const decode::ModelTexture& image : files.textures.images) {
        writeImage(image, json);
    }
    json.endArray();
}

void writeNotes(const ExportedFiles& files, JsonText& json) {
    struct Note {
        const char *attribute, *value, *text;
    };
    static constexpr std::array<Note, 5> kNotes = {{
        {"light0", "on", "Lights are the game's. Here they are white and shine from fixed directions."},
        {"fog_flag", "on", "Fog, which is the game's."},
        {"polygon_mode", "toon_highlight", "Toon tables and highlights: drawn like modulate."},
        {"polygon_mode", "shadow", "Shadow volumes: drawn as dark glass."},
        {"shininess_table_flag", "on", "Shininess tables: highlights have the plain shape."},
    }};
    const FileElement* const array = materialArray(files);
    json.beginArray();
    for (const Note& note : kNotes) {
        const auto asksFor = [&](const FileElement& material) { return material.value(note.attribute) == note.value; };
        if (array != nullptr && std::any_of(array->children.begin(), array->children.end(), asksFor)) {
            json.word(note.text);
        }
    }
    json.endArray();
}

} // namespace host::app::preview
