#pragma once

#include "host/mel/CommandTable.h"
#include "host/scene/Scene.h"

#include <string>

namespace host {

/// What `about` tells of the program.
struct HostFacts {
    std::string version = "2020-embedded";
    int apiVersion = 20200000;
    bool isBatch = true;
};

/// Adds the MEL commands over a scene. The scene must outlive the table. Numbers are in the scene's units.
///
///   nodes       createNode delete rename nodeType objExists namespace
///   DAG         parent group instance joint listRelatives xform (query)
///   attributes  setAttr getAttr addAttr attributeQuery
///   connections connectAttr disconnectAttr isConnected connectionInfo listConnections
///   selection   select ls
///   time        currentTime currentUnit playbackOptions
///   files       file workspace filetest sysFile
///   text files  fopen fclose fprint fgetline fgetword fread feof fflush frewind
///   interface   callbacks editorTemplate showEditor refreshEditorTemplates (an attribute editor without windows)
///   dialogs     window columnLayout frameLayout scrollLayout rowLayout checkBoxGrp floatFieldGrp intFieldGrp
///               optionMenuGrp menu menuItem textFieldButtonGrp button setParent showWindow deleteUI fileDialog2
///               (controls without windows), and for whoever plays the user: useControl answerFileDialog
///   host        about optionVar
///
/// A command that changes the scene sets its modified flag. A flag that is not known is an error.
void registerSceneCommands(mel::CommandTable& commands, Scene& scene, const HostFacts& facts = {});

} // namespace host
