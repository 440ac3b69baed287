#pragma once

#include "IntermediateFile.h"

#include <string_view>
#include <utility>
#include <vector>

namespace tvk {

/// A visibility animation as a reader of the file plays it.
struct VisibilityFile {
    struct Node {
        int dataSize = 0, dataHead = 0;
        std::vector<std::pair<int, int>> keys; // frame, value
        std::vector<int> frames;               // value of every frame of the range
    };

    FileElement root;
    const FileElement* info = nullptr;
    std::vector<Node> nodes; // by output index
};

/// Reads an iva file. Gives a test failure for bad text, blocks whose sizes are not the number of their values or
/// differ, a reference outside of the pool, keys that do not start at frame 0 or do not ascend, values other than 0 and
/// 1, and nodes that are not numbered in order.
VisibilityFile readVisibilityFile(std::string_view text);

} // namespace tvk
