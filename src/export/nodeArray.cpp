#include "export/nodeArray.h"

#include "common/fixedPoint.h"
#include "common/numberText.h"
#include "scene/Run.h"
#include "scene/xmlText.h"

#include <algorithm>
#include <array>
#include <ostream>

namespace tvk {
namespace {

constexpr std::array<const char*, 6> kKindWords{"null", "null", "mesh", "joint", "error", "none"};
constexpr std::array<const char*, 3> kBillboardWords{"off", "on", "y_on"};
constexpr std::array<const char*, 9> kChannelWords{"scale_x",  "scale_y",     "scale_z",     "rotate_x",   "rotate_y",
                                                   "rotate_z", "translate_x", "translate_y", "translate_z"};

constexpr int kAttributeTabs = 2;

int64_t writtenDisplays(const NodeRecord& node) {
    return std::count_if(node.displayList.begin(), node.displayList.end(),
                         [](const DisplayEntry& entry) { return entry.written; });
}

void writeLinks(std::ostream& out, const NodeLinks& links) {
    writeNodeLink(out, "parent", links.parent);
    writeNodeLink(out, "child", links.child);
    writeNodeLink(out, "brother_next", links.brotherNext);
    writeNodeLink(out, "brother_prev", links.brotherPrev);
}

void writeTransform(std::ostream& out, const TransformSet& set) {
    writeAttributeLine(out, kAttributeTabs, "scale", fixedVectorText(set.scale));
    writeAttributeLine(out, kAttributeTabs, "rotate", fixedVectorText(set.rotate));
    writeAttributeLine(out, kAttributeTabs, "translate", fixedVectorText(set.translate));
}

// Two counts on one line.
void writeCounts(std::ostream& out, const char* first, int32_t firstCount, const char* second, int32_t secondCount) {
    out << "\t\t" << first << "=\"" << integerText(firstCount) << '"';
    writeAttribute(out, second, secondCount);
    out << '\n';
}

void writeMeshAttributes(std::ostream& out, const NodeRecord& node) {
    writeCounts(out, "vertex_size", node.vertexSize, "polygon_size", node.polygonSize);
    writeCounts(out, "triangle_size", node.triangleSize, "quad_size", node.quadSize);
    writeAttributeLine(out, kAttributeTabs, "volume_min", fixedVectorText(node.volumeMin));
    writeAttributeLine(out, kAttributeTabs, "volume_max", fixedVectorText(node.volumeMax));
    writeAttributeLine(out, kAttributeTabs, "volume_r",
                       fixedText(toFixed12(node.volumeRadius), run().options.rawValues).view());
}

void writeNode(std::ostream& out, const NodeRecord& node) {
    out << "\t<node";
    writeAttribute(out, "index", node.index);
    writeAttribute(out, "name", node.name);
    writeAttribute(out, "kind", kKindWords.at(static_cast<std::size_t>(node.kind)));
    out << '\n';
    writeLinks(out, node.output);
    writeAttributeLine(out, kAttributeTabs, "draw_mtx", onOff(node.drawMtx));
    if (run().scene.scalingRuleIsMaya) {
        writeAttributeLine(out, kAttributeTabs, "scale_compensate", onOff(node.writesCompensation));
    }
    writeAttributeLine(out, kAttributeTabs, "billboard", kBillboardWords.at(static_cast<std::size_t>(node.billboard)));
    writeTransform(out, node.written);
    writeAttributeLine(out, kAttributeTabs, "visibility", onOff(node.visibility));
    writeAttributeLine(out, kAttributeTabs, "display_size", writtenDisplays(node));
    if (node.kind == NodeKind::kMesh) {
        writeMeshAttributes(out, node);
    }
    out << "\t>\n";
    if (node.kind == NodeKind::kMesh) {
        writeDisplayList(out, node);
    }
    out << "\t</node>\n";
}

} // namespace

void writeNodeLink(std::ostream& out, const char* name, const NodeRecord* target) {
    writeAttributeLine(out, kAttributeTabs, name, target == nullptr ? -1 : target->index);
}

void writeDisplayList(std::ostream& out, const NodeRecord& node) {
    int64_t index = 0;
    for (const DisplayEntry& entry : node.displayList) {
        if (!entry.written) {
            continue;
        }
        out << "\t\t<display";
        writeAttribute(out, "index", index++);
        writeAttribute(out, "material", entry.material);
        writeAttribute(out, "polygon", entry.polygon);
        writeAttribute(out, "priority", entry.priority);
        out << "/>\n";
    }
}

void writeNodeAnm(std::ostream& out, const NodeRecord& node) {
    out << "\t<node_anm";
    writeAttribute(out, "index", node.index);
    out << ">\n";
    for (std::size_t i = 0; i < kChannelWords.size(); ++i) {
        out << "\t\t<" << kChannelWords.at(i) << ' ';
        writeTrackAttributes(out, node.channels.at(i));
        out << "/>\n";
    }
    out << "\t</node_anm>\n";
}

MStatus writeNodeArray(std::ostream& out, bool animation) {
    const std::vector<NodeRecord*>& nodes = run().scene.outputNodes;
    if (nodes.empty()) {
        return MS::kSuccess;
    }
    const char* const element = animation ? "node_anm_array" : "node_array";
    out << '<' << element;
    writeAttribute(out, "size", static_cast<int64_t>(nodes.size()));
    out << ">\n";
    for (const NodeRecord* node : nodes) {
        if (node->skipOutput) {
            continue;
        }
        if (animation) {
            writeNodeAnm(out, *node);
        } else {
            writeNode(out, *node);
        }
    }
    out << "</" << element << ">\n\n";
    return MS::kSuccess;
}

} // namespace tvk
