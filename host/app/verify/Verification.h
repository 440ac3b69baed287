#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <type_traits>
#include <vector>

namespace host::app::verify {

/// What is compared, in the order of the table.
enum class Part {
    kNodes,
    kFaces,
    kPositions,
    kNormals,
    kTexCoords,
    kVertexColors,
    kWeights,
    kBoxes,
    kMaterials,
    kTextures,
    kScale,
    kRotation,
    kTranslation,
    kMaterialColors,
    kPatterns,
    kVisibility,
    kPlacements
};
inline constexpr std::size_t kPartCount = 17;

/// What became of one part.
struct PartResult {
    std::size_t compared = 0;
    double largest = 0.0; // error, in the part's unit
};

/// What an export was found to say, held against the scene.
class Verification {
public:
    /// More findings are only counted.
    static constexpr std::size_t kToldFindings = 20;

    /// Something is outside of what its format allows: one line that names the file and the place.
    void find(const std::string& what);
    /// Something cannot be compared, and why; the same line is kept once.
    void note(const std::string& what);
    /// So many values were compared, of which the largest error is this.
    void measure(Part part, double error, std::size_t count = 1);
    /// A measured error, and a finding when it is above what is allowed.
    ///   place   what is compared, for the finding: a text, or a function that makes it, which is only called for one
    template <typename Place>
    void check(Part part, double error, double allowed, const Place& place) {
        measure(part, error);
        if (!(error <= allowed)) {
            if constexpr (std::is_invocable_v<Place>) {
                findError(place(), error, allowed);
            } else {
                findError(place, error, allowed);
            }
        }
    }

    bool isGood() const { return findingCount_ == 0; }
    std::size_t findingCount() const { return findingCount_; }
    const std::vector<std::string>& findings() const { return findings_; }
    const std::vector<std::string>& notes() const { return notes_; }
    const PartResult& of(Part part) const { return parts_.at(static_cast<std::size_t>(part)); }

    double positionStep = 1.0 / 4096; // of the model's positions, in units

private:
    void findError(const std::string& place, double error, double allowed);

    std::vector<std::string> findings_, notes_;
    std::size_t findingCount_ = 0;
    std::array<PartResult, kPartCount> parts_{};
};

/// A number with so many decimals, whatever the locale.
std::string decimals(double number, int places);

/// The table of what was compared and the largest errors, without findings: lines without a line end behind the last.
///   written   endings of the files that were compared
std::string verificationText(const Verification& verification, const std::vector<std::string>& written);

} // namespace host::app::verify
