#include "host/geometry/ComponentList.h"

#include <algorithm>
#include <charconv>
#include <iterator>

namespace host {

namespace {

struct KindWord {
    ComponentKind kind;
    std::string_view word;
    int minimumDimensions;
    int maximumDimensions;
};

// Order of the enumeration, except that surfaces call their texture coordinates "uv".
constexpr KindWord kKindWords[] = {
    {ComponentKind::kVertex, "vtx", 1, 1},      {ComponentKind::kEdge, "e", 1, 1},
    {ComponentKind::kFace, "f", 1, 1},          {ComponentKind::kUv, "map", 1, 1},
    {ComponentKind::kUv, "uv", 2, 2},           {ComponentKind::kFaceVertex, "vtxFace", 2, 2},
    {ComponentKind::kControlPoint, "cv", 1, 2}, {ComponentKind::kLatticePoint, "pt", 3, 3},
};

const KindWord* findWord(std::string_view word) {
    const auto found = std::find_if(std::begin(kKindWords), std::end(kKindWords),
                                    [&](const KindWord& row) { return row.word == word; });
    return found == std::end(kKindWords) ? nullptr : found;
}

/// Takes a non-negative number off the front of the text.
bool takeIndex(std::string_view& text, std::int32_t& index) {
    const auto result = std::from_chars(text.data(), text.data() + text.size(), index);
    if (result.ec != std::errc{} || index < 0) {
        return false;
    }
    text.remove_prefix(static_cast<std::size_t>(result.ptr - text.data()));
    return true;
}

/// Takes "[3]", "[0:7]" or "[*]" off the front of the text.
bool takeRange(std::string_view& text, IndexRange& range) {
    if (text.empty() || text.front() != '[') {
        return false;
    }
    text.remove_prefix(1);
    if (!text.empty() && text.front() == '*') {
        range = IndexRange::all();
        text.remove_prefix(1);
    } else {
        if (!takeIndex(text, range.first)) {
            return false;
        }
        range.last = range.first;
        if (!text.empty() && text.front() == ':') {
            text.remove_prefix(1);
            if (!takeIndex(text, range.last) || range.last < range.first) {
                return false;
            }
        }
    }
    if (text.empty() || text.front() != ']') {
        return false;
    }
    text.remove_prefix(1);
    return true;
}

std::string rangeText(IndexRange range) {
    if (range.isAll()) {
        return "[*]";
    }
    std::string text = "[" + std::to_string(range.first);
    if (range.last != range.first) {
        text += ":" + std::to_string(range.last);
    }
    return text + "]";
}

} // namespace

bool parseComponent(std::string_view text, ComponentRange& range) {
    const KindWord* row = findWord(text.substr(0, text.find('[')));
    if (row == nullptr) {
        return false;
    }
    text.remove_prefix(row->word.size());
    ComponentRange result;
    result.kind = row->kind;
    int dimensions = 0;
    while (!text.empty()) {
        if (dimensions == row->maximumDimensions ||
            !takeRange(text, result.index[static_cast<std::size_t>(dimensions)])) {
            return false;
        }
        ++dimensions;
    }
    if (dimensions < row->minimumDimensions) {
        return false;
    }
    result.dimensions = static_cast<std::int8_t>(dimensions);
    range = result;
    return true;
}

std::string componentText(const ComponentRange& range) {
    std::string text;
    for (const KindWord& row : kKindWords) {
        if (row.kind == range.kind && range.dimensions >= row.minimumDimensions &&
            range.dimensions <= row.maximumDimensions) {
            text = row.word;
        }
    }
    for (int i = 0; i < range.dimensions; ++i) {
        text += rangeText(range.index[static_cast<std::size_t>(i)]);
    }
    return text;
}

std::vector<IndexRange> mergedRanges(const ComponentList& list, ComponentKind kind) {
    std::vector<IndexRange> ranges;
    for (const ComponentRange& range : list.ranges) {
        if (range.kind == kind && range.dimensions == 1) {
            ranges.push_back(range.index[0]);
        }
    }
    std::sort(ranges.begin(), ranges.end(), [](IndexRange a, IndexRange b) { return a.first < b.first; });
    std::vector<IndexRange> merged;
    for (const IndexRange range : ranges) {
        // last + 1 would overflow for an open range; first - 1 cannot, as only the very first range begins at 0.
        if (!merged.empty() && range.first - 1 <= merged.back().last) {
            merged.back().last = std::max(merged.back().last, range.last);
        } else {
            merged.push_back(range);
        }
    }
    return merged;
}

} // namespace host
