#pragma once

#include "scene/MatrixRecord.h"

#include <cstdint>
#include <unordered_map>
#include <vector>

namespace tvk {

/// Adds to a model's matrix list and envelope lists what is not there yet. Everything added stands in the order of its
/// first use. Each lookup takes time in proportion to the blend's length.
class MatrixPalette {
public:
    /// The lists are to be filled by this palette only, from empty on, and must outlive it.
    MatrixPalette(std::vector<MatrixRecord>& matrixList, std::vector<EnvelopeEntry>& envelopeList)
        : matrices(matrixList), envelope(envelopeList) {}

    /// The matrix of vertices that follow one node, and of those that are blended by the run of `count` envelope
    /// entries that begins at `head`.
    int32_t findOrAddMatrix(NodeRecord& node);
    int32_t findOrAddMatrix(int32_t count, int32_t head);

    /// Where the run of these entries begins. Only whole runs are shared: the same nodes with the same weights in the
    /// same order.
    int32_t findOrAddEnvelope(const std::vector<EnvelopeEntry>& entries);

    /// The matrix of vertices with these influences; one is not blended, whatever its weight.
    ///   entries   at least one
    int32_t findOrAdd(const std::vector<EnvelopeEntry>& entries);

private:
    struct Run {
        int32_t head = 0;
        int32_t count = 0;
    };
    bool isRun(const Run& run, const std::vector<EnvelopeEntry>& entries) const;

    std::vector<MatrixRecord>& matrices;
    std::vector<EnvelopeEntry>& envelope;
    std::unordered_map<const NodeRecord*, int32_t> byNode;
    std::unordered_map<int32_t, int32_t> byHead;
    std::unordered_multimap<uint64_t, Run> runs; // by the hash of their entries
};

} // namespace tvk
