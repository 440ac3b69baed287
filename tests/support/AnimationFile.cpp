#include "AnimationFile.h"

#include "channelPlayback.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace tvk {
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
    Reader(AnimationFile& file, const FileElement& body, const FileKind& kind) : file_(file), body_(body), kind_(kind) {
        readRule();
        for (const ChannelWord& channel : kind.channels) {
            readPool(channel.pool);
        }
        const std::string arrayName = std::string(kind.thing) + "_array";
        if (const FileElement* const array = body.find(arrayName)) {
            EXPECT_EQ(array->integer("size"), static_cast<int>(array->children.size())) << arrayName;
            std::for_each(array->children.begin(), array->children.end(),
                          [this](const FileElement& element) { readThing(element); });
        }
    }

private:
    void readRule() {
        const std::string word = file_.info->value("interpolation");
        EXPECT_TRUE(word == "frame" || word == "linear" || word == "key") << word;
        rule_.frameCount = file_.frameCount;
        rule_.filling = word == "key" ? Filling::kCurve : word == "linear" ? Filling::kMixed : Filling::kHeld;
        const std::string* const loops = file_.info->attribute("interp_end_to_start");
        EXPECT_EQ(loops == nullptr, word == "frame");
        rule_.loops = loops != nullptr && *loops == "on";
    }

    double unit() const { return kind_.hasIntegers && rule_.filling != Filling::kCurve ? 1.0 : 4096.0; }

    void readPool(const std::string& name) {
        const FileElement* const element = body_.find(name);
        if (element == nullptr || file_.pools.count(name) != 0) {
            return;
        }
        std::vector<double>& printed = file_.pools[name];
        printed = readNumbers(element->text);
        EXPECT_EQ(element->integer("size"), static_cast<int>(printed.size())) << name;
        std::vector<int32_t>& stored = stored_[name];
        for (const double number : printed) {
            const double steps = number * unit();
            EXPECT_NEAR(steps, std::round(steps), 0.01) << name;
            stored.push_back(static_cast<int32_t>(std::lround(steps)));
        }
    }

    void readThing(const FileElement& element) {
        AnimatedThing thing;
        EXPECT_EQ(element.name, kind_.thing);
        thing.index = element.integer("index");
        EXPECT_EQ(thing.index, static_cast<int>(file_.things.size()));
        if (kind_.namesMaterial) {
            thing.materialName = element.value("material_name");
        }
        if (element.children.size() != kind_.channels.size()) {
            ADD_FAILURE() << element.children.size() << " channels";
            return;
        }
        for (std::size_t i = 0; i < kind_.channels.size(); ++i) {
            EXPECT_EQ(element.children[i].name, kind_.channels[i].word);
            thing.channels.emplace_back(kind_.channels[i].word, readChannel(element.children[i], kind_.channels[i]));
        }
        file_.things.push_back(std::move(thing));
    }

    AnimatedChannel readChannel(const FileElement& element, const ChannelWord& word) {
        EXPECT_EQ(element.attributeNames(), (std::vector<std::string>{"frame_step", "data_size", "data_head"}));
        AnimatedChannel channel;
        channel.frameStep = element.integer("frame_step");
        channel.dataSize = element.integer("data_size");
        channel.dataHead = element.integer("data_head");
        PlaybackRule rule = rule_;
        rule.isAngle = word.isAngle;
        rule.frameStep = channel.frameStep;
        const std::vector<int32_t>& pool = stored_[word.pool];
        const int perPlace = rule.filling == Filling::kCurve ? 4 : 1;
        const int64_t first = static_cast<int64_t>(channel.dataHead) * perPlace;
        const int64_t count = static_cast<int64_t>(channel.dataSize) * perPlace;
        if (first < 0 || count < 1 || first + count > static_cast<int64_t>(pool.size())) {
            ADD_FAILURE() << element.name << ": " << first << " + " << count << " of " << pool.size();
            return channel;
        }
        const std::vector<int32_t> data(pool.begin() + first, pool.begin() + first + count);
        for (const double value : played(data, rule)) {
            channel.frames.push_back(value / unit());
        }
        return channel;
    }

    AnimationFile& file_;
    const FileElement& body_;
    const FileKind& kind_;
    PlaybackRule rule_;
    std::map<std::string, std::vector<int32_t>> stored_; // the pools in steps
};

} // namespace

const AnimatedChannel& AnimatedThing::channel(std::string_view word) const {
    static const AnimatedChannel none;
    const auto found =
        std::find_if(channels.begin(), channels.end(), [&](const auto& channel) { return channel.first == word; });
    EXPECT_NE(found, channels.end()) << "no channel " << word;
    return found == channels.end() ? none : found->second;
}

Imath::V3d AnimatedThing::vectorAt(const std::string& word, std::size_t frame) const {
    Imath::V3d result(0.0);
    for (int axis = 0; axis < 3; ++axis) {
        const AnimatedChannel& part = channel(word + "xyz"[axis]);
        EXPECT_LT(frame, part.frames.size()) << word;
        result[axis] = frame < part.frames.size() ? part.frames[frame] : 0.0;
    }
    return result;
}

const AnimatedThing& AnimationFile::thing(int index) const {
    static const AnimatedThing none;
    const bool isThere = index >= 0 && index < static_cast<int>(things.size());
    EXPECT_TRUE(isThere) << "nothing of index " << index;
    return isThere ? things[static_cast<std::size_t>(index)] : none;
}

const AnimatedThing& AnimationFile::of(std::string_view materialName) const {
    static const AnimatedThing none;
    const auto found = std::find_if(things.begin(), things.end(),
                                    [&](const AnimatedThing& thing) { return thing.materialName == materialName; });
    EXPECT_NE(found, things.end()) << "nothing of " << materialName;
    return found == things.end() ? none : *found;
}

AnimationFile readAnimationFile(std::string_view text) {
    AnimationFile file;
    file.root = readIntermediateFile(text);
    const auto kind = std::find_if(fileKinds().begin(), fileKinds().end(),
                                   [&](const FileKind& row) { return file.root.name == row.root; });
    const FileElement* const body = file.root.find("body");
    file.info = kind == fileKinds().end() || body == nullptr ? nullptr : body->find(kind->info);
    if (file.info == nullptr) {
        ADD_FAILURE() << "no body with an info: " << file.root.name;
        return file;
    }
    file.frameCount = file.info->integer("frame_size");
    Reader(file, *body, *kind);
    return file;
}

std::vector<ModelNode> posed(const ModelFile& model, const AnimationFile& nodes, std::size_t frame) {
    std::vector<ModelNode> result = model.nodes;
    EXPECT_EQ(nodes.things.size(), model.nodes.size());
    for (ModelNode& node : result) {
        const AnimatedThing& thing = nodes.thing(node.index);
        node.scale = thing.vectorAt("scale_", frame);
        node.rotate = thing.vectorAt("rotate_", frame);
        node.translate = thing.vectorAt("translate_", frame);
    }
    buildMatrices(result);
    return result;
}

} // namespace tvk
