#include "host/nodes/nodeTypes.h"

#include "host/nodes/apiTypes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace host {
namespace {

class NodeTypes : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        if (types.all().empty()) {
            registerNodeTypes(types);
        }
    }
    static const NodeType& type(const std::string& name) {
        const NodeType* found = types.find(name);
        EXPECT_NE(found, nullptr) << name;
        return found != nullptr ? *found : *types.find("dependNode");
    }
    static const Attribute* attribute(const std::string& typeName, const std::string& name) {
        const NodeType& found = type(typeName);
        const AttrIndex index = found.find(name);
        return index == kNoAttr ? nullptr : &found.attributes()[static_cast<std::size_t>(index)];
    }

    static NodeTypeRegistry types;
};

NodeTypeRegistry NodeTypes::types;

TEST_F(NodeTypes, HaveNamesOfTheirOwn) {
    std::set<std::string> names;
    for (const auto& each : types.all()) {
        EXPECT_TRUE(names.insert(each->name()).second) << each->name();
    }
}

TEST_F(NodeTypes, HaveUniqueAttributeNamesLongAndShort) {
    for (const auto& each : types.all()) {
        std::set<std::string> names;
        for (const Attribute& attribute : each->attributes()) {
            EXPECT_TRUE(names.insert(attribute.longName).second) << each->name() << "." << attribute.longName;
            if (attribute.shortName != attribute.longName) {
                EXPECT_TRUE(names.insert(attribute.shortName).second) << each->name() << "." << attribute.shortName;
            }
        }
    }
}

TEST_F(NodeTypes, NestArraysNoDeeperThanAnAddressReaches) {
    for (const auto& each : types.all()) {
        for (const Attribute& attribute : each->attributes()) {
            EXPECT_LE(attribute.arrayDepth, PlugAddress::kMaxDepth) << each->name() << "." << attribute.longName;
            EXPECT_EQ(attribute.children.empty(), attribute.kind != AttrKind::kCompound)
                << each->name() << "." << attribute.longName;
        }
    }
}

TEST_F(NodeTypes, ComputeWhatTheyDeclareAsComputed) {
    for (const auto& each : types.all()) {
        EXPECT_TRUE(each->outputs().empty() || each->compute != nullptr || each->name() == "animCurve") << each->name();
    }
}

TEST_F(NodeTypes, AreThereForEveryTypeThatScenesHold) {
    for (const char* name : {"animClip",
                             "animCurveTA",
                             "animCurveTL",
                             "animCurveTT",
                             "animCurveTU",
                             "animCurveUA",
                             "animCurveUL",
                             "animCurveUT",
                             "animCurveUU",
                             "anisotropic",
                             "blendShape",
                             "blendWeighted",
                             "blinn",
                             "bump2d",
                             "camera",
                             "character",
                             "checker",
                             "clipLibrary",
                             "clipScheduler",
                             "cluster",
                             "clusterHandle",
                             "dagPose",
                             "deleteComponent",
                             "directionalLight",
                             "displayLayer",
                             "displayLayerManager",
                             "expression",
                             "file",
                             "groupId",
                             "groupParts",
                             "ikEffector",
                             "ikHandle",
                             "ikRPsolver",
                             "ikSCsolver",
                             "joint",
                             "jointCluster",
                             "lambert",
                             "layeredShader",
                             "layeredTexture",
                             "lightLinker",
                             "locator",
                             "materialInfo",
                             "mesh",
                             "movie",
                             "multiplyDivide",
                             "nodeGraphEditorInfo",
                             "nonLinear",
                             "nurbsCurve",
                             "nurbsSurface",
                             "objectSet",
                             "oceanShader",
                             "pairBlend",
                             "parentConstraint",
                             "partition",
                             "phong",
                             "phongE",
                             "place2dTexture",
                             "pointConstraint",
                             "polyBevel",
                             "polyColorPerVertex",
                             "polyCone",
                             "polyCube",
                             "polyCylinder",
                             "polyExtrudeEdge",
                             "polyNormal",
                             "polyPlane",
                             "polyPlatonicSolid",
                             "polyPyramid",
                             "polySmoothFace",
                             "polySphere",
                             "polySubdFace",
                             "polyTorus",
                             "polyTweakUV",
                             "poseInterpolatorManager",
                             "psdFileTex",
                             "ramp",
                             "rampShader",
                             "reference",
                             "renderLayer",
                             "renderLayerManager",
                             "reverse",
                             "script",
                             "shadingEngine",
                             "shadingMap",
                             "shapeEditorManager",
                             "skinCluster",
                             "standardSurface",
                             "stencil",
                             "surfaceShader",
                             "time",
                             "timeToUnitConversion",
                             "trackInfoManager",
                             "transform",
                             "transformGeometry",
                             "tweak",
                             "unitConversion",
                             "unitToTimeConversion",
                             "useBackground",
                             "uvChooser",
                             "water",
                             "world"}) {
        EXPECT_NE(types.find(name), nullptr) << name;
    }
}

