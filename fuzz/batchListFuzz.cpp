#include "export/LimitedLines.h"
#include "export/batchList.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>

namespace {

void demand(bool condition) {
    if (!condition) {
        std::abort();
    }
}

bool hasBlankEnds(const std::string& text) {
    return text.front() == ' ' || text.front() == '\t' || text.back() == ' ' || text.back() == '\t';
}

void checkLine(const tvk::BatchLine& line) {
    const std::string values = line.value + line.name + line.roots;
    demand(values.size() <= tvk::LimitedLines::kLongestLine);
    demand(values.find_first_of(std::string("\"\n\0", 3)) == std::string::npos);
    demand(line.keyword != tvk::BatchKeyword::kNone || values.empty());
    demand(line.keyword == tvk::BatchKeyword::kScene || line.name + line.roots == "");
    for (const std::string& root : tvk::splitRoots(line.roots)) {
        demand(!root.empty() && root.find(',') == std::string::npos && !hasBlankEnds(root));
    }
    const std::string folder = tvk::withoutFinalSlashes(line.value);
    demand(folder == "/" || folder.empty() || folder.back() != '/');
    // A character that counts is at least a byte that stands there.
    demand(!tvk::holdsAnyOf(line.value, "\\|") || line.value.find_first_of("\\|") != std::string::npos);
}

} // namespace

// Any bytes as a batch list.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::istringstream in(std::string(reinterpret_cast<const char*>(data), size));
    tvk::LimitedLines lines(in);
    for (std::string text; lines.next(text);) {
        demand(text.size() <= tvk::LimitedLines::kLongestLine);
        static_cast<void>(tvk::isBatchHeader(text));
        checkLine(tvk::parseBatchLine(text));
    }
    return 0;
}
