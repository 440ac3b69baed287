#include "host/nodes/nodeTypes.h"

#include "host/nodes/clusterCompute.h"
#include "host/nodes/constraintCompute.h"
#include "host/nodes/curveCompute.h"
#include "host/nodes/curveShapeCompute.h"
#include "host/nodes/dagCompute.h"
#include "host/nodes/expressionCompute.h"
#include "host/nodes/handleCompute.h"
#include "host/nodes/ikCompute.h"
#include "host/nodes/latticeCompute.h"
#include "host/nodes/meshCompute.h"
#include "host/nodes/skinCompute.h"
#include "host/nodes/typeTables.h"

namespace host {

namespace {

/// Compute functions whose outputs depend on few of the many attributes beside them.
struct AffectsRow {
    ComputeFunction compute;
    void (*fill)(NodeType& type);
};

constexpr AffectsRow kAffects[] = {
    {computeDagMatrices, fillDagAffects},
    {computeAnimCurve, fillCurveAffects},
    {computeExpression, fillExpressionAffects},
    {computeMesh, fillMeshAffects},
    {computeSkinCluster, fillSkinAffects},
    {computeClusterHandle, fillDagAffects},
    {computeDeformHandle, fillDeformHandleAffects},
    {computeLattice, fillLatticeAffects},
    {computeNurbsCurve, fillNurbsCurveAffects},
    {computeIkHandle, fillIkHandleAffects},
    {computePointConstraint, fillConstraintAffects},
    {computePoleVectorConstraint, fillConstraintAffects},
    {computeOrientConstraint, fillConstraintAffects},
    {computeParentConstraint, fillConstraintAffects},
    {computeScaleConstraint, fillConstraintAffects},
    {computeAimConstraint, fillConstraintAffects},
};

} // namespace

void registerNodeTypes(NodeTypeRegistry& types) {
    registerBaseTypes(types);
    registerDagTypes(types);
    registerShapeTypes(types);
    registerLightTypes(types);
    registerSetTypes(types);
    registerShaderTypes(types);
    registerTextureTypes(types);
    registerPlacementTypes(types);
    registerAnimTypes(types);
    registerUtilityTypes(types);
    registerConstraintTypes(types);
    registerDeformerTypes(types);
    registerPolyCreatorTypes(types);
    registerPolyTypes(types);
    registerSystemTypes(types);
    registerRenderTypes(types);
    for (const auto& type : types.all()) {
        for (const AffectsRow& row : kAffects) {
            if (type->compute == row.compute) {
                row.fill(*type);
            }
        }
    }
}

} // namespace host
