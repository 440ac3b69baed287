#include "host/app/preview/JsonText.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace tvk {
namespace {

using host::app::preview::JsonText;

std::string written(const JsonText& json) {
    return json.written();
}

} // namespace

TEST(JsonText, SeparatesMembersAndElements) {
    JsonText json;
    json.beginObject().name("a").number(1).name("b").beginArray().number(0.5).boolean(true).null();
    json.beginArray().endArray().beginObject().endObject().endArray().name("c").word("x").endObject();
    EXPECT_EQ(written(json), R"({"a":1,"b":[0.5,true,null,[],{}],"c":"x"})");
}

TEST(JsonText, KeepsTextsInsideTheirElement) {
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"", R"("")"},
        {"walk", R"("walk")"},
        {"</script><!--", R"("\u003c/script>\u003c!--")"},
        {"say \"no\"", R"("say \u0022no\u0022")"},
        {"a\\b", R"("a\u005cb")"},
        {std::string("\0\x1f\x7f", 3), R"("\u0000\u001f\u007f")"},
        {"\x93\xfa\x96\x7b", R"("\u0093\u00fa\u0096{")"}, // bytes, not characters
    };
    for (const auto& [bytes, expected] : cases) {
        JsonText json;
        json.text(bytes);
        EXPECT_EQ(written(json), "{\"text\":" + expected + "}");
    }
}

TEST(JsonText, PacksArraysWithTheLowestByteFirst) {
    JsonText json;
    json.beginArray();
    json.packed(std::vector<std::uint8_t>{});
    json.packed(std::vector<std::uint8_t>{1});
    json.packed(std::vector<std::uint8_t>{1, 2});
    json.packed(std::vector<std::uint8_t>{255, 255, 255});
    json.packed(std::vector<std::int32_t>{-2, 0x01020304});
    json.packed(std::vector<float>{1.0F});
    json.endArray();
    EXPECT_EQ(written(json), R"([{"u8":""},{"u8":"AQ=="},{"u8":"AQI="},{"u8":"////"},{"i32":"/v///wQDAgE="},)"
                             R"({"f32":"AACAPw=="}])");
}

} // namespace tvk
