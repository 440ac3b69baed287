#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace host {

/// Time inside is a whole number of ticks: every frame rate of the host divides this number, so frames compare exactly.
using Ticks = std::int64_t;
constexpr Ticks kTicksPerSecond = 141120000;

/// The units in which a scene file, MEL and the user count. Internally all is centimetres, radians and ticks.
struct Units {
    double centimetresPerLinear = 1.0;
    double radiansPerAngular = 0.017453292519943295;
    double framesPerSecond = 24.0; // "sec" is 1, "min" is 1/60 …

    std::string_view linearName = "cm", angularName = "deg",
                     timeName = "film"; // short words as `currentUnit -q` answers

    /// Ticks of a count of time units, nearest; saturates.
    Ticks ticks(double frames) const;
    double frames(Ticks ticks) const;
};

/// By the words that files and MEL use: "cm", "centimeter", "deg", "film", "ntsc", "23.976fps", "100fps" …; nullopt
/// when unknown.
std::optional<double> linearUnit(std::string_view word, std::string_view& shortName);
std::optional<double> angularUnit(std::string_view word, std::string_view& shortName);
std::optional<double> timeUnit(std::string_view word, std::string_view& shortName);

} // namespace host
