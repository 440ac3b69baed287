#include "export/batchList.h"

#include "common/asciiText.h"
#include "common/shiftJis.h"
#include "export/quotedValue.h"
#include "platform/codePage.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tvk {
namespace {

constexpr std::string_view kHeader = "# TVK_Batch_Export";

constexpr std::array<std::pair<std::string_view, BatchKeyword>, 6> kWords{{
    {"log", BatchKeyword::kLog},
    {"input_folder", BatchKeyword::kInputFolder},
    {"output_folder", BatchKeyword::kOutputFolder},
    {"z3es_folder", BatchKeyword::kSettingsFolder},
    {"z3es", BatchKeyword::kSettings},
    {"scene", BatchKeyword::kScene},
}};

constexpr std::string_view kNameOption = "-name";
constexpr std::string_view kRootOption = "-root";

BatchKeyword keywordOf(std::string_view word) {
    const auto* const found =
        std::find_if(kWords.begin(), kWords.end(), [word](const auto& row) { return row.first == word; });
    return found == kWords.end() ? BatchKeyword::kNone : found->second;
}

// Words that are no options are passed over, with their values.
void readSceneOptions(std::string_view text, BatchLine& line) {
    for (skipBlanks(text); !text.empty(); skipBlanks(text)) {
        const std::string_view word = takeWord(text);
        const std::string_view value = takeQuotedValue(text);
        if (word == kRootOption) {
            line.roots = value;
        } else if (word == kNameOption && !value.empty()) {
            line.name = value;
        }
    }
}

std::string_view trimmed(std::string_view text) {
    skipBlanks(text);
    return text.substr(0, text.find_last_not_of(" \t") + 1);
}

// UTF-8 is not what its Shift_JIS form is, ASCII aside, which has no double-byte characters.
bool isShiftJis(const std::string& text) {
    bool lossy = false;
    return toShiftJis(text, lossy) == text;
}

} // namespace

std::string_view wordOf(BatchKeyword keyword) {
    const auto* const found =
        std::find_if(kWords.begin(), kWords.end(), [keyword](const auto& row) { return row.second == keyword; });
    return found == kWords.end() ? std::string_view() : found->first;
}

bool isBatchHeader(std::string_view line) {
    return line.substr(0, kHeader.size()) == kHeader;
}

BatchLine parseBatchLine(std::string_view text) {
    BatchLine line;
    if (text.empty() || text.front() == '#') {
        return line;
    }
    skipBlanks(text);
    line.keyword = keywordOf(takeWord(text));
    if (line.keyword != BatchKeyword::kNone) {
        line.value = takeQuotedValue(text);
    }
    if (line.keyword == BatchKeyword::kScene) {
        readSceneOptions(text, line);
    }
    return line;
}

std::vector<std::string> splitRoots(std::string_view roots) {
    std::vector<std::string> names;
    for (const std::string_view piece : splitText(roots, ',')) {
        if (const std::string_view name = trimmed(piece); !name.empty()) {
            names.emplace_back(name);
        }
    }
    return names;
}

std::string withoutFinalSlashes(std::string_view folder) {
    const std::size_t last = folder.find_last_not_of('/');
    const bool isRoot = !folder.empty() && last == std::string_view::npos;
    return std::string(isRoot ? folder.substr(0, 1) : folder.substr(0, last + 1));
}

bool holdsAnyOf(const std::string& text, std::string_view characters) {
    const bool hasDoubleBytes = isShiftJis(text);
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (hasDoubleBytes && isShiftJisLead(static_cast<unsigned char>(text[i]))) {
            ++i;
        } else if (characters.find(text[i]) != std::string_view::npos) {
            return true;
        }
    }
    return false;
}

} // namespace tvk
