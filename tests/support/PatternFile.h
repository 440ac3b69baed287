#pragma once

#include "IntermediateFile.h"

#include <string>
#include <string_view>
#include <vector>

namespace tvk {

/// A texture pattern animation as a reader of the file plays it.
struct PatternFile {
    struct Key {
        int frame = 0, image = -1, palette = -1; // places in the lists below; -1: no palette
    };
    struct Entry {
        std::string materialName;
        int dataSize = 0, dataHead = 0;
        std::vector<Key> keys;
        std::vector<std::string> images; // shown at every frame of the range
    };

    FileElement root;
    const FileElement* info = nullptr;
    std::vector<std::string> images, palettes;
    std::vector<Entry> entries;

    /// The one of that material, or a test failure and an empty one.
    const Entry& of(std::string_view materialName) const;
};

/// Reads an itp file. Gives a test failure for bad text, sizes that are not the number of what follows, lists that are
/// not numbered in order, a name that is listed and never shown, references outside of the pool, keys that do not start
/// at frame 0 or do not ascend, and images or palettes that the lists do not have.
PatternFile readPatternFile(std::string_view text);

} // namespace tvk
