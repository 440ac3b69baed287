#include "host/mel/Interpreter.h"

#include <gtest/gtest.h>

#include "ScriptRunner.h"

namespace host::mel {
namespace {

TEST(Interpreter, endlessScriptsEndAtTheStepLimit) {
    for (std::string_view script :
         {"while(1);", "for(;;){}", "do {} while(1);", "string $s = \"a\"; while(1) $s += $s;",
          "int $a[]; while(1) $a[size($a)] = 1;", R"(catch(`eval "while(1);"`); print "on";)",
          "while(1) catchQuiet(`noSuch`);", "proc f() { evalDeferred \"f\"; } f;",
          "global proc g() { evalDeferred \"g\"; } g;", "int $a[100000]; while (1) { int $b[] = $a; $b[0] = 1; }"}) {
        SCOPED_TRACE(script);
        ScriptRunner runner;
        runner.interpreter.setStepLimit(100000);
        const std::string result = runner.run(script);
        EXPECT_TRUE(result.find("Step limit reached") != std::string::npos || !runner.errors.empty()) << result;
        EXPECT_EQ(runner.printed, "");
        EXPECT_EQ(runner.run("1 + 1;"), "int 2"); // the limit holds for each outermost call
    }
}

TEST(Interpreter, theStepHookInterruptsWhatCatchCannotHold) {
    ScriptRunner runner;
    int calls = 0;
    runner.interpreter.setStepHook([&calls] { return ++calls < 3; });
    EXPECT_EQ(runner.run("while(1) catch(`eval \"while(1);\"`);"), "1:9 Interrupted");
    EXPECT_EQ(calls, 3);
}

TEST(Interpreter, interruptionAlsoStopsTheCallerOfACommand) {
    ScriptRunner runner;
    bool goesOn = true;
    runner.interpreter.setStepHook([&goesOn] { return goesOn; });
    ASSERT_TRUE(runner.interpreter.commands().add("inner", [&](Interpreter& inner, const Invocation&) -> CommandResult {
        goesOn = false;
        EXPECT_EQ(inner.eval("while(1);").error->text, "Interrupted");
        return {};
    }));
    EXPECT_EQ(runner.run("inner; for ($i = 0; $i < 10000; $i++); print \"too far\";").substr(0, 2), "1:");
    EXPECT_EQ(runner.printed, "");
}

TEST(Interpreter, describesErrors) {
    Interpreter interpreter;
    EXPECT_EQ(interpreter.eval("\n noSuch;", "a.mel").error->describe(),
              "a.mel, line 2, column 2: Cannot find procedure \"noSuch\".");
    EXPECT_EQ(interpreter.eval("1 / 0;").error->describe(), "line 1, column 3: Division by zero");
    EXPECT_EQ(interpreter.call("noSuch", {}).error->describe(), "Cannot find procedure \"noSuch\".");
    EXPECT_EQ(interpreter.source("noSuch").error->describe(), "Cannot find file \"noSuch\" for source statement.");
}

TEST(Interpreter, errorsInProceduresNameTheirFile) {
    Interpreter interpreter;
    ASSERT_TRUE(interpreter.eval("global proc f() {\n  error \"bad\"; }", "lib.mel").ok());
    const ScriptError error = *interpreter.eval("f;", "main.mel").error;
    EXPECT_EQ(error.describe(), "lib.mel, line 2, column 3: bad");
}

TEST(Interpreter, theResultIsThatOfTheLastStatement) {
    expectResults({
        {"", "none "},
        {"5; \"last\"", "string last"},
        {"5; int $x = 3;", "none "},
        {"5; if (1) 6;", "none "},
        {"$x = 3;", "int 3"},
        {"clear {1};", "1:1 clear needs an array variable."},
    });
}

TEST(Interpreter, globalVariablesSurviveAndCanBeSet) {
    ScriptRunner runner;
    EXPECT_EQ(runner.run("int $count = 4; $list[1] = \"x\";"), "string x");
    EXPECT_EQ(runner.run("$count + size($list);"), "int 6");
    EXPECT_EQ(runner.interpreter.findGlobal("count")->toInt(), 4);
    EXPECT_EQ(runner.interpreter.findGlobal("absent"), nullptr);
    runner.interpreter.setGlobal("given", StringArray{"a", "b"});
    EXPECT_EQ(runner.run("global string $given[]; $given[1];"), "string b");
    EXPECT_EQ(runner.run("global int $given;"),
              "1:12 Invalid redeclaration of variable \"$given\" as a different type.");
}

TEST(Interpreter, twoInterpretersShareNothing) {
    ScriptRunner one;
    ScriptRunner two;
    EXPECT_EQ(one.run("int $x = 1; putenv MEL_TEST_SHARED yes;"), "none ");
    EXPECT_EQ(two.run("$x;"), "1:1 \"$x\" is an undeclared variable.");
    EXPECT_EQ(two.run("getenv MEL_TEST_SHARED;"), "string ");
}

TEST(Interpreter, callsAnythingByName) {
    ScriptRunner runner;
    EXPECT_EQ(runner.run("global proc string join(string $a, int $n) { return $a + $n; }"), "none ");
    EXPECT_TRUE(runner.interpreter.hasProcedure("join"));
    EXPECT_EQ(runner.interpreter.call("join", {"x", 2.9}).value.text(), "x2");
    EXPECT_EQ(runner.interpreter.call("size", {"four"}).value.toInt(), 4);
    EXPECT_EQ(runner.interpreter.call("join", {"x"}).error->text, "Wrong number of arguments on call to join.");
    ASSERT_TRUE(runner.interpreter.commands().add("count", [](Interpreter&, const Invocation& call) -> CommandResult {
        return Value(call.arguments.size() + (call.isFunctionCall ? 10 : 0));
    }));
    EXPECT_EQ(runner.interpreter.call("count", {1, 2}).value.toInt(), 12);
}

TEST(Interpreter, deferredScriptsRunBehindTheOutermostCall) {
    ScriptRunner runner;
    runner.interpreter.defer("print \"at once \";");
    EXPECT_EQ(runner.run(
                  "evalDeferred \"print \\\"late \\\";\"; eval(\"print \\\"now \\\";\"); evalDeferred -lp \"noSuch\";"),
              "none ");
    EXPECT_EQ(runner.printed, "at once now late ");
    EXPECT_EQ(runner.errors, std::vector<std::string>{"Cannot find procedure \"noSuch\"."});
    EXPECT_EQ(runner.run("evalDeferred \"print \\\"still\\\"\"; error \"x\";"), "1:33 x");
    EXPECT_EQ(runner.printed, "at once now late still");
}

TEST(Interpreter, tellsWhatANameIs) {
    ScriptRunner runner;
    runner.interpreter.setScriptLoader([](const std::string& name) -> std::optional<ScriptFile> {
        return name == "onDisk.mel" ? std::optional(ScriptFile{"/s/onDisk.mel", ""}) : std::nullopt;
    });
    EXPECT_EQ(runner.run("global proc typed() {} int $n; vector $v[];"), "none ");
    ASSERT_TRUE(runner.interpreter.eval("global proc read() {}", "/s/read.mel").ok());
    EXPECT_EQ(runner.interpreter.whatIs("typed"), "Mel procedure entered interactively.");
    EXPECT_EQ(runner.interpreter.whatIs("read"), "Mel procedure found in: /s/read.mel");
    EXPECT_EQ(runner.interpreter.whatIs("onDisk"), "Script found in: /s/onDisk.mel");
    EXPECT_EQ(runner.interpreter.whatIs("size"), "Command");
    EXPECT_EQ(runner.interpreter.whatIs("$n"), "int variable");
    EXPECT_EQ(runner.interpreter.whatIs("$v"), "vector[] variable");
    EXPECT_EQ(runner.interpreter.whatIs("$none"), "Unknown");
    EXPECT_EQ(runner.interpreter.whatIs("none"), "Unknown");
    EXPECT_EQ(runner.interpreter.whatIs(""), "Unknown");
}

TEST(Interpreter, missingSinksDropTheirMessages) {
    Interpreter interpreter;
    EXPECT_TRUE(interpreter.eval("print 1; warning \"w\"; catch(`error \"e\"`); evalEcho \"1\";").ok());
}

} // namespace
} // namespace host::mel
