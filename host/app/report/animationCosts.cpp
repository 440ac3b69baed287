#include "host/app/report/animationCosts.h"

#include <algorithm>

namespace host::app::report {

namespace {

constexpr std::size_t kNumbersOfKey = 4; // frame, value, slope in, slope out

/// Which pool the channels take their data from whose word begins so.
struct PoolOfChannels {
    const char* kind;
    const char* wordBegin;
    const char* pool;
};
constexpr PoolOfChannels kPools[] = {
    {"ica", "scale_", "node_scale_data"},
    {"ica", "rotate_", "node_rotate_data"},
    {"ica", "translate_", "node_translate_data"},
    {"ima", "", "mat_color_data"},
    {"ita", "tex_scale_", "tex_scale_data"},
    {"ita", "tex_rotate", "tex_rotate_data"},
    {"ita", "tex_translate_", "tex_translate_data"},
};

std::int64_t count(std::size_t size) {
    return static_cast<std::int64_t>(size);
}

template <typename Value>
bool isMoving(const std::vector<Value>& frames) {
    return std::any_of(frames.begin(), frames.end(), [&](const Value& value) { return value != frames.front(); });
}

template <typename Value>
void addChannel(int dataSize, const std::vector<Value>& frames, PoolCosts& pool) {
    pool.channels += 1;
    pool.moving += isMoving(frames) ? 1 : 0;
    pool.withoutSharing += dataSize;
}

PoolCosts costsOf(const decode::AnimationFile& file, const PoolOfChannels& row) {
    const bool hasKeys = file.info->value("interpolation") == "key";
    PoolCosts pool;
    pool.name = row.pool;
    pool.unit = hasKeys ? "keys" : "values";
    if (const auto values = file.pools.find(row.pool); values != file.pools.end()) {
        pool.stored = count(values->second.size() / (hasKeys ? kNumbersOfKey : 1));
    }
    const std::string begin = row.wordBegin;
    for (const decode::AnimatedThing& thing : file.things) {
        for (const auto& [word, channel] : thing.channels) {
            if (word.compare(0, begin.size(), begin) == 0) {
                addChannel(channel.dataSize, channel.frames, pool);
            }
        }
    }
    return pool;
}

AnimationCosts costsOf(const decode::AnimationFile& file, const char* kind) {
    AnimationCosts costs{kind, file.frameCount, {}};
    for (const PoolOfChannels& row : kPools) {
        if (kind == std::string(row.kind) && !file.things.empty()) {
            costs.pools.push_back(costsOf(file, row));
        }
    }
    return costs;
}

/// Keys in the pool of a file that counts them in a block of their frames.
std::int64_t storedKeys(const decode::FileElement& root, const char* data) {
    const decode::FileElement* const body = root.find("body");
    const decode::FileElement* const pool = body == nullptr ? nullptr : body->find(data);
    const decode::FileElement* const frames = pool == nullptr ? nullptr : pool->find("frame_idx");
    return frames == nullptr ? 0 : frames->integer("size");
}

/// What the keys of things of one kind cost.
///   frames   the thing's member with the value of every frame
template <typename Thing, typename Frames>
AnimationCosts costsOfKeys(const char* kind, const decode::FileElement& root, const char* data,
                           const std::vector<Thing>& things, Frames Thing::*frames, int frameCount) {
    AnimationCosts costs{kind, frameCount, {}};
    if (!things.empty()) {
        PoolCosts pool;
        pool.name = data;
        pool.unit = "keys";
        pool.stored = storedKeys(root, data);
        for (const Thing& thing : things) {
            addChannel(thing.dataSize, thing.*frames, pool);
        }
        costs.pools.push_back(pool);
    }
    return costs;
}

AnimationCosts costsOf(const decode::PatternFile& file) {
    return costsOfKeys("itp", file.root, "tex_pattern_data", file.entries, &decode::PatternFile::Entry::images,
                       file.info->integer("frame_size"));
}

AnimationCosts costsOf(const decode::VisibilityFile& file) {
    return costsOfKeys("iva", file.root, "visibility_data", file.nodes, &decode::VisibilityFile::Node::frames,
                       file.info->integer("frame_size"));
}

} // namespace

std::vector<AnimationCosts> costsOfAnimations(const ExportedFiles& files) {
    std::vector<AnimationCosts> all;
    if (files.nodes) {
        all.push_back(costsOf(*files.nodes, "ica"));
    }
    if (files.colors) {
        all.push_back(costsOf(*files.colors, "ima"));
    }
    if (files.patterns) {
        all.push_back(costsOf(*files.patterns));
    }
    if (files.visibilities) {
        all.push_back(costsOf(*files.visibilities));
    }
    if (files.placements) {
        all.push_back(costsOf(*files.placements, "ita"));
    }
    return all;
}

} // namespace host::app::report
