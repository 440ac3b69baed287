// Writes the image files of the samples: makeSampleTextures FOLDER

#include "sampleTextures/sampleTextures.h"

#include <filesystem>
#include <fstream>
#include <iostream>

int main(int count, char** arguments) {
    if (count != 2) {
        std::cerr << "Usage: makeSampleTextures FOLDER\n";
        return 64;
    }
    const std::filesystem::path folder = std::filesystem::u8path(arguments[1]);
    for (const tvk::samples::SampleTexture& texture : tvk::samples::sampleTextures()) {
        const tvk::samples::FileBytes bytes = texture.make();
        std::ofstream out(folder / std::string(texture.fileName), std::ios_base::binary);
        for (const uint8_t byte : bytes) {
            out.put(static_cast<char>(byte));
        }
        out.close();
        if (!out) {
            std::cerr << "Cannot write " << texture.fileName << " to " << arguments[1] << '\n';
            return 1;
        }
        std::cout << texture.fileName << ' ' << bytes.size() << '\n';
    }
    return 0;
}
