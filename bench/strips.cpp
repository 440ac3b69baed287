// Strips beside those of other strippers, in vertices sent: those that Debian packages run here, others are quoted from
// measurements on the same meshes. A ratio of strips is (v - T) / 2 for v vertices and T triangles.

#include "bench/BenchTable.h"
#include "bench/stripMeshes.h"
#include "bench/stripRivals.h"
#include "geometry/MatrixSlots.h"
#include "geometry/matrixGrouping.h"
#include "geometry/primitiveBuilding.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <iostream>
#include <limits>
#include <string>
#include <vector>

namespace {

using tvk::BenchRow;
using tvk::FaceList;
using tvk::StripEffort;
using tvk::StripReference;

// A quoted figure has three decimals.
constexpr double kQuoted = 0.0005;

int64_t verticesSent(const FaceList& faces, StripEffort effort, int64_t splittableQuads = 0) {
    tvk::PrimitiveOptions options;
    options.effort = effort;
    options.splittableQuads = splittableQuads;
    int64_t vertices = 0;
    for (const tvk::MatrixGroup& group : tvk::buildPrimitives(faces, options).groups)
        vertices += group.vertexCount;
    return vertices;
}

double perFace(int64_t vertices, std::size_t faces) {
    return static_cast<double>(vertices) / static_cast<double>(faces);
}

// What one mesh gave.
struct MeshResult {
    StripReference reference;
    std::size_t triangles = 0;
    double standard = 0; // vertices per triangle
    double thorough = 0;
    double rival = 0; // the better of those that run here
};

std::vector<MeshResult> measureTriangles() {
    std::vector<MeshResult> results;
    for (const StripReference& reference : tvk::stripReferences()) {
        const FaceList faces = tvk::onlyTriangles(tvk::readStripMesh(TVK_BENCH_DATA, reference.mesh));
        const tvk::TriangleIndices indices = tvk::indexTriangles(faces);
        const int64_t rival =
            std::min(tvk::stripWithMeshoptimizer(indices).vertices, tvk::stripWithOpenSceneGraph(indices).vertices);
        results.push_back({reference, faces.sizes.size(),
                           perFace(verticesSent(faces, StripEffort::kStandard), faces.sizes.size()),
                           perFace(verticesSent(faces, StripEffort::kThorough), faces.sizes.size()),
                           perFace(rival, faces.sizes.size())});
    }
    return results;
}

bool printRivals(const std::vector<MeshResult>& results) {
    std::vector<BenchRow> rows;
    for (const MeshResult& result : results) {
        const std::string what =
            std::string(result.reference.mesh) + ", " + std::to_string(result.triangles) + " triangles";
        rows.push_back({what + ", default effort", result.standard, "v/triangle", "better of meshoptimizer and OSG",
                        result.rival, 1});
        rows.push_back(
            {what + ", thorough", result.thorough, "v/triangle", "better of meshoptimizer and OSG", result.rival, 1});
    }
    return printBenchTable(std::cout, "Triangle strips: vertices per triangle", rows);
}

// Strips per triangle, doubled.
double stripsOf(double verticesPerTriangle) {
    return verticesPerTriangle - 1;
}

bool printPeers(const std::vector<MeshResult>& results) {
    std::vector<BenchRow> rows;
    double standardSum = 0;
    double thoroughSum = 0;
    int belowReached = 0;
    for (const MeshResult& result : results) {
        const double peer = stripsOf(result.reference.bestPeer);
        const double reached = stripsOf(result.reference.reached);
        standardSum += std::log(stripsOf(result.standard) / peer);
        thoroughSum += std::log(stripsOf(result.thorough) / peer);
        belowReached += result.thorough < result.reference.reached - kQuoted ? 1 : 0;
        const std::string what = result.reference.mesh;
        rows.push_back({what + ", default effort", stripsOf(result.standard), "", "best stripper known", peer,
                        1 + kQuoted / peer});
        rows.push_back({what + ", thorough", stripsOf(result.thorough), "", "best result known", reached,
                        1.05 + kQuoted / reached});
    }
    const auto count = static_cast<double>(results.size());
    rows.push_back({"geometric mean, default effort", std::exp(standardSum / count), "", "best strippers", 1, 0.92});
    rows.push_back({"geometric mean, thorough", std::exp(thoroughSum / count), "", "best strippers", 1, 0.84});
    rows.push_back({"three over the meshes below every result known", 3, "meshes", "ours, thorough",
                    std::max(0.001, static_cast<double>(belowReached)), 1});
    return printBenchTable(std::cout, "Triangle strips: strips per triangle, doubled, beside quoted results", rows);
}

bool printQuads() {
    std::vector<BenchRow> rows;
    for (const StripReference& reference : tvk::stripReferences()) {
        const FaceList faces = tvk::readStripMesh(TVK_BENCH_DATA, reference.mesh);
        const FaceList quads = tvk::onlyQuads(faces);
        if (quads.sizes.empty())
            continue;
        const std::string what = std::string(reference.mesh) + ", " + std::to_string(quads.sizes.size()) + " quads";
        const double ours = perFace(verticesSent(quads, StripEffort::kThorough), quads.sizes.size());
        const double asTriangles =
            perFace(verticesSent(tvk::onlyTriangles(quads), StripEffort::kThorough), quads.sizes.size());
        rows.push_back({what + ", above 2", ours - 2, "v/quad", "best result known", reference.quads - 2,
                        1.03 + kQuoted / (reference.quads - 2)});
        rows.push_back({what, ours, "v/quad", "the same as triangles", asTriangles, 1});
        if (quads.sizes.size() == faces.sizes.size())
            continue;
        // As they are: whole, in part or all split, whatever sends least.
        const int64_t free = std::numeric_limits<int64_t>::max();
        const auto mixed = static_cast<double>(verticesSent(faces, StripEffort::kThorough, free));
        const auto whole = static_cast<double>(verticesSent(faces, StripEffort::kThorough));
        const auto split = static_cast<double>(verticesSent(tvk::onlyTriangles(faces), StripEffort::kThorough));
        rows.push_back({std::string(reference.mesh) + " with its triangles", mixed, "v",
                        "better of whole and split quads", std::min(whole, split), 1});
    }
    return printBenchTable(std::cout, "Quad strips", rows);
}

// A matrix command's data goes to the console as well: no matrix should be loaded twice when a skin's faces hang
// together.
bool printMatrixLoads() {
    std::vector<BenchRow> rows;
    for (const int32_t matrices : {40, 100, 400}) {
        const FaceList sheet = tvk::makeStripSheet(10000, matrices);
        for (const bool isShuffled : {false, true}) {
            tvk::MatrixSlots slots;
            int64_t loads = 0;
            for (const tvk::FaceGroup& group : tvk::groupByMatrices(isShuffled ? tvk::shuffleFaces(sheet) : sheet)) {
                const std::vector<int32_t> list = slots.load(group.matrices);
                loads += static_cast<int64_t>(list.size()) - std::count(list.begin(), list.end(), -1);
            }
            rows.push_back({std::to_string(matrices) + " matrices" + (isShuffled ? ", faces in any order" : ""),
                            static_cast<double>(loads), "loads", "each matrix once", static_cast<double>(matrices),
                            1.05});
        }
    }
    return printBenchTable(std::cout, "Matrix loads", rows);
}

bool printTimes() {
    std::vector<BenchRow> rows;
    std::array<double, 4> perTriangle{};
    std::size_t place = 0;
    for (const int32_t size : {1000, 10000, 100000, 1000000}) {
        const FaceList sheet = tvk::makeStripSheet(size);
        const auto count = static_cast<double>(sheet.sizes.size());
        const double standard =
            tvk::measureProcessorSeconds(size > 100000 ? 1 : 3, [&] { verticesSent(sheet, StripEffort::kStandard); });
        perTriangle[place++] = standard / count * 1e6;
        if (size > 100000)
            continue;
        const std::string what = std::to_string(size) + " triangles";
        const tvk::TriangleIndices indices = tvk::indexTriangles(sheet);
        double rival = std::numeric_limits<double>::infinity();
        for (int repeat = 0; repeat < 3; ++repeat)
            rival = std::min(rival, tvk::stripWithOpenSceneGraph(indices).seconds / count * 1e6);
        rows.push_back({what + ", default effort", standard / count * 1e6, "us/triangle", "OSG", rival, 10});
        if (size > 10000)
            continue;
        const double thorough = tvk::measureProcessorSeconds(1, [&] { verticesSent(sheet, StripEffort::kThorough); });
        rows.push_back({what + ", thorough", thorough / count * 1e6, "us/triangle", "OSG", rival, 100});
    }
    rows.push_back(
        {"1e6 triangles, default effort", perTriangle[3], "us/triangle", "1e4 triangles", perTriangle[1], 1.5});
    return printBenchTable(std::cout, "Time of strips", rows);
}

} // namespace

int main() {
    const std::vector<MeshResult> results = measureTriangles();
    bool keepsAll = printRivals(results);
    keepsAll = printPeers(results) && keepsAll;
    keepsAll = printQuads() && keepsAll;
    keepsAll = printMatrixLoads() && keepsAll;
    keepsAll = printTimes() && keepsAll;
    return keepsAll ? 0 : 1;
}
