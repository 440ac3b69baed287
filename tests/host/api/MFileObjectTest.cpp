#include <maya/MFileObject.h>

#include "HostTest.h"

#include <cstdlib>

namespace host {
namespace {

class MFileObjectTest : public HostTest {
protected:
    MFileObjectTest() { EXPECT_TRUE(host.scene().workspace().setDirectory("/tmp")); }
    ~MFileObjectTest() override { host.scene().workspace().setDirectory(before); }

    const std::string before = host.scene().workspace().directory();
    MFileObject file;
};

TEST_F(MFileObjectTest, nothingSetIsNoFile) {
    EXPECT_FALSE(file.isSet());
    EXPECT_FALSE(file.exists());
    EXPECT_EQ(file.fullName(), "");
    EXPECT_EQ(file.name(), "");
    EXPECT_EQ(file.path(), "");
    EXPECT_EQ(file.pathCount(), 0U);
    EXPECT_EQ(file.ithPath(0), "");
}

struct PathRow {
    const char* raw;
    const char* path;
    const char* name;
};

TEST_F(MFileObjectTest, pathAndNameTogetherAreTheFullName) {
    static constexpr PathRow kRows[] = {
        {"/a/b/c.imd", "/a/b/", "c.imd"},      {"/c.imd", "/", "c.imd"},
        {"c.imd", "/tmp/", "c.imd"},           {"./c", "/tmp/", "c"},
        {"sub/c.v2.x", "/tmp/sub/", "c.v2.x"}, {"/a.b/c", "/a.b/", "c"},
        {"/日本/語.imd", "/日本/", "語.imd"},
    };
    for (const PathRow& row : kRows) {
        file.setRawFullName(row.raw);
        EXPECT_EQ(file.path(), row.path) << row.raw;
        EXPECT_EQ(file.name(), row.name) << row.raw;
        EXPECT_EQ(file.path() + file.name(), file.fullName()) << row.raw;
        EXPECT_EQ(file.rawFullName(), row.raw);
    }
}

TEST_F(MFileObjectTest, partsCanBeSetAlone) {
    file.setRawPath("/x/y");
    file.setRawName("z.txt");
    EXPECT_EQ(file.fullName(), "/x/y/z.txt");
    EXPECT_EQ(file.rawPath(), "/x/y/");
    EXPECT_EQ(file.ithFullName(0), "/x/y/z.txt");
    EXPECT_EQ(file.ithFullName(1), "");
    file.setName("w");
    EXPECT_EQ(file.resolvedFullName(), "/x/y/w");
    file.setFullName("/q/r");
    EXPECT_EQ(file.resolvedPath(), "/q/");
}

TEST_F(MFileObjectTest, variablesAreReplaced) {
    setenv("HOST_TEST_FOLDER", "/replaced", 1);
    for (const char* raw : {"$HOST_TEST_FOLDER/f", "${HOST_TEST_FOLDER}/f"}) {
        file.setRawFullName(raw);
        EXPECT_EQ(file.fullName(), "/replaced/f");
        EXPECT_EQ(file.rawFullName(), raw);
    }
    unsetenv("HOST_TEST_FOLDER");
    for (const char* raw : {"/p/$HOST_TEST_FOLDER", "/p/${HOST_TEST", "/p/$", "/p/a$"}) {
        file.setRawFullName(raw);
        EXPECT_EQ(file.expandedFullName(), raw) << "what is not set stays";
    }
}

TEST_F(MFileObjectTest, existenceIsAsked) {
    file.setRawFullName("/proc/self/status");
    EXPECT_TRUE(file.exists());
    file.setRawFullName("/nowhere/none");
    EXPECT_FALSE(file.exists());
}

} // namespace
} // namespace host
