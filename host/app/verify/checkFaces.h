#pragma once

#include "host/app/verify/ExportedScene.h"
#include "host/app/verify/Verification.h"

namespace host::app::verify {

/// The polygons of the model file: every face of the scene once, every vertex where the scene has it to half a step of
/// its coordinates, with its normal, texture coordinate, colour, weights and material. Vertices are held against the
/// scene in the numbers that were written: in the space of their node, blended ones in the world at the bind pose.
void checkFaces(const report::ExportedModel& model, const ExportedScene& scene, Verification& result);

} // namespace host::app::verify
