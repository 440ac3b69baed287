#include "MelScene.h"

#include <gtest/gtest.h>

namespace host {

namespace {

TEST(Callbacks, SayWhatTheyMiss) {
    MelScene mel;
    expectRows(mel,
               {{"callbacks;", "ERROR: callbacks needs a flag that says what to do"},
                {"callbacks -addCallback \"p\";", "ERROR: callbacks -addCallback needs -hook and -owner"},
                {"callbacks -addCallback \"p\" -hook \"h\";", "ERROR: callbacks -addCallback needs -hook and -owner"},
                {"callbacks -zz;", "ERROR: Invalid flag '-zz'"}});
}

TEST(Callbacks, AreListedAndRemovedByHookAndOwner) {
    MelScene mel;
    expectRows(mel, {{"callbacks -ac \"a\" -h \"one\" -o \"x\"; callbacks -ac \"b\" -h \"one\" -o \"y\";"
                      "callbacks -ac \"c\" -h \"two\" -o \"x\"; callbacks -lc;",
                      "(a|b|c)"},
                     {"callbacks -listCallbacks -hook \"one\";", "(a|b)"},
                     {"callbacks -listCallbacks -owner \"x\";", "(a|c)"},
                     {"callbacks -listCallbacks -hook \"three\";", "()"},
                     {"callbacks -removeCallback \"a\" -hook \"two\" -owner \"x\"; callbacks -lc;", "(a|b|c)"},
                     {"callbacks -removeCallback \"a\" -hook \"one\" -owner \"x\"; callbacks -lc;", "(b|c)"},
                     {"callbacks -clearCallbacks -owner \"x\"; callbacks -lc;", "(b)"},
                     {"callbacks -clearCallbacks; callbacks -lc;", "()"}});
}

TEST(Callbacks, RunWithTheArgumentsOfTheCallUntilOneFails) {
    MelScene mel;
    expectRows(mel, {{"global string $said = \"\";"
                      "global proc first(string $a, string $b) { global string $said; $said += $a + $b; }"
                      "global proc second(string $a, string $b) { error(\"no \" + $b); }"
                      "callbacks -ac \"first\" -h \"one\" -o \"x\"; callbacks -ac \"second\" -h \"two\" -o \"x\";"
                      "callbacks -executeCallbacks -hook \"one\" \"n\" \"m\"; print \"\"; $said;",
                      "nm"},
                     {"callbacks -executeCallbacks -hook \"two\" \"n\" \"m\";", "ERROR: no m"},
                     {"callbacks -executeCallbacks -hook \"nobody's\" \"n\"; $said;", "nm"}});
}

// The template asks for two rows, one of an attribute that only node "b" has.
const char* const kTemplate = "global proc rows(string $node) {"
                              "editorTemplate -beginLayout \"Mine\" -collapse true;"
                              "editorTemplate -label \"Shown\" -addControl \"visibility\";"
                              "editorTemplate -addDynamicControl \"extra\"; editorTemplate -endLayout; }"
                              "callbacks -ac \"rows\" -h \"AETemplateCustomContent\" -o \"x\";";

TEST(AttributeEditorCommands, ShowTheRowsThatTheNodeHasAttributesFor) {
    MelScene mel("createNode transform -n \"a\";\ncreateNode transform -n \"b\";\n"
                 "addAttr -ln \"extra\" -at \"bool\";\n");
    mel.run(kTemplate);
    expectRows(mel, {{"editorTemplate -queryControl \"a\" \"visibility\";", ""},
                     {"showEditor \"a\"; editorTemplate -queryControl \"a\" \"visibility\";", "Mine|visibility"},
                     {"editorTemplate -queryControl \"a\" \"extra\";", ""},
                     {"editorTemplate -queryControl \"b\" \"extra\";", ""},
                     {"showEditor \"b\"; editorTemplate -queryControl \"|b\" \"extra\";", "Mine|extra"},
                     {"editorTemplate -queryControl \"b\" \"translate\";", ""},
                     {"delete b; editorTemplate -queryControl \"b\" \"extra\";", ""}});
}

TEST(AttributeEditorCommands, RefreshRunsTheTemplatesAgain) {
    MelScene mel("createNode transform -n \"a\";\n");
    mel.run("showEditor \"a\";");
    mel.run(kTemplate);
    expectRows(mel, {{"editorTemplate -queryControl \"a\" \"visibility\";", ""},
                     {"refreshEditorTemplates; editorTemplate -queryControl \"a\" \"visibility\";", "Mine|visibility"},
                     {"delete a; refreshEditorTemplates; objExists a;", "0"}});
}

TEST(AttributeEditorCommands, RefuseWhatIsBroken) {
    MelScene mel("createNode transform -n \"a\";\n");
    expectRows(mel, {{"showEditor;", "ERROR: showEditor needs the name of one node"},
                     {"showEditor \"gone\";", "ERROR: No object matches name: gone"},
                     {"editorTemplate;", "ERROR: editorTemplate needs a flag that says what to do"},
                     {"editorTemplate -endLayout;", "ERROR: editorTemplate -endLayout without a layout that is open"},
                     {"global proc open(string $node) { editorTemplate -beginLayout \"a\"; }"
                      "callbacks -ac \"open\" -h \"AETemplateCustomContent\" -o \"x\"; showEditor \"a\";",
                      "ERROR: a template of the attribute editor leaves a layout open"}});
}

} // namespace

} // namespace host
