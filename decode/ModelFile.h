#pragma once

#include "decode/IntermediateFile.h"

#include <ImathMatrix.h>
#include <ImathVec.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace decode {

/// One node as a model file tells of it, and what follows from that.
struct ModelNode {
    int index = -1;
    std::string name, kind;
    int parent = -1, child = -1, brotherNext = -1, brotherPrev = -1;
    bool drawMtx = false;
    std::optional<bool> scaleCompensate; // nothing when the file has no such lines
    std::string billboard;
    Imath::V3d scale, rotate, translate; // rotate in degrees, x first
    bool visibility = false;
    int displaySize = -1;
    std::vector<std::string> attributeNames; // in written order

    Imath::M44d local; // scale, rotation, undone scale of the parent when it is compensated, translation; row vectors
    Imath::M44d world; // product of the locals up the parents
};

/// A reader of model files that knows nothing but the file. Moved, never copied: `info` points into `root`.
struct ModelFile {
    ModelFile() = default;
    ModelFile(ModelFile&&) = default;
    ModelFile& operator=(ModelFile&&) = default;
    ModelFile(const ModelFile&) = delete;
    ModelFile& operator=(const ModelFile&) = delete;
    ~ModelFile() = default;

    FileElement root;
    const FileElement* info = nullptr; // never null in a file that was read
    std::vector<ModelNode> nodes;      // in file order

    /// Null when there is no node of that name.
    const ModelNode* find(std::string_view name) const;
    /// Throws a FileError when there is none.
    const ModelNode& node(std::string_view name) const;
    std::vector<std::string> names() const;
    /// Names of a node's children along the brother links.
    std::vector<std::string> childrenOf(std::string_view name) const;
};

/// Reads a model file. Throws a FileError for everything in it that a reader could stumble over: bad text, a size that
/// is not the number of nodes, an index that is not the position, links that lead nowhere or do not agree with each
/// other, a child before its parent, several roots, lines that only some nodes have, display lines that do not count.
ModelFile readModelFile(std::string_view text);

/// Local and world matrices of all nodes from their scale, rotate and translate.
///   nodes   as readModelFile gives them: parents first
void buildMatrices(std::vector<ModelNode>& nodes);

} // namespace decode
