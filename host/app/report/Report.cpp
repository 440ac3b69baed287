#include "host/app/report/Report.h"

#include <algorithm>
#include <stdexcept>

namespace host::app::report {

PoolCosts AnimationCosts::inAll() const {
    PoolCosts sum;
    sum.name = "in all";
    for (const PoolCosts& pool : pools) {
        sum.unit = pool.unit;
        sum.channels += pool.channels;
        sum.moving += pool.moving;
        sum.stored += pool.stored;
        sum.withoutSharing += pool.withoutSharing;
    }
    return sum;
}

const FileCosts& Report::file(std::string_view kind) const {
    const auto found =
        std::find_if(files.begin(), files.end(), [kind](const FileCosts& file) { return file.kind == kind; });
    if (found == files.end()) {
        throw std::invalid_argument("no kind of file: " + std::string(kind));
    }
    return *found;
}

bool Report::isOverLimit() const {
    return std::any_of(limits.begin(), limits.end(), [](const Limit& limit) { return limit.over() > 0; });
}

} // namespace host::app::report
