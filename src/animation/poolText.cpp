#include "animation/poolText.h"

#include "common/numberText.h"
#include "scene/Run.h"
#include "scene/xmlText.h"

#include <ostream>

namespace tvk {

void writePool(std::ostream& out, const char* name, const std::vector<int32_t>& numbers, bool isFixed) {
    const bool asIntegers = !isFixed || run().options.rawValues;
    out << '<' << name;
    writeAttribute(out, "size", static_cast<int64_t>(numbers.size()));
    out << ">\n";
    writeTenToALine(out, 1, numbers.size(), [&](std::size_t i) { return fixedText(numbers[i], asIntegers); });
    out << "</" << name << ">\n\n";
}

} // namespace tvk
