#include "decode/VisibilityFile.h"

#include "decode/FileError.h"
#include "decode/PlayedFrames.h"

namespace decode {
namespace {

using Keys = std::vector<std::pair<int, int>>;

Keys readPool(const FileElement& body) {
    const FileElement* const data = body.find("visibility_data");
    if (data == nullptr) {
        return {};
    }
    const std::vector<int> frames = data->child("frame_idx").countedIntegers("size");
    const std::vector<int> values = data->child("visibility").countedIntegers("size");
    require(frames.size() == values.size(), *data, frames.size(), " frames of ", values.size(), " values");
    Keys pool;
    for (std::size_t i = 0; i < frames.size(); ++i) {
        pool.emplace_back(frames[i], values[i]);
    }
    return pool;
}

void checkKeys(const FileElement& element, const Keys& keys, int frameCount) {
    require(keys.front().first == 0, element, "its first key is at frame ", keys.front().first);
    require(keys.back().first < frameCount, element, "a key at frame ", keys.back().first, " of ", frameCount);
    for (std::size_t i = 0; i < keys.size(); ++i) {
        const auto [frame, value] = keys[i];
        require(value == 0 || value == 1, element, "a visibility of ", value);
        require(i == 0 || frame > keys[i - 1].first, element, "a key at frame ", frame, " that does not ascend");
        require(i == 0 || value != keys[i - 1].second, element, "a key at frame ", frame, " that changes nothing");
    }
}

VisibilityFile::Node readNode(const FileElement& element, const Keys& pool, int frameCount) {
    static const std::vector<std::string> kAttributes{"index", "data_size", "data_head"};
    VisibilityFile::Node node;
    node.dataSize = element.integer("data_size");
    node.dataHead = element.integer("data_head");
    require(element.attributeNames() == kAttributes, element,
            "has other attributes than index, data_size and data_head");
    const auto size = static_cast<int>(pool.size());
    require(node.dataSize >= 1 && node.dataHead >= 0 && node.dataHead <= size - node.dataSize, element, "keys ",
            node.dataHead, " + ", node.dataSize, " of ", size);
    require(node.dataSize <= frameCount, element, "more keys than frames");
    node.keys.assign(pool.begin() + node.dataHead, pool.begin() + node.dataHead + node.dataSize);
    checkKeys(element, node.keys, frameCount);
    std::size_t key = 0;
    for (int frame = 0; frame < frameCount; ++frame) {
        if (key + 1 < node.keys.size() && node.keys[key + 1].first == frame) {
            ++key;
        }
        node.frames.push_back(node.keys[key].second);
    }
    return node;
}

} // namespace

VisibilityFile readVisibilityFile(std::string_view text) {
    VisibilityFile file;
    file.root = readIntermediateFile(text);
    require(file.root.name == "iva", file.root, "is no animation of visibilities");
    const FileElement& body = file.root.child("body");
    file.info = &body.child("visibility_info");
    PlayedFrames played(*file.info, text);
    const FileElement* const array = body.find("visibility_anm_array");
    if (array == nullptr) {
        return file;
    }
    const Keys pool = readPool(body);
    for (const FileElement& element : array->countedChildren()) {
        played.add(element);
        file.nodes.push_back(readNode(element, pool, played.frameCount()));
    }
    return file;
}

} // namespace decode
