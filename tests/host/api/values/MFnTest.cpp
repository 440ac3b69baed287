#include "host/api/values/fnTypeNames.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace {

// The codes that a plug-in built for API release 500 compares with.
static_assert(MFn::kAnimCurveTimeToUnitless == 11);
static_assert(MFn::kLambert == 353 && MFn::kReflect == 354);
static_assert(MFn::kBlinn == 355 && MFn::kPhong == 356 && MFn::kPhongExplorer == 357 && MFn::kLayeredShader == 358);
static_assert(MFn::kPlace2dTexture == 436 && MFn::kShadingMap == 456 && MFn::kSurfaceShader == 467);
static_assert(MFn::kBulge == 476 && MFn::kChecker == 477 && MFn::kCloth == 478 && MFn::kFileTexture == 479);
static_assert(MFn::kFractal == 480 && MFn::kGrid == 481 && MFn::kMountain == 482 && MFn::kRamp == 483);
static_assert(MFn::kStencil == 484 && MFn::kWater == 485 && MFn::kUseBackground == 510);
static_assert(MFn::kAnisotropy == 598 && MFn::kCharacter == 661);
static_assert(MFn::kUvChooser == 754 && MFn::kLayeredTexture == 761);
static_assert(MFn::kOcean == 832 && MFn::kNoise == 836 && MFn::kRampShader == 852 && MFn::kOceanShader == 854);
static_assert(MFn::kFluidTexture2D == 864);

// Those below 122 never changed.
static_assert(MFn::kInvalid == 0 && MFn::kDependencyNode == 4 && MFn::kAddDoubleLinear == 5 && MFn::kAnimCurve == 7);
static_assert(MFn::kAnimCurveTimeToAngular == 8 && MFn::kAnimCurveUnitlessToAngular == 12 &&
              MFn::kAnimCurveUnitlessToUnitless == 15);
static_assert(MFn::kBlendWeighted == 29 && MFn::kChoice == 36 && MFn::kCondition == 37 && MFn::kClampColor == 39);
static_assert(MFn::kDagNode == 107 && MFn::kTransform == 110 && MFn::kAimConstraint == 111 && MFn::kLookAt == 112);
static_assert(MFn::kIkEffector == 119 && MFn::kIkHandle == 120 && MFn::kJoint == 121);

static_assert(MFn::kPolyCone == 417 && MFn::kPolyTorus == 422 && MFn::kMultiplyDivide == 427 && MFn::kReverse == 447);
static_assert(MFn::kPlace3dTexture == 437 && MFn::kPlusMinusAverage == 440 && MFn::kProjection == 444);
static_assert(MFn::kSet == 450 && MFn::kSetRange == 453 && MFn::kTexture2d == 475 && MFn::kTexture3d == 486);
static_assert(MFn::kTime == 499 && MFn::kTimeToUnitConversion == 500 && MFn::kUnitConversion == 508 &&
              MFn::kUnitToTimeConversion == 509);
static_assert(MFn::kNonLinear == 599 && MFn::kSubdiv == 658 && MFn::kSkinClusterFilter == 660 &&
              MFn::kCharacterOffset == 662 && MFn::kDagPose == 663);
static_assert(MFn::kVolumeNoise == 833 && MFn::kVolumeLight == 853 && MFn::kFluidTexture3D == 863);
static_assert(MFn::kJointCluster == 336);

TEST(MFn, NoTwoTypesShareANumberOrAName) {
    std::set<int> numbers;
    std::set<std::string> names;
    for (const auto& [type, name] : host::api::fnTypeNames()) {
        EXPECT_TRUE(numbers.insert(type).second) << name << ' ' << type;
        EXPECT_TRUE(names.insert(name).second) << name;
        EXPECT_LE(type, MFn::kLast) << name;
    }
}

TEST(MFn, TypesHaveTheirNames) {
    EXPECT_STREQ(host::api::fnTypeName(MFn::kMesh), "kMesh");
    EXPECT_STREQ(host::api::fnTypeName(MFn::kBlinn), "kBlinn");
    EXPECT_STREQ(host::api::fnTypeName(MFn::kStandardSurface), "kStandardSurface");
    EXPECT_STREQ(host::api::fnTypeName(static_cast<MFn::Type>(16)), "kInvalid");
}

// Neighbours in the real list: the order among constraints, shapes, deformers, components and data types is kept even
// where the numbers of that release are not known.
constexpr MFn::Type kAscending[] = {
    MFn::kOrientConstraint,
    MFn::kPointConstraint,
    MFn::kPoleVectorConstraint,
    MFn::kScaleConstraint,
    MFn::kTangentConstraint,
    MFn::kUnknownTransform,
    MFn::kWorld,
    MFn::kShape,
    MFn::kCamera,
    MFn::kCluster,
    MFn::kNurbsCurve,
    MFn::kLattice,
    MFn::kLocator,
    MFn::kNurbsSurface,
    MFn::kMesh,
    MFn::kLight,
    MFn::kAmbientLight,
    MFn::kAreaLight,
    MFn::kDirectionalLight,
    MFn::kPointLight,
    MFn::kSpotLight,
    MFn::kUnknownDag,
    MFn::kShadingEngine,
    MFn::kDisplacementShader,
    MFn::kExpression,
    MFn::kBlendShape,
    MFn::kFFD,
    MFn::kSculpt,
    MFn::kTweak,
    MFn::kWeightGeometryFilt,
    MFn::kClusterFilter,
    MFn::kJointCluster,
    MFn::kWire,
    MFn::kGroupId,
    MFn::kGroupParts,
    MFn::kLambert,
    MFn::kMeshEdgeComponent,
    MFn::kMeshPolygonComponent,
    MFn::kMeshVertComponent,
    MFn::kMeshFaceVertComponent,
    MFn::kComponentListData,
    MFn::kMatrixData,
    MFn::kMeshData,
    MFn::kNumericData,
    MFn::kStringData,
    MFn::kAnisotropy,
};

TEST(MFn, RunsOfTypesKeepTheirOrder) {
    int before = MFn::kJoint;
    for (const MFn::Type type : kAscending) {
        EXPECT_GT(type, before) << host::api::fnTypeName(type);
        before = type;
    }
}

} // namespace
