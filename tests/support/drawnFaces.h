#pragma once

#include "SceneFaces.h"
#include "decode/ModelGeometry.h"

#include <vector>

namespace tvk {

// What a model draws, held against the faces of the scene.

struct FaceTolerance {
    double position = 1.0 / 2048;
    double normal = 0.01; // between ends of unit vectors
    bool compareMaterials = true;
};

/// Gives a test failure unless the polygons of the model are the faces of the scene, each once: every drawn triangle
/// and quad has corners of one face, in their order round it, with their normals, texture coordinates and colours where
/// the polygon has such, and the face's material; what is drawn of a face makes up its whole area. Faces thinner than
/// the tolerance may be missing.
void expectDrawn(const decode::ModelFile& file, const decode::ModelGeometry& model, const std::vector<SceneFace>& faces,
                 const FaceTolerance& tolerance = {});

} // namespace tvk
