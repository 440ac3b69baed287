#include "host/scene/namespaceStatement.h"

#include "MelScene.h"
#include "SceneFiles.h"

#include <gmock/gmock.h>

namespace host {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(NamespaceStatement, RefusesOnesThatAreNot) {
    OpenedScene opened("namespace -set \"gone\";\nnamespace;\ncreateNode transform -n \"a\";\n");
    EXPECT_THAT(opened.warnings, ElementsAre("s.ma(2): No namespace is called 'gone'",
                                             "s.ma(3): namespace needs -add, -set or -exists"));
    EXPECT_NE(opened.node("a"), nullptr);
}

TEST(NamespaceStatement, NewNodesComeIntoTheCurrentOne) {
    OpenedScene opened("namespace -add \"x\";\nnamespace -set \"x\";\ncreateNode transform -n \"a\";\n"
                       "createNode transform -n \"b\" -p \"a\";\ncreateNode transform -n \":out\";\n"
                       "createNode camera -n \"eye\";\n"
                       "connectAttr \"a.tx\" \"|a|b.tx\";\nsetAttr \"out.tx\" 2;\n"
                       "namespace -add \"y\";\nnamespace -set \"y\";\ncreateNode transform -n \"c\";\n"
                       "namespace -set \":\";\ncreateNode transform -n \"d\";\nsetAttr \"x:a.tx\" 1;\n");
    EXPECT_THAT(opened.warnings, IsEmpty());
    for (const char* name : {"x:a", "|x:a|x:b", "out", "x:camera1|x:eye", "x:y:c", "d"}) {
        EXPECT_NE(opened.node(name), nullptr) << name;
    }
    EXPECT_EQ(opened.number("x:b.tx"), 1.0);
    EXPECT_EQ(opened.number("out.tx"), 2.0);
}

TEST(NamespaceStatement, IsACommandToo) {
    MelScene mel("createNode transform -n \"old:a\";\n");
    expectRows(mel, {{"namespace -set \"gone\"", "ERROR: No namespace is called 'gone'"},
                     {"namespace -exists \"gone\"", "0"},
                     {"namespace -exists \"old\"", "1"},
                     {"namespace -add \"x\"", "x"},
                     {"namespace -set \"x\"", "x"},
                     {"createNode transform -n \"b\"", "x:b"},
                     {"objExists \"b\"", "1"},
                     {"objExists \"old:a\"", "1"},
                     {"namespace -set \":\"", ":"},
                     {"objExists \"b\"", "0"},
                     {"createNode transform -n \"b\"", "b"}});
}

TEST(NamespaceStatement, EndsWithItsFile) {
    SceneFiles files;
    files.write("rig.ma", "namespace -add \"y\";\nnamespace -set \"y\";\ncreateNode transform -n \"a\";\n"
                          "namespace -set \":\";\ncreateNode transform -n \"b\";\nnamespace -set \":y\";\n");
    files.write("main.ma", referenceText("x", "rig.ma") + "createNode transform -n \"own\";\n");
    EXPECT_THAT(files.open("main.ma"), IsEmpty());
    for (const char* name : {"x:y:a", "x:b", "own"}) {
        EXPECT_NE(files.opened.node(name), nullptr) << name;
    }
}

} // namespace

} // namespace host
