#include "SourceTree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tvk {

namespace {

using testing::IsEmpty;
using testing::Not;

constexpr std::size_t kLineLimit = 500;

// The files of several folders, all of which must have some: an empty tree would keep every rule.
std::vector<SourceFile> readFolders(const std::vector<std::string>& folders) {
    std::vector<SourceFile> all;
    for (const std::string& folder : folders) {
        const std::vector<SourceFile> files = readSourceTree(folder);
        EXPECT_THAT(files, Not(IsEmpty())) << folder;
        all.insert(all.end(), files.begin(), files.end());
    }
    return all;
}

std::vector<SourceFile> readProduct() {
    return readFolders({"src", "host", "decode"});
}

std::vector<SourceFile> readEverything() {
    return readFolders({"src", "host", "decode", "tests", "fuzz", "bench", "tools"});
}

bool isFrom(const SourceFile& file, const std::string& folder) {
    return file.path.compare(0, folder.size(), folder) == 0;
}

TEST(HouseRules, FilesStayShort) {
    EXPECT_THAT(findLongFiles(readProduct(), kLineLimit), IsEmpty());
}

TEST(HouseRules, NothingIsMarkedAsUnfinished) {
    // In two pieces each, so that this list is not itself a find.
    const std::vector<std::string> marks = {std::string("TO") + "DO", std::string("FIX") + "ME"};
    EXPECT_THAT(findMarks(readEverything(), marks), IsEmpty());
}

TEST(HouseRules, IncludesGoThroughTheRoomsDoors) {
    std::vector<SourceFile> rooms;
    for (const SourceFile& file : readProduct()) {
        if (!isFrom(file, "host/include/")) {
            rooms.push_back(file);
        }
    }
    EXPECT_THAT(findIncludesAroundDoors(rooms), IsEmpty());
}

// The host must be able to load any plug-in of this kind; only its program knows which one it is shipped with.
TEST(HouseRules, HostKnowsNoExporter) {
    std::vector<SourceFile> host;
    for (const SourceFile& file : readFolders({"host"})) {
        const bool isBuildList = file.path.find("CMakeLists.txt") != std::string::npos;
        if (!isBuildList && !isFrom(file, "host/app/")) {
            host.push_back(file);
        }
    }
    EXPECT_THAT(host, Not(IsEmpty()));
    EXPECT_THAT(findWords(host, {"tvk_", "kaldera"}), IsEmpty());
}

TEST(HouseRules, HeadersAreGuarded) {
    EXPECT_THAT(findHeadersWithoutGuard(readEverything()), IsEmpty());
}

TEST(HouseRules, SourcesIncludeTheirOwnHeaderFirst) {
    EXPECT_THAT(findOwnHeaderNotFirst(readProduct()), IsEmpty());
}

TEST(HouseRules, EverySourceIsBuilt) {
    EXPECT_THAT(findUnbuiltSources(readEverything()), IsEmpty());
}

// Bytes of written files must not depend on the locale or the library: numbers become text in one place.
TEST(HouseRules, NumbersAreFormattedInOnePlace) {
    std::vector<SourceFile> files;
    for (const SourceFile& file : readFolders({"src"})) {
        if (!isFrom(file, "src/common/numberText.")) {
            files.push_back(file);
        }
    }
    EXPECT_THAT(findWords(files, {"printf(", "std::setprecision", "std::fixed"}), IsEmpty());
}

} // namespace

} // namespace tvk
