#pragma once

#include "host/graph/NodeType.h"

/// The families of node types, each a file of tables. Only nodeTypes.cpp calls these, in this order: a type's ancestors
/// are registered before it.
namespace host {

void registerBaseTypes(NodeTypeRegistry& types);
void registerDagTypes(NodeTypeRegistry& types);
void registerShapeTypes(NodeTypeRegistry& types);
void registerLightTypes(NodeTypeRegistry& types);
void registerSetTypes(NodeTypeRegistry& types);
void registerShaderTypes(NodeTypeRegistry& types);
void registerTextureTypes(NodeTypeRegistry& types);
void registerPlacementTypes(NodeTypeRegistry& types);
void registerAnimTypes(NodeTypeRegistry& types);
void registerUtilityTypes(NodeTypeRegistry& types);
void registerConstraintTypes(NodeTypeRegistry& types);
void registerDeformerTypes(NodeTypeRegistry& types);
void registerPolyCreatorTypes(NodeTypeRegistry& types);
void registerPolyTypes(NodeTypeRegistry& types);
void registerSystemTypes(NodeTypeRegistry& types);
void registerRenderTypes(NodeTypeRegistry& types);

} // namespace host
