#include "PatternFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace tvk {
namespace {

std::vector<int> readBlock(const FileElement& data, const char* name) {
    const FileElement* const block = data.find(name);
    if (block == nullptr) {
        ADD_FAILURE() << "no " << name;
        return {};
    }
    std::vector<int> numbers;
    for (const double number : readNumbers(block->text)) {
        numbers.push_back(static_cast<int>(number));
    }
    EXPECT_EQ(block->integer("size"), static_cast<int>(numbers.size())) << name;
    return numbers;
}

std::vector<PatternFile::Key> readPool(const FileElement& data) {
    const std::vector<int> frames = readBlock(data, "frame_idx");
    const std::vector<int> images = readBlock(data, "image_idx");
    const std::vector<int> palettes = readBlock(data, "palette_idx");
    EXPECT_EQ(frames.size(), images.size());
    EXPECT_EQ(frames.size(), palettes.size());
    std::vector<PatternFile::Key> pool;
    for (std::size_t i = 0; i < std::min({frames.size(), images.size(), palettes.size()}); ++i) {
        pool.push_back({frames[i], images[i], palettes[i]});
    }
    return pool;
}

std::vector<std::string> readNames(const FileElement& list, const char* name, const char* sizeName) {
    std::vector<std::string> names;
    for (const FileElement& element : list.children) {
        if (element.name == name) {
            EXPECT_EQ(element.integer("index"), static_cast<int>(names.size())) << name;
            names.push_back(element.value("name"));
        }
    }
    EXPECT_EQ(list.integer(sizeName), static_cast<int>(names.size()));
    return names;
}

void checkKeys(const PatternFile::Entry& entry, const PatternFile& file, int frameCount) {
    for (std::size_t i = 0; i < entry.keys.size(); ++i) {
        const PatternFile::Key& key = entry.keys[i];
        EXPECT_TRUE(key.image >= 0 && key.image < static_cast<int>(file.images.size())) << key.image;
        EXPECT_TRUE(key.palette >= -1 && key.palette < static_cast<int>(file.palettes.size())) << key.palette;
        EXPECT_LT(key.frame, frameCount);
        EXPECT_TRUE(i == 0 ? key.frame == 0 : key.frame > entry.keys[i - 1].frame) << key.frame;
    }
}

void play(PatternFile::Entry& entry, const PatternFile& file, int frameCount) {
    std::size_t key = 0;
    for (int frame = 0; frame < frameCount; ++frame) {
        if (key + 1 < entry.keys.size() && entry.keys[key + 1].frame == frame) {
            ++key;
        }
        const int image = entry.keys[key].image;
        const bool isThere = image >= 0 && image < static_cast<int>(file.images.size());
        entry.images.push_back(isThere ? file.images[static_cast<std::size_t>(image)] : std::string());
    }
}

PatternFile::Entry readEntry(const FileElement& element, const std::vector<PatternFile::Key>& pool,
                             const PatternFile& file) {
    PatternFile::Entry entry;
    EXPECT_EQ(element.attributeNames(), (std::vector<std::string>{"index", "material_name", "data_size", "data_head"}));
    entry.materialName = element.value("material_name");
    entry.dataSize = element.integer("data_size");
    entry.dataHead = element.integer("data_head");
    const auto size = static_cast<int>(pool.size());
    if (entry.dataSize < 1 || entry.dataHead < 0 || entry.dataHead > size - entry.dataSize) {
        ADD_FAILURE() << "keys " << entry.dataHead << " + " << entry.dataSize << " of " << size;
        return entry;
    }
    entry.keys.assign(pool.begin() + entry.dataHead, pool.begin() + entry.dataHead + entry.dataSize);
    const int frameCount = file.info->integer("frame_size");
    checkKeys(entry, file, frameCount);
    play(entry, file, frameCount);
    return entry;
}

void checkEveryNameIsShown(const PatternFile& file) {
    std::set<int> images;
    std::set<int> palettes;
    for (const PatternFile::Entry& entry : file.entries) {
        for (const PatternFile::Key& key : entry.keys) {
            images.insert(key.image);
            palettes.insert(key.palette);
        }
    }
    palettes.erase(-1);
    EXPECT_EQ(images.size(), file.images.size());
    EXPECT_EQ(palettes.size(), file.palettes.size());
}

} // namespace

const PatternFile::Entry& PatternFile::of(std::string_view materialName) const {
    static const Entry none;
    const auto found = std::find_if(entries.begin(), entries.end(),
                                    [&](const Entry& entry) { return entry.materialName == materialName; });
    EXPECT_NE(found, entries.end()) << "no pattern of " << materialName;
    return found == entries.end() ? none : *found;
}

PatternFile readPatternFile(std::string_view text) {
    PatternFile file;
    file.root = readIntermediateFile(text);
    EXPECT_EQ(file.root.name, "itp");
    const FileElement* const body = file.root.find("body");
    file.info = body == nullptr ? nullptr : body->find("tex_pattern_info");
    if (file.info == nullptr) {
        ADD_FAILURE() << "no body with a tex_pattern_info";
        return file;
    }
    const FileElement* const lists = body->find("tex_pattern_list_data");
    const FileElement* const data = body->find("tex_pattern_data");
    const FileElement* const array = body->find("tex_pattern_anm_array");
    if (lists == nullptr || data == nullptr || array == nullptr) {
        EXPECT_TRUE(lists == nullptr && data == nullptr && array == nullptr) << "half a body";
        return file;
    }
    file.images = readNames(*lists, "image_name", "image_size");
    file.palettes = readNames(*lists, "palette_name", "palette_size");
    EXPECT_EQ(file.images.size() + file.palettes.size(), lists->children.size());
    const std::vector<PatternFile::Key> pool = readPool(*data);
    EXPECT_EQ(array->integer("size"), static_cast<int>(array->children.size()));
    for (const FileElement& element : array->children) {
        EXPECT_EQ(element.integer("index"), static_cast<int>(file.entries.size()));
        file.entries.push_back(readEntry(element, pool, file));
    }
    checkEveryNameIsShown(file);
    return file;
}

} // namespace tvk
