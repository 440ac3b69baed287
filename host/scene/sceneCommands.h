#pragma once

#include "host/mel/CommandTable.h"
#include "host/scene/Scene.h"

namespace host {

/// Adds the MEL commands over a scene. The scene must outlive the table. Numbers are in the scene's units.
///
///   nodes       createNode delete rename parent group instance joint nodeType objExists
///   attributes  setAttr getAttr addAttr deleteAttr attributeQuery
///   connections connectAttr disconnectAttr isConnected connectionInfo listConnections
///   selection   select ls listRelatives
///   transforms  xform (query)
///   time        currentTime currentUnit playbackOptions
///   files       file workspace
///   host        about optionVar
///
/// A command that changes the scene sets its modified flag.
void registerSceneCommands(mel::CommandTable& commands, Scene& scene);

} // namespace host
