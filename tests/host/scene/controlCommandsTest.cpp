#include "MelScene.h"

#include <gtest/gtest.h>

namespace host {

namespace {

TEST(Controls, SayWhatIsWrong) {
    MelScene mel;
    expectRows(mel,
               {{"checkBoxGrp -edit -value1 1 \"none\";", "ERROR: No control is called 'none'"},
                {"checkBoxGrp -query -value1 \"none\";", "ERROR: No control is called 'none'"},
                {"setParent \"none\";", "ERROR: No control is called 'none'"},
                {"setParent ..;", "ERROR: No control is called '..'"},
                {"setParent;", "ERROR: setParent needs the name of a layout"},
                {"showWindow \"none\";", "ERROR: showWindow needs the name of a window"},
                {"deleteUI \"none\";", "ERROR: No control is called 'none'"},
                {"useControl \"none\" 1;", "ERROR: No control is called 'none'"},
                {"answerFileDialog;", "ERROR: answerFileDialog needs a path"},
                {"menuItem -label \"lost\";", "ERROR: menuItem needs a menu"},
                {"button \"a\"; button \"a\";", "ERROR: A control is called 'a' already"},
                {"button -query \"a\";", "ERROR: button needs a flag that says what is asked"},
                {"intFieldGrp -query -value1 \"a\";", "ERROR: No control is called 'a'"},
                {"columnLayout \"b\"; useControl \"b\";", "ERROR: useControl needs a control that the user can change"},
                {"optionMenuGrp \"m\"; menuItem -label \"one\"; optionMenuGrp -edit -select 2 \"m\";",
                 "ERROR: The menu 'm' has no item 2"},
                {"useControl \"m\" 2;", "ERROR: The menu 'm' has no item 2"}});
}

TEST(Controls, HoldValuesOfTheirTypes) {
    MelScene mel;
    expectRows(mel, {{"checkBoxGrp -value1 on \"c\"; checkBoxGrp -query -value1 \"c\";", "1"},
                     {"floatFieldGrp -value1 2 \"f\"; floatFieldGrp -edit -value1 0.25 \"f\";"
                      "floatFieldGrp -query -value1 \"f\";",
                      "0.25"},
                     {"intFieldGrp -value1 2.5 \"i\"; intFieldGrp -query -value1 \"i\";", "2"},
                     {"textFieldButtonGrp \"t\"; textFieldButtonGrp -query -text \"t\";", ""},
                     {"textFieldButtonGrp -edit -text \"a b\" \"t\"; textFieldButtonGrp -query -text \"t\";", "a b"},
                     {"button -query -enable \"t\";", "ERROR: No control is called 't'"},
                     {"checkBoxGrp -exists \"c\";", "1"},
                     {"checkBoxGrp -exists \"f\";", "0"}});
    EXPECT_EQ(mel.typeOf("floatFieldGrp -query -value1 \"f\";"), mel::ValueType::kFloat);
    EXPECT_EQ(mel.typeOf("intFieldGrp -query -value1 \"i\";"), mel::ValueType::kInt);
}

TEST(Controls, MenusBeginWithTheirFirstItem) {
    MelScene mel;
    expectRows(mel, {{"optionMenuGrp \"m\"; optionMenuGrp -query -select \"m\";", "0"},
                     {"menuItem -label \"one\"; menuItem -label \"two\"; optionMenuGrp -query -select \"m\";", "1"},
                     {"optionMenuGrp -edit -select 2 \"m\"; optionMenuGrp -query -select \"m\";", "2"}});
}

TEST(Controls, ItemsOfMenusRunTheirCommands) {
    MelScene mel;
    expectRows(mel, {{"global int $runs = 0; menu -label \"M\" -parent \"\" \"m\"; menuItem -label \"a\""
                      " -command \"$runs++\" \"item\"; useControl \"item\"; $runs;",
                      "1"},
                     {"menu -exists \"m\";", "1"},
                     {"deleteUI \"m\"; menuItem -exists \"item\";", "0"}});
}

TEST(Controls, GoWithTheLayoutThatTheyLieIn) {
    MelScene mel;
    expectRows(
        mel, {{"window \"w\"; columnLayout \"l\"; frameLayout \"inner\"; button \"deep\"; setParent -query;", "inner"},
              {"setParent ..;", "l"},
              {"button \"shallow\"; deleteUI \"inner\"; button -exists \"deep\";", "0"},
              {"button -exists \"shallow\";", "1"},
              {"deleteUI \"w\"; button -exists \"shallow\";", "0"},
              {"setParent -query;", ""}});
}

// Only the user's hand runs what a control is told to run; scripts that edit it do not.
TEST(Controls, RunTheirCommandWhenTheUserChangesThem) {
    MelScene mel;
    expectRows(mel,
               {{"global int $runs = 0; checkBoxGrp -changeCommand \"$runs++\" \"c\";"
                 "button -command \"error \\\"no\\\"\" \"b\"; checkBoxGrp -edit -value1 1 \"c\"; $runs;",
                 "0"},
                {"useControl \"c\" 0; $runs;", "1"},
                {"checkBoxGrp -query -value1 \"c\";", "0"},
                {"useControl \"b\";", "ERROR: no"},
                {"checkBoxGrp -edit -enable off \"c\"; useControl \"c\" 1;", "ERROR: The control 'c' is not enabled"},
                {"$runs;", "1"}});
}

TEST(FileDialogs, AreCancelledUnlessTheUserAnswers) {
    MelScene mel;
    expectRows(mel, {{"fileDialog2 -fileMode 1 -caption \"Load\";", "()"},
                     {"answerFileDialog \"/a b\"; fileDialog2;", "(/a b)"},
                     {"fileDialog2;", "()"}});
}

} // namespace
} // namespace host
