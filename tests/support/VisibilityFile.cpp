#include "VisibilityFile.h"

#include <gtest/gtest.h>

namespace tvk {
namespace {

std::vector<double> readBlock(const FileElement& data, const char* name) {
    const FileElement* const block = data.find(name);
    if (block == nullptr) {
        ADD_FAILURE() << "no " << name;
        return {};
    }
    const std::vector<double> numbers = readNumbers(block->text);
    EXPECT_EQ(block->integer("size"), static_cast<int>(numbers.size())) << name;
    return numbers;
}

std::vector<std::pair<int, int>> readPool(const FileElement& body) {
    const FileElement* const data = body.find("visibility_data");
    if (data == nullptr) {
        return {};
    }
    const std::vector<double> frames = readBlock(*data, "frame_idx");
    const std::vector<double> values = readBlock(*data, "visibility");
    EXPECT_EQ(frames.size(), values.size());
    std::vector<std::pair<int, int>> pool;
    for (std::size_t i = 0; i < frames.size() && i < values.size(); ++i) {
        pool.emplace_back(static_cast<int>(frames[i]), static_cast<int>(values[i]));
    }
    return pool;
}

void checkKeys(const std::vector<std::pair<int, int>>& keys, int frameCount) {
    for (std::size_t i = 0; i < keys.size(); ++i) {
        EXPECT_TRUE(keys[i].second == 0 || keys[i].second == 1) << keys[i].second;
        if (i == 0) {
            EXPECT_EQ(keys[i].first, 0);
        } else {
            EXPECT_GT(keys[i].first, keys[i - 1].first);
            EXPECT_NE(keys[i].second, keys[i - 1].second) << "a key that changes nothing";
        }
        EXPECT_LT(keys[i].first, frameCount);
    }
}

VisibilityFile::Node readNode(const FileElement& element, const std::vector<std::pair<int, int>>& pool,
                              int frameCount) {
    VisibilityFile::Node node;
    node.dataSize = element.integer("data_size");
    node.dataHead = element.integer("data_head");
    EXPECT_EQ(element.attributeNames(), (std::vector<std::string>{"index", "data_size", "data_head"}));
    const auto size = static_cast<int>(pool.size());
    if (node.dataSize < 1 || node.dataHead < 0 || node.dataHead > size - node.dataSize) {
        ADD_FAILURE() << "keys " << node.dataHead << " + " << node.dataSize << " of " << size;
        return node;
    }
    node.keys.assign(pool.begin() + node.dataHead, pool.begin() + node.dataHead + node.dataSize);
    checkKeys(node.keys, frameCount);
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
    EXPECT_EQ(file.root.name, "iva");
    const FileElement* const body = file.root.find("body");
    file.info = body == nullptr ? nullptr : body->find("visibility_info");
    if (file.info == nullptr) {
        ADD_FAILURE() << "no body with a visibility_info";
        return file;
    }
    const FileElement* const array = body->find("visibility_anm_array");
    if (array == nullptr) {
        return file;
    }
    const std::vector<std::pair<int, int>> pool = readPool(*body);
    EXPECT_EQ(array->integer("size"), static_cast<int>(array->children.size()));
    for (const FileElement& element : array->children) {
        EXPECT_EQ(element.integer("index"), static_cast<int>(file.nodes.size()));
        file.nodes.push_back(readNode(element, pool, file.info->integer("frame_size")));
    }
    return file;
}

} // namespace tvk
