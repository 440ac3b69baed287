#include "geometry/MatrixPalette.h"

#include <algorithm>

namespace tvk {
namespace {

bool isSame(const EnvelopeEntry& a, const EnvelopeEntry& b) {
    return a.node == b.node && a.weight == b.weight;
}

uint64_t hashOf(const std::vector<EnvelopeEntry>& entries) {
    constexpr uint64_t kPrime = 0x100000001B3U; // FNV-1a
    uint64_t hash = 0xCBF29CE484222325U;
    for (const EnvelopeEntry& entry : entries) {
        hash = (hash ^ std::hash<const NodeRecord*>()(entry.node)) * kPrime;
        hash = (hash ^ static_cast<uint64_t>(entry.weight)) * kPrime;
    }
    return hash;
}

} // namespace

int32_t MatrixPalette::findOrAddMatrix(NodeRecord& node) {
    const auto [found, isNew] = byNode.try_emplace(&node, static_cast<int32_t>(matrices.size()));
    if (isNew) {
        MatrixRecord record;
        record.node = &node;
        matrices.push_back(record);
    }
    return found->second;
}

int32_t MatrixPalette::findOrAddMatrix(int32_t count, int32_t head) {
    const auto [found, isNew] = byHead.try_emplace(head, static_cast<int32_t>(matrices.size()));
    if (isNew) {
        MatrixRecord record;
        record.weightCount = count;
        record.envelopeHead = head;
        matrices.push_back(record);
    }
    return found->second;
}

bool MatrixPalette::isRun(const Run& run, const std::vector<EnvelopeEntry>& entries) const {
    return static_cast<std::size_t>(run.count) == entries.size() &&
           std::equal(entries.begin(), entries.end(), envelope.begin() + run.head, isSame);
}

int32_t MatrixPalette::findOrAddEnvelope(const std::vector<EnvelopeEntry>& entries) {
    const uint64_t hash = hashOf(entries);
    const auto [first, last] = runs.equal_range(hash);
    const auto found = std::find_if(first, last, [&](const auto& run) { return isRun(run.second, entries); });
    if (found != last) {
        return found->second.head;
    }
    const auto head = static_cast<int32_t>(envelope.size());
    envelope.insert(envelope.end(), entries.begin(), entries.end());
    runs.emplace(hash, Run{head, static_cast<int32_t>(entries.size())});
    return head;
}

int32_t MatrixPalette::findOrAdd(const std::vector<EnvelopeEntry>& entries) {
    return entries.size() == 1 ? findOrAddMatrix(*entries.front().node)
                               : findOrAddMatrix(static_cast<int32_t>(entries.size()), findOrAddEnvelope(entries));
}

} // namespace tvk
