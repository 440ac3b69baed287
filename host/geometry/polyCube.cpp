#include "host/geometry/MeshBuilder.h"
#include "host/geometry/polyPrimitives.h"

#include <algorithm>

namespace host {

namespace {

using Imath::V3d;
using Ids = std::vector<std::int32_t>;

/// Front, top, back and bottom are one band of rows that runs around the x axis; right and left close it. What lies
/// inside the two sides is numbered from the bottom up and from the back to the front.
class CubeMaker {
public:
    explicit CubeMaker(const CubeShape& shape)
        : shape_(shape), across_(std::max(shape.divisionsWidth, 1)), up_(std::max(shape.divisionsHeight, 1)),
          deep_(std::max(shape.divisionsDepth, 1)) {}

    bool isTooMuch() const {
        const double across = across_;
        const double up = up_;
        const double deep = deep_;
        return 2.0 * (across * up + up * deep + across * deep) > kMostFaces;
    }

    std::shared_ptr<MeshData> run() {
        rows_ = 2 * (up_ + deep_);
        addBandPoints();
        addSidePoints(+1.0);
        addSidePoints(-1.0);
        addBandEdges();
        addSideEdges(kRight);
        addSideEdges(kLeft);
        addUvs();
        addBandFaces();
        addSideFaces(kRight);
        addSideFaces(kLeft);
        return builder_.finish();
    }

private:
    enum Side : std::int32_t { kRight, kLeft };

    /// Where row r crosses the middle plane: y and z from -0.5 to 0.5.
    void profile(std::int32_t row, double& y, double& z) const {
        if (row <= up_) {
            y = -0.5 + static_cast<double>(row) / up_;
            z = 0.5;
        } else if (row <= up_ + deep_) {
            y = 0.5;
            z = 0.5 - static_cast<double>(row - up_) / deep_;
        } else if (row <= 2 * up_ + deep_) {
            y = 0.5 - static_cast<double>(row - up_ - deep_) / up_;
            z = -0.5;
        } else {
            y = -0.5;
            z = -0.5 + static_cast<double>(row - 2 * up_ - deep_) / deep_;
        }
    }

    bool isCornerRow(std::int32_t row) const {
        return row == 0 || row == up_ || row == up_ + deep_ || row == 2 * up_ + deep_;
    }

    void addBandPoints() {
        for (std::int32_t row = 0; row < rows_; ++row) {
            double y = 0;
            double z = 0;
            profile(row, y, z);
            for (std::int32_t i = 0; i <= across_; ++i) {
                const double x = -0.5 + static_cast<double>(i) / across_;
                builder_.addPoint({x * shape_.width, y * shape_.height, z * shape_.depth});
            }
        }
    }

    void addSidePoints(double sign) {
        for (std::int32_t level = 1; level < up_; ++level) {
            for (std::int32_t column = 1; column < deep_; ++column) {
                builder_.addPoint({sign * 0.5 * shape_.width, (-0.5 + static_cast<double>(level) / up_) * shape_.height,
                                   (-0.5 + static_cast<double>(column) / deep_) * shape_.depth});
            }
        }
    }

    std::int32_t band(std::int32_t row, std::int32_t i) const { return (row % rows_) * (across_ + 1) + i; }

    /// Vertex of a side: level from the bottom up, column from the back to the front.
    std::int32_t sideVertex(Side side, std::int32_t level, std::int32_t column) const {
        const std::int32_t i = side == kRight ? across_ : 0;
        if (column == deep_) {
            return band(level, i);
        }
        if (column == 0) {
            return band(2 * up_ + deep_ - level, i);
        }
        if (level == 0) {
            return band(2 * up_ + deep_ + column, i);
        }
        if (level == up_) {
            return band(up_ + deep_ - column, i);
        }
        const std::int32_t inside = (up_ - 1) * (deep_ - 1);
        return rows_ * (across_ + 1) + side * inside + (level - 1) * (deep_ - 1) + column - 1;
    }

