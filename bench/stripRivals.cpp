#include "bench/stripRivals.h"

#include <algorithm>
#include <cstddef>
#include <limits>

#include <meshoptimizer.h>
#include <osg/Geometry>
#include <osgUtil/TriStripVisitor>

namespace tvk {

namespace {

constexpr unsigned kRestart = std::numeric_limits<unsigned>::max();

int64_t meshoptimizerVertices(const std::vector<unsigned>& indices, uint32_t vertexCount) {
    std::vector<unsigned> strip(meshopt_stripifyBound(indices.size()));
    strip.resize(meshopt_stripify(strip.data(), indices.data(), indices.size(), vertexCount, kRestart));
    return static_cast<int64_t>(strip.size()) - std::count(strip.begin(), strip.end(), kRestart);
}

} // namespace

RivalResult stripWithMeshoptimizer(const TriangleIndices& triangles) {
    RivalResult result;
    result.vertices = std::numeric_limits<int64_t>::max();
    std::vector<unsigned> order(triangles.indices.size());
    const auto consider = [&] {
        result.vertices = std::min(result.vertices, meshoptimizerVertices(order, triangles.vertexCount));
    };
    result.seconds = measureProcessorSeconds(1, [&] {
        order = triangles.indices;
        consider();
        meshopt_optimizeVertexCache(order.data(), triangles.indices.data(), order.size(), triangles.vertexCount);
        consider();
        meshopt_optimizeVertexCacheStrip(order.data(), triangles.indices.data(), order.size(), triangles.vertexCount);
        consider();
    });
    return result;
}

RivalResult stripWithOpenSceneGraph(const TriangleIndices& triangles) {
    // Vertices at different places: the visitor itself joins those that are equal.
    const osg::ref_ptr<osg::Vec3Array> points = new osg::Vec3Array;
    for (uint32_t i = 0; i < triangles.vertexCount; ++i)
        points->push_back(osg::Vec3(static_cast<float>(i % 4096), static_cast<float>(i / 4096), 0));
    const osg::ref_ptr<osg::Geometry> geometry = new osg::Geometry;
    geometry->setVertexArray(points);
    geometry->addPrimitiveSet(
        new osg::DrawElementsUInt(osg::PrimitiveSet::TRIANGLES, triangles.indices.begin(), triangles.indices.end()));
    RivalResult result;
    osgUtil::TriStripVisitor visitor;
    result.seconds = measureProcessorSeconds(1, [&] { visitor.stripify(*geometry); });
    for (unsigned i = 0; i < geometry->getNumPrimitiveSets(); ++i)
        result.vertices += geometry->getPrimitiveSet(i)->getNumIndices();
    return result;
}

} // namespace tvk
