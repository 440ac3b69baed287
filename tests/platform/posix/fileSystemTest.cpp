#include "platform/fileSystem.h"

#include "TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <unistd.h>

namespace tvk {
namespace {

void setOrUnset(const char* name, const char* value) {
    if (value != nullptr)
        setenv(name, value, 1);
    else
        unsetenv(name);
}

TEST(PosixFileSystem, TheTemporaryFolderComesFromTheFirstVariableThatSaysSomething) {
    const char* const before = getenv("TMPDIR");
    const std::string kept = before != nullptr ? before : "";
    const struct {
        const char* temp;
        const char* tmpdir;
        const char* expected;
    } cases[] = {{"/a", "/b", "/a"},    {"", "/b", "/b"},           {nullptr, "/b", "/b"},
                 {"/a", nullptr, "/a"}, {nullptr, nullptr, "/tmp"}, {"", "", "/tmp"}};
    for (const auto& c : cases) {
        setOrUnset("TEMP", c.temp);
        setOrUnset("TMPDIR", c.tmpdir);
        EXPECT_EQ(tempFolder(), c.expected);
    }
    unsetenv("TEMP");
    setOrUnset("TMPDIR", before != nullptr ? kept.c_str() : nullptr);
}

TEST(PosixFileSystem, ARefusingFolderGivesNoFileAndNoFolder) {
    // The kernel's folder takes no new entries, not even from root.
    std::ofstream out;
    EXPECT_FALSE(openForWriting(out, "/proc/tvk.imd", WriteMode::kReplace));
    EXPECT_FALSE(createFolder("/proc/tvk"));
    EXPECT_FALSE(deleteFile("/proc/version"));
}

TEST(PosixFileSystem, AFullDiskShowsWhenTheStreamCloses) {
    std::ofstream out;
    ASSERT_TRUE(openForWriting(out, "/dev/full", WriteMode::kReplace));
    out << "x";
    out.close();
    EXPECT_TRUE(out.fail());
}

TEST(PosixFileSystem, DanglingLinksDoNotExist) {
    const TemporaryFolder folder;
    ASSERT_EQ(symlink("nowhere", folder.path("link").c_str()), 0);
    EXPECT_FALSE(fileExists(folder.path("link")));
    EXPECT_FALSE(folderExists(folder.path("link")));
    EXPECT_TRUE(deleteFile(folder.path("link")));
}

TEST(PosixFileSystem, PathsMayHoldAnyBytes) {
    const TemporaryFolder folder;
    const std::string path = folder.path("\x83\x5C*?");
    std::ofstream out;
    EXPECT_TRUE(openForWriting(out, path, WriteMode::kReplace));
    out.close();
    EXPECT_TRUE(fileExists(path));
}

} // namespace
} // namespace tvk
