// What a whole export of one large mesh costs: opened and exported in a process of its own, through the plug-in as
// users load it. The floor is what no exporter can do without: reading the file, parsing its numbers and writing text
// of the size of the model.

#include "bench/BenchTable.h"
#include "bench/generatedScenes.h"
#include "bench/measure.h"
#include "host/api/Host.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

namespace {

constexpr double kMegabyte = 1e6;

void runMel(const std::string& command) {
    const host::mel::EvalResult result = host::Host::instance().execute(command);
    if (!result.ok()) {
        std::cerr << "bench: " << command << " failed\n";
        std::exit(1);
    }
}

int openAndExport(const std::string& plugin, const std::string& scene, const std::string& model) {
    runMel("loadPlugin \"" + plugin + "\"");
    runMel("file -f -o \"" + scene + "\"");
    runMel("file -f -ea -op \"imd_file_out=1\" -typ \"KALDERA_ZEPHRA_System\" \"" + model + "\"");
    return 0;
}

std::string readText(const std::string& path) {
    std::ifstream in(path, std::ios_base::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// Every number of the scene is parsed, and as many are written as fill the model.
double floorSeconds(const std::string& scene, const std::string& copy, std::size_t modelBytes) {
    return tvk::measureSeconds(3, [&] {
        const std::string text = readText(scene);
        std::string written;
        written.reserve(modelBytes);
        const char* const end = text.data() + text.size();
        for (const char* at = text.data(); at < end;) {
            double value = 0.0;
            const std::from_chars_result parsed = std::from_chars(at, end, value);
            const bool isNumber = parsed.ec == std::errc();
            at = isNumber ? parsed.ptr : at + 1;
            if (isNumber && written.size() + 32 < modelBytes) {
                char digits[32];
                const auto number = static_cast<long>(std::fmod(value, 1e6) * 4096);
                written.append(digits, std::to_chars(std::begin(digits), std::end(digits), number).ptr);
                written += " \t<nrm xyz=\"\"/>\n";
            }
        }
        std::ofstream(copy, std::ios_base::binary) << written;
    });
}

struct Cost {
    double exported = 0.0, floor = 0.0; // microseconds per triangle
    double peak = 0.0, file = 0.0;      // megabytes
};

struct Programs {
    std::string self, plugin, folder;

    Cost measure(std::size_t triangles, int repeats) const {
        const std::string scene = folder + "/ground.ma";
        tvk::writeScene(scene, tvk::triangleScene(triangles));
        double seconds = 1e9;
        std::int64_t peak = 0;
        for (int i = 0; i < repeats; ++i) {
            const tvk::ProgramCost cost = tvk::runProgram({self, "--export", plugin, scene, folder + "/ground"});
            if (cost.exitStatus != 0) {
                std::cerr << "bench: the export failed\n";
                std::exit(1);
            }
            seconds = std::min(seconds, cost.seconds);
            peak = std::max(peak, cost.peakBytes);
        }
        const auto modelBytes = static_cast<std::size_t>(std::filesystem::file_size(folder + "/ground.imd"));
        const double floor = floorSeconds(scene, folder + "/copy.txt", modelBytes);
        const auto count = static_cast<double>(triangles);
        const Cost cost{1e6 * seconds / count, 1e6 * floor / count, static_cast<double>(peak) / kMegabyte,
                        static_cast<double>(std::filesystem::file_size(scene)) / kMegabyte};
        for (const char* name : {"/ground.ma", "/ground.imd", "/copy.txt"}) {
            std::filesystem::remove(folder + name);
        }
        return cost;
    }
};

} // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> arguments(argv, argv + argc);
    if (argc == 5 && arguments[1] == "--export") {
        return openAndExport(arguments[2], arguments[3], arguments[4]);
    }
    if (argc != 3) {
        std::cerr << "usage: exportMesh BIN_FOLDER SCRATCH_FOLDER\n";
        return 64;
    }
    const Programs programs{arguments[0], arguments[1] + "/tvk_export.so", arguments[2]};
    const Cost few = programs.measure(10000, 5);
    const Cost more = programs.measure(100000, 3);
    const Cost many = programs.measure(1000000, 1);
    const std::string unit = "us/triangle";
    const std::vector<tvk::BenchRow> rows{
        {"open and export 10,000 triangles", few.exported, unit, "read, parse and write as much", few.floor, 0},
        {"open and export 100,000 triangles", more.exported, unit, "read, parse and write as much", more.floor, 0},
        {"open and export 1,000,000 triangles", many.exported, unit, "read, parse and write as much", many.floor, 0},
        {"beyond the floor, 1,000,000 triangles", many.exported / many.floor, "times", "10,000 triangles",
         few.exported / few.floor, 1.5},
        {"peak memory, 1,000,000 triangles", many.peak, "MB", "the file", many.file, 5.0},
    };
    return tvk::printBenchTable(std::cout, "Exporting large meshes", rows) ? 0 : 1;
}