struct DefaultRow {
    const char* type;
    const char* longName;
    const char* shortName;
    AttrKind kind;
    double value;
};

// What files leave unsaid: defaults as documented, names as saved scenes use them.
constexpr double kPi = 3.14159265358979323846;
const DefaultRow kDefaults[] = {
    {"transform", "isHistoricallyInteresting", "ihi", AttrKind::kByte, 2},
    {"transform", "nodeState", "nds", AttrKind::kEnum, 0},
    {"transform", "visibility", "v", AttrKind::kBool, 1},
    {"transform", "lodVisibility", "lodv", AttrKind::kBool, 1},
    {"transform", "intermediateObject", "io", AttrKind::kBool, 0},
    {"transform", "template", "tmp", AttrKind::kBool, 0},
    {"transform", "overrideEnabled", "ove", AttrKind::kBool, 0},
    {"transform", "overrideVisibility", "ovv", AttrKind::kBool, 1},
    {"transform", "overrideDisplayType", "ovdt", AttrKind::kEnum, 0},
    {"transform", "objectGroupId", "gid", AttrKind::kInt, -1},
    {"transform", "translateX", "tx", AttrKind::kDistance, 0},
    {"transform", "rotateY", "ry", AttrKind::kAngle, 0},
    {"transform", "scaleZ", "sz", AttrKind::kDouble, 1},
    {"transform", "shearXZ", "shxz", AttrKind::kDouble, 0},
    {"transform", "rotateOrder", "ro", AttrKind::kEnum, 0},
    {"transform", "rotatePivotX", "rpx", AttrKind::kDistance, 0},
    {"transform", "rotatePivotTranslateY", "rpty", AttrKind::kDistance, 0},
    {"transform", "scalePivotZ", "spz", AttrKind::kDistance, 0},
    {"transform", "scalePivotTranslateX", "sptx", AttrKind::kDistance, 0},
    {"transform", "rotateAxisX", "rax", AttrKind::kAngle, 0},
    {"transform", "inheritsTransform", "it", AttrKind::kBool, 1},
    {"transform", "minTransXLimit", "mtxl", AttrKind::kDistance, -1},
    {"transform", "maxRotZLimit", "xrzl", AttrKind::kAngle, kPi / 4},
    {"transform", "maxScaleYLimitEnable", "xsye", AttrKind::kBool, 0},
    {"joint", "segmentScaleCompensate", "ssc", AttrKind::kBool, 1},
    {"joint", "inverseScaleX", "isx", AttrKind::kDouble, 1},
    {"joint", "jointOrientZ", "joz", AttrKind::kAngle, 0},
    {"joint", "preferredAngleX", "pax", AttrKind::kAngle, 0},
    {"joint", "radius", "radi", AttrKind::kFloat, 1},
    {"mesh", "primaryVisibility", "vis", AttrKind::kBool, 1},
    {"mesh", "doubleSided", "ds", AttrKind::kBool, 1},
    {"mesh", "opposite", "op", AttrKind::kBool, 0},
    {"mesh", "visibleInReflections", "vir", AttrKind::kBool, 0},
    {"mesh", "displayColors", "dcol", AttrKind::kBool, 0},
    {"mesh", "displaySmoothMesh", "dsm", AttrKind::kEnum, 0},
    {"camera", "focalLength", "fl", AttrKind::kDouble, 35},
    {"camera", "orthographicWidth", "ow", AttrKind::kDistance, 10},
    {"camera", "renderable", "rnd", AttrKind::kBool, 1},
    {"camera", "verticalFilmAperture", "vfa", AttrKind::kDouble, 0.945},
    {"spotLight", "coneAngle", "ca", AttrKind::kAngle, 40 * kPi / 180},
    {"directionalLight", "intensity", "in", AttrKind::kFloat, 1},
    {"lambert", "colorR", "cr", AttrKind::kFloat, 0.5},
    {"lambert", "transparencyG", "itg", AttrKind::kFloat, 0},
    {"lambert", "ambientColorB", "acb", AttrKind::kFloat, 0},
    {"lambert", "incandescenceR", "ir", AttrKind::kFloat, 0},
    {"lambert", "diffuse", "dc", AttrKind::kFloat, 0.8},
    {"lambert", "translucenceFocus", "tcf", AttrKind::kFloat, 0.5},
    {"lambert", "matteOpacityMode", "mom", AttrKind::kEnum, 2},
    {"blinn", "specularColorR", "sr", AttrKind::kFloat, 0.5},
    {"blinn", "reflectivity", "rfl", AttrKind::kFloat, 0.5},
    {"blinn", "reflectedColorG", "rg", AttrKind::kFloat, 0},
    {"blinn", "eccentricity", "ec", AttrKind::kFloat, 0.3},
    {"blinn", "specularRollOff", "sro", AttrKind::kFloat, 0.7},
    {"phong", "cosinePower", "cp", AttrKind::kFloat, 20},
    {"phongE", "roughness", "rn", AttrKind::kFloat, 0.7},
    {"phongE", "highlightSize", "hls", AttrKind::kFloat, 0.5},
    {"phongE", "whitenessB", "wnb", AttrKind::kFloat, 0.5},
    {"anisotropic", "roughness", "r", AttrKind::kFloat, 0.7},
    {"surfaceShader", "outTransparencyR", "otr", AttrKind::kFloat, 0},
    {"shadingMap", "shadingMapColorG", "smcg", AttrKind::kFloat, 0.5},
    {"rampShader", "diffuse", "dc", AttrKind::kFloat, 0.8},
    {"standardSurface", "base", "b", AttrKind::kFloat, 1},
    {"shadingEngine", "memberWireframeColor", "mwc", AttrKind::kShort, -1},
    {"objectSet", "verticesOnlySet", "vo", AttrKind::kBool, 0},
    {"file", "useFrameExtension", "ufe", AttrKind::kBool, 0},
    {"file", "frameExtension", "fe", AttrKind::kInt, 1},
    {"file", "frameOffset", "fof", AttrKind::kInt, 0},
    {"file", "filterType", "ft", AttrKind::kEnum, 3},
    {"file", "wrapU", "wu", AttrKind::kBool, 1},
    {"file", "wrapV", "wv", AttrKind::kBool, 1},
    {"file", "mirrorU", "mu", AttrKind::kBool, 0},
    {"file", "repeatU", "reu", AttrKind::kFloat, 1},
    {"file", "rotateUV", "ro", AttrKind::kAngle, 0},
    {"file", "alphaGain", "ag", AttrKind::kFloat, 1},
    {"file", "colorGainR", "cgr", AttrKind::kFloat, 1},
    {"file", "defaultColorB", "dcb", AttrKind::kFloat, 0.5},
    {"file", "alphaIsLuminance", "ail", AttrKind::kBool, 0},
    {"place2dTexture", "repeatV", "rev", AttrKind::kFloat, 1},
    {"place2dTexture", "coverageU", "cu", AttrKind::kFloat, 1},
    {"place2dTexture", "offsetU", "ofu", AttrKind::kFloat, 0},
    {"place2dTexture", "rotateUV", "r", AttrKind::kAngle, 0},
    {"place2dTexture", "wrapV", "wv", AttrKind::kBool, 1},
    {"layeredTexture", "alpha", "a", AttrKind::kFloat, 1},
    {"layeredTexture", "blendMode", "bm", AttrKind::kEnum, 1},
    {"layeredTexture", "isVisible", "iv", AttrKind::kBool, 1},
    {"fractal", "ratio", "ra", AttrKind::kFloat, 0.707},
    {"bulge", "uWidth", "uw", AttrKind::kFloat, 0.1},
    {"animCurveTL", "tangentType", "tan", AttrKind::kEnum, 0},
    {"animCurveTL", "weightedTangents", "wgt", AttrKind::kBool, 1},
    {"animCurveTL", "preInfinity", "pre", AttrKind::kEnum, 0},
    {"animCurveTL", "keyTanLocked", "ktl", AttrKind::kBool, 1},
    {"unitConversion", "conversionFactor", "cf", AttrKind::kDouble, 1},
    {"pairBlend", "weight", "w", AttrKind::kDouble, 1},
    {"expression", "animated", "ani", AttrKind::kShort, 1},
    {"skinCluster", "envelope", "en", AttrKind::kFloat, 1},
    {"skinCluster", "weights", "w", AttrKind::kDouble, 0},
    {"skinCluster", "normalizeWeights", "nw", AttrKind::kEnum, 1},
    {"skinCluster", "dropoffRate", "dr", AttrKind::kDouble, 4},
    {"cluster", "weights", "w", AttrKind::kFloat, 1},
    {"jointCluster", "aboveBound", "ab", AttrKind::kDouble, 10},
    {"blendShape", "weight", "w", AttrKind::kFloat, 0},
    {"blendShape", "origin", "or", AttrKind::kEnum, 1},
    {"blendShape", "targetWeights", "tw", AttrKind::kFloat, 1},
    {"tweak", "relativeTweak", "rtw", AttrKind::kBool, 1},
    {"pointConstraint", "targetWeight", "tw", AttrKind::kDouble, 1},
    {"aimConstraint", "upVectorY", "uy", AttrKind::kDouble, 1},
    {"orientConstraint", "interpType", "int", AttrKind::kEnum, 1},
    {"scaleConstraint", "offsetX", "ox", AttrKind::kDouble, 1},
    {"ikHandle", "ikBlend", "ikb", AttrKind::kDouble, 1},
    {"multiplyDivide", "operation", "op", AttrKind::kEnum, 1},
    {"multiplyDivide", "input2Y", "i2y", AttrKind::kFloat, 1},
    {"condition", "colorIfFalseG", "cfg", AttrKind::kFloat, 1},
    {"remapValue", "inputMax", "imx", AttrKind::kFloat, 1},
    {"blendColors", "color1R", "c1r", AttrKind::kFloat, 1},
    {"polyCube", "width", "w", AttrKind::kDistance, 1},
    {"polyPlane", "subdivisionsWidth", "sw", AttrKind::kInt, 10},
    {"polySphere", "subdivisionsAxis", "sa", AttrKind::kInt, 20},
    {"polyCylinder", "height", "h", AttrKind::kDistance, 2},
    {"polyTorus", "sectionRadius", "sr", AttrKind::kDistance, 0.5},
    {"polyCube", "axisY", "axy", AttrKind::kDouble, 1},
    {"displayLayer", "enabled", "e", AttrKind::kBool, 1},
    {"displayLayer", "visibility", "v", AttrKind::kBool, 1},
};

