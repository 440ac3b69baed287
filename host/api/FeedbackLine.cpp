#include "host/api/FeedbackLine.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cstddef>
#include <utility>

namespace host {

namespace {

constexpr int kWidest = 64; // no status line is wider; a larger width or precision makes no slot

/// "^6.3f" at a place of the format.
struct Slot {
    int width = 0;
    int decimals = 0;
    std::size_t length = 0; // characters of the slot; 0 when there is none
};

const char* readCount(const char* at, const char* end, int& count) {
    const auto [next, error] = std::from_chars(at, end, count);
    return error == std::errc() && count >= 0 && count <= kWidest ? next : nullptr;
}

Slot slotAt(const std::string& format, std::size_t position) {
    Slot slot;
    const char* const begin = format.data() + position;
    const char* const end = format.data() + format.size();
    const char* at = begin + 1;
    const auto isDigit = [&] { return at != end && std::isdigit(static_cast<unsigned char>(*at)) != 0; };
    if (isDigit()) {
        at = readCount(at, end, slot.width);
    }
    if (at != nullptr && at != end && *at == '.') {
        ++at;
        at = isDigit() ? readCount(at, end, slot.decimals) : nullptr;
    }
    if (at == nullptr || at == end || *at != 'f') {
        return {};
    }
    slot.length = static_cast<std::size_t>(at + 1 - begin);
    return slot;
}

std::string numberText(double value, const Slot& slot) {
    char text[512]; // the largest double has 309 digits before the point
    const auto [end, error] = std::to_chars(text, text + sizeof text, value, std::chars_format::fixed, slot.decimals);
    std::string digits = error == std::errc() ? std::string(text, end) : std::string();
    const auto width = static_cast<std::size_t>(slot.width);
    return digits.size() < width ? std::string(width - digits.size(), ' ') + digits : digits;
}

} // namespace

std::string FeedbackLine::text() const {
    std::string result;
    int slotNumber = 0;
    for (std::size_t at = 0; at < format_.size();) {
        const Slot slot = format_[at] == '^' ? slotAt(format_, at) : Slot();
        if (slot.length == 0) {
            result += format_[at++];
            continue;
        }
        const auto value = values_.find(slotNumber++);
        result += value != values_.end() ? numberText(value->second, slot)
                                         : std::string(static_cast<std::size_t>(slot.width), ' ');
        at += slot.length;
    }
    return result;
}

void FeedbackLine::setFormat(std::string format) {
    format_ = std::move(format);
    values_.clear();
    changed();
}

void FeedbackLine::setTitle(std::string title) {
    title_ = std::move(title);
    changed();
}

void FeedbackLine::setValue(int slot, double value) {
    values_[slot] = value;
    changed();
}

void FeedbackLine::setShown(bool shown) {
    shown_ = shown;
    changed();
}

void FeedbackLine::clear() {
    format_.clear();
    title_.clear();
    values_.clear();
    changed();
}

void FeedbackLine::changed() const {
    if (onChange) {
        onChange();
    }
}

} // namespace host
