#include "host/nodes/apiTypes.h"
#include "host/nodes/typeRows.h"
#include "host/nodes/typeTables.h"

namespace host {

namespace {

using namespace row;

constexpr AttributeRow kScript[] = {
    {"before", "b", "string"},
    {"after", "a", "string"},
    {"scriptType",
     "st",
     "enum",
     {},
     0,
     0,
     "Demand:Open/Close:GUI Open/Close:UI Configuration:Software Render:Software Frame Render:Scene Configuration:Time "
     "Changed"},
    {"sourceType", "stp", "enum", {}, 0, 0, "MEL:Python"},
    {"ignoreReferenceEdits", "ire", "bool"},
};

constexpr AttributeRow kReference[] = {
    {"fileNames", "fn", "string", {}, 0, kArray},
    {"edits", "ed", "data"},
    {"placeHolderNamespace", "phns", "string"},
    {"placeHolderList", "phl", "any", {}, 0, kArray | kUnordered},
    {"placeHolderNodes", "phn", "any", {}, 0, kArray},
    {"proxyTag", "ptag", "string"},
    {"proxyMsg", "pm", "message"},
    {"sharedReference", "sr", "any"},
    {"parentReference", "pr", "message"},
    {"associatedNode", "an", "message", {}, 0, kArray},
    {"fosterParent", "fp", "message"},
    {"multiParentList", "mpl", "any", {}, 0, kArray},
    {"parentList", "pl", "any", {}, 0, kArray},
    {"locked", "lk", "bool"},
    {"unknownReference", "ur", "message"},
    {"usedBy", "ub", "any", {}, 0, kArray},
};

// drawInfo drives a node's drawOverride child by child, in this order.
constexpr AttributeRow kDisplayLayer[] = {
    {"drawInfo", "di", "compound"},
    {".displayType", "dt", "enum", {}, 0, 0, "Normal:Template:Reference"},
    {".levelOfDetail", "lod", "enum", {}, 0, 0, "Full:Bounding Box"},
    {".shading", "s", "bool", {}, 1},
    {".texturing", "t", "bool", {}, 1},
    {".playback", "p", "bool", {}, 1},
    {".enabled", "e", "bool", {}, 1},
    {".visibility", "v", "bool", {}, 1},
    {".hideOnPlayback", "hpb", "bool"},
    {".overrideRGBColors", "ovrgbf", "bool"},
    {".color", "c", "byte"},
    {".overrideColorRGB", "ovrgb", "float3", "overrideColorR ovcr overrideColorG ovcg overrideColorB ovcb", 0, kColor},
    {".overrideColorA", "ovca", "float", {}, 1},
    {"identification", "id", "short"},
    {"displayOrder", "do", "short"},
    {"ufeMembers", "ufem", "stringArray"},
};

constexpr AttributeRow kDisplayLayerManager[] = {
    {"displayLayerId", "dli", "short", {}, 0, kArray},
    {"currentDisplayLayer", "cdl", "short"},
};

constexpr AttributeRow kRenderLayer[] = {
    {"identification", "rlid", "short"},
    {"renderable", "rndr", "bool", {}, 1},
    {"color", "c", "byte"},
    {"global", "g", "bool"},
    {"displayOrder", "do", "short"},
    {"adjustments", "adjs", "compound", {}, 0, kArray},
    {".plug", "plg", "any"},
    {".value", "val", "any"},
    {"outAdjustments", "oajs", "compound", {}, 0, kArray},
    {".outPlug", "opl", "any"},
    {".outValue", "ovl", "any"},
    {"attributeOverrideScript", "aovs", "string"},
    {"renderInfo", "ri", "any"},
    {"shadingGroupOverride", "sgo", "any"},
    {"renderPassInfo", "rpi", "any"},
};

constexpr AttributeRow kRenderLayerManager[] = {
    {"renderLayerId", "rlmi", "short", {}, 0, kArray},
    {"currentRenderLayer", "crl", "short"},
    {"renderLayerOverrides", "rlo", "any", {}, 0, kArray},
};

constexpr AttributeRow kLightLinker[] = {
    {"link", "lnk", "compound", {}, 0, kArray | kUnordered},
    {".light", "llnk", "message"},
    {".object", "olnk", "message"},
    {"ignore", "ign", "compound", {}, 0, kArray | kUnordered},
    {".lightIgnored", "lign", "message"},
    {".objectIgnored", "oign", "message"},
    {"shadowLink", "slnk", "compound", {}, 0, kArray | kUnordered},
    {".shadowLight", "sllk", "message"},
    {".shadowObject", "solk", "message"},
    {"shadowIgnore", "sign", "compound", {}, 0, kArray | kUnordered},
    {".shadowLightIgnored", "slig", "message"},
    {".shadowObjectIgnored", "soig", "message"},
};

constexpr AttributeRow kNodeGraphEditorInfo[] = {
    {"tabGraphInfo", "tgi", "compound", {}, 0, kArray},
    {".tabName", "tn", "string"},
    {".viewRectLow", "vl", "double2", "viewRectLowX vlx viewRectLowY vly"},
    {".viewRectHigh", "vh", "double2", "viewRectHighX vhx viewRectHighY vhy"},
    {".nodeInfo", "ni", "compound", {}, 0, kArray},
    {"..dependNode", "dn", "message"},
    {"..positionX", "x", "float"},
    {"..positionY", "y", "float"},
    {"..nodeVisualState", "nvs", "long"},
    {"panelEditEnable", "pee", "bool"},
};

constexpr AttributeRow kShapeEditorManager[] = {
    {"blendShapeDirectory", "bsdt", "compound", {}, 0, kArray}, {".blendShapeDirectoryName", "bsdn", "string"},
    {".blendShapeChildIndices", "bscd", "Int32Array"},          {".blendShapeParentIndex", "bspi", "long"},
    {".blendShapeDirectoryVisibility", "bsdv", "bool", {}, 1},  {"blendShapeParent", "bspr", "long", {}, 0, kArray},
    {"outBlendShapeVisibility", "obsv", "bool", {}, 1, kArray}, {"filterString", "fs", "string"},
};

constexpr AttributeRow kTrackInfoManager[] = {
    {"trackInfo", "ti", "any", {}, 0, kArray},
};

constexpr AttributeRow kSequenceManager[] = {
    {"currentSequence", "cs", "any"},
    {"sequences", "seqts", "any", {}, 0, kArray},
    {"trackInfoManager", "tim", "message"},
    {"outTime", "o", "any"},
};

constexpr AttributeRow kIkSystem[] = {
    {"ikSolver", "sol", "message", {}, 0, kArray | kUnordered},
    {"globalSnap", "gsn", "bool", {}, 1},
    {"globalSolve", "gsv", "bool", {}, 1},
};

constexpr AttributeRow kIkSolver[] = {
    {"tolerance", "tol", "double", {}, 0.0001},
    {"maxIterations", "mxi", "short", {}, 100},
};

constexpr AttributeRow kHyperLayout[] = {
    {"hyperPosition", "hyp", "compound", {}, 0, kArray},
    {".dependNode", "dn", "message"},
    {".positionX", "x", "float"},
    {".positionY", "y", "float"},
    {".isCollapsed", "isc", "bool"},
    {".isFreeform", "isf", "bool"},
    {"allNodesFreeform", "anf", "bool"},
    {"imageName", "img", "string"},
};

constexpr TypeRow kTypes[] = {
    {"script", "dependNode", api::kScript, kScript},
    {"reference", "dependNode", api::kReference, kReference},
    {"fosterParent", "transform", api::kTransform},
    {"displayLayer", "dependNode", api::kDisplayLayer, kDisplayLayer},
    {"displayLayerManager", "dependNode", api::kDisplayLayerManager, kDisplayLayerManager},
    {"renderLayer", "dependNode", api::kRenderLayer, kRenderLayer},
    {"renderLayerManager", "dependNode", api::kRenderLayerManager, kRenderLayerManager},
    {"lightLinker", "dependNode", api::kLightLink, kLightLinker},
    {"nodeGraphEditorInfo", "dependNode", api::kNodeGraphEditorInfo, kNodeGraphEditorInfo},
    {"nodeGraphEditorBookmarks", "dependNode", api::kNodeGraphEditorBookmarks},
    {"shapeEditorManager", "dependNode", api::kShapeEditorManager, kShapeEditorManager},
    {"poseInterpolatorManager", "dependNode", api::kPoseInterpolatorManager},
    {"trackInfoManager", "dependNode", api::kTrackInfoManager, kTrackInfoManager},
    {"sequenceManager", "dependNode", api::kSequenceManager, kSequenceManager},
    {"hyperGraphInfo", "dependNode", api::kHyperGraphInfo},
    {"hyperLayout", "dependNode", api::kHyperLayout, kHyperLayout},
    {"hyperView", "dependNode", api::kHyperView},
    {"ikSystem", "dependNode", api::kIkSystem, kIkSystem},
    {"ikSolver", "dependNode", api::kIkSolver, kIkSolver},
    {"ikSCsolver", "ikSolver", api::kSCsolver},
    {"ikRPsolver", "ikSolver", api::kRPsolver},
    {"ikSplineSolver", "ikSolver", api::kSplineSolver},
    {"ikMCsolver", "ikSolver", api::kMCsolver},
    {"ik2Bsolver", "ikSolver", api::kIk2Bsolver},
    {"objectFilter", "dependNode", api::kObjectFilter},
    {"objectNameFilter", "objectFilter", api::kObjectNameFilter},
    {"objectTypeFilter", "objectFilter", api::kObjectTypeFilter},
    {"objectMultiFilter", "objectFilter", api::kObjectMultiFilter},
    {"objectAttrFilter", "objectFilter", api::kObjectAttrFilter},
    {"objectScriptFilter", "objectFilter", api::kObjectScriptFilter},
    {"globalCacheControl", "dependNode", api::kGlobalCacheControls},
    {"strokeGlobals", "dependNode", api::kStrokeGlobals},
    {"dynController", "dependNode", api::kDependencyNode},
    {"container", "dependNode", api::kContainer},
};

} // namespace

void registerSystemTypes(NodeTypeRegistry& types) {
    registerRows(types, kTypes);
}

} // namespace host