TEST_F(NodeTypes, HaveTheDefaultsThatFilesLeaveUnsaid) {
    for (const DefaultRow& row : kDefaults) {
        const Attribute* byLong = attribute(row.type, row.longName);
        ASSERT_NE(byLong, nullptr) << row.type << "." << row.longName;
        EXPECT_EQ(byLong->shortName, row.shortName) << row.type << "." << row.longName;
        EXPECT_EQ(attribute(row.type, row.shortName), byLong) << row.type << "." << row.shortName;
        EXPECT_EQ(byLong->kind, row.kind) << row.type << "." << row.longName;
        EXPECT_DOUBLE_EQ(byLong->defaultNumber, row.value) << row.type << "." << row.longName;
    }
}

TEST_F(NodeTypes, HoldMeshDataAsRowsOfNumbers) {
    for (const char* name : {"vt", "pt", "n", "ed", "uvsp", "clsp", "clr", "uv"}) {
        ASSERT_NE(attribute("mesh", name), nullptr) << name;
        EXPECT_TRUE(attribute("mesh", name)->rows) << name;
    }
    EXPECT_EQ(attribute("mesh", "fc")->dataKind, DataKind::kPolyFaces);
    EXPECT_TRUE(attribute("mesh", "fc")->array);
    EXPECT_TRUE(attribute("animCurveTL", "ktv")->rows);
    EXPECT_TRUE(attribute("skinCluster", "w")->rows);
    EXPECT_EQ(attribute("skinCluster", "w")->arrayDepth, 2);
}

