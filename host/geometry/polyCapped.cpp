#include "host/geometry/RingMaker.h"
#include "host/geometry/polyPrimitives.h"

#include <algorithm>
#include <cmath>

namespace host {

namespace {

using Ids = std::vector<std::int32_t>;

/// A cap in the texture: a circle around (0.5, middleV); the middle vertex of a fan lies a little below its middle.
struct CapCircle {
    double middleV, radius, fanV;
};

constexpr CapCircle kCylinderBottom{0.15625, 0.15625, 0.15000001};
constexpr CapCircle kCylinderTop{0.84375, 0.15625, 0.83749998};
constexpr double kSideBottom = 0.3125;
constexpr double kSideTop = 0.68843985;
constexpr CapCircle kConeBase{0.25, 0.25, 0.25};

/// One coordinate per vertex of a ring; returns the first.
std::int32_t addCircle(RingMaker& maker, const CapCircle& circle) {
    const std::int32_t first = maker.builder().uvCount();
    for (std::int32_t j = 0; maker.hasUvs() && j < maker.around(); ++j) {
        const double angle = kFullTurn * (j + 1) / maker.around();
        maker.builder().addUv(0.5 + circle.radius * std::cos(angle), circle.middleV - circle.radius * std::sin(angle));
    }
    return first;
}

/// The bottom: the ring's vertices backward, from the first; or a fan around the middle vertex, when there is one.
void addBottom(RingMaker& maker, std::int32_t firstUv, std::int32_t middle, std::int32_t middleUv) {
    const std::int32_t around = maker.around();
    if (middle >= 0) {
        for (std::int32_t j = 0; j < around; ++j) {
            const std::int32_t next = (j + 1) % around;
            maker.addFace({next, j, middle}, {firstUv + next, firstUv + j, middleUv});
        }
        return;
    }
    Ids vertices{0};
    Ids uvs{firstUv};
    for (std::int32_t j = around - 1; j > 0; --j) {
        vertices.push_back(j);
        uvs.push_back(firstUv + j);
    }
    maker.addFace(vertices, uvs);
}

/// The top is seen from the other side, so its circle runs backward.
void addTop(RingMaker& maker, std::int32_t ring, std::int32_t firstUv, std::int32_t middle, std::int32_t middleUv) {
    const std::int32_t around = maker.around();
    const auto uvOf = [&](std::int32_t j) { return firstUv + (2 * around - 2 - j % around) % around; };
    Ids vertices;
    Ids uvs;
    for (std::int32_t j = 0; j < around; ++j) {
        if (middle >= 0) {
            maker.addFace({maker.vertex(ring, j), maker.vertex(ring, j + 1), middle}, {uvOf(j), uvOf(j + 1), middleUv});
        }
        vertices.push_back(maker.vertex(ring, j));
        uvs.push_back(uvOf(j));
    }
    if (middle < 0) {
        maker.addFace(vertices, uvs);
    }
}

class CylinderMaker {
public:
    explicit CylinderMaker(const CylinderShape& shape)
        : shape_(shape), around_(std::max(shape.divisionsAxis, 3)), up_(std::max(shape.divisionsHeight, 1)),
          maker_(around_, shape.uvs) {}

    std::shared_ptr<MeshData> run() {
        if (maker_.isTooMuch(up_)) {
            return std::make_shared<MeshData>();
        }
        addSidePoints();
        addMiddles();
        addEdges();
        for (std::int32_t ring = 0; ring < up_; ++ring) {
            const std::int32_t uvs = around_ + ring * (around_ + 1);
            maker_.addQuads(ring, ring + 1, uvs, uvs + around_ + 1);
        }
        addBottom(maker_, 0, middle_, middleUv_);
        addTop(maker_, up_, topUvs_, middle_ < 0 ? middle_ : middle_ + 1, middleUv_ + 1);
        return maker_.builder().finish();
    }

private:
    void addSidePoints() {
        addCircle(maker_, kCylinderBottom);
        for (std::int32_t ring = 0; ring <= up_; ++ring) {
            const double share = static_cast<double>(ring) / up_;
            maker_.addRing(shape_.radius, (share - 0.5) * shape_.height);
            maker_.addUvRow(0.375, 0.625, kSideBottom + (kSideTop - kSideBottom) * share);
        }
        topUvs_ = addCircle(maker_, kCylinderTop);
    }

