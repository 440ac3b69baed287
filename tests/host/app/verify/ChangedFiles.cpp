#include "ChangedFiles.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace tvk {
namespace {

constexpr const char* kBlanks = " \t\r\n";

// Where the values of one element's attribute or text stand: from and to.
struct Span {
    std::size_t begin, end;
};

std::vector<Span> spansOf(const std::string& text, const std::string& element, const std::string& attribute) {
    std::vector<Span> spans;
    for (std::size_t at = text.find("<" + element); at != std::string::npos; at = text.find("<" + element, at + 1)) {
        const char behind = text[at + element.size() + 1];
        if (behind != ' ' && behind != '>' && behind != '\n' && behind != '/') {
            continue;
        }
        const std::size_t tagEnd = text.find('>', at);
        if (attribute.empty()) {
            spans.push_back({tagEnd + 1, text.find("</", tagEnd)});
            continue;
        }
        std::size_t name = std::min(text.find(" " + attribute + "=\"", at), text.find("\t" + attribute + "=\"", at));
        if (name < tagEnd) {
            name += attribute.size() + 3;
            spans.push_back({name, text.find('"', name)});
        }
    }
    return spans;
}

std::string changed(const std::string& value, By by) {
    char text[64];
    if (by == By::kSwitch) {
        return value == "on" ? "off" : "on";
    }
    if (by == By::kBit) {
        const auto word = static_cast<unsigned int>(std::strtoul(value.c_str(), nullptr, 16)) ^ 1U;
        std::snprintf(text, sizeof text, "%0*x", static_cast<int>(value.size()), word);
        return text;
    }
    if (by == By::kOne) {
        const int number = std::atoi(value.c_str());
        return std::to_string(number + (number == 31 || number == 100 ? -1 : 1));
    }
    const double steps = by == By::kStep ? 4096.0 : by == By::kSixteenth ? 16.0 : 512.0;
    const double number = std::strtod(value.c_str(), nullptr);
    std::snprintf(text, sizeof text, "%.6f", number + (number > 0.5 ? -1.0 : 1.0) / steps);
    return text;
}

} // namespace

std::vector<Change> changesOf(const std::string& text, const std::string& element, const std::string& attribute, By by,
                              std::size_t most) {
    std::vector<Change> all;
    for (const Span& span : spansOf(text, element, attribute)) {
        for (std::size_t at = text.find_first_not_of(kBlanks, span.begin); at < span.end;) {
            const std::size_t end = std::min(text.find_first_of(" \t\r\n\"<", at), span.end);
            all.push_back({at, end - at, text.substr(at, end - at)});
            at = text.find_first_not_of(kBlanks, end);
        }
    }
    std::vector<Change> some;
    const std::size_t count = std::min(most, all.size());
    for (std::size_t i = 0; i < count; ++i) {
        Change change = all[i * all.size() / count];
        change.value = changed(change.value, by);
        some.push_back(change);
    }
    return some;
}

} // namespace tvk
