#include "host/nodes/apiTypes.h"
#include "host/nodes/blendShapeCompute.h"
#include "host/nodes/clusterCompute.h"
#include "host/nodes/deformerCompute.h"
#include "host/nodes/handleCompute.h"
#include "host/nodes/historyCompute.h"
#include "host/nodes/latticeCompute.h"
#include "host/nodes/skinCompute.h"
#include "host/nodes/typeRows.h"
#include "host/nodes/typeTables.h"

namespace host {

namespace {

using namespace row;

constexpr AttributeRow kGeometryFilter[] = {
    {"envelope", "en", "float", {}, 1, kKeyable},
    {"input", "ip", "compound", {}, 0, kArray},
    {".inputGeometry", "ig", "geometry"},
    {".groupId", "gi", "long"},
    {".componentTagExpression", "gtg", "string"},
    {"originalGeometry", "orggeom", "geometry", {}, 0, kArray},
    {"envelopeWeightsList", "ewl", "compound", {}, 0, kArray},
    {".envelopeWeights", "ews", "float", {}, 1, kArray},
    {"function", "fu", "any"},
    {"fchild", "fc", "any"},
    {"map64BitIndices", "mfi", "bool"},
    {"blockGPU", "bgpu", "bool"},
    {"outputGeometry", "og", "geometry", {}, 0, kArray | kComputed},
};

constexpr AttributeRow kWeightGeometryFilter[] = {
    {"weightList", "wl", "compound", {}, 0, kArray},
    {".weights", "w", "float", {}, 1, kArray},
    {"weightFunction", "wf", "any", {}, 0, kArray},
};

constexpr AttributeRow kSkinCluster[] = {
    {"weightList", "wl", "compound", {}, 0, kArray},
    {".weights", "w", "double", {}, 0, kArray},
    {"bindPreMatrix", "pm", "matrix", {}, 0, kArray},
    {"geomMatrix", "gm", "matrix"},
    {"matrix", "ma", "matrix", {}, 0, kArray},
    {"dropoffRate", "dr", "double", {}, 4},
    {"dropoff", "dpf", "double", {}, 4, kArray},
    {"smoothness", "smt", "double", {}, 0, kArray},
    {"lockWeights", "lw", "bool", {}, 0, kArray},
    {"paintWeights", "ptw", "doubleArray"},
    {"paintTrans", "ptt", "message"},
    {"paintArrDirty", "pad", "long"},
    {"useComponents", "uc", "bool"},
    {"useComponentsMatrix", "ucm", "bool"},
    {"maintainMaxInfluences", "mmi", "bool"},
    {"maxInfluences", "mi", "long", {}, 2},
    {"bindMethod", "bm", "long"},
    {"bindVolume", "bv", "any"},
    {"driverPoints", "drp", "any", {}, 0, kArray},
    {"basePoints", "bsp", "any", {}, 0, kArray},
    {"baseDirty", "bsd", "any", {}, 0, kArray},
    {"nurbsSamples", "ns", "long", {}, 10, kArray},
    {"polySmoothness", "ps", "double", {}, 0, kArray},
    {"bindPose", "bp", "message"},
    {"influenceColor", "ifcl", "float3", "RGB", 0, kArray | kColor},
    {"normalizeWeights", "nw", "enum", {}, 1, 0, "None:Interactive:Post"},
    {"weightDistribution", "wd", "enum", {}, 0, 0, "Distance:Neighbors"},
    {"skinningMethod", "skm", "enum", {}, 0, 0, "Classic Linear:Dual Quaternion:Weight Blended"},
    {"blendWeights", "bw", "double", {}, 0, kArray},
    {"deformUserNormals", "dun", "bool", {}, 1},
    {"wireFrameAware", "wfa", "bool"},
    {"dqsSupportNonRigid", "dqsnr", "bool"},
    {"dqsScale", "dqss", "double3", "XYZ", 1},
    {"cacheSetup", "cs", "any"},
    {"perInfluencePrebindMatrix", "pipm", "matrix"},
    {"relativeSpaceMode", "rsm", "enum"},
    {"relativeSpaceMatrix", "rsmt", "matrix"},
    {"weightTable", "wtbl", "data", {}, 0, kComputed | kHidden},
};

constexpr AttributeRow kCluster[] = {
    {"relative", "rel", "bool"},
    {"usePartialResolution", "upr", "enum"},
    {"percentResolution", "prs", "double", {}, 5},
    {"angleInterpolation", "ait", "enum"},
    {"bindPreMatrix", "pm", "matrix"},
    {"geomMatrix", "gm", "matrix", {}, 0, kArray},
    {"matrix", "ma", "matrix"},
    {"bindState", "bs", "bool"},
    {"clusterXforms", "x", "compound"},
    {".preMatrix", "pre", "matrix"},
    {".weightedMatrix", "wt", "matrix"},
    {".postMatrix", "post", "matrix"},
    {"weightedCompensationMatrix", "wcm", "matrix"},
};

constexpr AttributeRow kJointCluster[] = {
    {"bindPreMatrix", "pm", "matrix"},
    {"geomMatrix", "gm", "matrix", {}, 0, kArray},
    {"matrix", "ma", "matrix"},
    {"aboveBound", "ab", "double", {}, 10},
    {"belowBound", "bb", "double", {}, 10},
    {"aboveDropoffType", "adt", "enum"},
    {"belowDropoffType", "bdt", "enum"},
    {"aboveCluster", "ac", "any"},
    {"belowCluster", "bc", "any"},
    {"upperValue", "uv", "any", {}, 0, kArray},
    {"lowerValue", "lv", "any", {}, 0, kArray},
    {"percent", "prc", "double", {}, 0, kArray},
    {"clusterXforms", "x", "compound"},
    {".preMatrix", "pre", "matrix"},
    {".weightedMatrix", "wt", "matrix"},
    {".postMatrix", "post", "matrix"},
};

constexpr AttributeRow kTweak[] = {
    {"relativeTweak", "rtw", "bool", {}, 1},
    {"plist", "pl", "compound", {}, 0, kArray},
    {".controlPoints", "cp", "distance3", "xValue xv yValue yv zValue zv", 0, kArray},
    {"vlist", "vl", "compound", {}, 0, kArray},
    {".vertex", "vt", "floatLinear3", "xVertex vx yVertex vy zVertex vz", 0, kArray},
};

constexpr AttributeRow kBlendShape[] = {
    {"topologyCheck", "tc", "bool", {}, 1},
    {"origin", "or", "enum", {}, 1, 0, "world:local"},
    {"supportNegativeWeights", "sn", "bool"},
    {"weight", "w", "float", {}, 0, kArray | kKeyable},
    {"icon", "ic", "string"},
    {"inputTarget", "it", "compound", {}, 0, kArray},
    {".baseWeights", "bw", "float", {}, 1, kArray},
    {".normalizationGroup", "ng", "any", {}, 0, kArray},
    {".inputTargetGroup", "itg", "compound", {}, 0, kArray},
    {"..targetWeights", "tw", "float", {}, 1, kArray},
    {"..normalizationId", "nid", "long"},
    {"..postDeformersMode", "pdm", "enum"},
    {"..targetMatrix", "tmx", "matrix"},
    {"..targetBindMatrix", "tbmx", "matrix"},
    {"..inputTargetItem", "iti", "compound", {}, 0, kArray},
    {"...inputGeomTarget", "igt", "geometry"},
    {"...inputRelativeTarget", "irt", "geometry"},
    {"...inputPointsTarget", "ipt", "pointArray"},
    {"...inputComponentsTarget", "ict", "componentList"},
    {".paintTargetWeights", "pwt", "any", {}, 0, kArray},
    {".paintTargetIndex", "pti", "long"},
    {"attributeAliasList", "aal", "attributeAlias"},
    {"nextNode", "nn", "message"},
    {"parallelBlender", "pb", "bool"},
    {"useTargetCompWeights", "utcw", "bool"},
    {"deformationOrder", "do", "enum"},
    {"midLayerId", "mlid", "long"},
    {"midLayerParent", "mlpr", "long"},
    {"parentDirectory", "pndr", "long", {}, 0, kArray},
    {"nextTarget", "ntg", "long", {}, 0, kArray},
    {"targetVisibility", "tgvs", "bool", {}, 1, kArray},
    {"targetParentVisibility", "tpvs", "bool", {}, 1, kArray},
    {"targetDirectory", "tgdt", "compound", {}, 0, kArray},
    {".directoryName", "dtn", "string"},
    {".childIndices", "cid", "Int32Array"},
    {".directoryVisibility", "dvs", "bool", {}, 1},
    {".directoryParentVisibility", "dpvs", "bool", {}, 1},
    {".parentIndex", "pnid", "long"},
    {".directoryWeight", "dwgh", "float", {}, 1},
    {"inbetweenInfoGroup", "ibig", "any", {}, 0, kArray},
    {"symmetryEdge", "se", "any", {}, 0, kArray},
    {"offsetDeformer", "ofd", "any", {}, 0, kArray},
};

constexpr AttributeRow kGroupId[] = {
    {"groupId", "id", "long", {}, 0, kComputed},
};

constexpr AttributeRow kGroupParts[] = {
    {"inputGeometry", "ig", "geometry"},
    {"inputComponents", "ic", "componentList"},
    {"inputRemoveComponent", "irc", "componentList"},
    {"groupId", "gi", "long"},
    {"outputGeometry", "og", "geometry", {}, 0, kComputed},
};

constexpr AttributeRow kTransformGeometry[] = {
    {"inputGeometry", "ig", "geometry"},
    {"transform", "txf", "matrix"},
    {"invertTransform", "itf", "bool"},
    {"freezeNormals", "fn", "bool"},
    {"outputGeometry", "og", "geometry", {}, 0, kComputed},
};

constexpr AttributeRow kFfd[] = {
    {"deformedLatticePoints", "dlp", "lattice"},
    {"deformedLatticeMatrix", "dlm", "matrix"},
    {"baseLatticePoints", "blp", "any"},
    {"baseLatticeMatrix", "blm", "matrix"},
    {"stuCache", "stu", "any", {}, 0, kArray},
    {"local", "lo", "bool", {}, 1},
    {"outsideLattice", "ot", "enum", {}, 0, 0, "Inside:All:Falloff"},
    {"localInfluenceS", "lis", "short", {}, 2},
    {"localInfluenceT", "lit", "short", {}, 2},
    {"localInfluenceU", "liu", "short", {}, 2},
    {"shapeSpace", "kss", "matrix", {}, 0, kArray | kHidden},
};

constexpr AttributeRow kNonLinear[] = {
    {"deformerData", "dd", "any"},
    {"matrix", "ma", "matrix"},
    {"shapeSpace", "kss", "matrix", {}, 0, kArray | kHidden},
};

constexpr AttributeRow kWrap[] = {
    {"driverPoints", "dp", "any", {}, 0, kArray},
    {"basePoints", "bp", "any", {}, 0, kArray},
    {"weightThreshold", "wt", "double"},
    {"maxDistance", "md", "double"},
    {"exclusiveBind", "eb", "bool"},
    {"geomMatrix", "gm", "matrix"},
};

constexpr TypeBehaviour kPassing{DagRole::kNone, computePassingDeformer, {}, true};

constexpr TypeBehaviour computedBy(ComputeFunction compute) {
    return {DagRole::kNone, compute};
}

constexpr TypeRow kTypes[] = {
    {"geometryFilter", "dependNode", api::kGeometryFilt, kGeometryFilter, kPassing},
    {"weightGeometryFilter", "geometryFilter", api::kWeightGeometryFilt, kWeightGeometryFilter},
    {"skinCluster", "geometryFilter", api::kSkinClusterFilter, kSkinCluster, computedBy(computeSkinCluster)},
    {"cluster", "weightGeometryFilter", api::kClusterFilter, kCluster, computedBy(computeCluster)},
    {"jointCluster", "weightGeometryFilter", api::kJointCluster, kJointCluster, computedBy(computeCluster)},
    {"softMod", "weightGeometryFilter", api::kSoftMod},
    {"tweak", "geometryFilter", api::kTweak, kTweak, computedBy(computeTweak)},
    {"blendShape", "geometryFilter", api::kBlendShape, kBlendShape, computedBy(computeBlendShape)},
    {"ffd", "weightGeometryFilter", api::kFFD, kFfd, computedBy(computeFfd)},
    {"nonLinear", "weightGeometryFilter", api::kNonLinear, kNonLinear, computedBy(computeNonLinear)},
    {"sculpt", "weightGeometryFilter", api::kSculpt},
    {"wire", "weightGeometryFilter", api::kWire},
    {"wrap", "weightGeometryFilter", api::kWrapFilter, kWrap},
    {"jiggle", "weightGeometryFilter", api::kJiggleDeformer},
    {"deltaMush", "weightGeometryFilter", api::kDeltaMush},
    {"tension", "weightGeometryFilter", api::kTension},
    {"shrinkWrap", "weightGeometryFilter", api::kShrinkWrapFilter},
    {"proximityWrap", "weightGeometryFilter", api::kProximityWrap},
    {"textureDeformer", "weightGeometryFilter", api::kTextureDeformer},
    {"morph", "weightGeometryFilter", api::kMorph},
    {"groupId", "dependNode", api::kGroupId, kGroupId, computedBy(computeGroupId)},
    {"groupParts", "dependNode", api::kGroupParts, kGroupParts, computedBy(computeGroupParts)},
    {"transformGeometry", "dependNode", api::kTransformGeometry, kTransformGeometry,
     computedBy(computeTransformGeometry)},
};

} // namespace

void registerDeformerTypes(NodeTypeRegistry& types) {
    registerRows(types, kTypes);
}

} // namespace host
