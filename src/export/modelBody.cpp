#include "export/modelBody.h"

#include "export/nodeArray.h"
#include "material/materialWriter.h"
#include "material/paletteWriter.h"
#include "material/textureWriter.h"

#include <array>

namespace tvk {
namespace {

// In written order. Images come first also because converting them settles what palettes there are and what materials
// say of their textures.
constexpr std::array<MStatus (*)(std::ostream&), 4> kSections{
    [](std::ostream& out) { return writeTexImageArray(out, true); },
    writeTexPaletteArray,
    writeMaterialArray,
    [](std::ostream& out) { return writeNodeArray(out, false); },
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
