#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace tvk {

// The matrices of one face.
class MatrixSet {
public:
    // Stands after the last matrix.
    static constexpr int32_t kNone = -1;

    // At most four different ones, 0 or more each; one that is there already counts once.
    void add(int32_t matrix);

    // Ascending, then kNone to the end.
    const std::array<int32_t, 4>& sorted() const { return matrices; }

    friend bool operator<(const MatrixSet& a, const MatrixSet& b) { return a.matrices < b.matrices; }
    friend bool operator!=(const MatrixSet& a, const MatrixSet& b) { return a.matrices != b.matrices; }

private:
    std::array<int32_t, 4> matrices{kNone, kNone, kNone, kNone};
};

inline void MatrixSet::add(int32_t matrix) {
    std::size_t place = 0;
    while (place < matrices.size() && matrices[place] != kNone && matrices[place] < matrix)
        ++place;
    if (place == matrices.size() || matrices[place] == matrix)
        return;
    for (std::size_t i = matrices.size() - 1; i > place; --i)
        matrices[i] = matrices[i - 1];
    matrices[place] = matrix;
}

} // namespace tvk
