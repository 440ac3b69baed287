#include "decode/AnimationFile.h"

#include "decode/FileError.h"
#include "decode/PlayedFrames.h"
#include "decode/channelPlayback.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace decode {
namespace {

struct ChannelWord {
    const char* word;
    const char* pool;
    bool isAngle = false;
};

/// What the three kinds differ in.
struct FileKind {
    const char* root;
    const char* info;
    const char* thing; // in an array of the same name and "_array"
    bool hasIntegers;  // values are not in 1/4096, except as curves
    bool namesMaterial;
    std::vector<ChannelWord> channels;
};

const std::array<FileKind, 3>& fileKinds() {
    static const std::array<FileKind, 3> kinds{{
        {"ica",
         "node_anm_info",
         "node_anm",
         false,
         false,
         {{"scale_x", "node_scale_data"},
          {"scale_y", "node_scale_data"},
          {"scale_z", "node_scale_data"},
          {"rotate_x", "node_rotate_data", true},
          {"rotate_y", "node_rotate_data", true},
          {"rotate_z", "node_rotate_data", true},
          {"translate_x", "node_translate_data"},
          {"translate_y", "node_translate_data"},
          {"translate_z", "node_translate_data"}}},
        {"ima",
         "mat_color_info",
         "mat_color_anm",
         true,
         true,
         {{"diffuse_r", "mat_color_data"},
          {"diffuse_g", "mat_color_data"},
          {"diffuse_b", "mat_color_data"},
          {"ambient_r", "mat_color_data"},
          {"ambient_g", "mat_color_data"},
          {"ambient_b", "mat_color_data"},
          {"specular_r", "mat_color_data"},
          {"specular_g", "mat_color_data"},
          {"specular_b", "mat_color_data"},
          {"emission_r", "mat_color_data"},
          {"emission_g", "mat_color_data"},
          {"emission_b", "mat_color_data"},
          {"polygon_alpha", "mat_color_data"}}},
        {"ita",
         "tex_srt_info",
         "tex_srt_anm",
         false,
         true,
         {{"tex_scale_s", "tex_scale_data"},
          {"tex_scale_t", "tex_scale_data"},
          {"tex_rotate", "tex_rotate_data", true},
          {"tex_translate_s", "tex_translate_data"},
          {"tex_translate_t", "tex_translate_data"}}},
    }};
    return kinds;
}

class Reader {
public:
    Reader(AnimationFile& file, const FileElement& body, const FileKind& kind, PlayedFrames& played)
        : file_(file), body_(body), kind_(kind), played_(played) {}

    void read() {
        readRule();
        for (const ChannelWord& channel : kind_.channels) {
            readPool(channel.pool);
        }
        if (const FileElement* const array = body_.find(std::string(kind_.thing) + "_array")) {
            for (const FileElement& element : array->countedChildren()) {
                readThing(element);
            }
        }
    }

private:
    void readRule() {
        const std::string& word = file_.info->value("interpolation");
        require(word == "frame" || word == "linear" || word == "key", *file_.info,
                "an unknown interpolation: ", excerpt(word));
        rule_.frameCount = file_.frameCount;
        rule_.filling = word == "key" ? Filling::kCurve : word == "linear" ? Filling::kMixed : Filling::kHeld;
        const bool hasEnd = file_.info->attribute("interp_end_to_start") != nullptr;
        require(hasEnd == (word != "frame"), *file_.info, "interp_end_to_start with frames, or without it with others");
        rule_.loops = hasEnd && file_.info->isOn("interp_end_to_start");
    }

    double unit() const { return kind_.hasIntegers && rule_.filling != Filling::kCurve ? 1.0 : 4096.0; }

    void readPool(const std::string& name) {
        const FileElement* const element = body_.find(name);
        if (element == nullptr || file_.pools.count(name) != 0) {
            return;
        }
        const std::vector<double>& printed = file_.pools[name] = element->countedNumbers("size");
        std::vector<int32_t>& stored = stored_[name];
        for (const double number : printed) {
            const double steps = number * unit();
            require(std::abs(steps) <= kLargestSteps, *element, "a number of more than 32 bits");
            require(std::abs(steps - std::round(steps)) <= kPrintedError, *element,
                    "a number between the steps of its values");
            stored.push_back(static_cast<int32_t>(std::lround(steps)));
        }
    }

    void readThing(const FileElement& element) {
        AnimatedThing thing;
        require(element.name == kind_.thing, element, "should be ", kind_.thing);
        thing.index = element.integer("index");
        if (kind_.namesMaterial) {
            thing.materialName = element.value("material_name");
        }
        require(element.children.size() == kind_.channels.size(), element, element.children.size(),
                " channels instead of ", kind_.channels.size());
        for (std::size_t i = 0; i < kind_.channels.size(); ++i) {
            const ChannelWord& word = kind_.channels[i];
            require(element.children[i].name == word.word, element.children[i], "should be ", word.word);
            thing.channels.emplace_back(word.word, readChannel(element.children[i], word));
        }
        file_.things.push_back(std::move(thing));
    }

