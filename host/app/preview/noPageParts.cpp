#include "host/app/preview/pageParts.h"

namespace host::app {

std::optional<PageParts> pageParts() {
    return std::nullopt;
}

} // namespace host::app
