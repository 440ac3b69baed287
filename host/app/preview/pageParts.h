#pragma once

#include <optional>
#include <string_view>

namespace host::app::preview {

/// The page around its data.
struct PageParts {
    std::string_view start, end;
};

/// Nothing when the program was built without the page.
std::optional<PageParts> pageParts();

} // namespace host::app::preview