    AnimatedChannel readChannel(const FileElement& element, const ChannelWord& word) {
        static const std::vector<std::string> kAttributes{"frame_step", "data_size", "data_head"};
        require(element.attributeNames() == kAttributes, element,
                "has other attributes than frame_step, data_size and data_head");
        AnimatedChannel channel;
        channel.frameStep = element.integer("frame_step");
        channel.dataSize = element.integer("data_size");
        channel.dataHead = element.integer("data_head");
        PlaybackRule rule = rule_;
        rule.isAngle = word.isAngle;
        rule.frameStep = channel.frameStep;
        const std::vector<int32_t>& pool = stored_[word.pool];
        const int perPlace = rule.filling == Filling::kCurve ? 4 : 1;
        const int64_t first = int64_t{channel.dataHead} * perPlace;
        const int64_t count = int64_t{channel.dataSize} * perPlace;
        require(first >= 0 && count >= 1 && first + count <= static_cast<int64_t>(pool.size()), element, "the values ",
                first, " to ", first + count, " are not there");
        played_.add(element);
        // A curve has no more keys than frames, and one behind them: what many channels share is not read without end.
        require(channel.dataSize <= int64_t{rule.frameCount} + 1, element, "more values than frames");
        const std::vector<int32_t> data(pool.begin() + first, pool.begin() + first + count);
        try {
            channel.frames = played(data, rule);
        } catch (const FileError& error) {
            throw FileError(element, error.what());
        }
        std::for_each(channel.frames.begin(), channel.frames.end(), [this](double& value) { value /= unit(); });
        return channel;
    }

    // Six decimals of a number in steps of 1/4096.
    static constexpr double kPrintedError = 0.01;
    static constexpr double kLargestSteps = 2147483647.0;

    AnimationFile& file_;
    const FileElement& body_;
    const FileKind& kind_;
    PlayedFrames& played_;
    PlaybackRule rule_;
    std::map<std::string, std::vector<int32_t>> stored_; // the pools in steps
};

} // namespace

const AnimatedChannel& AnimatedThing::channel(std::string_view word) const {
    const auto found =
        std::find_if(channels.begin(), channels.end(), [&](const auto& channel) { return channel.first == word; });
    if (found == channels.end()) {
        throw FileError("there is no channel " + excerpt(word));
    }
    return found->second;
}

Imath::V3d AnimatedThing::vectorAt(const std::string& word, std::size_t frame) const {
    Imath::V3d result(0.0);
    for (int axis = 0; axis < 3; ++axis) {
        const AnimatedChannel& part = channel(word + "xyz"[axis]);
        if (frame >= part.frames.size()) {
            throw FileError("there is no frame " + std::to_string(frame) + " of " + excerpt(word));
        }
        result[axis] = part.frames[frame];
    }
    return result;
}

const AnimatedThing& AnimationFile::thing(int index) const {
    if (index < 0 || index >= static_cast<int>(things.size())) {
        throw FileError("nothing of index " + std::to_string(index) + " is animated");
    }
    return things[static_cast<std::size_t>(index)];
}

const AnimatedThing& AnimationFile::of(std::string_view materialName) const {
    const auto found = std::find_if(things.begin(), things.end(),
                                    [&](const AnimatedThing& thing) { return thing.materialName == materialName; });
    if (found == things.end()) {
        throw FileError("nothing of material " + excerpt(materialName) + " is animated");
    }
    return *found;
}

AnimationFile readAnimationFile(std::string_view text) {
    AnimationFile file;
    file.root = readIntermediateFile(text);
    const auto kind = std::find_if(fileKinds().begin(), fileKinds().end(),
                                   [&](const FileKind& row) { return file.root.name == row.root; });
    require(kind != fileKinds().end(), file.root, "is no animation of nodes, material colours or texture placements");
    const FileElement& body = file.root.child("body");
    file.info = &body.child(kind->info);
    PlayedFrames played(*file.info, text);
    file.frameCount = played.frameCount();
    Reader(file, body, *kind, played).read();
    return file;
}

std::vector<ModelNode> posed(const ModelFile& model, const AnimationFile& nodes, std::size_t frame) {
    if (nodes.things.size() != model.nodes.size()) {
        throw FileError(std::to_string(nodes.things.size()) + " animated nodes for a model of " +
                        std::to_string(model.nodes.size()));
    }
    std::vector<ModelNode> result = model.nodes;
    for (ModelNode& node : result) {
        const AnimatedThing& thing = nodes.thing(node.index);
        node.scale = thing.vectorAt("scale_", frame);
        node.rotate = thing.vectorAt("rotate_", frame);
        node.translate = thing.vectorAt("translate_", frame);
    }
    buildMatrices(result);
    return result;
}

} // namespace decode
