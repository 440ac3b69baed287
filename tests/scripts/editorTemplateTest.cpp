#include "ScriptSession.h"

#include "textFiles.h"

#include "host/mel/Interpreter.h"
#include "host/scene/Scene.h"
#include "host/scene/sceneCommands.h"

#include <gtest/gtest.h>

namespace tvk {
namespace {

std::string controlOf(ScriptSession& session, const std::string& node, const std::string& attribute) {
    return session.mel("editorTemplate -queryControl \"" + node + "\" \"" + attribute + "\";");
}

TEST(EditorTemplate, HasARowForEveryAttributeInItsSection) {
    ScriptSession session;
    session.mel("createNode lambert -n \"shader\"; createNode transform -n \"transform\";"
                "createNode file -n \"texture\"; select -r shader transform texture;"
                "TVK_AddShaderAttributes(); TVK_AddTransformAttributes(); TVK_AddTextureAttributes();");
    for (const ExpectedAttribute& row : kExpectedAttributes) {
        session.mel(std::string("showEditor \"") + row.kind + "\";");
        EXPECT_EQ(controlOf(session, row.kind, row.name), std::string("TVK Export|") + row.section + "|" + row.name);
    }
}

TEST(EditorTemplate, RowsOfMissingAttributesStayAway) {
    ScriptSession session;
    session.mel("createNode lambert -n \"a\"; showEditor \"a\";");
    EXPECT_EQ(controlOf(session, "a", "tvk_lighting"), "");
}

TEST(EditorTemplate, NodesThatTheExporterReadsNothingOfHaveNoSection) {
    for (const std::string type : {"mesh", "surfaceShader", "layeredShader", "parentConstraint", "checker"}) {
        ScriptSession session;
        session.mel("createNode " + type +
                    " -n \"a\"; addAttr -ln \"tvk_no_cut\" -at bool a;"
                    "addAttr -ln \"tvk_lighting\" -at bool a; addAttr -ln \"tvk_fe_list\" -dt \"string\" a;"
                    "showEditor \"a\";");
        for (const char* attribute : {"tvk_no_cut", "tvk_lighting", "tvk_fe_list"}) {
            EXPECT_EQ(controlOf(session, "a", attribute), "") << type;
        }
    }
}

TEST(EditorTemplate, IsThereOnceHoweverOftenTheScriptIsSourced) {
    ScriptSession session;
    session.mel("source \"" + sourcePath("scripts/TVK_Attributes.mel") + "\";");
    EXPECT_EQ(session.mel("size(`callbacks -listCallbacks -hook \"AETemplateCustomContent\"`);"), "1");
}

TEST(EditorTemplate, LeavesTheCallbacksOfOthersAlone) {
    ScriptSession session;
    session.mel("callbacks -addCallback \"theirs\" -hook \"AETemplateCustomContent\" -owner \"them\";"
                "source \"" +
                sourcePath("scripts/TVK_Attributes.mel") + "\";");
    EXPECT_EQ(session.mel("size(`callbacks -listCallbacks -hook \"AETemplateCustomContent\"`);"), "2");
}

// With windows, the editor that shows a node gets its rows as soon as the attributes are there.
TEST(EditorTemplate, AnOpenEditorShowsNewAttributesAtOnce) {
    host::Scene scene;
    host::mel::Interpreter interpreter;
    host::HostFacts facts;
    facts.isBatch = false;
    registerSceneCommands(interpreter.commands(), scene, facts);
    ASSERT_TRUE(interpreter.eval(sourceText("scripts/TVK_Attributes.mel")).ok());
    ASSERT_TRUE(interpreter
                    .eval("createNode lambert -n \"a\"; callbacks -addCallback \"count\""
                          " -hook \"AETemplateCustomContent\" -owner \"test\"; global int $builds = 0;"
                          "global proc count(string $node) { global int $builds; $builds++; } showEditor \"a\";"
                          "select -r a; TVK_AddShaderAttributes();")
                    .ok());
    EXPECT_EQ(interpreter.eval("$builds;").value.toText(), "2");
    EXPECT_EQ(interpreter.eval("editorTemplate -queryControl \"a\" \"tvk_fog\";").value.toText(),
              "TVK Export|Polygons|tvk_fog");
}

} // namespace
} // namespace tvk