    void addBandEdges() {
        for (std::int32_t row = 0; row < rows_; ++row) {
            for (std::int32_t i = 0; i < across_; ++i) {
                builder_.addEdge(band(row, i), band(row, i + 1), !isCornerRow(row));
            }
        }
        for (std::int32_t row = 0; row < rows_; ++row) {
            for (std::int32_t i = 0; i <= across_; ++i) {
                builder_.addEdge(band(row, i), band(row + 1, i), i != 0 && i != across_);
            }
        }
    }

    void addSideEdges(Side side) {
        for (std::int32_t level = 1; level < up_; ++level) {
            for (std::int32_t column = 0; column < deep_; ++column) {
                builder_.addEdge(sideVertex(side, level, column), sideVertex(side, level, column + 1), true);
            }
        }
        for (std::int32_t level = 0; level < up_; ++level) {
            for (std::int32_t column = 1; column < deep_; ++column) {
                builder_.addEdge(sideVertex(side, level, column), sideVertex(side, level + 1, column), true);
            }
        }
    }

    /// The four faces of the band are a column of quarters; the sides lie beside the lowest.
    void addUvs() {
        if (!shape_.uvs) {
            return;
        }
        for (std::int32_t row = 0; row <= rows_; ++row) {
            for (std::int32_t i = 0; i <= across_; ++i) {
                builder_.addUv(0.375 + 0.25 * i / across_, bandV(row));
            }
        }
        for (const Side side : {kRight, kLeft}) {
            for (std::int32_t level = 0; level <= up_; ++level) {
                for (std::int32_t column = 0; column < deep_; ++column) {
                    const double inwards = 0.25 * column / deep_;
                    builder_.addUv(side == kRight ? 0.875 - inwards : 0.125 + inwards, 0.25 * level / up_);
                }
            }
        }
    }

    double bandV(std::int32_t row) const {
        if (row <= up_) {
            return 0.25 * row / up_;
        }
        if (row <= up_ + deep_) {
            return 0.25 + 0.25 * (row - up_) / deep_;
        }
        if (row <= 2 * up_ + deep_) {
            return 0.5 + 0.25 * (row - up_ - deep_) / up_;
        }
        return 0.75 + 0.25 * (row - 2 * up_ - deep_) / deep_;
    }

    std::int32_t sideUv(Side side, std::int32_t level, std::int32_t column) const {
        if (column == deep_) {
            return level * (across_ + 1) + (side == kRight ? across_ : 0);
        }
        return (rows_ + 1) * (across_ + 1) + (side * (up_ + 1) + level) * deep_ + column;
    }

    void addFace(const Ids& vertices, const Ids& uvs) { builder_.addFace(vertices, shape_.uvs ? uvs : Ids()); }

    void addBandFaces() {
        for (std::int32_t row = 0; row < rows_; ++row) {
            for (std::int32_t i = 0; i < across_; ++i) {
                const std::int32_t uv = row * (across_ + 1) + i;
                addFace({band(row, i), band(row, i + 1), band(row + 1, i + 1), band(row + 1, i)},
                        {uv, uv + 1, uv + across_ + 2, uv + across_ + 1});
            }
        }
    }

    void addSideFaces(Side side) {
        for (std::int32_t level = 0; level < up_; ++level) {
            for (std::int32_t column = 0; column < deep_; ++column) {
                const std::int32_t first = side == kRight ? column + 1 : column;
                const std::int32_t second = side == kRight ? column : column + 1;
                addFace({sideVertex(side, level, first), sideVertex(side, level, second),
                         sideVertex(side, level + 1, second), sideVertex(side, level + 1, first)},
                        {sideUv(side, level, first), sideUv(side, level, second), sideUv(side, level + 1, second),
                         sideUv(side, level + 1, first)});
            }
        }
    }

    const CubeShape& shape_;
    std::int32_t across_, up_, deep_;
    std::int32_t rows_ = 0; // of the band
    MeshBuilder builder_;
};

} // namespace

std::shared_ptr<MeshData> makeCube(const CubeShape& shape) {
    CubeMaker maker(shape);
    return maker.isTooMuch() ? std::make_shared<MeshData>() : maker.run();
}

} // namespace host
