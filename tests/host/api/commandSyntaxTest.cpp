#include "host/api/commandSyntax.h"

#include "HostTest.h"

#include <maya/MArgDatabase.h>
#include <maya/MSyntax.h>

#include <limits>

namespace host {
namespace {

class CommandSyntaxTest : public HostTest {
protected:
    CommandSyntaxTest() {
        syntax.addFlag("n", "number", MSyntax::kLong);
        syntax.addFlag("p", "point", MSyntax::kDouble, MSyntax::kDouble);
        syntax.addFlag("m", "multi", MSyntax::kString);
        syntax.makeFlagMultiUse("multi");
        syntax.addFlag("u", "unsigned", MSyntax::kUnsigned);
        syntax.addFlag("b", "boolean", MSyntax::kBoolean);
        syntax.addFlag("w", "when", MSyntax::kTime);
        syntax.addFlag("a", "angle", MSyntax::kAngle);
        syntax.addFlag("d", "dist", MSyntax::kDistance);
        syntax.addFlag("s", "item", MSyntax::kSelectionItem);
    }

    static MArgList list(const std::vector<const char*>& arguments) {
        MArgList result;
        for (const char* argument : arguments) {
            result.addArg(MString(argument));
        }
        return result;
    }

    MStatus parse(const std::vector<const char*>& arguments) {
        MStatus status;
        const MArgDatabase database(syntax, list(arguments), &status);
        return status;
    }

