#include "export/envelope.h"

#include "ExportSession.h"
#include "FreshRun.h"
#include "sceneText.h"

#include "platform/codePage.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

namespace tvk {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

// Katakana "so" and kanji "table", in UTF-8 and in Shift_JIS, where their second byte is that of a backslash.
const std::string kSo = "\xE3\x82\xBD";
const std::string kSoWritten = "\x83\x5C";
const std::string kTable = "\xE8\xA1\xA8";
const std::string kTableWritten = "\x95\x5C";

TEST(Encoding, NamesArePutIntoTheFileAsShiftJis) {
    ExportSession session;
    session.open(nodeText("transform", "a") + nodeText("transform", kTable, "a") +
                 nodeText("joint", kSo + "_arm", "a"));
    ASSERT_TRUE(session.exportAll());
    EXPECT_TRUE(isValidShiftJis(session.fileText("model.imd")));
    EXPECT_THAT(session.model().names(), ElementsAre("a", kSoWritten + "_arm", kTableWritten));
    EXPECT_EQ(session.takeMessages(), "");
}

TEST(Encoding, ScenesOfAJapaneseSystemAreRead) {
    ExportSession session;
    session.openFile("sjis.ma",
                     "//Maya ASCII 5.0 scene\n//Codeset: 932\nrequires maya \"5.0\";\ncreateNode transform -n \"" +
                         kTableWritten + "\";\n");
    ASSERT_TRUE(session.exportAll());
    EXPECT_THAT(session.model().names(), ElementsAre(kTableWritten));
}

TEST(Encoding, FilesHaveTheNamesThatTheUserGave) {
    ExportSession session;
    std::filesystem::create_directory(std::filesystem::u8path(session.folder.path(kTable + ".d")));
    session.openFile(kSo + ".ma", sceneOf(nodeText("transform", "a")));
    ASSERT_TRUE(session.exportTo(session.folder.path(kTable + ".d/" + kSo + ".v2.imd"), "",
                                 MPxFileTranslator::kExportAccessMode));
    const std::string text = session.fileText(kTable + ".d/" + kSo + ".v2.imd");
    EXPECT_TRUE(isValidShiftJis(text));
    EXPECT_THAT(text, HasSubstr(" source=\"" + kSoWritten + ".ma\"/>\n"));
    EXPECT_THAT(session.infos, testing::Contains("========== TVK_Export : " + kSo + ".v2 ========== imd "));
    EXPECT_EQ(session.takeMessages(), "");
}

TEST(Encoding, WhatHasNoCodeIsReportedOncePerFile) {
    ExportSession session;
    session.openFile("f\xC3\xBCr \xC3\xBC.ma", sceneOf(nodeText("transform", "a") + visibilityKeys("a", "1 0 2 1", 2)));
    ASSERT_TRUE(session.exportAll("iva_file_out=1"));
    const std::string message = "Warning: Characters without a Shift_JIS code are written as '?': ";
    EXPECT_EQ(session.takeMessages(),
              message + session.folder.path("model.imd") + "\n" + message + session.folder.path("model.iva") + "\n\n");
    EXPECT_THAT(session.fileText("model.imd"), HasSubstr(" source=\"f?r ?.ma\"/>\n"));
    EXPECT_TRUE(isValidShiftJis(session.fileText("model.iva")));
}

TEST(Encoding, AnUmlautInTheUsersNameIsLost) {
    const FreshRun fresh;
    std::ostringstream out;
    writeHead(out, OutputKind::kImd, {"J\xC3\xBCrgen", "studio7", "2006-10-03T09:05:00", kTable + ".ma"});
    EXPECT_TRUE(isValidShiftJis(out.str()));
    EXPECT_THAT(out.str(),
                HasSubstr("\t<create user=\"J?rgen\" host=\"studio7\" date=\"2006-10-03T09:05:00\" source=\"" +
                          kTableWritten + ".ma\"/>\n"));
    EXPECT_TRUE(run().lossyText);
}

} // namespace
} // namespace tvk
