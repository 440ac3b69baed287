#include "export/quotedValue.h"

#include <algorithm>

namespace tvk {
namespace {

constexpr std::string_view kBlanks = " \t";

} // namespace

void skipBlanks(std::string_view& text) {
    text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
}

std::string_view takeWord(std::string_view& text) {
    const std::string_view word = text.substr(0, text.find_first_of(kBlanks));
    text.remove_prefix(word.size());
    return word;
}

std::string_view takeQuotedValue(std::string_view& text) {
    skipBlanks(text);
    if (text.empty() || text.front() != '"') {
        return {};
    }
    const std::size_t end = text.find('"', 1);
    if (end == std::string_view::npos) {
        text = {};
        return {};
    }
    const std::string_view value = text.substr(1, end - 1);
    text.remove_prefix(end + 1);
    return value;
}

} // namespace tvk
