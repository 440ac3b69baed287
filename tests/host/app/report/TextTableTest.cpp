#include "host/app/report/TextTable.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace host::app::report {
namespace {

TEST(TextTable, CellsStandUnderEachOther) {
    TextTable table("lrl");
    table.add({"name", "bytes", "remark"});
    table.add({"a", "1", ""});
    table.add({"\xE3\x83\x86\xE3\x82\xB9", "123456", "x"});
    EXPECT_EQ(table.text(), "  name   bytes  remark\n"
                            "  a          1\n"
                            "  \xE3\x83\x86\xE3\x82\xB9  123456  x\n");
}

TEST(TextTable, NothingIsNoText) {
    EXPECT_EQ(TextTable("lr").text(), "");
}

} // namespace
} // namespace host::app::report
