#include "drawnFaces.h"

#include <gtest/gtest.h>

namespace tvk {
namespace {

// More would only bury the first.
constexpr std::size_t kToldFailures = 5;

} // namespace

void expectDrawn(const decode::ModelFile& file, const decode::ModelGeometry& model, const std::vector<SceneFace>& faces,
                 const FaceTolerance& tolerance) {
    std::vector<const decode::DrawnPolygon*> polygons;
    for (const decode::DrawnPolygon& polygon : model.polygons) {
        polygons.push_back(&polygon);
    }
    const FaceDifferences found =
        host::app::verify::compareFaces(host::app::verify::drawnMaterials(file), polygons, faces, tolerance);
    for (std::size_t i = 0; i < found.texts.size() && i < kToldFailures; ++i) {
        ADD_FAILURE() << found.texts[i].what << found.texts[i].details;
    }
    EXPECT_EQ(found.count, 0U) << "differences in all";
}

} // namespace tvk
