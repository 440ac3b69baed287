#include "image/tex4x4/listFit.h"

#include "image/tex4x4/listStarts.h"

#include <algorithm>
#include <limits>

namespace tvk {
namespace {

float distanceTo(const ListTask& task, const BlockPalette& palette, size_t texel) {
    float least = std::numeric_limits<float>::max();
    for (size_t k = 0; k < 4; ++k) {
        float distance = 0;
        for (size_t c = 0; c < 3; ++c) {
            const float d = task.texels.channels[c][texel] - palette.channels[c][k];
            distance += d * d;
        }
        least = std::min(least, distance);
    }
    return least * task.texels.weights[texel];
}

// The colour that a list serves worst: what an unused place of it takes.
Levels worstServed(const ListTask& task, const ColorList& list) {
    const BlockPalette palette = task.colors.listPalette(list, task.length);
    size_t worst = 0;
    for (size_t i = 1; i < task.distinct; ++i) {
        worst = distanceTo(task, palette, i) > distanceTo(task, palette, worst) ? i : worst;
    }
    return task.levelsOf(worst);
}

void moveToMeans(const ListTask& task, const std::array<uint8_t, kBlockTexels>& indices, ColorList& list) {
    std::array<TexelHeap, 4> heaps;
    for (size_t i = 0; i < task.distinct; ++i) {
        heaps[indices[i]].add(task.texels, i);
    }
    for (size_t k = 0; k < task.length; ++k) {
        list[k] = heaps[k].weight > 0 ? heaps[k].mean(task.colors) : worstServed(task, list);
    }
}

// Texels to colours, colours to the means of their texels, as long as it helps.
void improve(const ListTask& task, ColorList list, ListFit& best) {
    constexpr int kRounds = 16;
    float reached = std::numeric_limits<float>::max();
    for (int round = 0; round < kRounds; ++round) {
        std::array<uint8_t, kBlockTexels> indices{};
        const float error = assignTexels(task.texels, task.colors.listPalette(list, task.length), indices.data());
        if (error >= reached) {
            return;
        }
        reached = error;
        if (error < best.error) {
            best = {list, error};
        }
        moveToMeans(task, indices, list);
    }
}

void sortByWord(ColorList& list, size_t length) {
    const auto isBefore = [](const Levels& a, const Levels& b) { return keyOf(a) < keyOf(b); };
    for (size_t sorted = 1; sorted < length; ++sorted) {
        Levels* const next = &list[sorted];
        std::rotate(std::upper_bound(list.data(), next, *next, isBefore), next, next + 1);
    }
    list[3] = length < 4 ? list[2] : list[3];
}

} // namespace

ListFit fitList(const Tex4x4Colors& colors, TexelView texels, bool hasHoles) {
    size_t distinct = 0;
    while (distinct < texels.count && texels.weights[distinct] > 0) {
        ++distinct;
    }
    const ListTask task{colors, texels, listLength(hasHoles), distinct};
    ListFit best;
    best.error = std::numeric_limits<float>::max();
    improve(task, dropLevels(task), best);
    if (distinct > task.length) {
        improve(task, joinHeaps(task), best);
        improve(task, cutAxis(task), best);
    }
    sortByWord(best.colors, task.length);
    return best;
}

} // namespace tvk
