#include "SourceTree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tvk {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

TEST(SourceTree, FolderThatDoesNotExistIsEmpty) {
    EXPECT_THAT(readSourceTree("no/such/folder"), IsEmpty());
}

TEST(SourceTree, ReadsSourcesAndBuildLists) {
    std::vector<std::string> paths;
    for (const SourceFile& file : readSourceTree("tests/house")) {
        paths.push_back(file.path);
    }
    EXPECT_THAT(paths, ElementsAre("tests/house/CMakeLists.txt", "tests/house/SourceTree.cpp",
                                   "tests/house/SourceTree.h", "tests/house/SourceTreeTest.cpp",
                                   "tests/house/houseRulesTest.cpp", "tests/house/localesTest.cpp"));
}

TEST(SourceTree, LongFileIsFoundFromTheFirstLineTooMany) {
    EXPECT_THAT(findLongFiles({{"src/a/b.cpp", {"1", "2", "3"}}}, 3), IsEmpty());
    EXPECT_THAT(findLongFiles({{"src/a/b.cpp", {"1", "2", "3"}}}, 2), ElementsAre("src/a/b.cpp: 3 lines"));
}

TEST(SourceTree, WordIsFoundInsideNamesAndInAnyCase) {
    EXPECT_THAT(findWords({{"host/a/b.h", {"int hammer;", "callTheHAMMER();"}}}, {"Hammer", "nail"}),
                ElementsAre("host/a/b.h:1: says 'Hammer'", "host/a/b.h:2: says 'Hammer'"));
}

TEST(SourceTree, MarkIsFoundOnlyAsAWordInCapitals) {
    const struct {
        const char* line;
        std::size_t complaints;
    } rows[] = {
        {"// LATER: x", 1}, {"LATER", 1}, {"SOONERLATER but LATER", 1}, {"// later", 0}, {"kLATER", 0}, {"LATER_ON", 0},
    };
    for (const auto& row : rows) {
        EXPECT_THAT(findMarks({{"src/common/x.cpp", {row.line}}}, {"LATER"}), SizeIs(row.complaints)) << row.line;
    }
}

TEST(SourceTree, IncludeMustGoThroughADoor) {
    const struct {
        const char* line;
        std::size_t complaints;
    } rows[] = {
        {"#include \"../scene/SceneData.h\"", 1},
        {"#include \"fixedPoint.h\"", 1},
        {"#include \"common/text.h\"", 0},
        {"#include <../odd.h>", 0},
        {"#include <vector>", 0},
        {"// see \"../a.h\"", 0},
    };
    for (const auto& row : rows) {
        EXPECT_THAT(findIncludesAroundDoors({{"src/common/x.cpp", {row.line}}}), SizeIs(row.complaints)) << row.line;
    }
}

TEST(SourceTree, HeaderNeedsItsGuardBeforeAnyCode) {
    EXPECT_THAT(findHeadersWithoutGuard({{"src/a/b.h", {"// Words.", "", "#pragma once"}}}), IsEmpty());
    EXPECT_THAT(findHeadersWithoutGuard({{"src/a/b.cpp", {"int x;"}}}), IsEmpty());
    EXPECT_THAT(
        findHeadersWithoutGuard({{"src/a/b.h", {}}, {"src/a/c.h", {"int x;", "#pragma once"}}}),
        ElementsAre("src/a/b.h: does not start with #pragma once", "src/a/c.h: does not start with #pragma once"));
}

TEST(SourceTree, OwnHeaderComesFirst) {
    const SourceFile header{"src/a/b.h", {"#pragma once"}};
    EXPECT_THAT(findOwnHeaderNotFirst({header, {"src/a/b.cpp", {"", "#include \"a/b.h\"", "#include <map>"}}}),
                IsEmpty());
    EXPECT_THAT(findOwnHeaderNotFirst({{"src/a/lonely.cpp", {"#include <map>"}}}), IsEmpty());
    EXPECT_THAT(findOwnHeaderNotFirst({header, {"src/a/b.cpp", {"#include <map>", "#include \"a/b.h\""}}}),
                ElementsAre("src/a/b.cpp: does not include its own header first"));
}

TEST(SourceTree, SourceMustBeNamedByABuildListOfItsFolderOrAbove) {
    const SourceFile source{"src/a/b.cpp", {}};
    EXPECT_THAT(findUnbuiltSources({source, {"src/a/CMakeLists.txt", {"x(SOURCES b.cpp c.cpp)"}}}), IsEmpty());
    EXPECT_THAT(findUnbuiltSources({source, {"src/CMakeLists.txt", {"x(SOURCES a/b.cpp)"}}}), IsEmpty());
    EXPECT_THAT(findUnbuiltSources({source, {"src/CMakeLists.txt", {"x(SOURCES ${system}/b.cpp)"}}}), IsEmpty());
    EXPECT_THAT(findUnbuiltSources({source, {"src/a/CMakeLists.txt", {"x(SOURCES bb.cpp)"}}}), SizeIs(1));
    EXPECT_THAT(findUnbuiltSources({source, {"src/c/CMakeLists.txt", {"x(SOURCES b.cpp)"}}}),
                ElementsAre("src/a/b.cpp: no CMakeLists.txt names it"));
}

} // namespace

} // namespace tvk
