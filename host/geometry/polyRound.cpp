#include "host/geometry/RingMaker.h"
#include "host/geometry/polyPrimitives.h"

#include <algorithm>
#include <cmath>

namespace host {

namespace {

class SphereMaker {
public:
    explicit SphereMaker(const SphereShape& shape)
        : shape_(shape), around_(std::max(shape.divisionsAxis, 3)), up_(std::max(shape.divisionsHeight, 3)),
          rings_(up_ - 1), maker_(around_, shape.uvs) {}

    std::shared_ptr<MeshData> run() {
        if (maker_.isTooMuch(up_)) {
            return std::make_shared<MeshData>();
        }
        addPoints();
        addEdges();
        for (std::int32_t ring = 0; ring + 1 < rings_; ++ring) {
            maker_.addQuads(ring, ring + 1, ring * (around_ + 1), (ring + 1) * (around_ + 1));
        }
        addPoles();
        return maker_.builder().finish();
    }

private:
    void addPoints() {
        for (std::int32_t ring = 0; ring < rings_; ++ring) {
            const double angle = kFullTurn / 2 * (ring + 1) / up_;
            maker_.addRing(shape_.radius * std::sin(angle), -shape_.radius * std::cos(angle));
            maker_.addUvRow(0.0, 1.0, static_cast<double>(ring + 1) / up_);
        }
        bottom_ = maker_.builder().addPoint({0, -shape_.radius, 0});
        maker_.builder().addPoint({0, shape_.radius, 0});
        poleUvs_ = maker_.builder().uvCount();
        for (std::int32_t j = 0; shape_.uvs && j < 2 * around_; ++j) {
            maker_.builder().addUv((j % around_ + 0.5) / around_, j < around_ ? 0.0 : 1.0);
        }
    }

    void addEdges() {
        for (std::int32_t ring = 0; ring < rings_; ++ring) {
            maker_.addRingEdges(ring, true);
        }
        for (std::int32_t ring = 0; ring + 1 < rings_; ++ring) {
            maker_.addEdgesBetween(ring, ring + 1);
        }
        maker_.addSpokes(0, bottom_, true);
        maker_.addSpokes(rings_ - 1, bottom_ + 1, false);
    }

    /// Each triangle at a pole has a texture coordinate of its own there.
    void addPoles() {
        for (std::int32_t j = 0; j < around_; ++j) {
            maker_.addFace({maker_.vertex(0, j + 1), j, bottom_}, {j + 1, j, poleUvs_ + j});
        }
        const std::int32_t last = rings_ - 1;
        const std::int32_t uvs = last * (around_ + 1);
        for (std::int32_t j = 0; j < around_; ++j) {
            maker_.addFace({maker_.vertex(last, j), maker_.vertex(last, j + 1), bottom_ + 1},
                           {uvs + j, uvs + j + 1, poleUvs_ + around_ + j});
        }
    }

    const SphereShape& shape_;
    std::int32_t around_, up_, rings_;
    RingMaker maker_;
    std::int32_t bottom_ = 0, poleUvs_ = 0;
};

/// The rings of a torus go from the inside over the top.
class TorusMaker {
public:
    explicit TorusMaker(const TorusShape& shape)
        : shape_(shape), around_(std::max(shape.divisionsAxis, 3)), section_(std::max(shape.divisionsHeight, 3)),
          maker_(around_, shape.uvs) {}

    std::shared_ptr<MeshData> run() {
        if (maker_.isTooMuch(section_)) {
            return std::make_shared<MeshData>();
        }
        addPoints();
        for (std::int32_t ring = 0; ring < section_; ++ring) {
            maker_.addRingEdges(ring, true);
        }
        for (std::int32_t ring = 0; ring < section_; ++ring) {
            maker_.addEdgesBetween(ring, (ring + 1) % section_);
        }
        for (std::int32_t ring = 0; ring < section_; ++ring) {
            addQuads(ring, (ring + 1) % section_);
        }
        return maker_.builder().finish();
    }

private:
    void addPoints() {
        for (std::int32_t ring = 0; ring < section_; ++ring) {
            const double angle = shape_.twist + kFullTurn * ring / section_;
            maker_.addRing(shape_.radius - shape_.sectionRadius * std::cos(angle),
                           shape_.sectionRadius * std::sin(angle));
        }
        for (std::int32_t row = 0; row <= section_; ++row) {
            maker_.addUvRow(0.0, 1.0, 1.0 - static_cast<double>(row) / section_);
        }
    }

    void addQuads(std::int32_t ring, std::int32_t next) {
        const std::int32_t uv = ring * (around_ + 1);
        const std::int32_t nextUv = uv + around_ + 1;
        for (std::int32_t j = 0; j < around_; ++j) {
            maker_.addFace({maker_.vertex(ring, j + 1), maker_.vertex(ring, j), maker_.vertex(next, j),
                            maker_.vertex(next, j + 1)},
                           {uv + j + 1, uv + j, nextUv + j, nextUv + j + 1});
        }
    }

    const TorusShape& shape_;
    std::int32_t around_, section_;
    RingMaker maker_;
};

} // namespace

std::shared_ptr<MeshData> makeSphere(const SphereShape& shape) {
    return SphereMaker(shape).run();
}

std::shared_ptr<MeshData> makeTorus(const TorusShape& shape) {
    return TorusMaker(shape).run();
}

} // namespace host
