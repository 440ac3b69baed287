#include "host/nodes/apiTypes.h"
#include "host/nodes/historyCompute.h"
#include "host/nodes/polyCompute.h"
#include "host/nodes/polyFaceCompute.h"
#include "host/nodes/typeRows.h"
#include "host/nodes/typeTables.h"

namespace host {

namespace {

using namespace row;

constexpr AttributeRow kPolyModifier[] = {
    {"inputPolymesh", "ip", "mesh"},       {"inputComponents", "ics", "componentList"},
    {"useInputComp", "uc", "bool", {}, 1}, {"useOldPolyArchitecture", "uopa", "bool"},
    {"inputMatrix", "ix", "matrix"},       {"manipMatrix", "mp", "matrix"},
    {"worldSpace", "ws", "bool", {}, 1},
};

constexpr AttributeRow kPolyColorPerVertex[] = {
    {"colorPerVertex", "cpv", "compound"},
    {".vertexColor", "vclr", "compound", {}, 0, kArray},
    {"..vertexColorRGB", "vrgb", "float3", "vertexColorR vxcr vertexColorG vxcg vertexColorB vxcb"},
    {"..vertexAlpha", "vxal", "float", {}, 1},
    {"..vertexFaceColor", "vfcl", "compound", {}, 0, kArray},
    {"...vertexFaceColorRGB", "frgb", "float3", "vertexFaceColorR vfcr vertexFaceColorG vfcg vertexFaceColorB vfcb"},
    {"...vertexFaceAlpha", "vfal", "float", {}, 1},
    {"colorSetName", "cn", "string"},
    {"representation", "rprt", "enum", {}, 4},
    {"clamped", "clam", "bool", {}, 1},
};

constexpr AttributeRow kPolyTweak[] = {
    {"tweak", "tk", "floatLinear3", "XYZ", 0, kArray},
};

constexpr AttributeRow kPolyTweakUv[] = {
    {"uvTweak", "uvtk", "float2", "uvTweakX tx uvTweakY ty", 0, kArray},
    {"uvSetName", "uvs", "string"},
};

constexpr AttributeRow kPolyNormal[] = {
    {"normalMode", "nm", "enum"},
    {"userNormalMode", "unm", "bool", {}, 1},
};

constexpr AttributeRow kPolySoftEdge[] = {
    {"angle", "a", "angle", {}, 30, kKeyable},
};

constexpr AttributeRow kPolyQuad[] = {
    {"angle", "a", "angle", {}, 30, kKeyable},
    {"keepGroupBorder", "kgb", "bool", {}, 1},
    {"keepHardEdges", "khe", "bool", {}, 1},
    {"keepTextureBorders", "ktb", "bool", {}, 1},
};

constexpr AttributeRow kPolySubdFace[] = {
    {"divisions", "dv", "long", {}, 1, kKeyable},
    {"divisionsU", "du", "long", {}, 2},
    {"divisionsV", "dvv", "long", {}, 2},
    {"mode", "m", "enum"},
    {"subdMethod", "sbm", "enum"},
};

constexpr AttributeRow kPolySmoothFace[] = {
    {"method", "mth", "enum"},
    {"subdivisionType", "sdt", "enum"},
    {"osdVertBoundary", "ovb", "enum", {}, 1},
    {"osdFvarBoundary", "ofb", "enum", {}, 3},
    {"osdFvarPropagateCorners", "ofc", "bool"},
    {"osdSmoothTriangles", "ost", "bool"},
    {"osdCreaseMethod", "ocr", "enum"},
    {"divisions", "dv", "long", {}, 1, kKeyable},
    {"continuity", "c", "float", {}, 1, kKeyable},
    {"smoothUVs", "suv", "bool"},
    {"keepBorder", "kb", "bool", {}, 1},
    {"keepSelectionBorder", "ksb", "bool", {}, 1},
    {"keepHardEdge", "khe", "bool"},
    {"keepTessellation", "kt", "bool", {}, 1},
    {"keepMapBorders", "kmb", "enum", {}, 1},
    {"propagateEdgeHardness", "peh", "bool"},
    {"subdivisionLevels", "sl", "long", {}, 1},
    {"divisionsPerEdge", "dpe", "long", {}, 1},
    {"pushStrength", "ps", "float"},
    {"roundness", "ro", "float"},
    {"maya65", "ma", "bool"},
    {"maya2008", "m08", "bool"},
};

constexpr AttributeRow kPolyMergeVert[] = {
    {"distance", "d", "distance", {}, 0.01, kKeyable},
    {"texture", "tx", "bool", {}, 1},
    {"alwaysMergeTwoVertices", "am", "bool"},
};

/// Of modifiers that move what they work on.
constexpr AttributeRow kPolyMove[] = {
    {"translate", "t", "distance3", "XYZ", 0, kKeyable},
    {"rotate", "r", "angle3", "XYZ", 0, kKeyable},
    {"scale", "s", "double3", "XYZ", 1, kKeyable},
    {"pivot", "pvt", "floatLinear3", "XYZ=pv"},
    {"random", "ran", "float"},
    {"randomSeed", "rs", "long"},
    {"localTranslate", "lt", "distance3", "XYZ", 0, kKeyable},
    {"localRotate", "lr", "angle3", "XYZ", 0, kKeyable},
    {"localScale", "ls", "double3", "XYZ", 1, kKeyable},
    {"localDirection", "ld", "double3", "XYZ", {1, 0, 0}},
};

constexpr AttributeRow kPolyChipOff[] = {
    {"offset", "off", "float", {}, 0, kKeyable},
    {"keepFacesTogether", "kft", "bool", {}, 1},
    {"duplicate", "dup", "bool", {}, 1},
};

constexpr AttributeRow kPolyExtrudeFace[] = {
    {"offset", "off", "float", {}, 0, kKeyable},
    {"keepFacesTogether", "kft", "bool", {}, 1},
    {"inputProfileCurve", "ipc", "any"},
    {"divisions", "d", "long", {}, 1, kKeyable},
    {"twist", "twt", "angle", {}, 0, kKeyable},
    {"taper", "tp", "double", {}, 1, kKeyable},
    {"taperCurve", "c", "compound", {}, 0, kArray},
    {".taperCurve_Position", "cp", "float"},
    {".taperCurve_FloatValue", "cfv", "float"},
    {".taperCurve_Interp", "ci", "enum"},
    {"thickness", "tk", "distance", {}, 0, kKeyable},
    {"smoothingAngle", "sma", "angle", {}, 30, kKeyable},
    {"reverseAllFaces", "rall", "bool"},
    {"compBoundingBoxMin", "cbn", "distance3", "XYZ"},
    {"compBoundingBoxMax", "cbx", "distance3", "XYZ"},
};

constexpr AttributeRow kPolySeparate[] = {
    {"inputPoly", "ip", "mesh"},
    {"icount", "ic", "long"},
    {"output", "out", "mesh", {}, 0, kArray | kComputed},
};

constexpr AttributeRow kPolyDelEdge[] = {
    {"cleanVertices", "cv", "bool"},
};

constexpr AttributeRow kPolyMapDel[] = {
    {"uvSetName", "uvs", "string"},
};

constexpr AttributeRow kPolyUnite[] = {
    {"inputPoly", "ip", "mesh", {}, 0, kArray},
    {"inputMat", "im", "matrix", {}, 0, kArray},
    {"mergeUVSets", "muv", "enum", {}, 1},
    {"blindDataMode", "bdm", "enum"},
};

constexpr AttributeRow kDeleteComponent[] = {
    {"inputGeometry", "ig", "geometry"},
    {"deleteComponents", "dc", "componentList"},
    {"outputGeometry", "og", "geometry", {}, 0, kComputed},
};

constexpr AttributeRow kCreateColorSet[] = {
    {"inputGeometry", "ig", "geometry"},
    {"colorSetName", "cs", "string"},
    {"representation", "rprt", "enum", {}, 3},
    {"clamped", "clam", "bool"},
    {"outputGeometry", "og", "geometry", {}, 0, kComputed},
};

constexpr AttributeRow kUvSetNode[] = {
    {"inputGeometry", "ig", "geometry"},
    {"uvSetName", "uvs", "string"},
    {"outputGeometry", "og", "geometry", {}, 0, kComputed},
};

constexpr TypeBehaviour kNotEvaluated{DagRole::kNone, nullptr, {}, true};
constexpr TypeBehaviour kRefusedModifier{DagRole::kNone, computeRefusedModifier, {}, true};
constexpr TypeBehaviour kPassingGeometry{DagRole::kNone, computePassingGeometry, {}, true};

constexpr TypeBehaviour computedBy(ComputeFunction compute) {
    return {DagRole::kNone, compute};
}

constexpr TypeRow kTypes[] = {
    {"polyUnite", "polyCreator", api::kPolyUnite, kPolyUnite, computedBy(computePolyUnite)},
    {"polySeparate", "dependNode", api::kPolySeparate, kPolySeparate, computedBy(computePolySeparate)},
    {"polyModifier", "polyBase", api::kMidModifier, kPolyModifier, kRefusedModifier},
    {"polyMoveVertex", "polyModifier", api::kPolyMoveVertex, kPolyMove, computedBy(computePolyMove)},
    {"polyMoveEdge", "polyMoveVertex", api::kPolyMoveEdge},
    {"polyMoveFace", "polyMoveVertex", api::kPolyMoveFacet},
    {"polyChipOff", "polyMoveFace", api::kPolyChipOff, kPolyChipOff, computedBy(computePolyChipOff)},
    {"polyExtrudeFace", "polyMoveFace", api::kPolyExtrudeFacet, kPolyExtrudeFace, computedBy(computePolyExtrudeFace)},
    {"polyAppend", "polyModifier", api::kPolyAppend},
    {"polyAppendVertex", "polyModifier", api::kPolyAppendVertex},
    {"polyAutoProj", "polyModifier", api::kPolyAutoProj},
    {"polyAverageVertex", "polyModifier", api::kPolyAverageVertex},
    {"polyBevel", "polyModifier", api::kPolyBevel},
    {"polyBevel2", "polyModifier", api::kPolyBevel2},
    {"polyBevel3", "polyModifier", api::kPolyBevel3},
    {"polyBlindData", "polyModifier", api::kMidModifier, computedBy(computeUnchanged)},
    {"polyBoolOp", "polyBase", api::kPolyBoolOp},
    {"polyCBoolOp", "polyBase", api::kPolyCBoolOp},
    {"polyBridgeEdge", "polyModifier", api::kPolyBridgeEdge},
    {"polyCloseBorder", "polyModifier", api::kPolyCloseBorder},
    {"polyCollapseEdge", "polyModifier", api::kPolyCollapseEdge},
    {"polyCollapseF", "polyModifier", api::kPolyCollapseF},
    {"polyColorDel", "polyModifier", api::kPolyColorDel},
    {"polyColorMod", "polyModifier", api::kPolyColorMod},
    {"polyColorPerVertex", "polyModifier", api::kPolyColorPerVertex, kPolyColorPerVertex,
     computedBy(computePolyColorPerVertex)},
    {"polyConnectComponents", "polyModifier", api::kPolyConnectComponents},
    {"polyCrease", "polyModifier", api::kPolyCrease, computedBy(computeUnchanged)},
    {"polyCreaseEdge", "polyModifier", api::kPolyCreaseEdge, computedBy(computeUnchanged)},
    {"polyCut", "polyModifier", api::kPolyCut},
    {"polyCylProj", "polyModifier", api::kPolyCylProj},
    {"polyDelEdge", "polyModifier", api::kPolyDelEdge, kPolyDelEdge, computedBy(computePolyDelEdge)},
    {"polyDelFacet", "polyModifier", api::kPolyDelFacet, computedBy(computePolyDelFacet)},
    {"polyDelVertex", "polyModifier", api::kPolyDelVertex, computedBy(computePolyDelVertex)},
    {"polyDuplicateEdge", "polyModifier", api::kPolyDuplicateEdge},
    {"polyEditEdgeFlow", "polyModifier", api::kPolyEditEdgeFlow},
    {"polyExtrudeEdge", "polyModifier", api::kPolyExtrudeEdge},
    {"polyExtrudeVertex", "polyModifier", api::kPolyExtrudeVertex},
    {"polyFlipEdge", "polyModifier", api::kPolyFlipEdge},
    {"polyFlipUV", "polyModifier", api::kPolyFlipUV},
    {"polyHoleFace", "polyModifier", api::kPolyHoleFace, computedBy(computeUnchanged)},
    {"polyLayoutUV", "polyModifier", api::kPolyLayoutUV},
    {"polyMapCut", "polyModifier", api::kPolyMapCut, computedBy(computeUnchanged)},
    {"polyMapDel", "polyModifier", api::kPolyMapDel, kPolyMapDel, computedBy(computePolyMapDel)},
    {"polyMapSew", "polyModifier", api::kPolyMapSew},
    {"polyMapSewMove", "polyModifier", api::kPolyMapSewMove},
    {"polyMergeEdge", "polyModifier", api::kPolyMergeEdge},
    {"polyMergeFace", "polyModifier", api::kPolyMergeFacet},
    {"polyMergeUV", "polyModifier", api::kPolyMergeUV},
    {"polyMergeVert", "polyModifier", api::kPolyMergeVert, kPolyMergeVert, computedBy(computePolyMergeVert)},
    {"polyMirror", "polyModifier", api::kPolyMirror},
    {"polyMoveFacetUV", "polyModifier", api::kPolyMoveFacetUV},
    {"polyMoveUV", "polyModifier", api::kPolyMoveUV},
    {"polyNormal", "polyModifier", api::kPolyNormal, kPolyNormal, computedBy(computePolyNormal)},
    {"polyNormalPerVertex", "polyModifier", api::kPolyNormalPerVertex},
    {"polyNormalizeUV", "polyModifier", api::kPolyNormalizeUV},
    {"polyPlanarProj", "polyModifier", api::kPolyPlanProj},
    {"polyPoke", "polyModifier", api::kPolyPoke},
    {"polyProj", "polyModifier", api::kPolyProj},
    {"polyQuad", "polyModifier", api::kPolyQuad, kPolyQuad, computedBy(computePolyQuad)},
    {"polyReduce", "polyModifier", api::kPolyReduce},
    {"polyRemesh", "polyModifier", api::kPolyRemesh},
    {"polyRetopo", "polyModifier", api::kPolyRetopo},
    {"polySewEdge", "polyModifier", api::kPolySewEdge},
    {"polySmoothFace", "polyModifier", api::kPolySmoothFacet, kPolySmoothFace, computedBy(computePolySmoothFace)},
    {"polySmoothProxy", "polyModifier", api::kPolySmoothProxy},
    {"polySoftEdge", "polyModifier", api::kPolySoftEdge, kPolySoftEdge, computedBy(computePolySoftEdge)},
    {"polySphProj", "polyModifier", api::kPolySphProj},
    {"polySpinEdge", "polyModifier", api::kPolySpinEdge},
    {"polySplit", "polyModifier", api::kPolySplit},
    {"polySplitEdge", "polyModifier", api::kPolySplitEdge},
    {"polySplitRing", "polyModifier", api::kPolySplitRing},
    {"polySplitVert", "polyModifier", api::kPolySplitVert},
    {"polyStraightenUVBorder", "polyModifier", api::kPolyStraightenUVBorder},
    {"polySubdEdge", "polyModifier", api::kPolySubdEdge},
    {"polySubdFace", "polyModifier", api::kPolySubdFacet, kPolySubdFace, computedBy(computePolySubdFace)},
    {"polyTransfer", "polyModifier", api::kPolyTransfer},
    {"polyTriangulate", "polyModifier", api::kPolyTriangulate, computedBy(computePolyTriangulate)},
    {"polyTweak", "polyModifier", api::kPolyTweak, kPolyTweak, computedBy(computePolyTweak)},
    {"polyTweakUV", "polyModifier", api::kPolyTweakUV, kPolyTweakUv, computedBy(computePolyTweakUv)},
    {"polyUnsmooth", "polyModifier", api::kPolyUnsmooth},
    {"polyWedgeFace", "polyModifier", api::kPolyWedgeFace},
    {"transferAttributes", "weightGeometryFilter", api::kPolyTransferAttributes},
    {"deleteComponent", "dependNode", api::kDeleteComponent, kDeleteComponent, computedBy(computeDeleteComponent)},
    {"createColorSet", "dependNode", api::kCreateColorSet, kCreateColorSet, computedBy(computeCreateColorSet)},
    {"copyColorSet", "dependNode", api::kCopyColorSet, kCreateColorSet, kPassingGeometry},
    {"deleteColorSet", "dependNode", api::kDeleteColorSet, kCreateColorSet, computedBy(computeDeleteColorSet)},
    {"createUVSet", "dependNode", api::kCreateUVSet, kUvSetNode, computedBy(computeCreateUvSet)},
    {"polyCopyUV", "polyModifier", api::kCopyUVSet},
    {"deleteUVSet", "dependNode", api::kDeleteUVSet, kUvSetNode, computedBy(computeDeleteUvSet)},
    {"nurbsTessellate", "dependNode", api::kNurbsTesselate, kNotEvaluated},
    {"subdToPoly", "dependNode", api::kSubdToPoly, kNotEvaluated},
};

} // namespace

void registerPolyTypes(NodeTypeRegistry& types) {
    registerRows(types, kTypes);
}

} // namespace host
