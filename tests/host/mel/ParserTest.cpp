#include "host/mel/Parser.h"

#include <random>
#include <string>

#include <gtest/gtest.h>

#include "ScriptRunner.h"

namespace host::mel {
namespace {

std::string repeated(std::string_view text, std::size_t count) {
    std::string result;
    for (std::size_t index = 0; index < count; ++index) {
        result += text;
    }
    return result;
}

TEST(parseUnit, saysWhereASyntaxErrorIsAndWhatWasExpected) {
    expectResults({
        {"int $x = ;", "1:10 Syntax error: expected an expression, found ';'"},
        {"print 1\nprint \"a\" + \"b\";", "2:11 Syntax error: expected ';', found '+'"},
        {"if (1 print 2;", "1:7 Syntax error: expected ')', found 'print'"},
        {"if (1)", "1:7 Syntax error: expected a statement, found end of text"},
        {"{ print 1;", "1:11 Syntax error: expected '}', found end of text"},
        {"}", "1:1 Syntax error: expected an expression, found '}'"},
        {"print \"open;\n", "1:7 Syntax error: unterminated string"},
        {"/* open", "1:1 Syntax error: unterminated comment"},
        {"print 1 & 2;", "1:9 Syntax error: unexpected character"},
        {"int $5;", "1:5 Syntax error: '$' without a variable name"},
        {"int x;", "1:5 Syntax error: expected a variable, found 'x'"},
        {"$a = 1 2;", "1:8 Syntax error: expected ';', found '2'"},
        {"else print 1;", "1:1 Syntax error: expected a statement, found 'else'"},
        {"int $x = if(1);", "1:10 Syntax error: expected an expression, found 'if'"},
        {"int $x = foo;", "1:10 Syntax error: expected an expression, found 'foo'"},
        {"for ($i = 0; $i < 3) print 1;", "1:20 Syntax error: expected ';', found ')'"},
        {"do print 1; until (1);", "1:13 Syntax error: expected 'while', found 'until'"},
        {"switch (1) { print 1; }", "1:14 Syntax error: expected 'case', found 'print'"},
        {"switch (1) { case 1: print 1;", "1:30 Syntax error: expected '}', found end of text"},
        {"switch (1) { default: default: }", "1:23 Syntax error: more than one default in a switch"},
        {"global 5;", "1:8 Syntax error: expected a type, found '5'"},
        {"proc 5() {}", "1:6 Syntax error: expected a procedure name, found '5'"},
        {"proc f($a) {}", "1:8 Syntax error: expected a parameter type, found '$a'"},
        {"proc f(int $a, int $a) {}", "1:20 Invalid redeclaration of variable \"$a\" as a different type."},
        {"{ proc f() {} }", "1:3 Syntax error: procedures can only be declared at the outermost level"},
        {"{ global proc f() {} }", "1:10 Syntax error: procedures can only be declared at the outermost level"},
        {"return 1;", "1:1 Syntax error: return outside a procedure"},
        {"break;", "1:1 Syntax error: break outside a loop or switch"},
        {"switch (1) { case 1: continue; }", "1:22 Syntax error: continue outside a loop"},
        {"vector $v; $v.w = 1;", "1:15 Syntax error: expected x, y or z, found 'w'"},
        {"vector $v; $v.x = 1;", "1:17 Syntax error: only variables and array elements can be assigned to"},
        {"5++;", "1:2 Syntax error: only variables and array elements can be assigned to"},
        {"--5;", "1:1 Syntax error: only variables and array elements can be assigned to"},
        {"1 = 2;", "1:3 Syntax error: only variables and array elements can be assigned to"},
        {"matrix $m[2];", "1:8 A matrix needs two indices"},
        {"matrix $m[] = 0;", "1:11 Syntax error: expected an expression, found ']'"},
        {"int $a[2][2];", "1:5 Syntax error: expected ';', found '['"},
        {"int $a[]; print $a[0][1][2];", "1:25 Syntax error: expected ';', found '['"},
        {"matrix $m[1][1] = <<1,2;3>>;", "1:19 Syntax error: Rows of a matrix must be of the same length"},
        {"catch(1, 2);", "1:1 Syntax error: catch takes one argument"},
        {"string $s = `5`;", "1:14 Syntax error: expected a command, found '5'"},
        {"string $s = `size \"a\";", "1:22 Syntax error: expected '`', found ';'"},
    });
}

TEST(parseUnit, refusesUndeclaredAndRedeclaredVariables) {
    expectResults({
        {"print $x;", "1:7 \"$x\" is an undeclared variable."},
        {"$x = $x + 1;", "1:6 \"$x\" is an undeclared variable."},
        {"$x += 1;", "1:1 \"$x\" is an undeclared variable."},
        {"$x++;", "1:1 \"$x\" is an undeclared variable."},
        {"1 + $x = 5;", "1:8 Syntax error: expected ';', found '='"},
        {"{ int $x; } print $x;", "1:19 \"$x\" is an undeclared variable."},
        {"int $x; proc f() { print $x; }", "1:26 \"$x\" is an undeclared variable."},
        {"int $x; string $x;", "1:16 Invalid redeclaration of variable \"$x\" as a different type."},
        {"{ int $x; float $x[]; }", "1:17 Invalid redeclaration of variable \"$x\" as a different type."},
    });
}

TEST(parseUnit, aTextWithAnErrorDeclaresAndRunsNothing) {
    ScriptRunner runner;
    EXPECT_EQ(runner.run("print 1; int $fresh; proc f() {} global proc g() {} print ("),
              "1:60 Syntax error: expected an expression, found end of text");
    EXPECT_EQ(runner.printed, "");
    EXPECT_EQ(runner.interpreter.findGlobal("fresh"), nullptr);
    EXPECT_FALSE(runner.interpreter.hasProcedure("g"));
}

TEST(parseUnit, deepNestingIsAnErrorNotACrash) {
    const std::string deep = "Nested too deeply";
    for (const char* open : {"(", "{", "-", "!", "$a=(", "f(", "<<", "`f (", "if (1) ", "while (0) ", "++", "(int)",
                             "1?", "1?1:", "proc f() {", "switch(1){case 1:", "$a[", "{1,", "1+("}) {
        SCOPED_TRACE(open);
        GlobalVariables globals;
        const ParseResult result = parseUnit("int $a[];" + repeated(open, 100000), "", globals, true);
        EXPECT_EQ(result.unit, nullptr);
        EXPECT_NE(result.error.text, "");
    }
    GlobalVariables globals;
    EXPECT_EQ(parseUnit(repeated("(", 100000), "", globals, true).error.text, deep);
    EXPECT_EQ(parseUnit(repeated("{", 100000), "", globals, true).error.text, deep);
}

TEST(parseUnit, longChainsDoNotNest) {
    ScriptRunner runner;
    EXPECT_EQ(runner.run("int $x = 1" + repeated("+1", 50000) + "; $x;"), "int 50001");
    EXPECT_EQ(runner.run("size(\"a\"" + repeated("+\"b\"", 50000) + ");"), "int 50001");
    EXPECT_EQ(runner.run("if (0) 1; " + repeated("else if (0) 1; ", 50000) + "else print \"end\";"), "none ");
    EXPECT_EQ(runner.printed, "end");
}

TEST(parseUnit, anyTextParsesOrFails) {
    std::mt19937 random(7);
    const char* pieces[] = {"int ",  "$a",  "=",      "1", ";",     "(",       ")",     "{",   "}",     "[", "]",
                            "if",    "for", "while ", "`", "\"s\"", "<<",      ">>",    ",",   "proc ", "f", " -x ",
                            "case ", ":",   "switch", "+", "-",     "return ", "break", "in ", ".x",    "?", "global "};
    for (int round = 0; round < 20000; ++round) {
        std::string text = "int $a;";
        for (std::size_t count = random() % 12; count > 0; --count) {
            text += pieces[random() % std::size(pieces)];
        }
        GlobalVariables globals;
        const ParseResult result = parseUnit(text, "", globals, true);
        EXPECT_NE(result.unit == nullptr, result.error.text.empty()) << text;
    }
}

} // namespace
} // namespace host::mel
