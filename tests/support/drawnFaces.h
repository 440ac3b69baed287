#pragma once

#include "SceneFaces.h"
#include "decode/ModelGeometry.h"
#include "host/app/verify/FaceComparison.h"

#include <vector>

namespace tvk {

// What a model draws, held against the faces of the scene.

using host::app::verify::FaceDifferences;
using host::app::verify::FaceTolerance;

/// Gives a test failure for each difference that compareFaces finds, five at the most.
void expectDrawn(const decode::ModelFile& file, const decode::ModelGeometry& model, const std::vector<SceneFace>& faces,
                 const FaceTolerance& tolerance = {});

} // namespace tvk
