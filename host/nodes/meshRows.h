#pragma once

#include "host/graph/Graph.h"

#include <Imath/ImathVec.h>

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

namespace host {

/// How many elements the whole `rows` array needs when its gaps are filled; -1 when the last index is far beyond what
/// is stored, so that a few numbers of a broken file would claim all memory.
std::int64_t denseCount(const NumberRows* rows);

/// The stored elements of a whole `rows` array of floats as vectors, gaps filled with zeros. Empty when nothing is
/// stored, or when denseCount is -1. `Vector` holds as many floats as the array's elements have numbers.
template <typename Vector>
std::vector<Vector> storedVectors(const Graph& graph, const Plug& array) {
    constexpr int kWidth = static_cast<int>(sizeof(Vector) / sizeof(float));
    const NumberRows* rows = graph.storedRows(array);
    const std::int64_t count = denseCount(rows);
    std::vector<Vector> vectors(count > 0 ? static_cast<std::size_t>(count) : 0, Vector(0.0F));
    if (vectors.empty() || rows->width() != kWidth) {
        return vectors;
    }
    if (rows->isDense() && rows->storage() == NumberRows::Storage::kFloat) {
        std::memcpy(static_cast<void*>(vectors.data()), rows->floats().data(), vectors.size() * sizeof(Vector));
        return vectors;
    }
    for (std::size_t row = 0; row < rows->rowCount(); ++row) {
        Vector& vector = vectors[static_cast<std::size_t>(rows->logicalIndex(row))];
        for (int column = 0; column < kWidth; ++column) {
            vector[static_cast<unsigned>(column)] = static_cast<float>(rows->value(row, column));
        }
    }
    return vectors;
}

/// Adds the elements of a whole array of three numbers each, as they are now, to the vectors of the same index; other
/// elements are left out. Elements that connections drive are read through them, all others at once.
void addVectors(Graph& graph, const Plug& array, std::vector<Imath::V3f>& vectors);

/// Whether the whole array holds or is driven to anything, so that addVectors could change something.
bool hasVectors(const Graph& graph, const Plug& array);

} // namespace host
