// How the time per material of an export grows with their number: scenes are opened once and exported through the
// plug-in as users load it.

#include "bench/BenchTable.h"
#include "bench/generatedScenes.h"
#include "bench/measure.h"
#include "host/api/Host.h"

#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

namespace {

void runMel(const std::string& command) {
    const host::mel::EvalResult result = host::Host::instance().execute(command);
    if (!result.ok()) {
        std::cerr << "bench: " << command << " failed\n";
        std::exit(1);
    }
}

// A 24-bit TGA file of 8 by 8 texels, all of one colour that no other number has.
std::string imageBytes(std::size_t number) {
    std::string bytes(18, '\0');
    bytes[2] = 2;
    bytes[12] = 8;
    bytes[14] = 8;
    bytes[16] = 24;
    for (int texel = 0; texel < 64; ++texel) {
        bytes += static_cast<char>(number % 32 * 8);
        bytes += static_cast<char>(number / 32 % 32 * 8);
        bytes += static_cast<char>(number / 1024 % 32 * 8);
    }
    return bytes;
}

struct Measure {
    std::string folder;
    bool textured;

    double microsecondsPerMaterial(std::size_t count, int repeats) const {
        const std::string path = folder + "/shaded.ma";
        tvk::writeScene(path, tvk::shadedScene(count, textured ? folder : ""));
        runMel("file -f -o \"" + path + "\"");
        const double seconds = tvk::measureSeconds(repeats, [&] {
            runMel("file -f -ea -op \"compress_material=1\" -typ \"KALDERA_ZEPHRA_System\" \"" + folder + "/shaded\"");
        });
        return 1e6 * seconds / static_cast<double>(count);
    }
};

} // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> arguments(argv, argv + argc);
    if (argc != 3) {
        std::cerr << "usage: materials BIN_FOLDER SCRATCH_FOLDER\n";
        return 64;
    }
    constexpr std::size_t kMany = 10000;
    for (std::size_t i = 0; i < kMany; ++i) {
        tvk::writeScene(arguments[2] + "/t" + std::to_string(i) + ".tga", imageBytes(i));
    }
    runMel("loadPlugin \"" + arguments[1] + "/tvk_export.so\"");
    const Measure plain{arguments[2], false};
    const Measure textured{arguments[2], true};
    const double plainThousand = plain.microsecondsPerMaterial(1000, 5);
    const double plainMany = plain.microsecondsPerMaterial(kMany, 3);
    const double hundred = textured.microsecondsPerMaterial(100, 10);
    const double thousand = textured.microsecondsPerMaterial(1000, 5);
    const double many = textured.microsecondsPerMaterial(kMany, 3);
    const std::vector<tvk::BenchRow> rows{
        {"export 10,000 materials", plainMany, "us/material", "1,000 materials", plainThousand, 1.5},
        {"export 1,000 materials with 1,000 textures", thousand, "us/material", "100 of each", hundred, 1.5},
        {"export 10,000 materials with 10,000 textures", many, "us/material", "1,000 of each", thousand, 1.5},
    };
    return tvk::printBenchTable(std::cout, "Exporting materials", rows) ? 0 : 1;
}
