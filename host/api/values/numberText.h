#pragma once

#include <string>

namespace host::api {

/// The characters of a number as texts of the API show it: whole numbers up to 2^53 without point or exponent, all
/// others with ten significant digits like C's "%.10g"; -0 is "-0". Always with a decimal point, whatever the locale.
std::string numberText(double number);

} // namespace host::api
