#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace host::messages {

/// The pattern with %1, %2 … replaced by the arguments. One line: bytes below a blank become '?', long arguments are
/// cut.
std::string text(std::string_view pattern, std::initializer_list<std::string_view> arguments);

// Every text of this room, whoever says it: the reader puts "FILE(LINE): " before warnings and "FILE:LINE:COLUMN: "
// before errors, MEL commands return them as they are.

// --- opening a file
constexpr std::string_view kFileMissing = "File not found: %1";
constexpr std::string_view kFileIsDirectory = "File is a directory: %1";
constexpr std::string_view kFileUnreadable = "File cannot be read: %1 (%2)";
constexpr std::string_view kFileIsNoFile = "File is not a regular file: %1";
constexpr std::string_view kFileEmpty = "File is empty: %1";
constexpr std::string_view kFileBinary =
    "File is a Maya Binary scene, which cannot be read; save it as Maya ASCII (.ma): %1";

// --- names
constexpr std::string_view kNoObject = "No object matches name: %1";
constexpr std::string_view kManyObjects = "More than one object matches name: %1";
constexpr std::string_view kNoAttribute = "No attribute matches name: %1";
constexpr std::string_view kIllegalName = "name '%1' is not legal; the node is called '%2'";

// --- syntax: what was expected, what was found
constexpr std::string_view kExpected = "expected %1, found %2";

// --- statements that are left out, and parts of them
constexpr std::string_view kUnknownCommand = "unknown command '%1' is skipped";
constexpr std::string_view kForbiddenCommand = "command '%1' is not run from a scene file";
constexpr std::string_view kUnknownFlag = "unknown flag '-%1' of command '%2' is skipped";
constexpr std::string_view kInvalidFlag = "Invalid flag '-%1'"; // of a command
constexpr std::string_view kUnknownNodeType =
    "unknown node type '%1': its nodes keep their names and place, but do nothing";
constexpr std::string_view kUnknownAttribute = "unknown attribute '%1' of node type '%2' is skipped";
constexpr std::string_view kUnknownValueType = "unknown value type '%1' is skipped: %2";
constexpr std::string_view kScriptNode = "script node '%1' is not run";
constexpr std::string_view kUnknownUnit = "unknown unit '%1'";
constexpr std::string_view kUnknownCodeset = "codeset '%1' is not known; text beyond ASCII is kept as it is";
constexpr std::string_view kBrokenText = "text that is not valid in codeset '%1' was replaced by '?'";
constexpr std::string_view kNoCurrentNode = "no current node to set '%1' on";
constexpr std::string_view kShapeAsParent = "'%1' cannot have children; '%2' is placed below the world";
constexpr std::string_view kNotDag = "'%1' is not in the DAG and has no place below '%2'";

// --- references
constexpr std::string_view kReferenceNotLoaded =
    "reference '%1' is not loaded, so that its nodes are missing in the scene: %2";
constexpr std::string_view kReferenceUnloaded =
    "reference '%1' is unloaded in the scene, so that its nodes are missing: %2";
constexpr std::string_view kReferenceAscii =
    "reference '%1' is Maya Binary, which cannot be read; this file is read instead: %2";
constexpr std::string_view kReferenceCycle = "File refers to itself, directly or through others: %1";
constexpr std::string_view kReferenceDepth = "File lies more than %1 references deep: %2";
constexpr std::string_view kReferenceCount = "The scene refers to too many files, or to too much in them: %1";
constexpr std::string_view kEditsNotDone = "%1 of %2 edits of reference '%3' do not fit what it brings; the first: %4";
constexpr std::string_view kEditCut = "an edit does not name all that it is about";
constexpr std::string_view kEditNotKnown = "this kind of edit is not known";
constexpr std::string_view kAttributeStays = "attribute '%1' stays";
constexpr std::string_view kNoNamespace = "No namespace is called '%1'";

// --- layers
constexpr std::string_view kCurrentLayer = "render layer '%1' is the current one: what it overrides (%2) is as this "
                                           "layer has it, not as the master layer does";

// --- values
constexpr std::string_view kUnknownComponent = "unknown component '%1' is skipped";
constexpr std::string_view kWrongType = "value of type '%1' does not fit attribute '%2'";
constexpr std::string_view kTooManyValues = "more values than attribute '%1' takes";
constexpr std::string_view kNoValue = "attribute '%1' holds no value";
constexpr std::string_view kTooDeep = "'%1' names more than one range of elements";
constexpr std::string_view kBadRange = "'%1' is no range of elements";
constexpr std::string_view kLocked = "attribute '%1' is locked";

// --- attributes
constexpr std::string_view kNoAttributeName = "an attribute needs a name";
constexpr std::string_view kIllegalAttributeName = "attribute name '%1' is not legal";
constexpr std::string_view kAttributeExists = "node '%1' has an attribute '%2' already";
constexpr std::string_view kNoParentAttribute = "no compound attribute '%1' to add '%2' to";
constexpr std::string_view kUnknownType = "Unknown object type: %1";
constexpr std::string_view kTooManyLevels = "attribute '%1' would lie in too many compounds";
constexpr std::string_view kUnknownAttributeType = "unknown attribute type '%1'";

// --- structure
constexpr std::string_view kDefaultNode = "'%1' belongs to every scene and stays as it is";
constexpr std::string_view kNoLegalName = "'%1' has no legal characters for a name";
constexpr std::string_view kLastParent = "'%1' has no other instance";
constexpr std::string_view kNotTransform = "'%1' is no transform";
constexpr std::string_view kNotConnected = "'%1' is not connected to '%2'";
constexpr std::string_view kNeedsObjects = "%1 needs %2";
constexpr std::string_view kNothingSelected = "nothing is selected";
constexpr std::string_view kNoOpenLayout = "editorTemplate -endLayout without a layout that is open";
constexpr std::string_view kOpenLayout = "a template of the attribute editor leaves a layout open";

// --- dialogs
constexpr std::string_view kControlExists = "A control is called '%1' already";
constexpr std::string_view kNoControl = "No control is called '%1'";
constexpr std::string_view kControlDisabled = "The control '%1' is not enabled";
constexpr std::string_view kNoChoice = "The menu '%1' has no item %2";

// --- files and projects
constexpr std::string_view kNoProject = "Project folder not found: %1";
constexpr std::string_view kUnsavedChanges = "The scene has unsaved changes; -force drops them";
constexpr std::string_view kNoExporter = "no translator writes files of type '%1'";

} // namespace host::messages
