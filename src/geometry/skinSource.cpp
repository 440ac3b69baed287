#include "geometry/skinSource.h"

#include "geometry/guardedInverse.h"
#include "scene/plugReading.h"

#include <maya/MDagPathArray.h>
#include <maya/MFnMatrixData.h>
#include <maya/MFnSkinCluster.h>
#include <maya/MIntArray.h>
#include <maya/MPlugArray.h>

#include <unordered_set>

namespace tvk {
namespace {

bool bindsVertices(DeformerKind kind) {
    return kind == DeformerKind::kSkinCluster || kind == DeformerKind::kJointCluster || kind == DeformerKind::kCluster;
}

bool readMatrix(const MPlug& plug, MMatrix& matrix) {
    MObject data;
    if (!readPlug(plug, data)) {
        return false;
    }
    MStatus status;
    const MFnMatrixData function(data, &status);
    if (status) {
        matrix = function.matrix();
    }
    return static_cast<bool>(status);
}

MMatrix matrixOr(const MPlug& plug, const MMatrix& fallback) {
    MMatrix matrix;
    return readMatrix(plug, matrix) ? matrix : fallback;
}

// The elements of an array that are there. Asking for another one would make the host add it.
std::unordered_set<unsigned int> existingElements(const MPlug& array) {
    std::unordered_set<unsigned int> elements;
    MIntArray indices;
    if (array.isNull() || !array.isArray()) {
        return elements;
    }
    array.getExistingArrayAttributeIndices(indices);
    for (unsigned int i = 0; i < indices.length(); ++i) {
        elements.insert(static_cast<unsigned int>(indices[i]));
    }
    return elements;
}

MPlug elementAmong(const std::unordered_set<unsigned int>& existing, const MPlug& array, unsigned int index) {
    return existing.count(index) > 0 ? array.elementByLogicalIndex(index) : MPlug();
}

// The instance of the node whose world matrix the plug is.
MDagPath pathOf(const MPlug& worldMatrix) {
    MDagPathArray paths;
    MDagPath::getAllPathsTo(worldMatrix.node(), paths);
    const unsigned int instance = worldMatrix.isElement() ? worldMatrix.logicalIndex() : 0;
    if (instance < paths.length()) {
        return paths[instance];
    }
    return paths.length() > 0 ? paths[0] : MDagPath();
}

InfluenceObject influenceOfCluster(const MObject& cluster) {
    const MFnDependencyNode node(cluster);
    InfluenceObject influence;
    const MPlug matrix = findPlug(node, "matrix");
    MPlugArray sources;
    if (!matrix.isNull() && matrix.connectedTo(sources, true, false) && sources.length() > 0) {
        influence.path = pathOf(sources[0]);
    }
    influence.bindInverse = matrixOr(findPlug(node, "bindPreMatrix"), MMatrix::identity);
    influence.subject = influence.path.isValid() ? textOf(influence.path.fullPathName()) : textOf(matrix.name());
    return influence;
}

std::vector<InfluenceObject> influencesOfSkin(MObject skinCluster) {
    std::vector<InfluenceObject> influences;
    MStatus status;
    const MFnSkinCluster skin(skinCluster, &status);
    MDagPathArray paths;
    if (!status || skin.influenceObjects(paths, &status) == 0 || !status) {
        return influences;
    }
    const MPlug bindInverses = findPlug(skin, "bindPreMatrix");
    const std::unordered_set<unsigned int> existing = existingElements(bindInverses);
    for (unsigned int i = 0; i < paths.length(); ++i) {
        const unsigned int index = skin.indexForInfluenceObject(paths[i]);
        influences.push_back({paths[i], matrixOr(elementAmong(existing, bindInverses, index), MMatrix::identity),
                              textOf(paths[i].fullPathName())});
    }
    return influences;
}

} // namespace

SkinSource findSkinSource(const ShapeHistory& history) {
    SkinSource source;
    for (const Deformer& deformer : history.deformers) {
        if (!bindsVertices(deformer.kind)) {
            continue;
        }
        const bool isEffective = isDeformerEffective(deformer.node);
        if (!source.exists) {
            source.exists = true;
            source.isEffective = isEffective;
            source.kind = deformer.kind;
            source.nearest = deformer.node;
            source.deformers.push_back(deformer);
        } else if (deformer.kind != source.kind || source.kind == DeformerKind::kSkinCluster) {
            if (isEffective) {
                source.ignored.push_back(deformer.node);
            }
        } else if (isEffective) {
            source.deformers.push_back(deformer);
        } else {
            source.noEffect.push_back(deformer.node);
        }
    }
    return source;
}

std::vector<InfluenceObject> findInfluenceObjects(const SkinSource& source) {
    if (source.kind == DeformerKind::kSkinCluster) {
        return influencesOfSkin(source.nearest);
    }
    std::vector<InfluenceObject> influences;
    for (const Deformer& cluster : source.deformers) {
        influences.push_back(influenceOfCluster(cluster.node));
    }
    return influences;
}

bool readBindWorld(const SkinSource& source, MMatrix& world) {
    const MFnDependencyNode node(source.nearest);
    const MPlug plug = findPlug(node, "geomMatrix");
    if (plug.isNull()) {
        return false;
    }
    const MPlug value =
        plug.isArray() ? elementAmong(existingElements(plug), plug, source.deformers.front().geometry) : plug;
    MMatrix found;
    if (!readMatrix(value, found) || isFlattening(found)) {
        return false;
    }
    world = found;
    return true;
}

} // namespace tvk
