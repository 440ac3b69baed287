#pragma once

#include <string>
#include <vector>

namespace host {

class Node;

/// One change that a scene makes to what a reference brings, as the scene's reference node stores it.
struct ReferenceEdit {
    enum Kind : int {
        kParent,
        kAddAttribute,
        kSetAttribute,
        kDisconnect,
        kDeleteAttribute,
        kConnect,
        kRelationship,
        kRelationshipToo, // a second kind of the same; neither means anything here
        kLock,
        kUnlock,
    };

    int kind = kParent; // what the scene says; not all numbers are kinds
    std::vector<std::string> texts;
};

/// The edits of one reference: of the node's own one, or of one below it.
struct ReferenceEditBlock {
    std::string reference; // name of its reference node, as written
    std::vector<ReferenceEdit> edits;
};

/// The value of a reference node's `edits`.
struct ReferenceEdits {
    Node* node = nullptr;
    std::vector<ReferenceEditBlock> blocks;
};

} // namespace host
