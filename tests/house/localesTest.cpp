#include <gtest/gtest.h>

#include <clocale>
#include <string>

namespace tvk {

namespace {

// Tests of foreign locales pass where the system lacks them; here they must not be lacking.
TEST(Locales, TheForeignOnesAreThere) {
    const struct {
        const char* name;
        const char* decimalPoint;
    } rows[] = {{"de_DE", ","}, {"de_DE.UTF-8", ","}, {"ja_JP.UTF-8", "."}, {"ja_JP.SJIS", "."}};
    const std::string before = std::setlocale(LC_ALL, nullptr);
    for (const auto& row : rows) {
        ASSERT_NE(std::setlocale(LC_ALL, row.name), nullptr) << row.name << " (ctest sets LOCPATH)";
        EXPECT_STREQ(std::localeconv()->decimal_point, row.decimalPoint) << row.name;
    }
    std::setlocale(LC_ALL, before.c_str());
}

} // namespace

} // namespace tvk
