#pragma once

#include "ExportSession.h"
#include "SceneFaces.h"
#include "decode/AnimationFile.h"
#include "decode/ModelGeometry.h"
#include "drawnFaces.h"
#include "meshScene.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tvk {

/// Scenes with meshes that are exported whole and read back.
class GeometryExport : public testing::Test {
protected:
    /// Opens a scene of these statements and exports it to model.imd, which `file` and `model` are then what it says.
    void exportScene(const std::string& statements, const std::string& options = "");
    /// The same of the open scene as it is.
    void exportOpen(const std::string& options = "", bool selected = false);
    /// A scene that must not be exported: fails with these messages and leaves no file.
    void expectRefused(const std::string& statements, const std::string& messages, const std::string& options = "");

    /// Moves what was read as the host's nodes stand now.
    void poseAsTheHost();
    /// Moves it as a player of model.ica does, and the host to the same frame; frames of the file count from 0.
    void play(const decode::AnimationFile& animation, int frame);
    /// The faces of a shape as the host has it now.
    std::vector<SceneFace> facesOf(const std::string& shape) const { return sceneFaces(session.path(shape)); }
    void expectDrawnAs(const std::vector<SceneFace>& faces, double position = 1.0 / 2048) const;
    /// The drawn vertex nearest to a place in the world; a test failure when it is not within 2/4096.
    const decode::DrawnVertex& vertexAt(const Imath::V3d& world) const;
    /// Children of an element of the body; a test failure when there is no such element.
    const decode::FileElement& part(const char* name) const;

    ExportSession session;
    decode::ModelFile file;
    decode::ModelGeometry model;
};

/// The box between two corners, its faces to the outside.
MeshSpec box(const Imath::V3d& least, const Imath::V3d& greatest);
/// Unit squares in the xy plane, `across` by `up` of them, from 0 0 0 on; vertices row by row.
MeshSpec grid(int across, int up, double size = 1.0);
/// Makes the texture coordinates of all corners of all faces ones of their own.
MeshSpec withUvIslands(MeshSpec mesh);

} // namespace tvk
