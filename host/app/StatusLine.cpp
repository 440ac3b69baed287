#include "host/app/StatusLine.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

namespace host::app {

namespace {

constexpr std::chrono::milliseconds kRedrawInterval(50); // quicker is not seen and costs time
constexpr int kBarColumns = 20;
constexpr const char* kClearLine = "\r\033[K";

std::optional<double> shareDone(const FeedbackLine& line) {
    const auto count = line.values().find(0);
    const auto total = line.values().find(1);
    if (count == line.values().end() || total == line.values().end() || total->second <= 0.0) {
        return std::nullopt;
    }
    return std::clamp(count->second / total->second, 0.0, 1.0);
}

bool continuesCharacter(char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

/// The first characters of UTF-8 text, without control characters.
std::string cut(const std::string& text, int columns) {
    std::string result;
    int used = 0;
    for (const char c : text) {
        used += continuesCharacter(c) ? 0 : 1;
        if (used > columns) {
            break;
        }
        const auto code = static_cast<unsigned char>(c);
        result += code < 0x20 || code == 0x7F ? ' ' : c;
    }
    return result;
}

} // namespace

StatusLine::StatusLine(std::function<void(const std::string&)> write, std::function<int()> columns)
    : write_(std::move(write)), columns_(std::move(columns)) {}

StatusLine::~StatusLine() {
    hide();
}

void StatusLine::show(const FeedbackLine& line) {
    const auto now = std::chrono::steady_clock::now();
    const bool isNew = !isVisible_ || line.format() != shownFormat_;
    if (!line.shown() || line.format().empty()) {
        hide();
        return;
    }
    if (!isNew && now - lastDrawn_ < kRedrawInterval) {
        return;
    }
    // A full last column would wrap.
    write_(kClearLine + statusText(line, columns_() - 1));
    shownFormat_ = line.format();
    lastDrawn_ = now;
    isVisible_ = true;
}

void StatusLine::hide() {
    if (isVisible_) {
        isVisible_ = false;
        write_(kClearLine);
    }
}

std::string statusText(const FeedbackLine& line, int columns) {
    std::string text;
    if (const std::optional<double> share = shareDone(line)) {
        const auto filled = static_cast<std::size_t>(std::lround(*share * kBarColumns));
        text = "[" + std::string(filled, '#') + std::string(kBarColumns - filled, '.') + "] ";
    }
    text += line.title().empty() ? line.text() : line.title() + ": " + line.text();
    return cut(text, columns);
}

} // namespace host::app
