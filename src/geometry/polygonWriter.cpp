#include "geometry/polygonWriter.h"

#include "common/numberText.h"
#include "geometry/VertexCommands.h"
#include "geometry/primitiveBuilding.h"
#include "geometry/writerMessages.h"
#include "scene/Run.h"
#include "scene/hostCompatibility.h"
#include "scene/xmlText.h"

#include <maya/MFeedbackLine.h>

#include <algorithm>
#include <array>
#include <ostream>
#include <string>
#include <vector>

namespace tvk {
namespace {

// What the console's vertex memory holds.
constexpr int32_t kVertexLimit = 6144;

constexpr std::array<const char*, 4> kTypeWords{"triangles", "quads", "triangle_strip", "quad_strip"};

struct Counts {
    int32_t vertices = 0;
    int32_t triangles = 0;
    int32_t quads = 0;
    int32_t polygons() const { return triangles + quads; }
};

Counts countsOf(const PolygonPrimitives& primitives) {
    Counts counts;
    for (const MatrixGroup& group : primitives.groups) {
        counts.vertices += group.vertexCount;
        counts.triangles += group.triangleCount;
        counts.quads += group.quadCount;
    }
    return counts;
}

// Faces of the polygons that are written.
struct FaceTotals {
    int64_t triangles = 0;
    int64_t quads = 0;
};

FaceTotals faceTotals(const std::vector<PolygonRecord>& polygons) {
    FaceTotals totals;
    for (const PolygonRecord& polygon : polygons) {
        if (!polygon.dropped) {
            const auto quads = std::count(polygon.faces.sizes.begin(), polygon.faces.sizes.end(), uint8_t{4});
            totals.quads += quads;
            totals.triangles += static_cast<int64_t>(polygon.faces.sizes.size()) - quads;
        }
    }
    return totals;
}

// The line under the host's window while polygons are built.
class Progress {
public:
    Progress(int64_t triangles, std::size_t polygons) : triangles_(std::max<int64_t>(triangles, 1)), count_(polygons) {}

    void begin(std::size_t index, const PolygonRecord& polygon) {
        done_ += current_;
        current_ = polygon.triangleCount;
        line_ = integerText(static_cast<int64_t>(index) + 1).str() + "/" +
                integerText(static_cast<int64_t>(count_)).str() + " : " + polygon.name + " (" +
                integerText(static_cast<int64_t>(polygon.faces.sizes.size())).str() + " polygons)";
        shownFormat_ = nullptr;
        MFeedbackLine::setFormat(hostText(line_));
    }

    void show(PrimitiveStep step, double done) {
        const char* const format = step == PrimitiveStep::kMakeStrips ? kStripFormat : kGroupFormat;
        if (format != shownFormat_) {
            MFeedbackLine::setFormat(hostText(format + line_));
            shownFormat_ = format;
        }
        if (step == PrimitiveStep::kMakeStrips) {
            const double triangles = static_cast<double>(done_) + done * static_cast<double>(current_);
            MFeedbackLine::setValue(0, 100.0 * triangles / static_cast<double>(triangles_));
        }
    }

private:
    static constexpr const char* kStripFormat = "Making Strip : %^5.1f : ";
    static constexpr const char* kGroupFormat = "Optimizing Matrix Loading : ";

