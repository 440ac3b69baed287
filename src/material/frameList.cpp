#include "material/frameList.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tvk {
namespace {

constexpr std::size_t kMostDigits = 14;
constexpr int64_t kLargestFrame = 99'999'999'999'999;

struct FrameRange {
    int64_t first = 0;
    int64_t last = 0;
};

// Walks the text once; a list is refused at its first mistake.
class ListParser {
public:
    bool parse(std::string_view text) {
        for (const char character : text) {
            if (!take(character)) {
                return false;
            }
        }
        return endNumber() && !awaitsEnd;
    }

    std::vector<FrameRange> ranges;

private:
    bool take(char character) {
        if (character >= '0' && character <= '9') {
            number = number * 10 + (character - '0');
            return ++digits <= kMostDigits;
        }
        if (!endNumber()) {
            return false;
        }
        switch (character) {
        case ' ':
            return true;
        case ',':
            canOpen = false;
            return !awaitsEnd;
        case '-':
            return openRange();
        default:
            return false;
        }
    }

    bool openRange() {
        const bool follows = canOpen && !awaitsEnd;
        awaitsEnd = true;
        return follows;
    }

    // A number is a range of its own, or the end of the range that the number before it opened.
    bool endNumber() {
        if (digits == 0) {
            return true;
        }
        if (awaitsEnd) {
            ranges.push_back({opened, number});
        } else {
            ranges.push_back({number, number});
        }
        awaitsEnd = false;
        canOpen = true;
        opened = number;
        number = 0;
        digits = 0;
        return ranges.back().first <= ranges.back().last;
    }

    int64_t number = 0; // being read
    std::size_t digits = 0;
    int64_t opened = 0;     // the number before
    bool canOpen = false;   // a number stands before, with blanks at the most between
    bool awaitsEnd = false; // a '-' was read, its second number not yet
};

// Ranges that touch or overlap become one, so that frames can be counted before they are made.
std::vector<FrameRange> united(std::vector<FrameRange> ranges) {
    std::sort(ranges.begin(), ranges.end(), [](const FrameRange& a, const FrameRange& b) { return a.first < b.first; });
    std::vector<FrameRange> result;
    for (const FrameRange& range : ranges) {
        if (!result.empty() && range.first <= result.back().last + 1) {
            result.back().last = std::max(result.back().last, range.last);
        } else {
            result.push_back(range);
        }
    }
    return result;
}

} // namespace

bool parseFrameList(std::string_view text, std::vector<int64_t>& frames) {
    frames.clear();
    ListParser parser;
    if (!parser.parse(text)) {
        return false;
    }
    const std::vector<FrameRange> ranges = united(std::move(parser.ranges));
    int64_t count = 0;
    for (const FrameRange& range : ranges) {
        count += range.last - range.first + 1;
    }
    if (count > static_cast<int64_t>(kMostPatternFrames)) {
        return false;
    }
    for (const FrameRange& range : ranges) {
        for (int64_t frame = range.first; frame <= range.last; ++frame) {
            frames.push_back(frame);
        }
    }
    return true;
}

int64_t frameOfKey(double value) {
    const double rounded = std::round(value); // halves away from zero
    if (!(std::abs(rounded) <= static_cast<double>(kLargestFrame))) {
        return rounded > 0.0 ? kLargestFrame : rounded < 0.0 ? -kLargestFrame : 0;
    }
    return static_cast<int64_t>(rounded);
}

void sortFrames(std::vector<int64_t>& frames) {
    std::sort(frames.begin(), frames.end());
    frames.erase(std::unique(frames.begin(), frames.end()), frames.end());
}

} // namespace tvk
