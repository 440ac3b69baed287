// How the time per node of a whole export grows with the scene: opened and exported in one process, through the
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

double microsecondsPerNode(const std::string& folder, std::size_t nodes, int repeats) {
    const std::string path = folder + "/hierarchy.ma";
    tvk::writeScene(path, tvk::hierarchyScene(nodes));
    const double seconds = tvk::measureSeconds(repeats, [&] {
        runMel("file -f -o \"" + path + "\"");
        runMel("file -f -ea -op \"imd_file_out=1\" -typ \"KALDERA_ZEPHRA_System\" \"" + folder + "/hierarchy\"");
    });
    return 1e6 * seconds / static_cast<double>(nodes);
}

} // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> arguments(argv, argv + argc);
    if (argc != 3) {
        std::cerr << "usage: exportHierarchy BIN_FOLDER SCRATCH_FOLDER\n";
        return 64;
    }
    runMel("loadPlugin \"" + arguments[1] + "/tvk_export.so\"");
    const double ten = microsecondsPerNode(arguments[2], 10, 20);
    const double thousand = microsecondsPerNode(arguments[2], 1000, 10);
    const double many = microsecondsPerNode(arguments[2], 100000, 3);
    const std::vector<tvk::BenchRow> rows{
        {"open and export 1,000 nodes", thousand, "us/node", "10 nodes", ten, 1.5},
        {"open and export 100,000 nodes", many, "us/node", "1,000 nodes", thousand, 1.5},
    };
    return tvk::printBenchTable(std::cout, "Exporting hierarchies", rows) ? 0 : 1;
}
