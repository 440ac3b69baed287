#include "geometry/tableWriters.h"

#include "common/fixedPoint.h"
#include "common/numberText.h"
#include "geometry/VertexCommands.h"
#include "scene/Run.h"
#include "scene/xmlText.h"

#include <algorithm>
#include <array>
#include <ostream>

namespace tvk {
namespace {

using BoxPart = std::array<int64_t, 3>;

constexpr int64_t kLowestWord = -32768;
constexpr int64_t kHighestWord = 32767;

struct Box {
    BoxPart lowest{};
    BoxPart highest{};
    BoxPart extent{};
    int shift = 0; // halvings until every value fits a 16-bit word
};

bool fits(const Box& box) {
    for (const BoxPart& part : {box.lowest, box.highest, box.extent}) {
        for (const int64_t value : part) {
            const int64_t shifted = value >> box.shift; // arithmetic on every compiler that we build with
            if (shifted < kLowestWord || shifted > kHighestWord) {
                return false;
            }
        }
    }
    return true;
}

Box quantisedBox(const SceneData& scene) {
    Box box;
    for (std::size_t axis = 0; axis < 3; ++axis) {
        box.lowest[axis] = toFixed12(scene.boxMin[axis]);
        box.highest[axis] = toFixed12(scene.boxMax[axis]);
        box.extent[axis] = box.highest[axis] - box.lowest[axis];
    }
    while (!fits(box)) {
        ++box.shift;
    }
    return box;
}

template <typename Values>
void writeValues(std::ostream& out, const Values& values, int shift, const FixedFormat& format) {
    const char* separator = "";
    for (const auto value : values) {
        const auto shifted = static_cast<int32_t>(value >> shift);
        out << separator << fixedText(shifted, run().options.rawValues, format);
        separator = " ";
    }
}

template <typename Value>
void writeEnvelopeList(std::ostream& out, const char* name, const Value& valueOf) {
    constexpr int kTabs = 2;
    const std::vector<EnvelopeEntry>& entries = run().scene.envelope;
    out << "\t<" << name;
    writeAttribute(out, "size", static_cast<int64_t>(entries.size()));
    out << ">\n";
    writeTenToALine(out, kTabs, entries.size(), [&](std::size_t i) { return integerText(valueOf(entries[i])); });
    out << "\t</" << name << ">\n";
}

} // namespace

void writeBoxTest(std::ostream& out) {
    const SceneData& scene = run().scene;
    const bool hasPolygon = std::any_of(scene.polygons.begin(), scene.polygons.end(),
                                        [](const PolygonRecord& polygon) { return !polygon.dropped; });
    if (!hasPolygon) {
        return;
    }
    const Box box = quantisedBox(scene);
    out << "<box_test";
    writeAttribute(out, "pos_scale", box.shift);
    out << " xyz=\"";
    writeValues(out, box.lowest, box.shift, kFixed12);
    out << "\" whd=\"";
    writeValues(out, box.extent, box.shift, kFixed12);
    out << "\"/>\n\n";
}

void writeVertexPositions(std::ostream& out) {
    const auto& positions = run().scene.tables.positions;
    if (positions.empty()) {
        return;
    }
    out << "<vtx_pos_data";
    writeAttribute(out, "pos_size", positions.size());
    out << ">\n";
    for (const FixedPosition& position : positions.entries()) {
        out << '\t';
        writeValues(out, position, 0, kFixedPosition);
        out << '\n';
    }
    out << "</vtx_pos_data>\n\n";
}

void writeVertexColors(std::ostream& out) {
    const auto& colors = run().scene.tables.colors;
    if (colors.empty()) {
        return;
    }
    out << "<vtx_color_data";
    writeAttribute(out, "color_size", colors.size());
    out << ">\n";
    for (const ColorWord color : colors.entries()) {
        out << '\t';
        writeColor(out, color);
        out << '\n';
    }
    out << "</vtx_color_data>\n\n";
}

void writeEnvelope(std::ostream& out) {
    if (run().scene.envelope.empty()) {
        return;
    }
    out << "<envelope>\n";
    writeEnvelopeList(out, "weight", [](const EnvelopeEntry& entry) { return entry.weight; });
    writeEnvelopeList(out, "node_idx", [](const EnvelopeEntry& entry) { return entry.nodeIndex; });
    out << "</envelope>\n\n";
}

void writeMatrixArray(std::ostream& out) {
    const std::vector<MatrixRecord>& matrices = run().scene.matrices;
    if (matrices.empty()) {
        return;
    }
    out << "<matrix_array";
    writeAttribute(out, "size", static_cast<int64_t>(matrices.size()));
    out << ">\n";
    int64_t index = 0;
    for (const MatrixRecord& matrix : matrices) {
        out << "\t<matrix";
        writeAttribute(out, "index", index++);
        writeAttribute(out, "mtx_weight", matrix.weightCount);
        if (matrix.isBlend()) {
            writeAttribute(out, "envelope_head", matrix.envelopeHead);
        } else {
            writeAttribute(out, "node_idx", matrix.nodeIndex);
        }
        out << "/>\n";
    }
    out << "</matrix_array>\n\n";
}

} // namespace tvk
