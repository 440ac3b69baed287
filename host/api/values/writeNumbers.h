#pragma once

#include <initializer_list>
#include <iosfwd>

namespace host::api {

/// Writes "[a, b, c]", each number as numberText shows it.
void writeNumbers(std::ostream& stream, std::initializer_list<double> numbers);

} // namespace host::api
