#include "host/geometry/faceClasses.h"

#include <algorithm>
#include <cstddef>
#include <unordered_map>

namespace host {

std::vector<std::int32_t> faceClasses(const std::vector<ComponentGroup>& groups, std::int32_t faceCount) {
    std::vector<std::int32_t> classes(static_cast<std::size_t>(faceCount), 0);
    std::int32_t count = 1;
    for (const ComponentGroup& group : groups) {
        std::unordered_map<std::int32_t, std::int32_t> split; // what each class becomes within the group
        for (const IndexRange range : mergedRanges(*group.components, ComponentKind::kFace)) {
            const std::int32_t last = std::min(range.last, faceCount - 1);
            for (std::int32_t face = range.first; face <= last; ++face) {
                std::int32_t& its = classes[static_cast<std::size_t>(face)];
                const auto [entry, isNew] = split.emplace(its, count);
                count += isNew ? 1 : 0;
                its = entry->second;
            }
        }
    }
    std::unordered_map<std::int32_t, std::int32_t> numbers;
    for (std::int32_t& its : classes) {
        its = numbers.emplace(its, static_cast<std::int32_t>(numbers.size())).first->second;
    }
    return classes;
}

} // namespace host
