#include "scene/xmlText.h"

#include "common/fixedPoint.h"
#include "common/numberText.h"
#include "platform/codePage.h"
#include "scene/Run.h"

#include <ostream>
#include <string>
#include <utility>

namespace tvk {

void writeAttribute(std::ostream& out, std::string_view name, std::string_view value) {
    out << ' ' << name << "=\"" << toShiftJis(value, run().lossyText) << '"';
}

void writeAttribute(std::ostream& out, std::string_view name, int64_t value) {
    out << ' ' << name << "=\"" << integerText(value) << '"';
}

void writeAttributeLine(std::ostream& out, int tabs, std::string_view name, std::string_view value) {
    for (int i = 0; i < tabs; ++i) {
        out << '\t';
    }
    out << name << "=\"" << toShiftJis(value, run().lossyText) << "\"\n";
}

void writeAttributeLine(std::ostream& out, int tabs, std::string_view name, int64_t value) {
    writeAttributeLine(out, tabs, name, integerText(value).view());
}

std::string fixedVectorText(const Vector3& value) {
    std::string text;
    for (const double component : value) {
        if (!text.empty()) {
            text += ' ';
        }
        text += fixedText(toFixed12(component), run().options.rawValues).view();
    }
    return text;
}

void writeTrackAttributes(std::ostream& out, const AnimTrack& track) {
    out << "frame_step=\"" << integerText(track.frameStep) << '"';
    writeAttribute(out, "data_size", track.dataSize);
    writeAttribute(out, "data_head", track.dataHead);
}

bool takeLossyText() {
    return std::exchange(run().lossyText, false);
}

} // namespace tvk
