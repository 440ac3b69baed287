#pragma once

#include "ExportSession.h"

#include <maya/MStatus.h>

#include <string>

namespace tvk {

/// An export session that goes through the passes over the scene up to the filled tables, and no further.
class GeometrySession : public ExportSession {
public:
    /// Opens a scene of these statements and reads nodes and shapes.
    MStatus readShapesOf(const std::string& statements, const std::string& options = "");
    /// The same in a scene that is open and a run that is prepared.
    MStatus readOpenShapes();
    /// Opens a scene, reads its shapes and makes the polygon records.
    MStatus buildRecordsOf(const std::string& statements, const std::string& options = "");
    /// The same, and places vertices and fills the tables.
    MStatus gatherFrom(const std::string& statements, const std::string& options = "");

    SceneData& scene() const { return run().scene; }
    const ShapeRecord& shape(std::size_t place = 0) const { return scene().shapes.at(place); }
    const PolygonRecord& polygon(std::size_t place = 0) const { return scene().polygons.at(place); }
    NodeRecord& record(const std::string& name) const;
    /// What a vertex of the first shape follows: "joint1 100", or "joint1 30, joint2 70".
    std::string binding(std::size_t vertex) const;
};

} // namespace tvk
