#include "decode/IntermediateFile.h"

#include "fileTexts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace decode {
namespace {

using testing::ElementsAre;

std::string complaint(const std::string& behindDeclaration) {
    return complaintOf(readIntermediateFile, kDeclarationLine + behindDeclaration);
}

TEST(IntermediateFile, RefusesWhatIsNotWellFormed) {
    const struct {
        const char* text;
        const char* message;
    } rows[] = {
        {"", "line 2: expected < at the end"},
        {"x", "line 2: expected < instead of \"x\""},
        {"<", "line 2: expected a name at the end"},
        {"<a", "line 2: expected > at the end"},
        {"<a>", "line 2: expected the end tag of a at the end"},
        {"<a>\n<b></a>", "line 3: expected b instead of \"a>\""},
        {"<a/>\n\n<b/>", "line 4: expected nothing after the root element instead of \"<b/>\""},
        {"<a b=1/>", "line 2: expected =\" instead of \"=1/>\""},
        {"<a b=\"1/>", "line 2: expected \" at the end"},
        {"<a b=\"1\"\nb=\"2\"/>", "line 3: expected no second b instead of \"=\"2\"/>\""},
        {"<a -/>", "line 2: expected a name instead of \"-/>\""},
        {"<a\x01\x7F/>", "line 2: expected a name instead of \"?\?/>\""},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(complaint(row.text), row.message);
    }
    EXPECT_EQ(complaintOf(readIntermediateFile, "<a/>"),
              "line 1: expected <?xml version=\"1.0\" encoding=\"Shift_JIS\" instead of \"<a/>\"");
}

TEST(IntermediateFile, RefusesNestingThatNoFormatHas) {
    std::string deep;
    for (int i = 0; i < 100000; ++i) {
        deep += "<a>";
    }
    EXPECT_EQ(complaint(deep),
              "line 2: expected no deeper element instead of \"<a><a><a><a><a><a><a><a><a><a><a><a><a><\"");
}

TEST(IntermediateFile, RefusesMoreAttributesThanAnyElementHas) {
    std::string wide = "<a";
    for (int i = 0; i < 200; ++i) {
        wide += " x" + std::to_string(i) + "=\"\"";
    }
    EXPECT_EQ(complaint(wide + "/>"),
              "line 2: expected no more attributes instead of \"=\"\" x129=\"\" x130=\"\" x131=\"\" x132=\"\" x133\"");
}

TEST(IntermediateFile, RefusesValuesThatAreNotWhatIsAskedFor) {
    const FileElement a =
        readIntermediateFile(kDeclarationLine + "\n<a i=\"1x\" huge=\"99999999999\" r=\"1 nan\" "
                                                "f=\"yes\" n=\"3\" size=\"2\">1 2.5<b index=\"1\"/></a>");
    EXPECT_THROW(a.value("none"), FileError);
    const struct {
        void (*ask)(const FileElement&);
        const char* message;
    } rows[] = {
        {[](const FileElement& e) { e.value("none"); }, "line 3: a: has no none"},
        {[](const FileElement& e) { e.child("c"); }, "line 3: a: has no c"},
        {[](const FileElement& e) { e.integer("i"); }, "line 3: a: i is no integer: 1x"},
        {[](const FileElement& e) { e.integer("huge"); }, "line 3: a: huge is no integer: 99999999999"},
        {[](const FileElement& e) { e.reals("r"); }, "line 3: a: r: no number: nan"},
        {[](const FileElement& e) { e.reals("n", 3); }, "line 3: a: n is not 3 numbers: 3"},
        {[](const FileElement& e) { e.isOn("f"); }, "line 3: a: f is neither on nor off: yes"},
        {[](const FileElement& e) { e.integers(); }, "line 3: a: one of its numbers is no integer"},
        {[](const FileElement& e) { e.countedNumbers("n"); }, "line 3: a: n is 3, but there are 2 numbers"},
        {[](const FileElement& e) { e.countedChildren(); }, "line 3: a: size is 2, but there are 1 elements"},
    };
    for (const auto& row : rows) {
        std::string message;
        try {
            row.ask(a);
        } catch (const FileError& error) {
            message = error.what();
        }
        EXPECT_EQ(message, row.message);
    }
}

TEST(IntermediateFile, NumbersElementsByTheirLines) {
    const FileElement root = readIntermediateFile(kDeclarationLine + "\n<a>\n<b/>\n\n<c\n x=\"1\"/> <d/></a>\n");
    EXPECT_EQ(root.line, 3U);
    EXPECT_EQ(root.child("b").line, 4U);
    EXPECT_EQ(root.child("c").line, 6U);
    EXPECT_EQ(root.child("d").line, 7U);
}

TEST(IntermediateFile, ReadsBothKindsOfLineEnds) {
    for (const std::string end : {"\n", "\r\n"}) {
        const FileElement root =
            readIntermediateFile("<?xml version=\"1.0\" encoding=\"Shift_JIS\"?>" + end + "<a x=\"1\"" + end +
                                 "y=\"2 3\">" + end + "1" + end + "2" + end + "</a>" + end);
        EXPECT_EQ(root.integer("x"), 1);
        EXPECT_THAT(root.reals("y"), ElementsAre(2, 3));
        EXPECT_THAT(root.integers(), ElementsAre(1, 2));
    }
}

TEST(IntermediateFile, KeepsNamesAsBytes) {
    // The second byte of this character is a backslash's.
    const FileElement root = readIntermediateFile(kDeclarationLine + "<a name=\"\x83\x5C\"/>");
    EXPECT_EQ(root.value("name"), "\x83\x5C");
}

} // namespace
} // namespace decode
