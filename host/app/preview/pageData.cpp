#include "host/app/preview/pageData.h"

#include "host/app/preview/JsonText.h"
#include "host/app/preview/pageModel.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <string>
#include <unordered_map>

namespace host::app::preview {
namespace {

using decode::ExportedFiles;
using decode::FileElement;

constexpr double kSteps = 4096.0; // of a unit

/// What a file is, and what it means that it is not there.
struct KindWords {
    const char *title, *consequence;
};
constexpr std::array<KindWords, decode::kFileKinds.size()> kKindWords = {{
    {"Model", ""},
    {"Node animation", "Nodes and joints stand still in the model's pose."},
    {"Material animation", "Material colours do not change."},
    {"Texture patterns", "Each material keeps its image."},
    {"Visibility", "Nodes are shown or hidden as in the model."},
    {"Texture placement", "Textures do not move on their surfaces."},
}};

std::string counted(std::size_t count, const char* one, const char* many) {
    return std::to_string(count) + " " + (count == 1 ? one : many);
}

std::string framesText(const FileElement& info) {
    return counted(static_cast<std::size_t>(info.integer("frame_size")), "frame", "frames");
}

std::string motionFacts(const decode::AnimationFile& file, const char* one, const char* many) {
    const std::string& way = file.info->value("interpolation");
    return framesText(*file.info) + ", " + counted(file.things.size(), one, many) + ", " +
           (way == "key"      ? "curves"
            : way == "linear" ? "linear"
                              : "stepped");
}

std::string modelFacts(const ExportedFiles& files) {
    const FileElement* const materials = materialArray(files);
    return counted(files.model->file.nodes.size(), "node", "nodes") + ", " +
           counted(materials == nullptr ? 0 : materials->children.size(), "material", "materials") + ", " +
           counted(files.textures.images.size(), "texture", "textures");
}

/// A line about a file that is there.
std::string factsOf(const ExportedFiles& files, const std::string& kind) {
    if (kind == "imd") {
        return modelFacts(files);
    }
    if (kind == "ica") {
        return motionFacts(*files.nodes, "node", "nodes");
    }
    if (kind == "ima") {
        return motionFacts(*files.colors, "material", "materials");
    }
    if (kind == "itp") {
        return framesText(*files.patterns->info) + ", " +
               counted(files.patterns->entries.size(), "material", "materials");
    }
    if (kind == "iva") {
        return framesText(*files.visibilities->info) + ", " +
               counted(files.visibilities->nodes.size(), "node", "nodes");
    }
    return motionFacts(*files.placements, "material", "materials");
}

void writeFiles(const ExportedFiles& files, JsonText& json) {
    json.beginArray();
    for (std::size_t i = 0; i < kKindWords.size(); ++i) {
        const char* const kind = decode::kFileKinds.at(i).ending;
        const std::optional<std::uint64_t> bytes = files.bytesOf(kind);
        json.beginObject().name("kind").word(kind).name("title").word(kKindWords.at(i).title);
        json.name("isThere").boolean(bytes.has_value()).name("bytes").number(bytes.value_or(0));
        json.name("facts").text(bytes ? factsOf(files, kind) : "");
        json.name("consequence").word(kKindWords.at(i).consequence).endObject();
    }
    json.endArray();
}

std::string originOf(const FileElement& root) {
    const FileElement* const head = root.find("head");
    const FileElement* const create = head == nullptr ? nullptr : head->find("create");
    return create == nullptr ? "" : "from " + create->value("source") + ", " + create->value("date");
}

void writeTotals(const FileElement& body, JsonText& json) {
    const FileElement& info = body.child("output_info");
    json.beginObject().name("vertices").number(info.integer("vertex_size"));
    json.name("triangles").number(info.integer("triangle_size"));
    json.name("quads").number(info.integer("quad_size")).endObject();
}

struct Pool {
    const char *name, *element;
};

std::vector<std::int32_t> stepsOf(const std::vector<double>& printed, double unit) {
    std::vector<std::int32_t> steps;
    steps.reserve(printed.size());
    for (const double number : printed) {
        steps.push_back(static_cast<std::int32_t>(std::lround(number * unit)));
    }
    return steps;
}

// The pools of numbers, and step, size and head of every channel of every thing.
void writeMotion(const decode::AnimationFile& file, const std::vector<Pool>& pools, double unit, JsonText& json) {
    const std::string& filling = file.info->value("interpolation");
    json.name("filling").word(filling).name("frameCount").number(file.frameCount);
    json.name("pools").beginObject();
    for (const Pool& pool : pools) {
        const auto found = file.pools.find(pool.element);
        const double steps = filling == "key" ? kSteps : unit;
        json.name(pool.name).packed(found == file.pools.end() ? std::vector<std::int32_t>()
                                                              : stepsOf(found->second, steps));
    }
    json.endObject();
    std::vector<std::int32_t> channels;
    for (const decode::AnimatedThing& thing : file.things) {
        for (const auto& [word, channel] : thing.channels) {
            channels.insert(channels.end(), {channel.frameStep, channel.dataSize, channel.dataHead});
        }
    }
    json.name("channels").packed(channels);
}

using Places = std::unordered_map<std::string, std::size_t>;

/// Where each material of the model stands, by its name; the first of equal ones.
Places materialPlaces(const ExportedFiles& files) {
    Places places;
    if (const FileElement* const array = materialArray(files)) {
        std::size_t place = 0;
        for (const FileElement& material : array->children) {
            places.emplace(material.value("name"), place++);
        }
    }
    return places;
}

void writeNodeMotion(const ExportedFiles& files, JsonText& json) {
    if (!files.nodes || files.nodes->things.empty()) {
        json.null();
        return;
    }
    json.beginObject();
    writeMotion(*files.nodes,
                {{"scale", "node_scale_data"}, {"rotate", "node_rotate_data"}, {"translate", "node_translate_data"}},
                kSteps, json);
    json.endObject();
}

void writeMaterialMotion(const ExportedFiles& files, const std::optional<decode::AnimationFile>& file,
                         const std::vector<Pool>& pools, double unit, JsonText& json) {
    if (!file || file->things.empty()) {
        json.null();
        return;
    }
    json.beginObject().name("materials").beginArray();
    const Places places = materialPlaces(files);
    for (const decode::AnimatedThing& thing : file->things) {
        json.number(places.at(thing.materialName));
    }
    json.endArray();
    writeMotion(*file, pools, unit, json);
    json.endObject();
}

// Per node the frames at which its visibility changes, and to what.
void writeVisibility(const ExportedFiles& files, JsonText& json) {
    if (!files.visibilities) {
        json.null();
        return;
    }
    json.beginArray();
    for (const decode::VisibilityFile::Node& node : files.visibilities->nodes) {
        json.beginArray();
        for (const auto& [frame, value] : node.keys) {
            json.number(frame).number(value);
        }
        json.endArray();
    }
    json.endArray();
}

/// Where each image of the model stands, by its name; the first of equal ones.
Places imagePlaces(const ExportedFiles& files) {
    Places places;
    std::size_t place = 0;
    for (const decode::ModelTexture& image : files.textures.images) {
        places.emplace(image.name, place++);
    }
    return places;
}

// Per material the frames at which its image changes, and to which of the model's.
void writePatterns(const ExportedFiles& files, JsonText& json) {
    if (!files.patterns) {
        json.null();
        return;
    }
    json.beginArray();
    const Places materials = materialPlaces(files);
    const Places images = imagePlaces(files);
    for (const decode::PatternFile::Entry& entry : files.patterns->entries) {
        json.beginObject().name("material").number(materials.at(entry.materialName));
        json.name("keys").beginArray();
        for (const decode::PatternFile::Key& key : entry.keys) {
            const std::string& image = files.patterns->images.at(static_cast<std::size_t>(key.image));
            json.number(key.frame).number(images.at(image));
        }
        json.endArray().endObject();
    }
    json.endArray();
}

} // namespace

std::string pageData(const ExportedFiles& files) {
    JsonText json;
    // Without animation the model stands at its own frame.
    const ExportedFiles::Frames frames =
        files.frames ? *files.frames : ExportedFiles::Frames{1, files.model->file.info->integer("tool_start_frame")};
    json.beginObject().name("title").path(files.name()).name("origin").text(originOf(files.model->file.root));
    json.name("frames").beginObject().name("count").number(frames.count);
    json.name("first").number(frames.first).endObject();
    writeFiles(files, json.name("files"));
    writeTotals(files.model->file.root.child("body"), json.name("totals"));
    writeNodes(files, json.name("nodes"));
    writeMatrices(files, json.name("matrices"));
    writePolygons(files, json.name("polygons"));
    writeMaterials(files, json.name("materials"));
    writeImages(files, json.name("images"));
    writeNotes(files, json.name("notes"));
    writeNodeMotion(files, json.name("nodeMotion"));
    writeMaterialMotion(files, files.colors, {{"color", "mat_color_data"}}, 1.0, json.name("colorMotion"));
    writeMaterialMotion(
        files, files.placements,
        {{"scale", "tex_scale_data"}, {"rotate", "tex_rotate_data"}, {"translate", "tex_translate_data"}}, kSteps,
        json.name("placementMotion"));
    writeVisibility(files, json.name("visibility"));
    writePatterns(files, json.name("patterns"));
    return json.endObject().written();
}

} // namespace host::app::preview
