#include "export/modelBody.h"

#include "export/nodeArray.h"
#include "geometry/polygonWriter.h"
#include "geometry/tableWriters.h"
#include "material/materialWriter.h"
#include "material/paletteWriter.h"
#include "material/textureWriter.h"
#include "scene/Run.h"

#include <array>

namespace tvk {
namespace {

template <void (*writer)(std::ostream&)>
MStatus always(std::ostream& out) {
    writer(out);
    return MS::kSuccess;
}

MStatus writeVertexTables(std::ostream& out) {
    if (run().options.vertexTableFlag) {
        writeVertexPositions(out);
        writeVertexColors(out);
    }
    return MS::kSuccess;
}

MStatus writeImages(std::ostream& out) {
    return writeTexImageArray(out, true);
}

MStatus writeNodes(std::ostream& out) {
    return writeNodeArray(out, false);
}

// In written order. Materials say of their textures what converting the images settles, nodes say of their polygons
// what building these settles.
constexpr std::array<MStatus (*)(std::ostream&), 9> kSections{
    always<writeBoxTest>, writeVertexTables, // of all polygons
    writeImages,          writeTexPaletteArray, writeMaterialArray, always<writeEnvelope>, always<writeMatrixArray>,
    writePolygonArray,    writeNodes,
};

} // namespace

MStatus writeModelBody(std::ostream& out) {
    for (const auto& write : kSections) {
        const MStatus status = write(out);
        if (!status) {
            return status;
        }
    }
    return MS::kSuccess;
}

} // namespace tvk
