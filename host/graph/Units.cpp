#include "host/graph/Units.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

namespace host {

namespace {

struct UnitRow {
    std::string_view shortName, longName;
    double size;
};

constexpr double kDegree = 0.017453292519943295;

constexpr UnitRow kLinearUnits[] = {
    {"mm", "millimeter", 0.1}, {"cm", "centimeter", 1.0}, {"m", "meter", 100.0}, {"km", "kilometer", 100000.0},
    {"in", "inch", 2.54},      {"ft", "foot", 30.48},     {"yd", "yard", 91.44}, {"mi", "mile", 160934.4},
};

constexpr UnitRow kAngularUnits[] = {
    {"deg", "degree", kDegree},
    {"rad", "radian", 1.0},
    {"min", "minute", kDegree / 60.0},
    {"sec", "second", kDegree / 3600.0},
};

/// Frames per second. The rates of colour television are exact ratios that their words only round.
constexpr UnitRow kTimeUnits[] = {
    {"game", "15fps", 15.0},
    {"film", "24fps", 24.0},
    {"pal", "25fps", 25.0},
    {"ntsc", "30fps", 30.0},
    {"show", "48fps", 48.0},
    {"palf", "50fps", 50.0},
    {"ntscf", "60fps", 60.0},
    {"sec", "second", 1.0},
    {"min", "minute", 1.0 / 60.0},
    {"hour", "hour", 1.0 / 3600.0},
    {"millisec", "millisecond", 1000.0},
    {"23.976fps", "23.976fps", 24000.0 / 1001.0},
    {"29.97fps", "29.97fps", 30000.0 / 1001.0},
    {"29.97df", "29.97df", 30000.0 / 1001.0},
    {"47.952fps", "47.952fps", 48000.0 / 1001.0},
    {"59.94fps", "59.94fps", 60000.0 / 1001.0},
    {"44100fps", "44100fps", 44100.0},
    {"48000fps", "48000fps", 48000.0},
};

template <std::size_t Count>
std::optional<double> findUnit(const UnitRow (&rows)[Count], std::string_view word, std::string_view& shortName) {
    for (const UnitRow& row : rows) {
        if (row.shortName == word || row.longName == word) {
            shortName = row.shortName;
            return row.size;
        }
    }
    return std::nullopt;
}

constexpr std::size_t kHighestWholeRate = 6000;

/// "1fps" … "6000fps": answers view these words, since the word asked about may not live as long as they do.
const std::vector<std::string>& wholeRates() {
    static const std::vector<std::string> kWords = [] {
        std::vector<std::string> words;
        for (std::size_t rate = 1; rate <= kHighestWholeRate; ++rate) {
            words.push_back(std::to_string(rate) + "fps");
        }
        return words;
    }();
    return kWords;
}

std::optional<double> findWholeRate(std::string_view word, std::string_view& shortName) {
    std::size_t rate = 0;
    std::size_t digits = 0;
    while (digits < word.size() && digits < 4 && word[digits] >= '0' && word[digits] <= '9') {
        rate = rate * 10 + static_cast<std::size_t>(word[digits] - '0');
        ++digits;
    }
    if (rate == 0 || rate > kHighestWholeRate || wholeRates()[rate - 1] != word) {
        return std::nullopt;
    }
    shortName = wholeRates()[rate - 1];
    return static_cast<double>(rate);
}

/// Every rate above divides a second into whole ticks, but the quotient of two doubles may miss the whole number.
double ticksPerFrame(double framesPerSecond) {
    const double ticks = static_cast<double>(kTicksPerSecond) / framesPerSecond;
    const double whole = std::nearbyint(ticks);
    return std::abs(ticks - whole) <= 1e-12 * whole ? whole : ticks;
}

} // namespace

Ticks Units::ticks(double frames) const {
    const double exact = frames * ticksPerFrame(framesPerSecond);
    if (std::isnan(exact)) {
        return 0;
    }
    constexpr double kHighest = 9223372036854775808.0;
    if (exact >= kHighest) {
        return std::numeric_limits<Ticks>::max();
    }
    if (exact <= -kHighest) {
        return std::numeric_limits<Ticks>::min();
    }
    return std::llround(exact);
}

double Units::frames(Ticks ticks) const {
    return static_cast<double>(ticks) / ticksPerFrame(framesPerSecond);
}

std::optional<double> linearUnit(std::string_view word, std::string_view& shortName) {
    return findUnit(kLinearUnits, word, shortName);
}

std::optional<double> angularUnit(std::string_view word, std::string_view& shortName) {
    return findUnit(kAngularUnits, word, shortName);
}

std::optional<double> timeUnit(std::string_view word, std::string_view& shortName) {
    if (const auto known = findUnit(kTimeUnits, word, shortName)) {
        return known;
    }
    return findWholeRate(word, shortName);
}

} // namespace host
