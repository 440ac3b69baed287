#pragma once

#include "decode/IntermediateFile.h"

#include <string_view>
#include <utility>
#include <vector>

namespace decode {

/// A visibility animation as a reader of the file plays it. Moved, never copied: `info` points into `root`.
struct VisibilityFile {
    struct Node {
        int dataSize = 0, dataHead = 0;
        std::vector<std::pair<int, int>> keys; // frame, value
        std::vector<int> frames;               // value of every frame of the range
    };

    VisibilityFile() = default;
    VisibilityFile(VisibilityFile&&) = default;
    VisibilityFile& operator=(VisibilityFile&&) = default;
    VisibilityFile(const VisibilityFile&) = delete;
    VisibilityFile& operator=(const VisibilityFile&) = delete;
    ~VisibilityFile() = default;

    FileElement root;
    const FileElement* info = nullptr; // never null in a file that was read
    std::vector<Node> nodes;           // by output index
};

/// Reads an iva file. Throws a FileError for bad text, blocks whose sizes are not the number of their values or differ,
/// a reference outside of the pool, keys that do not start at frame 0, do not ascend or change nothing, values other
/// than 0 and 1, nodes that are not numbered in order, and more frames than PlayedFrames allows.
VisibilityFile readVisibilityFile(std::string_view text);

} // namespace decode
