#pragma once

#include "geometry/Corner.h"

#include <cstdint>
#include <random>

namespace tvk::test {

// What a random polygon is like. Shares are parts of 1.
struct RandomFaces {
    int32_t faces = 100;      // about as many
    double quadShare = 0.5;   // of the cells, sent as quads
    double largeShare = 0;    // of the cells that make a six-sided face with their neighbour, split by splitFace
    double holeShare = 0.05;  // of the cells, left out
    double seamShare = 0.05;  // of the faces, with texture coordinates, normals or colours of their own
    int32_t matrices = 1;     // spread over the polygon in patches
    double strayMatrices = 0; // share of the vertices on any matrix at all
    bool isClosed = false;    // the sheet closes to a torus
    bool isMirrored = false;  // every face winds the other way round
    bool isShuffled = false;  // faces come in any order, beginning at any corner
    uint32_t seed = 1;
};

// A bumpy sheet of faces. Equal settings give equal faces.
FaceList makeRandomFaces(const RandomFaces& settings);

} // namespace tvk::test
