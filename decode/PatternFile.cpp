#include "decode/PatternFile.h"

#include "decode/FileError.h"
#include "decode/PlayedFrames.h"

#include <algorithm>
#include <set>

namespace decode {
namespace {

std::vector<PatternFile::Key> readPool(const FileElement& data) {
    const std::vector<int> frames = data.child("frame_idx").countedIntegers("size");
    const std::vector<int> images = data.child("image_idx").countedIntegers("size");
    const std::vector<int> palettes = data.child("palette_idx").countedIntegers("size");
    require(frames.size() == images.size() && frames.size() == palettes.size(), data, frames.size(), " frames of ",
            images.size(), " images and ", palettes.size(), " palettes");
    std::vector<PatternFile::Key> pool;
    for (std::size_t i = 0; i < frames.size(); ++i) {
        pool.push_back({frames[i], images[i], palettes[i]});
    }
    return pool;
}

std::vector<std::string> readNames(const FileElement& list, const char* name, const char* sizeName) {
    std::vector<std::string> names;
    for (const FileElement& element : list.children) {
        if (element.name == name) {
            require(element.integer("index") == static_cast<int>(names.size()), element, "index is ",
                    element.integer("index"), " at place ", names.size());
            names.push_back(element.value("name"));
        }
    }
    require(list.integer(sizeName) == static_cast<int>(names.size()), list, sizeName, " is ", list.integer(sizeName),
            ", but there are ", names.size());
    return names;
}

void checkKeys(const FileElement& element, const PatternFile::Entry& entry, const PatternFile& file, int frameCount) {
    int previous = -1;
    for (const PatternFile::Key& key : entry.keys) {
        require(key.image >= 0 && key.image < static_cast<int>(file.images.size()), element, "there is no image ",
                key.image);
        require(key.palette >= -1 && key.palette < static_cast<int>(file.palettes.size()), element,
                "there is no palette ", key.palette);
        require(previous != -1 || key.frame == 0, element, "its first key is at frame ", key.frame);
        require(key.frame > previous && key.frame < frameCount, element, "a key at frame ", key.frame, " behind ",
                previous, " of ", frameCount);
        previous = key.frame;
    }
}

void play(PatternFile::Entry& entry, const PatternFile& file, int frameCount) {
    std::size_t key = 0;
    for (int frame = 0; frame < frameCount; ++frame) {
        if (key + 1 < entry.keys.size() && entry.keys[key + 1].frame == frame) {
            ++key;
        }
        entry.images.push_back(file.images[static_cast<std::size_t>(entry.keys[key].image)]);
    }
}

PatternFile::Entry readEntry(const FileElement& element, const std::vector<PatternFile::Key>& pool,
                             const PatternFile& file, int frameCount) {
    static const std::vector<std::string> kAttributes{"index", "material_name", "data_size", "data_head"};
    PatternFile::Entry entry;
    require(element.attributeNames() == kAttributes, element,
            "has other attributes than index, material_name, data_size and data_head");
    entry.materialName = element.value("material_name");
    entry.dataSize = element.integer("data_size");
    entry.dataHead = element.integer("data_head");
    const auto size = static_cast<int>(pool.size());
    require(entry.dataSize >= 1 && entry.dataHead >= 0 && entry.dataHead <= size - entry.dataSize, element, "keys ",
            entry.dataHead, " + ", entry.dataSize, " of ", size);
    require(entry.dataSize <= frameCount, element, "more keys than frames");
    entry.keys.assign(pool.begin() + entry.dataHead, pool.begin() + entry.dataHead + entry.dataSize);
    checkKeys(element, entry, file, frameCount);
    play(entry, file, frameCount);
    return entry;
}

void checkEveryNameIsShown(const FileElement& lists, const PatternFile& file) {
    std::set<int> images;
    std::set<int> palettes;
    for (const PatternFile::Entry& entry : file.entries) {
        for (const PatternFile::Key& key : entry.keys) {
            images.insert(key.image);
            palettes.insert(key.palette);
        }
    }
    palettes.erase(-1);
    require(images.size() == file.images.size(), lists, "names an image that is never shown");
    require(palettes.size() == file.palettes.size(), lists, "names a palette that is never shown");
}

} // namespace

const PatternFile::Entry& PatternFile::of(std::string_view materialName) const {
    const auto found = std::find_if(entries.begin(), entries.end(),
                                    [&](const Entry& entry) { return entry.materialName == materialName; });
    if (found == entries.end()) {
        throw FileError("there is no pattern of " + excerpt(materialName));
    }
    return *found;
}

PatternFile readPatternFile(std::string_view text) {
    PatternFile file;
    file.root = readIntermediateFile(text);
    require(file.root.name == "itp", file.root, "is no animation of texture patterns");
    const FileElement& body = file.root.child("body");
    file.info = &body.child("tex_pattern_info");
    PlayedFrames played(*file.info, text);
    const FileElement* const lists = body.find("tex_pattern_list_data");
    const FileElement* const data = body.find("tex_pattern_data");
    const FileElement* const array = body.find("tex_pattern_anm_array");
    if (lists == nullptr && data == nullptr && array == nullptr) {
        return file;
    }
    require(lists != nullptr && data != nullptr && array != nullptr, body, "has some of its three parts only");
    file.images = readNames(*lists, "image_name", "image_size");
    file.palettes = readNames(*lists, "palette_name", "palette_size");
    require(file.images.size() + file.palettes.size() == lists->children.size(), *lists, "has unknown elements");
    const std::vector<PatternFile::Key> pool = readPool(*data);
    std::size_t longest = 0;
    for (const std::string& name : file.images) {
        longest = std::max(longest, name.size());
    }
    for (const FileElement& element : array->countedChildren()) {
        played.add(element, (sizeof(std::string) + longest) / sizeof(double));
        file.entries.push_back(readEntry(element, pool, file, played.frameCount()));
    }
    checkEveryNameIsShown(*lists, file);
    return file;
}

} // namespace decode