TEST_F(NodeTypes, KeepOneElementPerPathOfWorldSpaceArrays) {
    for (const char* name : {"iog", "wm", "wim", "pm", "pim", "ciog", "w"}) {
        EXPECT_TRUE(attribute("mesh", name)->worldSpace) << name;
        EXPECT_TRUE(attribute("mesh", name)->array) << name;
    }
    EXPECT_FALSE(attribute("mesh", "og")->worldSpace);
}

TEST_F(NodeTypes, OnlySurfacesHavePrimaryVisibility) {
    EXPECT_NE(attribute("nurbsSurface", "vis"), nullptr);
    for (const char* name : {"nurbsCurve", "locator", "camera", "transform"}) {
        EXPECT_EQ(attribute(name, "primaryVisibility"), nullptr) << name;
    }
}

TEST_F(NodeTypes, LetALayerDriveTheOverridesByPosition) {
    const Attribute& info = *attribute("displayLayer", "drawInfo");
    const Attribute& override = *attribute("transform", "drawOverride");
    ASSERT_EQ(info.children.size(), override.children.size());
    const char* pairs[][2] = {{"enabled", "overrideEnabled"},
                              {"visibility", "overrideVisibility"},
                              {"displayType", "overrideDisplayType"},
                              {"levelOfDetail", "overrideLevelOfDetail"},
                              {"color", "overrideColor"}};
    for (const auto& pair : pairs) {
        const auto in = std::find(info.children.begin(), info.children.end(), type("displayLayer").find(pair[0]));
        const auto out = std::find(override.children.begin(), override.children.end(), type("transform").find(pair[1]));
        ASSERT_NE(in, info.children.end()) << pair[0];
        ASSERT_NE(out, override.children.end()) << pair[1];
        EXPECT_EQ(in - info.children.begin(), out - override.children.begin()) << pair[0];
    }
}

