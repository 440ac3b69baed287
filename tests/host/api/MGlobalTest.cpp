#include <maya/MGlobal.h>

#include "HostTest.h"

namespace host {
namespace {

using testing::ElementsAre;

class MGlobalTest : public HostTest {
protected:
    static constexpr MStatus::MStatusCode kFails = MStatus::kFailure;

    std::vector<std::string> selected() { return run("ls -sl").strings(); }
};

TEST_F(MGlobalTest, whatTheHostSaysOfItself) {
    EXPECT_EQ(MGlobal::mayaVersion(), "2020-embedded");
    EXPECT_EQ(MGlobal::apiVersion(), 20200000);
    EXPECT_EQ(MGlobal::mayaState(), MGlobal::kBatch);
    EXPECT_TRUE(MGlobal::isYAxisUp());
}

TEST_F(MGlobalTest, messagesComeBare) {
    MGlobal::displayInfo("one");
    MGlobal::displayWarning("two");
    MGlobal::displayError("three");
    EXPECT_THAT(infos, ElementsAre("one"));
    EXPECT_THAT(warnings, ElementsAre("two"));
    EXPECT_THAT(errors, ElementsAre("three"));
    host.messages() = {};
    MGlobal::displayError("nobody listens");
}

TEST_F(MGlobalTest, aFailingCommandIsShownAndFails) {
    int number = 5;
    MString text = "before";
    EXPECT_EQ(MGlobal::executeCommand("select none"), kFails);
    EXPECT_EQ(MGlobal::executeCommand("nonsense here", number), kFails);
    EXPECT_EQ(MGlobal::executeCommand("error \"mine\"", text), kFails);
    EXPECT_EQ(MGlobal::executeCommand("if (", text), kFails);
    EXPECT_EQ(number, 5);
    EXPECT_EQ(text, "before");
    ASSERT_EQ(errors.size(), 4U);
    EXPECT_EQ(errors[0], "No object matches name: none");
    EXPECT_EQ(errors[2], "mine");
}

TEST_F(MGlobalTest, resultsOfEveryType) {
    int number = 0;
    double real = 0.0;
    MString text;
    MIntArray numbers;
    MDoubleArray reals;
    MStringArray texts;
    MVector vector;
    MVectorArray vectors;
    EXPECT_TRUE(MGlobal::executeCommand("int $i; $i = 3", number) && number == 3);
    EXPECT_TRUE(MGlobal::executeCommand("objExists persp", number) && number == 1);
    EXPECT_TRUE(MGlobal::executeCommand("float $f; $f = 2.5", real) && real == 2.5);
    EXPECT_TRUE(MGlobal::executeCommand("int $i; $i = 3", real) && real == 3.0) << "an integer fits a double";
    EXPECT_TRUE(MGlobal::executeCommand("string $s; $s = \"x\"", text) && text == "x");
    EXPECT_TRUE(MGlobal::executeCommand("int $a[]; $a = {1, 2}", numbers) && numbers.length() == 2 && numbers[1] == 2);
    EXPECT_TRUE(MGlobal::executeCommand("float $b[]; $b = {0.5}", reals) && reals[0] == 0.5);
    EXPECT_TRUE(MGlobal::executeCommand("int $a[]; $a = {1, 2}", reals) && reals[1] == 2.0);
    EXPECT_TRUE(MGlobal::executeCommand("string $c[]; $c = {\"p\", \"q\"}", texts) && texts[1] == "q");
    EXPECT_TRUE(MGlobal::executeCommand("string $s; $s = \"x\"", texts) && texts.length() == 1);
    EXPECT_TRUE(MGlobal::executeCommand("string $none[]; $none = $none", texts) && texts.length() == 0);
    EXPECT_TRUE(MGlobal::executeCommand("vector $v; $v = <<1, 2, 3>>", vector) && vector.y == 2.0);
    EXPECT_TRUE(MGlobal::executeCommand("vector $v; $v = <<1, 2, 3>>", vectors) && vectors[0].z == 3.0);
    MStatus status;
    EXPECT_EQ(MGlobal::executeCommandStringResult("string $s; $s = \"y\"", false, false, &status), "y");
    EXPECT_EQ(status, MStatus::kSuccess);
    EXPECT_EQ(MGlobal::executeCommandStringResult("error \"no\"", false, false, &status), "");
    EXPECT_EQ(status, kFails);
}

TEST_F(MGlobalTest, resultsThatDoNotFitFail) {
    int number = 0;
    double real = 0.0;
    MString text;
    MIntArray numbers;
    MStringArray texts;
    MVector vector;
    MMatrix matrix;
    EXPECT_EQ(MGlobal::executeCommand("float $f; $f = 2.5", number), kFails);
    EXPECT_EQ(MGlobal::executeCommand("string $s; $s = \"3\"", number), kFails);
    EXPECT_EQ(MGlobal::executeCommand("string $s; $s = \"3\"", real), kFails);
    EXPECT_EQ(MGlobal::executeCommand("int $i; $i = 3", text), kFails);
    EXPECT_EQ(MGlobal::executeCommand("string $c[]; $c = {\"p\"}", text), kFails);
    EXPECT_EQ(MGlobal::executeCommand("float $b[]; $b = {0.5}", numbers), kFails);
    EXPECT_EQ(MGlobal::executeCommand("int $a[]; $a = {1, 2}", texts), kFails);
    EXPECT_EQ(MGlobal::executeCommand("int $i; $i = 3", vector), kFails);
    EXPECT_EQ(MGlobal::executeCommand("matrix $m[2][2]", matrix), kFails);
    EXPECT_EQ(MGlobal::executeCommand("select -cl", text), kFails) << "it has no result";
    EXPECT_TRUE(errors.empty()) << "nothing went wrong in MEL";
}

TEST_F(MGlobalTest, aResultOfAnyType) {
    MCommandResult result;
    int number = 0;
    EXPECT_EQ(result.resultType(), MCommandResult::kInvalid);
    EXPECT_EQ(result.getResult(number), kFails);
    ASSERT_EQ(MGlobal::executeCommand("string $c[]; $c = {\"p\"}", result), MStatus::kSuccess);
    EXPECT_EQ(result.resultType(), MCommandResult::kStringArray);
    ASSERT_EQ(MGlobal::executeCommand("int $i; $i = 3", result), MStatus::kSuccess);
    const MCommandResult copy(result);
    ASSERT_EQ(MGlobal::executeCommand("select -cl", result), MStatus::kSuccess);
    EXPECT_EQ(result.resultType(), MCommandResult::kInvalid);
    EXPECT_EQ(copy.resultType(), MCommandResult::kInt);
    EXPECT_EQ(copy.getResult(number), MStatus::kSuccess);
    EXPECT_EQ(number, 3);
    ASSERT_EQ(MGlobal::executeCommand("float $f; $f = 0.5", result), MStatus::kSuccess);
    EXPECT_EQ(result.resultType(), MCommandResult::kDouble);
    MStatus status;
    EXPECT_EQ(result.stringResult(&status), "");
    EXPECT_EQ(status, kFails);
}

TEST_F(MGlobalTest, commandsAreShownWhenAskedFor) {
    MGlobal::executeCommand("select -cl", true);
    MGlobal::executeCommand("select -cl", false);
    EXPECT_THAT(infos, ElementsAre("select -cl"));
}

TEST_F(MGlobalTest, unitsAgreeWithTheScripts) {
    MGlobal::executeCommand("currentUnit -t ntsc -l m -a rad");
    EXPECT_EQ(MTime::uiUnit(), MTime::kNTSCFrame);
    EXPECT_EQ(MDistance::uiUnit(), MDistance::kMeters);
    EXPECT_EQ(MAngle::uiUnit(), MAngle::kRadians);
    MTime::setUIUnit(MTime::kGames);
    MString unit;
    EXPECT_EQ(MGlobal::executeCommand("currentUnit -q -t", unit), MStatus::kSuccess);
    EXPECT_EQ(unit, "game");
    MGlobal::executeCommand("currentUnit -t film -l cm -a deg");
    EXPECT_EQ(MTime::uiUnit(), MTime::kFilm);
}

class MGlobalSelectionTest : public MGlobalTest {
protected:
    MGlobalSelectionTest() {
        run("createNode transform -n a; createNode transform -n b; createNode mesh -n m -p b; createNode lambert -n "
            "red;"
            "select -r a b");
    }
};

TEST_F(MGlobalSelectionTest, whatIsSelectedComesInOrder) {
    run("select -r b; select -add red; select -add m.f[2]");
    MSelectionList list;
    ASSERT_EQ(MGlobal::getActiveSelectionList(list), MStatus::kSuccess);
    ASSERT_EQ(list.length(), 3U);
    MDagPath path;
    MObject component;
    EXPECT_EQ(list.getDagPath(0, path, component), MStatus::kSuccess);
    EXPECT_TRUE(component.isNull());
    EXPECT_EQ(list.getDagPath(1, path), MStatus::kFailure);
    EXPECT_EQ(list.getDagPath(2, path, component), MStatus::kSuccess);
    EXPECT_EQ(path.fullPathName(), "|b|m");
    EXPECT_EQ(component.apiType(), MFn::kMeshPolygonComponent);
}

struct AdjustRow {
    MGlobal::ListAdjustment adjustment;
    std::vector<std::string> result; // of {b, red} with a and b selected
};

TEST_F(MGlobalSelectionTest, listsAreSetInEveryWay) {
    const AdjustRow rows[] = {{MGlobal::kReplaceList, {"b", "red"}},
                              {MGlobal::kXORWithList, {"a", "red"}},
                              {MGlobal::kAddToList, {"a", "b", "red"}},
                              {MGlobal::kRemoveFromList, {"a"}},
                              {MGlobal::kAddToHeadOfList, {"b", "red", "a"}}};
    MSelectionList list;
    list.add("b");
    list.add("red");
    for (const AdjustRow& row : rows) {
        run("select -r a b");
        EXPECT_EQ(MGlobal::setActiveSelectionList(list, row.adjustment), MStatus::kSuccess);
        EXPECT_EQ(selected(), row.result);
    }
}

TEST_F(MGlobalSelectionTest, byNameNodeAndPath) {
    EXPECT_EQ(MGlobal::selectByName("none"), MStatus::kInvalidParameter);
    EXPECT_EQ(MGlobal::selectByName("red", MGlobal::kReplaceList), MStatus::kSuccess);
    EXPECT_THAT(selected(), ElementsAre("red"));
    EXPECT_EQ(MGlobal::select(node("a")), MStatus::kSuccess);
    EXPECT_EQ(MGlobal::select(path("m")), MStatus::kSuccess);
    EXPECT_THAT(selected(), ElementsAre("red", "a", "m"));
    EXPECT_EQ(MGlobal::unselect(node("a")), MStatus::kSuccess);
    EXPECT_EQ(MGlobal::unselect(path("m")), MStatus::kSuccess);
    EXPECT_THAT(selected(), ElementsAre("red"));
    EXPECT_EQ(MGlobal::select(MObject()), MStatus::kInvalidParameter);
    EXPECT_EQ(MGlobal::clearSelectionList(), MStatus::kSuccess);
    EXPECT_TRUE(selected().empty());
    MSelectionList list;
    EXPECT_EQ(MGlobal::getSelectionListByName("a", list), MStatus::kSuccess);
    EXPECT_EQ(list.length(), 1U);
    EXPECT_EQ(MGlobal::getSelectionListByName("none", list), MStatus::kInvalidParameter);
    EXPECT_EQ(list.length(), 1U);
}

TEST_F(MGlobalTest, viewingAFrameSetsTheTime) {
    EXPECT_EQ(MGlobal::viewFrame(12.0), MStatus::kSuccess);
    EXPECT_EQ(run("currentTime -q").toFloat(), 12.0);
    EXPECT_EQ(MGlobal::viewFrame(MTime(1.0, MTime::kSeconds)), MStatus::kSuccess);
    EXPECT_EQ(run("currentTime -q").toFloat(), 24.0);
}

TEST_F(MGlobalTest, aMissingScriptFileFails) {
    EXPECT_EQ(MGlobal::sourceFile("/nowhere/none.mel"), kFails);
    EXPECT_EQ(errors.size(), 1U);
}

} // namespace
} // namespace host
