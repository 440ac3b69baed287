#include "animation/poolText.h"

#include "common/numberText.h"
#include "scene/Run.h"
#include "scene/xmlText.h"

#include <ostream>

namespace tvk {

void writePool(std::ostream& out, const char* name, const std::vector<int32_t>& numbers, bool isFixed) {
    constexpr std::size_t kNumbersPerLine = 10;
    const bool asIntegers = !isFixed || run().options.rawValues;
    out << '<' << name;
    writeAttribute(out, "size", static_cast<int64_t>(numbers.size()));
    out << ">\n";
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const bool endsLine = i % kNumbersPerLine == kNumbersPerLine - 1 || i + 1 == numbers.size();
        out << (i % kNumbersPerLine == 0 ? "\t" : "") << fixedText(numbers[i], asIntegers) << (endsLine ? '\n' : ' ');
    }
    out << "</" << name << ">\n\n";
}

} // namespace tvk
