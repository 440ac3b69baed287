#pragma once

#include <cstdint>
#include <iosfwd>
#include <vector>

namespace tvk {

/// Prints a pool: "<name size="n">", the numbers ten to a line behind one tab, "</name>", an empty line.
///   isFixed   numbers are in 1/4096 and printed as decimals, unless ExportOptions::rawValues asks for the integers
void writePool(std::ostream& out, const char* name, const std::vector<int32_t>& numbers, bool isFixed);

} // namespace tvk