TEST_F(NodeTypes, KnowTheirPlaceInTheDag) {
    struct Row {
        const char* type;
        DagRole role;
    };
    const Row rows[] = {{"transform", DagRole::kTransform},
                        {"joint", DagRole::kTransform},
                        {"parentConstraint", DagRole::kTransform},
                        {"ikHandle", DagRole::kTransform},
                        {"place3dTexture", DagRole::kTransform},
                        {"mesh", DagRole::kShape},
                        {"camera", DagRole::kShape},
                        {"spotLight", DagRole::kShape},
                        {"locator", DagRole::kShape},
                        {"world", DagRole::kWorld},
                        {"lambert", DagRole::kNone},
                        {"skinCluster", DagRole::kNone}};
    for (const Row& row : rows) {
        EXPECT_EQ(type(row.type).dagRole, row.role) << row.type;
    }
}

TEST_F(NodeTypes, AnswerToTheFamiliesOfTheFunctionSets) {
    struct Row {
        const char* type;
        int own;
        std::vector<int> with, without;
    };
    const Row rows[] = {
        {"mesh", api::kMesh, {api::kShape, api::kDagNode, api::kDependencyNode}, {api::kTransform}},
        {"joint", api::kJoint, {api::kTransform, api::kDagNode, api::kDependencyNode}, {api::kShape}},
        {"blinn", api::kBlinn, {api::kReflect, api::kLambert}, {api::kPhong}},
        {"anisotropic", api::kAnisotropy, {api::kReflect, api::kLambert}, {}},
        {"rampShader", api::kRampShader, {api::kLambert}, {api::kReflect}},
        {"surfaceShader", api::kSurfaceShader, {api::kDependencyNode}, {api::kLambert}},
        {"standardSurface", api::kStandardSurface, {}, {api::kLambert}},
        {"shadingEngine", api::kShadingEngine, {api::kSet}, {}},
        {"character", api::kCharacter, {api::kSet}, {}},
        {"movie", api::kFileTexture, {api::kTexture2d}, {}},
        {"psdFileTex", api::kPsdFileTexture, {api::kTexture2d}, {}},
        {"skinCluster", api::kSkinClusterFilter, {api::kGeometryFilt}, {api::kWeightGeometryFilt}},
        {"cluster", api::kClusterFilter, {api::kGeometryFilt, api::kWeightGeometryFilt}, {}},
        {"jointCluster", api::kJointCluster, {api::kGeometryFilt, api::kWeightGeometryFilt}, {}},
        {"animCurveUU", api::kAnimCurveUnitlessToUnitless, {api::kAnimCurve}, {}},
        {"aimConstraint", api::kAimConstraint, {api::kConstraint, api::kTransform}, {}},
    };
    for (const Row& row : rows) {
        const NodeType& found = type(row.type);
        EXPECT_EQ(found.apiType(), row.own) << row.type;
        const auto has = [&](int family) {
            return std::find(found.families.begin(), found.families.end(), family) != found.families.end();
        };
        for (const int family : row.with) {
            EXPECT_TRUE(has(family)) << row.type << " " << family;
        }
        for (const int family : row.without) {
            EXPECT_FALSE(has(family)) << row.type << " " << family;
        }
    }
}

TEST_F(NodeTypes, CarryTheCodesThatPlugInsCompare) {
    struct Row {
        const char* type;
        int code;
    };
    const Row rows[] = {
        {"blinn", 355},          {"phong", 356},          {"phongE", 357},         {"layeredShader", 358},
        {"place2dTexture", 436}, {"shadingMap", 456},     {"surfaceShader", 467},  {"bulge", 476},
        {"checker", 477},        {"cloth", 478},          {"file", 479},           {"fractal", 480},
        {"grid", 481},           {"mountain", 482},       {"ramp", 483},           {"stencil", 484},
        {"water", 485},          {"useBackground", 510},  {"anisotropic", 598},    {"character", 661},
        {"uvChooser", 754},      {"layeredTexture", 761}, {"ocean", 832},          {"noise", 836},
        {"rampShader", 852},     {"oceanShader", 854},    {"fluidTexture2D", 864}, {"animCurveTU", 11}};
    for (const Row& row : rows) {
        EXPECT_EQ(type(row.type).apiType(), row.code) << row.type;
    }
}

} // namespace
} // namespace host
