#include "host/app/verify/Verification.h"

#include "host/app/report/TextTable.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace host::app::verify {
namespace {

// How a part's error is shown.
struct PartRow {
    Part part;
    const char* file;
    const char* name;
    double perUnit; // steps of the unit that is shown
    int places;
    const char* unit; // "" for parts that are equal or not
};

constexpr PartRow kRows[] = {
    {Part::kNodes, "imd", "node channels", 4096.0, 2, "steps of 1/4096"},
    {Part::kFaces, "imd", "faces, each once", 1.0, 0, ""},
    {Part::kPositions, "imd", "positions", 1.0, 6, "units"},
    {Part::kNormals, "imd", "normals", 512.0, 2, "steps of 1/512"},
    {Part::kTexCoords, "imd", "texture coordinates", 16.0, 2, "steps of 1/16 texel"},
    {Part::kVertexColors, "imd", "vertex colours", 1.0, 0, ""},
    {Part::kWeights, "imd", "weights", 1.0, 2, "percent"},
    {Part::kBoxes, "imd", "boxes and radii", 1.0, 0, ""},
    {Part::kMaterials, "imd", "material colours", 1.0, 2, "steps of 1/31"},
    {Part::kTextures, "imd", "texels", 1.0, 0, "steps of 1/31"},
    {Part::kScale, "ica", "scales", 1.0, 6, ""},
    {Part::kRotation, "ica", "rotations", 1.0, 6, "degrees"},
    {Part::kTranslation, "ica", "translations", 1.0, 6, "units"},
    {Part::kMaterialColors, "ima", "material colours", 1.0, 2, "steps of 1/31"},
    {Part::kPatterns, "itp", "texture patterns", 1.0, 0, ""},
    {Part::kVisibility, "iva", "visibilities", 1.0, 0, ""},
    {Part::kPlacements, "ita", "texture placements", 1.0, 6, ""},
};
constexpr std::size_t kToldNotes = 10;
constexpr const char* kKinds[] = {"imd", "ica", "ima", "itp", "iva", "ita"};

std::string errorText(const PartRow& row, const Verification& verification) {
    const double largest = verification.of(row.part).largest;
    if (row.places == 0 && *row.unit == '\0') {
        return largest == 0.0 ? "equal" : "different";
    }
    std::string text = "largest error " + decimals(largest * row.perUnit, row.places);
    if (*row.unit != '\0') {
        text += std::string(" ") + row.unit;
    }
    if (row.part == Part::kPositions) {
        text += " = " + decimals(largest / verification.positionStep, 2) + " steps";
    }
    return text;
}

} // namespace

void Verification::find(const std::string& what) {
    if (++findingCount_ <= kToldFindings) {
        findings_.push_back(what);
    }
}

void Verification::note(const std::string& what) {
    if (std::find(notes_.begin(), notes_.end(), what) == notes_.end()) {
        notes_.push_back(what);
    }
}

void Verification::measure(Part part, double error, std::size_t count) {
    PartResult& result = parts_.at(static_cast<std::size_t>(part));
    result.compared += count;
    // What is not a number is as wrong as can be.
    result.largest = std::isnan(error) ? HUGE_VAL : std::max(result.largest, error);
}

void Verification::findError(const std::string& place, double error, double allowed) {
    find(place + " is off by " + decimals(error, 6) + ", allowed are " + decimals(allowed, 6));
}

std::string decimals(double number, int places) {
    if (!std::isfinite(number)) {
        return "no number";
    }
    char text[400];
    const auto [end, error] = std::to_chars(text, text + sizeof text, number, std::chars_format::fixed, places);
    return error == std::errc() ? std::string(text, end) : "no number";
}

std::string verificationText(const Verification& verification, const std::vector<std::string>& written) {
    report::TextTable table("llrl");
    for (const char* const kind : kKinds) {
        if (std::find(written.begin(), written.end(), kind) == written.end()) {
            table.add({kind, "not written, not compared", "", ""});
            continue;
        }
        for (const PartRow& row : kRows) {
            if (std::string(row.file) != kind) {
                continue;
            }
            const std::size_t compared = verification.of(row.part).compared;
            table.add({kind, row.name, std::to_string(compared),
                       compared == 0 ? "nothing there" : errorText(row, verification)});
        }
    }
    std::string text = table.text();
    const std::vector<std::string>& notes = verification.notes();
    for (std::size_t i = 0; i < notes.size() && i < kToldNotes; ++i) {
        text += "  Not compared: " + notes[i] + "\n";
    }
    if (notes.size() > kToldNotes) {
        text += "  Not compared: " + std::to_string(notes.size() - kToldNotes) + " more\n";
    }
    while (!text.empty() && text.back() == '\n') {
        text.pop_back();
    }
    return text;
}

} // namespace host::app::verify
