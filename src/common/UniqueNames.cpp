#include "common/UniqueNames.h"

#include "common/numberText.h"

namespace tvk {

void UniqueNames::reserve(size_t count) {
    taken.reserve(count);
}

std::string UniqueNames::allocate(const std::string& wanted) {
    if (taken.insert(wanted).second)
        return wanted;
    uint64_t& counter = nextCounters.try_emplace(wanted, 1).first->second;
    for (;; ++counter) {
        std::string candidate = wanted + '_';
        candidate += integerText(static_cast<int64_t>(counter)).view();
        if (taken.insert(candidate).second)
            return candidate;
    }
}

} // namespace tvk
