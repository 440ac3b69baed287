#include <string>

#include <gtest/gtest.h>

#include "ScriptRunner.h"

namespace host::mel {
namespace {

// A runner with a command that tells what it was given: words as they are, texts quoted, others by type.
struct CommandRunner : ScriptRunner {
    CommandRunner() {
        const bool isNew = interpreter.commands().add("cmd", [](Interpreter&, const Invocation& call) -> CommandResult {
            std::string shown = call.isFunctionCall ? "call" : "command";
            for (const Argument& argument : call.arguments) {
                const std::string text = argument.value.printText();
                shown += argument.isFlag()           ? " flag:" + text
                         : argument.isWord           ? " word:" + text
                         : argument.value.isString() ? " \"" + text + "\""
                                                     : " " + std::string(typeName(argument.value.type())) + ":" + text;
            }
            return Value(shown);
        });
        EXPECT_TRUE(isNew);
    }
};

TEST(parseCommands, argumentsKeepTheirForm) {
    const ScriptCase cases[] = {
        {"cmd;", "string command"},
        {"cmd();", "string call"},
        {"cmd -ea on -5 +2 -.5 1e3;", "string command flag:-ea word:on int:-5 int:2 float:-0.5 float:1000"},
        {"cmd |a|b.tx \"q\" :time1 f[0:3];", "string command word:|a|b.tx \"q\" word::time1 word:f[0:3]"},
        {"cmd(\"-ea\", 1);", "string call \"-ea\" int:1"},
        {"cmd (1 + 2) name;", "string command int:3 word:name"},
        {R"(cmd ("a" + ".tx") 5;)", "string command \"a.tx\" int:5"},
        {"cmd (1) (2);", "string command int:1 int:2"},
        {"cmd (1) -2;", "string command int:1 int:-2"},
        {"cmd(1) + \"!\";", "string call int:1!"},
        {"cmd(1, 2) == \"x\";", "int 0"},
        {"string $s[] = {\"a\"}; cmd $s[0] $s;", "string command \"a\" string[]:a\n"},
        {"vector $v = <<1,2,3>>; cmd $v.y -$v.x;", "string command float:2 float:-1"},
        {"cmd `size \"abc\"` <<1,2,3>> {7};", "string command int:3 vector:1 2 3 int[]:7\n"},
        {"size `cmd -q 1`;", "int 21"},
        {"size(`cmd`);", "int 7"},
        {"string $r = `cmd(\"x\")`; $r;", "string call \"x\""},
        {"`cmd (1) on`;", "string command int:1 word:on"},
        {"cmd // nothing\n -a /* none */ 1\n;", "string command flag:-a int:1"},
        {R"(cmd .. -af "a" "top" -5;)", R"(string command word:.. flag:-af "a" "top" int:-5)"},
        {"cmd 23.976fps a*;", "string command word:23.976fps word:a*"},
        {"cmd (`cmd (`cmd`) on`);", R"(string call "command "command" word:on")"},
    };
    for (const ScriptCase& row : cases) {
        SCOPED_TRACE(row.script);
        CommandRunner runner;
        EXPECT_EQ(runner.run(row.script), row.result);
    }
}

TEST(parseCommands, theCallKnowsItsPlace) {
    Interpreter interpreter;
    std::string file;
    std::size_t line = 0;
    ASSERT_TRUE(interpreter.commands().add("cmd", [&](Interpreter&, const Invocation& call) -> CommandResult {
        file = call.file;
        line = call.line;
        return {};
    }));
    ASSERT_TRUE(interpreter.eval("global proc f() {\n\n cmd; }\n", "scripts/x.mel").ok());
    ASSERT_TRUE(interpreter.eval("f;").ok());
    EXPECT_EQ(file, "scripts/x.mel");
    EXPECT_EQ(line, 3U);
}

} // namespace
} // namespace host::mel
