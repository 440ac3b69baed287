#include "platform/fileSystem.h"

#include "TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <iterator>
#include <string>

namespace tvk {
namespace {

// "so" in katakana, "file" in kanji, an umlaut: none of it within one 8-bit code page of Western Windows.
const std::string kForeignName = "\xE3\x82\xBD_\xE8\xA1\xA8_\xC3\xBC.imd";

std::string readBytes(const std::string& path) {
    std::ifstream in(systemPath(path), std::ios_base::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

std::string readText(const std::string& path) {
    std::ifstream in(systemPath(path));
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

void writeFile(const std::string& path, const std::string& text, WriteMode mode = WriteMode::kReplace) {
    std::ofstream out;
    ASSERT_TRUE(openForWriting(out, path, mode));
    out << text;
    out.close();
    ASSERT_TRUE(out.good());
}

TEST(FileSystem, WhatIsNotThereDoesNotExist) {
    const TemporaryFolder folder;
    for (const std::string& path : {std::string(), folder.path("no"), folder.path("no/deeper"), folder.path("*"),
                                    folder.path("?"), folder.path() + std::string("\0", 1)}) {
        EXPECT_FALSE(fileExists(path)) << path;
        EXPECT_FALSE(folderExists(path)) << path;
        EXPECT_FALSE(deleteFile(path)) << path;
    }
}

TEST(FileSystem, OpeningFailsWithoutTouchingAnything) {
    const TemporaryFolder folder;
    for (const std::string& path :
         {std::string(), folder.path(), folder.path("no/a.imd"), folder.path("a") + std::string("\0.imd", 5)}) {
        std::ofstream out;
        EXPECT_FALSE(openForWriting(out, path, WriteMode::kReplace)) << path;
        EXPECT_FALSE(out.is_open());
        EXPECT_FALSE(openForWriting(out, path, WriteMode::kAppend)) << path;
    }
    EXPECT_TRUE(std::filesystem::is_empty(systemPath(folder.path())));
}

TEST(FileSystem, FoldersAreCreatedOneLevelAtATime) {
    const TemporaryFolder folder;
    EXPECT_FALSE(createFolder(""));
    EXPECT_FALSE(createFolder(folder.path("a/b")));
    EXPECT_FALSE(folderExists(folder.path("a")));
    EXPECT_TRUE(createFolder(folder.path("a")));
    EXPECT_TRUE(createFolder(folder.path("a/b")));
    EXPECT_TRUE(folderExists(folder.path("a/b")));
    EXPECT_TRUE(createFolder(folder.path("a"))) << "it exists, which is what was asked for";
}

TEST(FileSystem, AFileInTheWayIsNoFolder) {
    const TemporaryFolder folder;
    writeFile(folder.path("a"), "x");
    EXPECT_FALSE(createFolder(folder.path("a")));
    EXPECT_FALSE(createFolder(folder.path("a/b")));
}

TEST(FileSystem, TellsFilesFromFolders) {
    const TemporaryFolder folder;
    writeFile(folder.path("a.txt"), "x");
    EXPECT_TRUE(fileExists(folder.path("a.txt")));
    EXPECT_FALSE(folderExists(folder.path("a.txt")));
    EXPECT_FALSE(fileExists(folder.path()));
    EXPECT_TRUE(folderExists(folder.path()));
    EXPECT_TRUE(folderExists(folder.path() + "/"));
    EXPECT_TRUE(folderExists(folder.path() + "//"));
}

TEST(FileSystem, DeletesFilesOnly) {
    const TemporaryFolder folder;
    writeFile(folder.path("a.txt"), "x");
    EXPECT_TRUE(deleteFile(folder.path("a.txt")));
    EXPECT_FALSE(fileExists(folder.path("a.txt")));
    EXPECT_FALSE(deleteFile(folder.path("a.txt")));
    EXPECT_FALSE(deleteFile(folder.path()));
    EXPECT_TRUE(folderExists(folder.path()));
}

TEST(FileSystem, ReplacesOrAppends) {
    const TemporaryFolder folder;
    const std::string path = folder.path("log.txt");
    writeFile(path, "first, long\n");
    writeFile(path, "second\n");
    EXPECT_EQ(readText(path), "second\n");
    writeFile(path, "third\n", WriteMode::kAppend);
    EXPECT_EQ(readText(path), "second\nthird\n");
    writeFile(folder.path("new.txt"), "a", WriteMode::kAppend);
    EXPECT_EQ(readText(folder.path("new.txt")), "a");
}

TEST(FileSystem, LineEndsAreTheSystems) {
    const TemporaryFolder folder;
    writeFile(folder.path("a.txt"), "x\n");
    const std::string expected = kPathSeparator == '\\' ? "x\r\n" : "x\n";
    EXPECT_EQ(readBytes(folder.path("a.txt")), expected);
}

TEST(FileSystem, NamesInUtf8Work) {
    const TemporaryFolder folder;
    const std::string inner = folder.path("\xE6\x97\xA5\xE6\x9C\xAC");
    const std::string path = inner + "/" + kForeignName;
    EXPECT_TRUE(createFolder(inner));
    EXPECT_TRUE(folderExists(inner));
    writeFile(path, "x");
    EXPECT_TRUE(fileExists(path));
    EXPECT_EQ(readText(path), "x");
    // and under that very name, not a mangled one
    const auto entry = *std::filesystem::directory_iterator(systemPath(inner));
    EXPECT_EQ(entry.path().filename().u8string(), kForeignName);
    EXPECT_TRUE(deleteFile(path));
}

TEST(FileSystem, TheTemporaryFolderHasNoSeparatorAdded) {
    EXPECT_TRUE(folderExists(tempFolder())) << tempFolder();
}

TEST(FileSystem, RelativePathsAreSeenFromWhereTheProgramRuns) {
    const std::string here = std::filesystem::current_path().generic_u8string();
    EXPECT_EQ(absolutePath("a/b"), here + "/a/b");
    EXPECT_EQ(absolutePath("\xE3\x82\xBD"), here + "/\xE3\x82\xBD");
    const std::string whole = here + "//x/../y";
    EXPECT_EQ(absolutePath(whole), whole) << "as it stands";
}

TEST(FileSystem, TextThatIsUtf8NamesFilesAsItStands) {
    for (const char* text : {"", "plain.ma", "\xE3\x82\xBD/\xC3\xBC.ma"}) {
        EXPECT_EQ(pathText(text), text);
    }
}

} // namespace
} // namespace tvk
