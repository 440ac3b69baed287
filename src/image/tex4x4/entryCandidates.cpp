#include "image/tex4x4/entryCandidates.h"

#include <algorithm>
#include <utility>

namespace tvk {
namespace {

constexpr size_t kBlockNeighbours = 12;
constexpr size_t kLikeEntries = 8;
constexpr size_t kFewEntries = 4;

// A pair's texels lie anywhere between its ends: a shift of the middle costs twelve times what a change of the length
// costs, in squares.
Point6 pointOf(const Tex4x4Colors& colors, const ColorPair& pair) {
    constexpr float kLengthScale = 0.2887F; // 1 / sqrt(12)
    Point6 point{};
    for (size_t c = 0; c < 3; ++c) {
        const float first = colors.shown(pair.first[c]), second = colors.shown(pair.second[c]);
        point[c] = (first + second) / 2;
        point[3 + c] = (second - first) * kLengthScale;
    }
    return point;
}

void addOnce(uint32_t entry, std::vector<uint32_t>& entries) {
    if (std::find(entries.begin(), entries.end(), entry) == entries.end()) {
        entries.push_back(entry);
    }
}

} // namespace

BlockNeighbours findNeighbours(const Tex4x4Colors& colors, const std::vector<PaletteBlock>& blocks) {
    std::vector<Point6> points;
    points.reserve(blocks.size());
    for (const PaletteBlock& block : blocks) {
        points.push_back(pointOf(colors, block.pair.pair));
    }
    const NearestPoints nearest(std::move(points));
    BlockNeighbours neighbours;
    neighbours.reserve(blocks.size());
    for (uint32_t block = 0; block < blocks.size(); ++block) {
        neighbours.push_back(nearest.find(block, kBlockNeighbours));
    }
    return neighbours;
}

EntryCandidates::EntryCandidates(const Tex4x4Colors& colors, const BlockNeighbours& blockNeighbours,
                                 const PaletteDraft& paletteDraft)
    : neighbours(blockNeighbours), draft(paletteDraft), pointOfEntry(draft.entries.size()),
      entryPoints(pointsOfEntries(colors)) {}

std::vector<Point6> EntryCandidates::pointsOfEntries(const Tex4x4Colors& colors) {
    std::vector<Point6> points;
    for (uint32_t entry = 0; entry < draft.entries.size(); ++entry) {
        if (draft.entries[entry].pairs > 0) {
            pointOfEntry[entry] = static_cast<uint32_t>(points.size());
            entryOfPoint.push_back(entry);
            points.push_back(pointOf(colors, draft.entries[entry].pair(0)));
        }
    }
    return points;
}

void EntryCandidates::find(size_t block, std::vector<uint32_t>& entries) const {
    entries.assign(1, draft.entryOf[block]);
    for (const uint32_t neighbour : neighbours[block]) {
        addOnce(draft.entryOf[neighbour], entries);
    }
    if (entries.size() < kFewEntries) {
        addLikeEntries(entries.front(), entries);
    }
}

void EntryCandidates::addLikeEntries(uint32_t entry, std::vector<uint32_t>& entries) const {
    for (const uint32_t point : entryPoints.find(pointOfEntry[entry], kLikeEntries)) {
        addOnce(entryOfPoint[point], entries);
    }
}

} // namespace tvk
