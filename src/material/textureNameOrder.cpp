#include "material/textureNameOrder.h"

#include "common/byteOrder.h"
#include "platform/codePage.h"

#include <algorithm>
#include <numeric>

namespace tvk {

std::string writtenBytes(const std::string& name) {
    bool lossy = false; // told when the name is written
    return toShiftJis(name, lossy);
}

std::vector<int32_t> orderOf(const std::vector<NameKey>& keys) {
    std::vector<int32_t> order(keys.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&](int32_t a, int32_t b) {
        const NameKey& first = keys[static_cast<std::size_t>(a)];
        const NameKey& second = keys[static_cast<std::size_t>(b)];
        return first.name == second.name ? bytesBefore(first.tieBreak, second.tieBreak)
                                         : bytesBefore(first.name, second.name);
    });
    return order;
}

} // namespace tvk
