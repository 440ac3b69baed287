#pragma once

#include "scene/NodeRecord.h"

#include <cstdint>

namespace tvk {

/// One way in which vertices follow nodes. Its place in SceneData::matrices is the matrix index.
struct MatrixRecord {
    int32_t weightCount = 1;    // influences that are blended; 1 means that vertices follow one node
    NodeRecord* node = nullptr; // of one node; null for a blend
    int32_t nodeIndex = -1;     // its output index, once the output list stands; -1 for a blend
    int32_t envelopeHead = -1;  // of a blend: place of its first entry in SceneData::envelope; -1 for one node

    bool isBlend() const { return weightCount > 1; }
};

/// One influence of a blend. The entries of a blend follow each other.
struct EnvelopeEntry {
    int32_t weight = 100; // percent, 1 to 100; those of a blend may add up to a little more or less than 100
    NodeRecord* node = nullptr;
    int32_t nodeIndex = -1; // output index, once the output list stands
};

} // namespace tvk
