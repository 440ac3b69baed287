#include <gtest/gtest.h>

#include "ScriptRunner.h"

namespace host::mel {
namespace {

TEST(pathFunctions, takePathsApart) {
    expectResults({
        {R"(basename("/a/b/file.mel", ".mel");)", "string file"},
        {R"(basename("file.mel", ".ma");)", "string file.mel"},
        {R"(basename("/a/b/", "");)", "string "},
        {"basenameEx(\"/a.b/file.tar.gz\");", "string file.tar"},
        {"basenameEx(\"/a.b/file\");", "string file"},
        {"dirname(\"/a/b/file.mel\");", "string /a/b"},
        {"dirname(\"file.mel\");", "string "},
        {"fileExtension(\"/a.b/file.ma\");", "string ma"},
        {"fileExtension(\"/a.b/file\");", "string "},
        {"dirname({1});", "1:1 Cannot convert data of type int[] to type string."},
    });
}

} // namespace
} // namespace host::mel
