#include "animation/ChangeListPool.h"

#include "common/numberText.h"
#include "scene/xmlText.h"

#include <iostream>

namespace tvk {

size_t ChangeListPool::BranchHash::operator()(const Branch& branch) const {
    uint64_t hash = static_cast<uint32_t>(branch.node);
    for (const int32_t part : {branch.frame, branch.value}) {
        hash = (hash ^ static_cast<uint32_t>(part)) * 0x9E3779B97F4A7C15U;
        hash ^= hash >> 29U;
    }
    return static_cast<size_t>(hash);
}

int32_t ChangeListPool::store(const std::vector<int32_t>& frames, const std::vector<int32_t>& values) {
    const auto end = static_cast<int32_t>(keyFrames.size());
    int32_t node = 0;
    bool known = true;
    for (size_t i = 0; i < frames.size(); ++i) {
        const auto [branch, isNew] =
            branches.try_emplace({node, frames[i], values[i]}, static_cast<int32_t>(heads.size()));
        if (isNew) {
            heads.push_back(end);
            known = false;
        }
        node = branch->second;
    }
    if (!known) {
        keyFrames.insert(keyFrames.end(), frames.begin(), frames.end());
        keyValues.insert(keyValues.end(), values.begin(), values.end());
    }
    return heads[static_cast<size_t>(node)];
}

void ChangeListPool::encode(const std::vector<int32_t>& values, bool inlineConstant, AnimTrack& track) {
    if (values.empty()) {
        std::cerr << "Error: adap" << std::endl;
        return;
    }
    std::vector<int32_t> frames;
    std::vector<int32_t> changed;
    for (size_t f = 0; f < values.size(); ++f) {
        if (f == 0 || values[f] != changed.back()) {
            frames.push_back(static_cast<int32_t>(f));
            changed.push_back(values[f]);
        }
    }
    track.constant = frames.size() == 1;
    track.frameStep = 1;
    track.dataSize = static_cast<int32_t>(frames.size());
    track.dataHead = track.constant && inlineConstant ? changed.front() : store(frames, changed);
}

void writeValueBlock(std::ostream& out, const char* name, const std::vector<int32_t>& values) {
    constexpr int kTabs = 2;
    out << "\t<" << name;
    writeAttribute(out, "size", static_cast<int64_t>(values.size()));
    out << ">\n";
    writeTenToALine(out, kTabs, values.size(), [&](std::size_t i) { return integerText(values[i]); });
    out << "\t</" << name << ">\n";
}

} // namespace tvk
