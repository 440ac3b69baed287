#pragma once

#include "scene/SceneData.h"

namespace tvk {

/// Brings what was read into the form that is written, once vertices are placed and polygons combined. Points are
/// divided by the model's scale; positions, normals, colours and texture coordinates go into the model's tables; faces
/// are turned the way they are seen, split and put into their polygons. Polygons without a face that can be drawn are
/// dropped, the others are listed by their shapes. Polygons and nodes get their bounding volumes. What was read of the
/// corners is freed.
///   united   nodes are united: the root draws everything
/// Takes time linear in vertices and corners, faces of few corners given.
void fillTables(SceneData& scene, bool united);

} // namespace tvk
