#include "host/api/melText.h"

namespace host {

std::string melString(const std::string& text) {
    std::string result = "\"";
    for (const char c : text) {
        if (c == '\n' || c == '\r' || c == '\t') {
            result += c == '\n' ? "\\n" : c == '\r' ? "\\r" : "\\t";
            continue;
        }
        if (c == '"' || c == '\\') {
            result += '\\';
        }
        result += c;
    }
    return result + "\"";
}

} // namespace host
