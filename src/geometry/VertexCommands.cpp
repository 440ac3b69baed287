#include "geometry/VertexCommands.h"

#include "common/fixedPoint.h"
#include "common/numberText.h"

#include <algorithm>
#include <array>
#include <ostream>

namespace tvk {
namespace {

constexpr const char* kTabs = "\t\t\t\t\t";

// A shortened position has 6 fractional bits.
constexpr int kShortShift = 6;
constexpr int32_t kShortMask = (1 << kShortShift) - 1;

// Positions that share one component with the one before: which to leave out, and what the command is called.
struct PartialPosition {
    std::size_t same, first, second;
    const char* command;
    const char* attribute;
};
constexpr std::array<PartialPosition, 3> kPartialPositions{{
    {2, 0, 1, "pos_xy", "xy"},
    {1, 0, 2, "pos_xz", "xz"},
    {0, 1, 2, "pos_yz", "yz"},
}};

constexpr int32_t kLowestDifference = -512;
constexpr int32_t kHighestDifference = 511;

template <typename Values>
void writeCommand(std::ostream& out, const char* command, const char* attribute, const Values& values, bool raw,
                  const FixedFormat& format) {
    out << kTabs << '<' << command << ' ' << attribute << "=\"";
    const char* separator = "";
    for (const auto value : values) {
        out << separator << fixedText(value, raw, format);
        separator = " ";
    }
    out << "\"/>\n";
}

void writeIndexCommand(std::ostream& out, const char* command, int32_t index) {
    out << kTabs << '<' << command << " idx=\"" << integerText(index) << "\"/>\n";
}

} // namespace

void writeColor(std::ostream& out, ColorWord color) {
    constexpr unsigned kComponent = 31;
    const unsigned word = color;
    out << integerText(word & kComponent) << ' ' << integerText((word >> 5U) & kComponent) << ' '
        << integerText((word >> 10U) & kComponent);
}

VertexCommands::VertexCommands(std::ostream& out, const ModelTables& tables, const VertexCommandOptions& options)
    : out_(out), tables_(tables), options_(options) {}

void VertexCommands::write(const Corner& corner, const MatrixSlots& slots) {
    writeMatrix(corner, slots);
    writeTexCoord(corner);
    writeColorCommand(corner);
    writeNormal(corner);
    writePosition(corner);
}

void VertexCommands::writeMatrix(const Corner& corner, const MatrixSlots& slots) {
    if (!options_.matrices || corner.matrix == matrix_) {
        return;
    }
    writeIndexCommand(out_, "mtx", slots.slotOf(corner.matrix));
    matrix_ = corner.matrix;
    normal_ = -1; // the console turns normals by the matrix under which they are sent
}

void VertexCommands::writeTexCoord(const Corner& corner) {
    if (!options_.texCoords || corner.texCoord == texCoord_) {
        return;
    }
    writeCommand(out_, "tex", "st", tables_.texCoords[corner.texCoord], options_.rawValues, kFixedTexel);
    texCoord_ = corner.texCoord;
    if (options_.resetNormalAfterTexture) {
        normal_ = -1;
    }
}

void VertexCommands::writeColorCommand(const Corner& corner) {
    if (!options_.colors || corner.color == color_) {
        return;
    }
    if (options_.indexed) {
        writeIndexCommand(out_, "clr_idx", corner.color);
    } else {
        out_ << kTabs << "<clr rgb=\"";
        writeColor(out_, tables_.colors[corner.color]);
        out_ << "\"/>\n";
    }
    color_ = corner.color;
    normal_ = -1; // a colour command overwrites what the light made of the normal
}

void VertexCommands::writeNormal(const Corner& corner) {
    if (!options_.normals || corner.normal == normal_) {
        return;
    }
    writeCommand(out_, "nrm", "xyz", tables_.normals[corner.normal], options_.rawValues, kFixedNormal);
    normal_ = corner.normal;
}

void VertexCommands::writePosition(const Corner& corner) {
    if (options_.indexed) {
        writeIndexCommand(out_, "pos_idx", corner.position);
    } else {
        const FixedPosition& position = tables_.positions[corner.position];
        if (!writePartialPosition(position) && !writeShortPosition(position) && !writeDifference(position)) {
            writeCommand(out_, "pos_xyz", "xyz", position, options_.rawValues, kFixedPosition);
        }
    }
    position_ = corner.position;
}

bool VertexCommands::writePartialPosition(const FixedPosition& position) {
    if (position_ < 0) {
        return false;
    }
    const FixedPosition& previous = tables_.positions[position_];
    for (const PartialPosition& row : kPartialPositions) {
        if (position[row.same] == previous[row.same]) {
            const std::array<int32_t, 2> values{position[row.first], position[row.second]};
            writeCommand(out_, row.command, row.attribute, values, options_.rawValues, kFixedPosition);
            return true;
        }
    }
    return false;
}

bool VertexCommands::writeShortPosition(const FixedPosition& position) {
    if (std::any_of(position.begin(), position.end(), [](int32_t value) { return (value & kShortMask) != 0; })) {
        return false;
    }
    std::array<int32_t, 3> values{position[0], position[1], position[2]};
    if (options_.rawValues) {
        for (int32_t& value : values) {
            value >>= kShortShift;
        }
    }
    writeCommand(out_, "pos_s", "xyz", values, options_.rawValues, kFixedPosition);
    return true;
}

bool VertexCommands::writeDifference(const FixedPosition& position) {
    if (position_ < 0) {
        return false;
    }
    const FixedPosition& previous = tables_.positions[position_];
    std::array<int32_t, 3> difference{};
    for (std::size_t axis = 0; axis < 3; ++axis) {
        difference[axis] = position[axis] - previous[axis];
        if (difference[axis] < kLowestDifference || difference[axis] > kHighestDifference) {
            return false;
        }
    }
    writeCommand(out_, "pos_diff", "xyz", difference, options_.rawValues, kFixedPosition);
    return true;
}

} // namespace tvk
