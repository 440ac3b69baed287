#include "export/optionTable.h"

#include "textFiles.h"

#include <gtest/gtest.h>

namespace tvk {
namespace {

const char* typeName(const OptionField& field) {
    constexpr const char* kNames[] = {"real", "real", "integer", "boolean", "text"};
    static_assert(std::size(kNames) == std::variant_size_v<OptionField>);
    return kNames[field.index()];
}

TEST(OptionsPage, HasARowForEveryOptionInTheOrderOfTheTable) {
    const std::vector<std::vector<std::string>> rows = namedRows(sourceText("docs/options.md"));
    ASSERT_EQ(rows.size(), kOptionRows.size());
    for (std::size_t at = 0; at < rows.size(); ++at) {
        const OptionRow& option = kOptionRows[at];
        const std::string defaultText(option.defaultText.empty() ? "(empty)" : option.defaultText);
        const std::vector<std::string> expected{std::string(option.key), typeName(option.field), defaultText,
                                                std::string(option.help)};
        EXPECT_EQ(rows[at], expected);
    }
}

} // namespace
} // namespace tvk
