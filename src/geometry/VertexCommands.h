#pragma once

#include "geometry/MatrixSlots.h"
#include "scene/Corner.h"
#include "scene/ModelTables.h"

#include <cstdint>
#include <iosfwd>

namespace tvk {

/// What a polygon sends with its vertices, and how.
struct VertexCommandOptions {
    bool matrices = false; // the polygon has more than one
    bool texCoords = false;
    bool colors = false;
    bool normals = false;
    bool indexed = false;                 // positions and colours as places in the vertex tables
    bool resetNormalAfterTexture = false; // the console turns the normal into the texture coordinate that precedes it
    bool rawValues = false;
};

/// Red, green and blue of a colour word, 0 to 31 each, with blanks between.
void writeColor(std::ostream& out, ColorWord color);

/// The command stream of one polygon. The console's registers keep what was sent last, through all primitives and
/// matrix groups of the polygon: only what changes is sent again, and each position in the shortest form.
class VertexCommands {
public:
    /// Both must outlive the object.
    VertexCommands(std::ostream& out, const ModelTables& tables, const VertexCommandOptions& options);

    /// One vertex: matrix, texture coordinate, colour and normal when they change, and the position.
    ///   slots   that hold the corner's matrix; a matrix in no slot is written as -1
    void write(const Corner& corner, const MatrixSlots& slots);

private:
    void writeMatrix(const Corner& corner, const MatrixSlots& slots);
    void writeTexCoord(const Corner& corner);
    void writeColorCommand(const Corner& corner);
    void writeNormal(const Corner& corner);
    void writePosition(const Corner& corner);
    bool writePartialPosition(const FixedPosition& position);
    bool writeDifference(const FixedPosition& position);
    bool writeShortPosition(const FixedPosition& position);

    std::ostream& out_;
    const ModelTables& tables_;
    VertexCommandOptions options_;
    int32_t matrix_ = -1;
    int32_t texCoord_ = -1;
    int32_t color_ = -1;
    int32_t normal_ = -1;
    int32_t position_ = -1;
};

} // namespace tvk
