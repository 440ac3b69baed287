// What opening a scene costs, beside parsing the same numbers from memory and nothing else.
//   openScene BIN SCRATCH          measure
//   openScene --open FILE          open it and end: what the peak memory is measured of

#include "bench/BenchTable.h"
#include "bench/generatedScenes.h"
#include "bench/measure.h"
#include "host/scene/Scene.h"

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

namespace {

constexpr double kMegabyte = 1e6;

bool isNumberStart(char c) {
    return (c >= '0' && c <= '9') || c == '-' || c == '.';
}

// The floor: every number of the text through std::from_chars, everything else skipped.
double sumOfNumbers(const std::string& text) {
    double sum = 0.0;
    const char* at = text.data();
    const char* const end = at + text.size();
    while (at < end) {
        double value = 0.0;
        const auto [next, error] = isNumberStart(*at) ? std::from_chars(at, end, value)
                                                      : std::from_chars_result{at, std::errc::invalid_argument};
        sum += error == std::errc() ? value : 0.0;
        at = error == std::errc() ? next : at + 1;
    }
    return sum;
}

void openOrEnd(host::Scene& scene, const std::string& path) {
    const host::SceneResult result = scene.open(path);
    if (!result.ok()) {
        std::cerr << "bench: " << result.error << '\n';
        std::exit(1);
    }
}

struct Sizes {
    double bytes;
    int repeats;
};

std::vector<tvk::BenchRow> measureSize(const std::string& self, const std::string& path, const Sizes& sizes) {
    const std::string text = tvk::meshScene(static_cast<std::size_t>(sizes.bytes));
    tvk::writeScene(path, text);
    const double fileMegabytes = static_cast<double>(text.size()) / kMegabyte;
    const std::string label = std::to_string(std::lround(sizes.bytes / kMegabyte)) + " MB of long arrays";

    volatile double sink = 0.0;
    const double floor = tvk::measureSeconds(sizes.repeats, [&] { sink = sumOfNumbers(text); });
    host::Scene scene;
    const double open = tvk::measureSeconds(sizes.repeats, [&] { openOrEnd(scene, path); });
    const tvk::ProgramCost cost = tvk::runProgram({self, "--open", path});
    const double peak = cost.exitStatus == 0 ? static_cast<double>(cost.peakBytes) / kMegabyte : 1e9;
    std::filesystem::remove(path);
    std::vector<tvk::BenchRow> rows{
        {"open, " + label + " (" + std::to_string(std::lround(fileMegabytes / open)) + " MB/s)", open, "s",
         "its numbers through std::from_chars", floor, 3.0}};
    if (sizes.bytes >= 10 * kMegabyte) { // below, the program itself is larger than the scene
        rows.push_back({"peak memory, " + label, peak, "MB", "the file", fileMegabytes, 5.0});
    }
    return rows;
}

} // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> arguments(argv, argv + argc);
    if (argc == 3 && arguments[1] == "--open") {
        host::Scene scene;
        openOrEnd(scene, arguments[2]);
        return 0;
    }
    if (argc != 3) {
        std::cerr << "usage: openScene BIN_FOLDER SCRATCH_FOLDER\n";
        return 64;
    }
    std::vector<tvk::BenchRow> rows;
    for (const Sizes& sizes : {Sizes{1e6, 5}, Sizes{1e7, 5}, Sizes{1e8, 3}, Sizes{1e9, 1}}) {
        for (tvk::BenchRow& row : measureSize(arguments[0], arguments[2] + "/open.ma", sizes)) {
            rows.push_back(std::move(row));
        }
    }
    return tvk::printBenchTable(std::cout, "Opening scenes", rows) ? 0 : 1;
}
