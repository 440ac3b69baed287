#include "host/app/preview/pageParts.h"

namespace host::app::preview {

std::optional<PageParts> pageParts() {
    return std::nullopt;
}

} // namespace host::app::preview
