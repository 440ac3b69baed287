#pragma once

#include "scene/AnimTrack.h"

#include <cstdint>
#include <iosfwd>
#include <unordered_map>
#include <vector>

namespace tvk {

/// Keys of channels that change now and then: (frame, value) pairs, shared between channels. A channel's keys are
/// stored at the lowest place where they stand already, key by key, or at the end.
///
/// Every channel's first key is at frame 0 and no later one is, so equal keys can only be found at the beginning of
/// what an earlier channel stored; a tree of those beginnings finds them in time linear in the keys.
class ChangeListPool {
public:
    /// Reduces one value per frame to its changes and stores them.
    ///   values       one per frame of the range, frame 0 first; when empty, "Error: adap" goes to standard error and
    ///                `track` stays as it is
    ///   inlineConstant  a channel of one key stores the value itself as its head, and nothing in the pool
    ///   track        constant, frameStep, dataSize and dataHead are filled in
    void encode(const std::vector<int32_t>& values, bool inlineConstant, AnimTrack& track);

    bool empty() const { return keyFrames.empty(); }
    const std::vector<int32_t>& frames() const { return keyFrames; }
    const std::vector<int32_t>& values() const { return keyValues; }

private:
    struct Branch {
        int32_t node; // of the tree of beginnings; 0 is the empty beginning
        int32_t frame;
        int32_t value;
        friend bool operator==(const Branch& a, const Branch& b) {
            return a.node == b.node && a.frame == b.frame && a.value == b.value;
        }
    };
    struct BranchHash {
        size_t operator()(const Branch& branch) const;
    };

    /// Head of the keys, found or appended.
    int32_t store(const std::vector<int32_t>& frames, const std::vector<int32_t>& values);

    std::vector<int32_t> keyFrames;
    std::vector<int32_t> keyValues;
    std::unordered_map<Branch, int32_t, BranchHash> branches; // to the longer beginning's node
    std::vector<int32_t> heads{0};                            // per node: where that beginning first stands
};

/// Numbers ten to a line between tags of their own: "<name size="n">", lines of two tabs, "</name>", all behind one
/// tab.
void writeValueBlock(std::ostream& out, const char* name, const std::vector<int32_t>& values);

} // namespace tvk