    int64_t triangles_;
    std::size_t count_;
    int64_t done_ = 0;
    int64_t current_ = 0;
    std::string line_;
    const char* shownFormat_ = nullptr;
};

std::string positionText(const Vector3& point) {
    std::string text;
    for (const double component : point) {
        text += text.empty() ? "" : " ";
        text += fixedText(toFixed(component, kFixedPosition), run().options.rawValues, kFixedPosition).view();
    }
    return text;
}

void writeCounts(std::ostream& out, const Counts& counts) {
    out << "\t\tvertex_size=\"" << integerText(counts.vertices) << '"';
    writeAttribute(out, "polygon_size", counts.polygons());
    out << "\n\t\ttriangle_size=\"" << integerText(counts.triangles) << '"';
    writeAttribute(out, "quad_size", counts.quads);
    out << '\n';
}

void writeHead(std::ostream& out, std::size_t index, const PolygonRecord& polygon,
               const PolygonPrimitives& primitives) {
    constexpr int kTabs = 2;
    out << "\t<polygon";
    writeAttribute(out, "index", static_cast<int64_t>(index));
    writeAttribute(out, "name", polygon.name);
    out << '\n';
    writeCounts(out, countsOf(primitives));
    writeAttributeLine(out, kTabs, "volume_min", positionText(polygon.volumeMin));
    writeAttributeLine(out, kTabs, "volume_max", positionText(polygon.volumeMax));
    writeAttributeLine(out, kTabs, "volume_r",
                       fixedText(toFixed12(polygon.volumeRadius), run().options.rawValues).view());
    writeAttributeLine(out, kTabs, "mtx_prim_size", static_cast<int64_t>(primitives.groups.size()));
    out << "\t\tnrm_flag=\"" << onOff(polygon.nrmFlag) << '"';
    writeAttribute(out, "clr_flag", onOff(polygon.clrFlag));
    writeAttribute(out, "tex_flag", onOff(polygon.texFlag));
    out << "\n\t>\n";
}

void writeMatrixList(std::ostream& out, const std::vector<int32_t>& entries) {
    out << "\t\t\t<mtx_list size=\"" << integerText(static_cast<int64_t>(entries.size())) << "\">";
    const char* separator = "";
    for (const int32_t entry : entries) {
        out << separator << integerText(entry);
        separator = " ";
    }
    out << "</mtx_list>\n";
}

void writeGroup(std::ostream& out, std::size_t index, const MatrixGroup& group, MatrixSlots& slots,
                VertexCommands& commands) {
    out << "\t\t<mtx_prim index=\"" << integerText(static_cast<int64_t>(index)) << "\">\n";
    writeMatrixList(out, slots.load(group.matrices));
    out << "\t\t\t<primitive_array size=\"" << integerText(static_cast<int64_t>(group.primitives.size())) << "\">\n";
    int64_t number = 0;
    for (const Primitive& primitive : group.primitives) {
        out << "\t\t\t\t<primitive index=\"" << integerText(number++) << '"';
        writeAttribute(out, "type", kTypeWords.at(static_cast<std::size_t>(primitive.type)));
        writeAttribute(out, "vertex_size", static_cast<int64_t>(primitive.vertices.size()));
        out << ">\n";
        for (const Corner& corner : primitive.vertices) {
            commands.write(corner, slots);
        }
        out << "\t\t\t\t</primitive>\n";
    }
    out << "\t\t\t</primitive_array>\n\t\t</mtx_prim>\n";
}

VertexCommandOptions commandOptions(const PolygonRecord& polygon, const PolygonPrimitives& primitives) {
    VertexCommandOptions options;
    options.matrices = primitives.usesMatrixCommands;
    options.texCoords = polygon.texFlag;
    options.colors = polygon.clrFlag;
    options.normals = polygon.nrmFlag;
    options.indexed = run().options.vertexTableFlag;
    options.resetNormalAfterTexture = polygon.resetNormalAfterTexture;
    options.rawValues = run().options.rawValues;
    return options;
}

void writePolygon(std::ostream& out, std::size_t index, const PolygonRecord& polygon,
                  const PolygonPrimitives& primitives) {
    writeHead(out, index, polygon, primitives);
    MatrixSlots slots;
    VertexCommands commands(out, run().scene.tables, commandOptions(polygon, primitives));
    std::size_t number = 0;
    for (const MatrixGroup& group : primitives.groups) {
        writeGroup(out, number++, group, slots, commands);
    }
    out << "\t</polygon>\n";
}

void addCounts(SceneData& scene, std::size_t index, const PolygonRecord& polygon, const Counts& counts) {
    scene.vertexTotal += counts.vertices;
    scene.polygonTotal += counts.polygons();
    scene.triangleTotal += counts.triangles;
    scene.quadTotal += counts.quads;
    if (polygon.node == nullptr) {
        return;
    }
    NodeRecord& node = *polygon.node;
    node.vertexSize += counts.vertices;
    node.polygonSize += counts.polygons();
    node.triangleSize += counts.triangles;
    node.quadSize += counts.quads;
    DisplayEntry entry;
    entry.material = scene.materials.at(static_cast<std::size_t>(polygon.material)).outputIndex;
    entry.polygon = static_cast<int32_t>(index);
    entry.priority = polygon.renderPriority;
    node.displayList.push_back(entry);
}

void checkTotals(const SceneData& scene) {
    if (scene.vertexTotal > kVertexLimit) {
        say(kVertexTotalOver, integerText(scene.vertexTotal).str() + " / " + integerText(kVertexLimit).str());
    }
    const int64_t memory = scene.triangleTotal * kTriangleMemory + scene.quadTotal * kQuadMemory;
    if (memory > kPolygonMemory) {
        say(kPolygonTotalOver, integerText(scene.polygonTotal).str() + " ( " + integerText(scene.triangleTotal).str() +
                                   " triangles, " + integerText(scene.quadTotal).str() + " quads)");
    }
}

} // namespace

MStatus writePolygonArray(std::ostream& out) {
    SceneData& scene = run().scene;
    const auto kept = std::count_if(scene.polygons.begin(), scene.polygons.end(),
                                    [](const PolygonRecord& polygon) { return !polygon.dropped; });
    out << "<polygon_array";
    writeAttribute(out, "size", static_cast<int64_t>(kept));
    out << ">\n";
    Progress progress(scene.gatheredTriangles, static_cast<std::size_t>(kept));
    const FaceTotals totals = faceTotals(scene.polygons);
    PrimitiveOptions options;
    options.makeStrips = run().options.usePrimitiveStrip;
    options.effort = stripEffortFor(totals.triangles + 2 * totals.quads);
    options.splittableQuads = quadsThatMaySplit(totals.triangles, totals.quads);
    options.progress = [&progress](PrimitiveStep step, double done) { progress.show(step, done); };
    std::size_t index = 0;
    for (PolygonRecord& polygon : scene.polygons) {
        if (polygon.dropped) {
            continue;
        }
        progress.begin(index, polygon);
        const PolygonPrimitives primitives = buildPrimitives(polygon.faces, options);
        const Counts counts = countsOf(primitives);
        const auto asRead = std::count(polygon.faces.sizes.begin(), polygon.faces.sizes.end(), uint8_t{4});
        options.splittableQuads -= std::min<int64_t>(asRead - counts.quads, options.splittableQuads);
        writePolygon(out, index, polygon, primitives);
        addCounts(scene, index, polygon, counts);
        if (primitives.groups.size() > 1) {
            say(kSeveralMatrixGroups, polygon.name);
        }
        ++index;
    }
    out << "</polygon_array>\n\n";
    checkTotals(scene);
    return MS::kSuccess;
}

} // namespace tvk