    void addMiddles() {
        middleUv_ = maker_.builder().uvCount();
        if (!shape_.fanCaps) {
            return;
        }
        middle_ = maker_.builder().addPoint({0, -shape_.height / 2, 0});
        maker_.builder().addPoint({0, shape_.height / 2, 0});
        if (shape_.uvs) {
            maker_.builder().addUv(0.5, kCylinderBottom.fanV);
            maker_.builder().addUv(0.5, kCylinderTop.fanV);
        }
    }

    void addEdges() {
        for (std::int32_t ring = 0; ring <= up_; ++ring) {
            maker_.addRingEdges(ring, ring != 0 && ring != up_ && !shape_.hardSides);
        }
        for (std::int32_t ring = 0; ring < up_; ++ring) {
            maker_.addEdgesBetween(ring, ring + 1, !shape_.hardSides);
        }
        if (middle_ >= 0) {
            maker_.addSpokes(0, middle_, true);
            maker_.addSpokes(up_, middle_ + 1, false);
        }
    }

    const CylinderShape& shape_;
    std::int32_t around_, up_;
    RingMaker maker_;
    std::int32_t middle_ = -1; // vertex in the middle of the bottom, the top's behind it; -1: caps of one face
    std::int32_t topUvs_ = 0, middleUv_ = 0;
};

class ConeMaker {
public:
    explicit ConeMaker(const ConeShape& shape)
        : shape_(shape), around_(std::max(shape.divisionsAxis, 3)), up_(std::max(shape.divisionsHeight, 1)),
          maker_(around_, shape.uvs) {}

    std::shared_ptr<MeshData> run() {
        if (maker_.isTooMuch(up_)) {
            return std::make_shared<MeshData>();
        }
        addPoints();
        addEdges();
        addBottom(maker_, 0, middle_, apexUv_ + 1);
        addSide();
        return maker_.builder().finish();
    }

private:
    void addPoints() {
        MeshBuilder& builder = maker_.builder();
        addCircle(maker_, kConeBase);
        for (std::int32_t ring = 0; ring < up_; ++ring) {
            const double share = static_cast<double>(ring) / up_;
            maker_.addRing(shape_.radius * (1 - share), (share - 0.5) * shape_.height);
            maker_.addUvRow(0.25 + 0.25 * share, 0.75 - 0.25 * share, 0.5 + 0.5 * share);
        }
        middle_ = shape_.fanCap ? builder.addPoint({0, -shape_.height / 2, 0}) : -1;
        apex_ = builder.addPoint({0, shape_.height / 2, 0});
        apexUv_ = builder.uvCount();
        if (shape_.uvs) {
            builder.addUv(0.5, 1.0);
            if (shape_.fanCap) {
                builder.addUv(0.5, kConeBase.fanV);
            }
        }
    }

    void addEdges() {
        for (std::int32_t ring = 0; ring < up_; ++ring) {
            maker_.addRingEdges(ring, ring != 0 && !shape_.hardSides);
        }
        for (std::int32_t ring = 0; ring + 1 < up_; ++ring) {
            maker_.addEdgesBetween(ring, ring + 1, !shape_.hardSides);
        }
        if (middle_ >= 0) {
            maker_.addSpokes(0, middle_, true);
        }
        maker_.addSpokes(up_ - 1, apex_, false, !shape_.hardSides);
    }

    void addSide() {
        for (std::int32_t ring = 0; ring + 1 < up_; ++ring) {
            const std::int32_t uvs = around_ + ring * (around_ + 1);
            maker_.addQuads(ring, ring + 1, uvs, uvs + around_ + 1);
        }
        const std::int32_t last = up_ - 1;
        const std::int32_t uvs = around_ + last * (around_ + 1);
        for (std::int32_t j = 0; j < around_; ++j) {
            maker_.addFace({maker_.vertex(last, j), maker_.vertex(last, j + 1), apex_},
                           {uvs + j, uvs + j + 1, apexUv_});
        }
    }

    const ConeShape& shape_;
    std::int32_t around_, up_;
    RingMaker maker_;
    std::int32_t middle_ = -1; // vertex in the middle of the base; -1: the base is one face
    std::int32_t apex_ = 0, apexUv_ = 0;
};

} // namespace

std::shared_ptr<MeshData> makeCylinder(const CylinderShape& shape) {
    return CylinderMaker(shape).run();
}

std::shared_ptr<MeshData> makeCone(const ConeShape& shape) {
    return ConeMaker(shape).run();
}

} // namespace host
