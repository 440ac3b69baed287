#pragma once

#include "scene/AnimTrack.h"
#include "scene/NodeRecord.h"

#include <cstddef>
#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>

namespace tvk {

/// The small pieces of which all intermediate files are made. Values are never escaped.

constexpr const char* onOff(bool flag) {
    return flag ? "on" : "off";
}

/// One blank, name, "=" and the quoted value. Texts are UTF-8 and become Shift_JIS here; what has no code there becomes
/// '?' and is remembered (see takeLossyText).
void writeAttribute(std::ostream& out, std::string_view name, std::string_view value);
void writeAttribute(std::ostream& out, std::string_view name, int64_t value);

/// name="value" on a line of its own behind `tabs` tabs.
void writeAttributeLine(std::ostream& out, int tabs, std::string_view name, std::string_view value);
void writeAttributeLine(std::ostream& out, int tabs, std::string_view name, int64_t value);

/// A fixed-point vector as three values with a blank between them, each rounded to 1/4096; raw integers by
/// ExportOptions::rawValues. Returned as text for an attribute.
std::string fixedVectorText(const Vector3& value);

/// `count` texts, ten to a line, each line behind `tabs` tabs, single blanks between; a line ends behind the last.
///   textOf   callable: std::size_t -> what goes on a stream
template <typename TextOf>
void writeTenToALine(std::ostream& out, int tabs, std::size_t count, const TextOf& textOf) {
    constexpr std::size_t kPerLine = 10;
    for (std::size_t i = 0; i < count; ++i) {
        for (int tab = 0; tab < tabs && i % kPerLine == 0; ++tab) {
            out << '\t';
        }
        const bool endsLine = i % kPerLine == kPerLine - 1 || i + 1 == count;
        out << textOf(i) << (endsLine ? '\n' : ' ');
    }
}

/// frame_step, data_size and data_head of an encoded channel.
void writeTrackAttributes(std::ostream& out, const AnimTrack& track);

/// Whether text since the last call lost characters on the way to Shift_JIS.
bool takeLossyText();

} // namespace tvk
