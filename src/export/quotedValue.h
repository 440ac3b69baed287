#pragma once

#include <string_view>

namespace tvk {

/// Values in settings files and batch lists stand between double quotes, with nothing but blanks and tabs before the
/// opening one.

/// Takes such a value off the front of `text`, with its quotes. Nothing and "" when there is no opening quote there;
/// `text` then stands behind the blanks. A value without closing quote is empty and takes the rest of the text.
std::string_view takeQuotedValue(std::string_view& text);

/// Takes blanks and tabs off the front of `text`.
void skipBlanks(std::string_view& text);

/// Takes what stands before the next blank or tab off the front of `text`.
std::string_view takeWord(std::string_view& text);

} // namespace tvk
