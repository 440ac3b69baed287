#include "decode/FileError.h"
#include "decode/ModelGeometry.h"
#include "decode/ModelTextures.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

// Any bytes as a model file: its nodes, then what they draw, then the textures, each part for itself.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    try {
        const decode::ModelFile file = decode::readModelFile(text);
        for (const std::string& name : file.names()) {
            if (file.childrenOf(name).size() >= file.nodes.size()) {
                std::abort(); // a node cannot be its own brother
            }
        }
        const decode::ModelGeometry model = decode::readModelGeometry(file);
        for (const decode::DrawnPolygon& polygon : model.polygons) {
            if (polygon.node < 0 || polygon.faces.size() > size) {
                std::abort();
            }
        }
    } catch (const decode::FileError&) {
    }
    try {
        const decode::ModelTextures textures = decode::readModelTextures(decode::readIntermediateFile(text));
        for (const decode::ModelTexture& image : textures.images) {
            if (image.texels.size() > size * 8) {
                std::abort(); // a digit holds two texels, the smallest ones
            }
        }
    } catch (const decode::FileError&) {
    }
    return 0;
}
