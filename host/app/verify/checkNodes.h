#pragma once

#include "host/app/verify/ExportedScene.h"
#include "host/app/verify/Verification.h"

namespace host::app::verify {

/// How far a node's channels may be from the scene's, besides half a step: scale x y z, rotation x y z in degrees,
/// translation x y z; a negative one is not compared.
struct ChannelTolerances {
    double scale[3] = {}, rotate[3] = {}, translate[3] = {};
    double parentScale = 0.0; // of the parent's scale, when that is only known from the file
};

/// Where the errors of a node's channels go.
struct NodeParts {
    Part scale = Part::kNodes, rotation = Part::kNodes, translation = Part::kNodes;
};

/// Holds a node's scale, rotation and translation against what they have to be for it to stand in the scene.
///   node          of the file, with the values that are looked at
///   parentScale   what the node undoes when it compensates its parent's scale; 1 1 1 when it does not
///   expected      world matrix about the node's origin
///   base          what its parent's is
///   place, when   name file and node, and the frame, in findings
void checkChannels(const decode::ModelNode& node, const Imath::V3d& parentScale, const Imath::M44d& expected,
                   const Imath::M44d& base, const ChannelTolerances& tolerances, const NodeParts& parts,
                   const std::string& place, const std::string& when, Verification& result);

/// The scale that a node undoes: that of its parent in the scene at the current time, or in the file, when its parent
/// there is not the scene's own.
///   parent        of the file; null for a root
///   sceneParent   null when the scene has none
///   tolerances    `parentScale` holds how far the file may be off, negative for any distance; it becomes 0 when the
///   scene
///                 has told the scale
Imath::V3d undoneScale(const decode::ModelNode& node, const decode::ModelNode* parent, const SceneNode* sceneParent,
                       ChannelTolerances& tolerances);

/// The nodes of the model file: names, transforms and visibility as the scene has them at the start, joints of skins
/// where they were bound.
void checkNodes(const report::ExportedModel& model, const ExportedScene& scene, Verification& result);

} // namespace host::app::verify