    MSyntax syntax;
};

TEST_F(CommandSyntaxTest, flagsThatCannotBeNamedAreRefused) {
    struct Row {
        const char* shortName;
        const char* longName;
    };
    static constexpr Row kRows[] = {{"", "long"},       {"-", "long"},   {"abcd", "long2"}, {"x", "abc"},
                                    {"x", ""},          {"1x", "long2"}, {"n", "other"},    {"x", "number"},
                                    {nullptr, "long2"}, {"x", nullptr}};
    for (const Row& row : kRows) {
        EXPECT_EQ(syntax.addFlag(row.shortName, row.longName), MStatus::kInvalidParameter);
    }
    EXPECT_EQ(syntax.addFlag("x", "long2", MSyntax::kInvalidArgType), MStatus::kInvalidParameter);
    EXPECT_EQ(syntax.addFlag("x", "long2", MSyntax::kLastArgType), MStatus::kInvalidParameter);
    EXPECT_EQ(syntax.addFlag("-xyz", "-long2", MSyntax::kString), MStatus::kSuccess);
    EXPECT_EQ(syntax.makeFlagMultiUse("none"), MStatus::kInvalidParameter);
    EXPECT_EQ(syntax.makeFlagQueryWithFullArgs("none", false), MStatus::kInvalidParameter);
    EXPECT_EQ(syntax.addArg(MSyntax::kNoArg), MStatus::kInvalidParameter);
}

struct WrongArguments {
    std::vector<const char*> arguments;
    const char* error;
};

TEST_F(CommandSyntaxTest, wrongArgumentsAreTold) {
    const WrongArguments rows[] = {
        {{"-zz"}, "Invalid flag '-zz'"},
        {{"-query"}, "Invalid flag '-query'"},
        {{"-n"}, "Flag '-n' needs 1 argument(s)"},
        {{"-point", "1"}, "Flag '-point' needs 2 argument(s)"},
        {{"-n", "1.5"}, "Invalid arguments for flag '-n'. Expected int, got 1.5"},
        {{"-n", "9999999999"}, "Invalid arguments for flag '-n'. Expected int, got 9999999999"},
        {{"-u", "-1"}, "Invalid arguments for flag '-u'. Expected unsigned int, got -1"},
        {{"-b", "maybe"}, "Invalid arguments for flag '-b'. Expected boolean, got maybe"},
        {{"-p", "1", "x"}, "Invalid arguments for flag '-p'. Expected float, got x"},
        {{"-n", "1", "-number", "2"}, "Flag '-number' must be given only once"},
        {{"object"}, "Too many arguments: object"},
    };
    for (const WrongArguments& row : rows) {
        errors.clear();
        EXPECT_EQ(parse(row.arguments), MStatus::kFailure) << row.error;
        EXPECT_THAT(errors, testing::ElementsAre(row.error));
    }
}

TEST_F(CommandSyntaxTest, afterWrongArgumentsEveryQuestionFails) {
    const MArgDatabase database(syntax, list({"-n", "1", "-zz"}));
    int number = 7;
    MStringArray objects;
    MSelectionList nodes;
    MArgList values;
    MStatus status;
    EXPECT_FALSE(database.isFlagSet("n", &status));
    EXPECT_EQ(status, MStatus::kInvalidParameter);
    EXPECT_EQ(database.getFlagArgument("n", 0, number), MStatus::kFailure);
    EXPECT_EQ(database.getCommandArgument(0, number), MStatus::kFailure);
    EXPECT_EQ(database.getFlagArgumentList("n", 0, values), MStatus::kFailure);
    EXPECT_EQ(database.getObjects(objects), MStatus::kFailure);
    EXPECT_EQ(database.getObjects(nodes), MStatus::kFailure);
    EXPECT_EQ(number, 7);
}

TEST_F(CommandSyntaxTest, valuesOfEveryType) {
    run("createNode transform -n a");
    const MArgDatabase database(syntax, list({"-n", "-3", "-p", "1.5", "-2e1", "-b", "off", "-u", "4",      "-w", "12",
                                              "-a", "90", "-d", "2",   "-s",   "a",  "-m",  "-n", "-multi", "y"}));
    int number = 0;
    unsigned int natural = 0;
    double real = 0.0;
    bool flag = true;
    MString text;
    MTime time;
    MAngle angle;
    MDistance distance;
    MSelectionList nodes;
    EXPECT_TRUE(database.getFlagArgument("n", 0, number) && number == -3);
    EXPECT_TRUE(database.getFlagArgument("-number", 0, real) && real == -3.0);
    EXPECT_TRUE(database.getFlagArgument("point", 1, real) && real == -20.0);
    EXPECT_TRUE(database.getFlagArgument("u", 0, natural) && natural == 4);
    EXPECT_TRUE(database.getFlagArgument("b", 0, flag) && !flag);
    EXPECT_TRUE(database.getFlagArgument("w", 0, time) && time == MTime(12.0, MTime::kFilm));
    EXPECT_TRUE(database.getFlagArgument("a", 0, angle) && angle.as(MAngle::kDegrees) == 90.0);
    EXPECT_TRUE(database.getFlagArgument("d", 0, distance) && distance.as(MDistance::kCentimeters) == 2.0);
    EXPECT_TRUE(database.getFlagArgument("s", 0, nodes) && nodes.length() == 1);
    EXPECT_TRUE(database.getFlagArgument("m", 0, text) && text == "-n") << "a flag takes what follows it";
    EXPECT_EQ(database.numberOfFlagUses("m"), 2U);
    EXPECT_EQ(database.numberOfFlagsUsed(), 10U);
    EXPECT_EQ(database.flagArgumentInt("n", 0), -3);
    MStatus status;
    EXPECT_EQ(database.flagArgumentString("point", 2, &status), "");
    EXPECT_EQ(status, MStatus::kFailure);
    EXPECT_EQ(database.getFlagArgument("none", 0, number), MStatus::kFailure);
    EXPECT_EQ(database.getFlagArgument(nullptr, 0, number), MStatus::kFailure);
    EXPECT_EQ(database.getFlagArgument("m", 0, number), MStatus::kFailure) << "no number";
}

TEST_F(CommandSyntaxTest, flagsThatAreNotSetAreToldFromUnknownOnes) {
    const MArgDatabase database(syntax, list({}));
    MStatus status;
    EXPECT_FALSE(database.isFlagSet("n", &status));
    EXPECT_EQ(status, MStatus::kSuccess);
    EXPECT_FALSE(database.isFlagSet("none", &status));
    EXPECT_EQ(status, MStatus::kInvalidParameter);
    int number = 7;
    EXPECT_EQ(database.getFlagArgument("n", 0, number), MStatus::kFailure);
    EXPECT_EQ(number, 7);
}

TEST_F(CommandSyntaxTest, queriesAndEdits) {
    syntax.enableQuery();
    syntax.enableEdit();
    EXPECT_TRUE(syntax.canQuery() && syntax.canEdit());
    syntax.makeFlagQueryWithFullArgs("m", true);
    const MArgDatabase query(syntax, list({"-n", "-query", "-m"}));
    EXPECT_TRUE(query.isQuery());
    EXPECT_FALSE(query.isEdit());
    EXPECT_TRUE(query.isFlagSet("number"));
    EXPECT_TRUE(query.isFlagSet("m"));
    const MArgDatabase full(syntax, list({"-q", "-m", "x"}));
    EXPECT_EQ(full.flagArgumentString("m", 0), "x");
    const MArgDatabase edit(syntax, list({"-e", "-n", "4"}));
    EXPECT_TRUE(edit.isEdit());
    EXPECT_EQ(edit.flagArgumentInt("n", 0), 4);
}

TEST_F(CommandSyntaxTest, commandArgumentsAndObjects) {
    run("createNode transform -n a; createNode transform -n b; select -r b");
    syntax.addArg(MSyntax::kLong);
    syntax.setObjectType(MSyntax::kSelectionList, 1, 2);
    EXPECT_EQ(parse({}), MStatus::kFailure);
    EXPECT_EQ(parse({"x", "a"}), MStatus::kFailure);
    EXPECT_EQ(parse({"1"}), MStatus::kFailure);
    EXPECT_EQ(parse({"1", "a", "b", "a"}), MStatus::kFailure);
    EXPECT_EQ(parse({"1", "none"}), MStatus::kFailure);
    EXPECT_THAT(errors, testing::ElementsAre("Wrong number of arguments: 1 expected, 0 given",
                                             "Invalid argument 1. Expected int, got x",
                                             "Wrong number of objects: 1 needed, 0 given", "Too many arguments: a",
                                             "No object matches name: none"));
    const MArgDatabase database(syntax, list({"5", "-n", "2", "a"}));
    int number = 0;
    MSelectionList objects;
    EXPECT_TRUE(database.getCommandArgument(0, number) && number == 5);
    EXPECT_TRUE(database.getObjects(objects) && objects.length() == 1);
    EXPECT_EQ(database.getCommandArgument(1, number), MStatus::kFailure);
    syntax.useSelectionAsDefault(true);
    MStringArray names;
    EXPECT_TRUE(MArgDatabase(syntax, list({"5"})).getObjects(names) && names.length() == 1 && names[0] == "b");
}

TEST_F(CommandSyntaxTest, plainListsOfArguments) {
    MArgList arguments = list({"-flag", "3", "2.5", "word", "on"});
    MStatus status;
    EXPECT_EQ(arguments.length(), 5U);
    EXPECT_EQ(arguments.asInt(1), 3);
    EXPECT_EQ(arguments.asDouble(2), 2.5);
    EXPECT_TRUE(arguments.asBool(4));
    EXPECT_EQ(arguments.asInt(3, &status), 0);
    EXPECT_EQ(status, MStatus::kFailure);
    EXPECT_EQ(arguments.asString(5, &status), "");
    EXPECT_EQ(status, MStatus::kInvalidParameter);
    int number = 9;
    EXPECT_EQ(arguments.get(3, number), MStatus::kFailure);
    EXPECT_EQ(number, 9);
    EXPECT_EQ(arguments.get(1, number), MStatus::kSuccess);
    EXPECT_EQ(number, 3);
    EXPECT_EQ(arguments.flagIndex("f", "flag"), 0U);
    EXPECT_EQ(arguments.flagIndex("-flag"), 0U);
    EXPECT_EQ(arguments.flagIndex("word"), MArgList::kInvalidArgIndex);
    EXPECT_EQ(arguments.flagIndex(nullptr), MArgList::kInvalidArgIndex);
    unsigned int at = 1;
    EXPECT_EQ(arguments.asDoubleArray(at).length(), 2U);
    EXPECT_EQ(at, 3U);
    EXPECT_EQ(arguments.asStringArray(at).length(), 2U);
    EXPECT_EQ(arguments.asIntArray(at, &status).length(), 0U);
    EXPECT_EQ(status, MStatus::kFailure);
    arguments.addArg(true);
    arguments.addArg(7);
    arguments.addArg(0.5);
    EXPECT_EQ(arguments.asString(7), "0.5");
}

} // namespace
} // namespace host
