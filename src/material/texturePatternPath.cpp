#include "material/texturePatternPath.h"

#include "common/numberText.h"
#include "scene/fileNames.h"

namespace tvk {
namespace {

bool isPaddedNumber(const std::string& text) {
    return text.size() > 1 && text.front() == '0' && text.find_first_not_of("0123456789") == std::string::npos;
}

} // namespace

bool splitPatternPath(const std::string& path, PatternPath& parts) {
    const std::string name = lastComponentOf(path);
    const std::size_t folder = path.size() - name.size();
    const auto last = name.rfind('.');
    const auto before = last == std::string::npos || last == 0 ? std::string::npos : name.rfind('.', last - 1);
    if (before == std::string::npos || before == 0) {
        return false;
    }
    parts.prefix = path.substr(0, folder + before + 1);
    parts.number = name.substr(before + 1, last - before - 1);
    parts.suffix = name.substr(last);
    return true;
}

std::string patternPathOf(const PatternPath& parts, int64_t frame) {
    return parts.prefix + integerText(frame).str() + parts.suffix;
}

std::string paddedPatternPathOf(const PatternPath& parts, int64_t frame) {
    std::string number = integerText(frame).str();
    if (frame >= 0 && isPaddedNumber(parts.number) && number.size() < parts.number.size()) {
        number.insert(0, parts.number.size() - number.size(), '0');
    }
    return parts.prefix + number + parts.suffix;
}

} // namespace tvk
