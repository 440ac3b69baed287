#include "host/nodes/apiTypes.h"
#include "host/nodes/polyCompute.h"
#include "host/nodes/primitiveCompute.h"
#include "host/nodes/typeRows.h"
#include "host/nodes/typeTables.h"

namespace host {

namespace {

using namespace row;

constexpr AttributeRow kPolyBase[] = {
    {"output", "out", "mesh", {}, 0, kComputed},
};

constexpr AttributeRow kPolyPrimitive[] = {
    {"axis", "ax", "double3", "XYZ", {0, 1, 0}},
    {"paramWarn", "pw", "bool"},
    {"texture", "tx", "bool", {}, 1},
};

constexpr AttributeRow kPolyCube[] = {
    {"width", "w", "distance", {}, 1, kKeyable},           {"height", "h", "distance", {}, 1, kKeyable},
    {"depth", "d", "distance", {}, 1, kKeyable},           {"subdivisionsWidth", "sw", "long", {}, 1, kKeyable},
    {"subdivisionsHeight", "sh", "long", {}, 1, kKeyable}, {"subdivisionsDepth", "sd", "long", {}, 1, kKeyable},
    {"createUVs", "cuv", "enum", {}, 4, kKeyable},
};

constexpr AttributeRow kPolyPlane[] = {
    {"width", "w", "distance", {}, 1, kKeyable},           {"height", "h", "distance", {}, 1, kKeyable},
    {"subdivisionsWidth", "sw", "long", {}, 10, kKeyable}, {"subdivisionsHeight", "sh", "long", {}, 10, kKeyable},
    {"createUVs", "cuv", "enum", {}, 2, kKeyable},
};

constexpr AttributeRow kPolySphere[] = {
    {"radius", "r", "distance", {}, 1, kKeyable},
    {"subdivisionsAxis", "sa", "long", {}, 20, kKeyable},
    {"subdivisionsHeight", "sh", "long", {}, 20, kKeyable},
    {"createUVs", "cuv", "enum", {}, 2, kKeyable},
};

constexpr AttributeRow kPolyCylinder[] = {
    {"radius", "r", "distance", {}, 1, kKeyable},         {"height", "h", "distance", {}, 2, kKeyable},
    {"subdivisionsAxis", "sa", "long", {}, 20, kKeyable}, {"subdivisionsHeight", "sh", "long", {}, 1, kKeyable},
    {"subdivisionsCaps", "sc", "long", {}, 1, kKeyable},  {"roundCap", "rcp", "bool", {}, 0, kKeyable},
    {"createUVs", "cuv", "enum", {}, 3, kKeyable},
};

constexpr AttributeRow kPolyCone[] = {
    {"radius", "r", "distance", {}, 1, kKeyable},         {"height", "h", "distance", {}, 2, kKeyable},
    {"subdivisionsAxis", "sa", "long", {}, 20, kKeyable}, {"subdivisionsHeight", "sh", "long", {}, 1, kKeyable},
    {"subdivisionsCap", "sc", "long", {}, 0, kKeyable},   {"roundCap", "rcp", "bool", {}, 0, kKeyable},
    {"createUVs", "cuv", "enum", {}, 3, kKeyable},
};

constexpr AttributeRow kPolyTorus[] = {
    {"radius", "r", "distance", {}, 1, kKeyable},
    {"sectionRadius", "sr", "distance", {}, 0.5, kKeyable},
    {"twist", "tw", "angle", {}, 0, kKeyable},
    {"subdivisionsAxis", "sa", "long", {}, 20, kKeyable},
    {"subdivisionsHeight", "sh", "long", {}, 20, kKeyable},
    {"createUVs", "cuv", "enum", {}, 1, kKeyable},
};

constexpr AttributeRow kPolyPlatonic[] = {
    {"radius", "r", "distance", {}, 1, kKeyable},
    {"sideLength", "l", "distance", {}, 0.713},
    {"solidType", "st", "enum", {}, 1},
    {"createUVs", "cuv", "enum", {}, 4, kKeyable},
};

constexpr AttributeRow kPolyPyramid[] = {
    {"sideLength", "w", "distance", {}, 2, kKeyable},      {"numberOfSides", "ns", "long", {}, 4, kKeyable},
    {"subdivisionsHeight", "sh", "long", {}, 1, kKeyable}, {"subdivisionsCaps", "sc", "long", {}, 0, kKeyable},
    {"createUVs", "cuv", "enum", {}, 3, kKeyable},
};

constexpr AttributeRow kPolyPrism[] = {
    {"length", "l", "distance", {}, 2, kKeyable},        {"sideLength", "w", "distance", {}, 2, kKeyable},
    {"numberOfSides", "ns", "long", {}, 3, kKeyable},    {"subdivisionsHeight", "sh", "long", {}, 1, kKeyable},
    {"subdivisionsCaps", "sc", "long", {}, 0, kKeyable}, {"createUVs", "cuv", "enum", {}, 3, kKeyable},
};

constexpr AttributeRow kPolyPipe[] = {
    {"radius", "r", "distance", {}, 1, kKeyable},          {"height", "h", "distance", {}, 2, kKeyable},
    {"thickness", "t", "distance", {}, 0.5, kKeyable},     {"subdivisionsAxis", "sa", "long", {}, 20, kKeyable},
    {"subdivisionsHeight", "sh", "long", {}, 1, kKeyable}, {"subdivisionsCaps", "sc", "long", {}, 0, kKeyable},
    {"roundCap", "rcp", "bool", {}, 0, kKeyable},          {"createUVs", "cuv", "enum", {}, 1, kKeyable},
};

constexpr AttributeRow kPolyHelix[] = {
    {"coils", "c", "double", {}, 3, kKeyable},           {"height", "h", "distance", {}, 2, kKeyable},
    {"width", "w", "distance", {}, 2, kKeyable},         {"radius", "r", "distance", {}, 0.4, kKeyable},
    {"subdivisionsAxis", "sa", "long", {}, 8, kKeyable}, {"subdivisionsCoil", "sco", "long", {}, 50, kKeyable},
    {"subdivisionsCaps", "sc", "long", {}, 0, kKeyable}, {"direction", "d", "long", {}, 1, kKeyable},
    {"createUVs", "cuv", "enum", {}, 3, kKeyable},
};

constexpr TypeBehaviour kMakesNothing{DagRole::kNone, computeNoMesh, {}, true};

constexpr TypeBehaviour computedBy(ComputeFunction compute) {
    return {DagRole::kNone, compute};
}

constexpr TypeRow kTypes[] = {
    {"polyBase", "dependNode", api::kMidModifier, kPolyBase, kMakesNothing},
    {"polyCreator", "polyBase", api::kPolyCreator},
    {"polyPrimitive", "polyCreator", api::kPolyPrimitive, kPolyPrimitive},
    {"polyCube", "polyPrimitive", api::kPolyCube, kPolyCube, computedBy(computePolyCube)},
    {"polyPlane", "polyPrimitive", api::kPolyMesh, kPolyPlane, computedBy(computePolyPlane)},
    {"polySphere", "polyPrimitive", api::kPolySphere, kPolySphere, computedBy(computePolySphere)},
    {"polyCylinder", "polyPrimitive", api::kPolyCylinder, kPolyCylinder, computedBy(computePolyCylinder)},
    {"polyCone", "polyPrimitive", api::kPolyCone, kPolyCone, computedBy(computePolyCone)},
    {"polyTorus", "polyPrimitive", api::kPolyTorus, kPolyTorus, computedBy(computePolyTorus)},
    {"polyPlatonicSolid", "polyPrimitive", api::kPolyPlatonicSolid, kPolyPlatonic},
    {"polyPyramid", "polyPrimitive", api::kPolyPyramid, kPolyPyramid, computedBy(computePolyPyramid)},
    {"polyPrism", "polyPrimitive", api::kPolyPrism, kPolyPrism, computedBy(computePolyPrism)},
    {"polyPipe", "polyPrimitive", api::kPolyPipe, kPolyPipe},
    {"polyHelix", "polyPrimitive", api::kPolyHelix, kPolyHelix},
    {"polyCreateFace", "polyCreator", api::kPolyCreateFacet},
};

} // namespace

void registerPolyCreatorTypes(NodeTypeRegistry& types) {
    registerRows(types, kTypes);
}

} // namespace host
