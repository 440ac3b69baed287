#pragma once

#include "decode/IntermediateFile.h"

#include <string>
#include <string_view>
#include <vector>

namespace decode {

/// A texture pattern animation as a reader of the file plays it. Moved, never copied: `info` points into `root`.
struct PatternFile {
    PatternFile() = default;
    PatternFile(PatternFile&&) = default;
    PatternFile& operator=(PatternFile&&) = default;
    PatternFile(const PatternFile&) = delete;
    PatternFile& operator=(const PatternFile&) = delete;
    ~PatternFile() = default;

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
    const FileElement* info = nullptr; // never null in a file that was read
    std::vector<std::string> images, palettes;
    std::vector<Entry> entries;

    /// The one of that material; throws a FileError when there is none.
    const Entry& of(std::string_view materialName) const;
};

/// Reads an itp file. Throws a FileError for bad text, sizes that are not the number of what follows, lists that are
/// not numbered in order, a name that is listed and never shown, references outside of the pool, keys that do not start
/// at frame 0 or do not ascend, images or palettes that the lists do not have, and more frames than PlayedFrames
/// allows.
PatternFile readPatternFile(std::string_view text);

} // namespace decode
