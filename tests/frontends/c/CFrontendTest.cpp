// SPDX-License-Identifier: MIT
#include "frontends/c/CFrontend.h"

#include "environment/tessel/SubroutineDeclaration.h"
#include "environment/tessel/service/Preorder.h"
#include "tests/frontends/c/Reading.h"
#include "tests/frontends/c/TreeText.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

namespace Kova::Frontends {

using namespace Test;

namespace {

using Result = CFrontend::Result;
std::string repeat(const std::string& text, std::size_t count) {
    std::string result;
    for (std::size_t i = 0; i < count; ++i)
        result += text;
    return result;
}

std::size_t countNodes(Tessel::TesselBase& root) {
    const Tessel::Service::Preorder nodes(root);
    return static_cast<std::size_t>(std::distance(nodes.begin(), nodes.end()));
}

} // namespace

TEST(CFrontendTest, anEmptyFileIsAUnitWithoutDeclarations) {
    for (const char* text : {"", "\n", "/* nothing */", "#define A\n"}) {
        const Reading reading(text);
        EXPECT_EQ(reading.result, Result::Complete);
        ASSERT_EQ(reading.program.getChildCount(), 1u);
        EXPECT_EQ(reading.unit().getChildCount(), 0u);
        EXPECT_EQ(reading.unit().getPath(), reading.path);
        EXPECT_EQ(reading.unit().getSourceLanguage(), Tessel::LANG_C);
        EXPECT_EQ(reading.messages(), "");
    }
}

TEST(CFrontendTest, filesThatCannotBeReadLeaveAMessageAndNoUnit) {
    ReadFiles files;
    EXPECT_EQ(files.read("no.c"), Result::Unreadable);
    EXPECT_EQ(files.read(""), Result::Unreadable);
    EXPECT_EQ(files.read("bin.c", std::string("\x7f"
                                              "ELF\0",
                                              5)),
              Result::Unreadable);
    EXPECT_EQ(files.program.getChildCount(), 0u);
    EXPECT_EQ(files.messages(), "no.c: error: cannot read the file: No such file or directory\n"
                                ": error: cannot read the file: it is a directory\n"
                                "bin.c: error: this is no C text: byte 4 is NUL, as in a binary file\n");
}

TEST(CFrontendTest, whatCanBeReadOfAFileWithErrorsIsThere) {
    const Reading reading(
        "int a;\nint f(void) { int b = ; a = 1; undeclared(a); return a }\nint g(void) { return 2; }\n");
    EXPECT_EQ(reading.result, Result::Partial);
    // The function that is declared by its call counts too.
    ASSERT_EQ(reading.unit().getChildCount(), 4u);
    EXPECT_EQ(treeText(*reading.unit().getChild(3)), "function g fn()->int\n"
                                                     "block\n"
                                                     "  return 2\n");
    EXPECT_NE(reading.body().find("(= a 1)"), std::string::npos);
    EXPECT_EQ(reading.messages(),
              "a.c:2:23: error: expected expression\n"
              "a.c:2:32: warning: call to undeclared function 'undeclared'; ISO C99 and later do not "
              "support implicit function declarations\n"
              "a.c:2:55: error: expected ';' after return statement\n");
}

TEST(CFrontendTest, anErrorsExpressionKeepsItsOperands) {
    const Reading reading("int g(int); int f(int a) { return g(a, g(a)) + 1; }");
    EXPECT_EQ(reading.result, Result::Partial);
    EXPECT_EQ(reading.body(), "return (+ (opaque `g(a, g(a))` @g a (call @g a)) 1)\n");
}

TEST(CFrontendTest, aFileOfErrorsAloneLeavesNoUnit) {
    const Reading reading("Dear reader, this is a letter.\n");
    EXPECT_EQ(reading.result, Result::Unreadable);
    EXPECT_EQ(reading.program.getChildCount(), 0u);
    EXPECT_NE(reading.messages(), "");
}

TEST(CFrontendTest, afterAMissingHeaderReadingGoesOn) {
    const Reading reading("#include \"missing.h\"\n#include <missing2.h>\nint f(void) { return undefined; }\nint b;\n");
    EXPECT_EQ(reading.result, Result::Partial);
    EXPECT_EQ(reading.messages(), "a.c:1:10: error: 'missing.h' file not found\n"
                                  "a.c:2:10: error: 'missing2.h' file not found\n"
                                  "a.c:3:22: error: use of undeclared identifier 'undefined'\n");
    EXPECT_EQ(reading.unit().getChildCount(), 2u);
}

TEST(CFrontendTest, oneBadFileDoesNotBlockTheOthers) {
    ReadFiles files;
    EXPECT_EQ(files.read("a.c", "int f(void) { return 1; }\n"), Result::Complete);
    EXPECT_EQ(files.read("b.c", "int g(void) { return }\nint h;\n"), Result::Partial);
    EXPECT_EQ(files.read("c.c"), Result::Unreadable);
    EXPECT_EQ(files.read("d.c", "int f(void); int k(void) { return f(); }\n"), Result::Complete);
    ASSERT_EQ(files.program.getChildCount(), 3u);
    EXPECT_EQ(files.program.getTranslationUnit(1)->getChildCount(), 2u);
    EXPECT_EQ(files.program.getTranslationUnit(2)->getPath(), files.folder.pathOf("d.c"));
    EXPECT_EQ(files.messages(), "b.c:1:22: error: expected expression\n"
                                "c.c: error: cannot read the file: No such file or directory\n");
}

TEST(CFrontendTest, dialects) {
    const char* const old = "f(a) { return g(a); }\n";
    EXPECT_EQ(Reading(old, {{}, {}, "c17"}).result, Result::Partial);
    for (const char* standard : {"", "gnu89", "gnu99", "gnu17"})
        EXPECT_EQ(Reading(old, {{}, {}, standard}).result, Result::Complete) << standard;
    EXPECT_EQ(Reading(old, {{}, {}, "gnu89"}).messages().find("implicit"), std::string::npos);
    EXPECT_EQ(Reading("int f(void) { typeof(1) a = 1; return a; }").result, Result::Complete);
    EXPECT_EQ(Reading("int f(void) { typeof(1) a = 1; return a; }", {{}, {}, "c99"}).result, Result::Partial);
    EXPECT_EQ(Reading("bool b = true; void* p = nullptr;", {{}, {}, "c23"}).tree(),
              "variable b bool = true\n"
              "variable p ptr(void) = (opaque `nullptr`)\n");
}

TEST(CFrontendTest, whatTheSystemsCompilerTakesIsAWarning) {
    const std::string old = "static g;\n"
                            "static int take(long x) { return (int) x; }\n"
                            "int h(void) { return; }\n"
                            "int f(void) { char *p = 5; int q = p; void (*r)(int) = take; return called(p, q, r); }\n";
    EXPECT_EQ(Reading(old).messages(),
              "a.c:1:8: warning: type specifier missing, defaults to 'int'; ISO C99 and later do not support implicit "
              "int\n"
              "a.c:3:15: warning: non-void function 'h' should return a value\n"
              "a.c:4:21: warning: incompatible integer to pointer conversion initializing 'char *' with an expression "
              "of type 'int'\n"
              "a.c:4:32: warning: incompatible pointer to integer conversion initializing 'int' with an expression of "
              "type 'char *'\n"
              "a.c:4:46: warning: incompatible function pointer types initializing 'void (*)(int)' with an expression "
              "of type 'int (long)'\n"
              "a.c:4:69: warning: call to undeclared function 'called'; ISO C99 and later do not support implicit "
              "function declarations\n");
    EXPECT_EQ(Reading(old).result, Result::Complete);
    EXPECT_EQ(Reading(old, {{}, {}, "c11"}).result, Result::Partial);
}

TEST(CFrontendTest, aHeaderIsReadAsC) {
    ReadFiles files;
    EXPECT_EQ(files.read("a.h", "#pragma once\nstatic inline int f(int class) { return class; }\n"), Result::Complete);
    EXPECT_EQ(files.program.getTranslationUnit(0)->getChildCount(), 1u);
    EXPECT_EQ(files.messages(), "");
}

TEST(CFrontendTest, strangeFileNames) {
    const SourceFolder folder;
    for (const char* name : {"-o.c", "a b.c", "\xc3\xa9.c", "@x.c", "no-suffix", "x.cpp", "x.o"}) {
        Tessel::ProgramUnit program;
        EXPECT_EQ(CFrontend({}).read(folder.write(name, "int class;"), program), Result::Complete) << name;
        ASSERT_EQ(program.getChildCount(), 1u);
        EXPECT_EQ(toString(program.getTranslationUnit(0)->getChild(0)->getSourceRange()), folder.pathOf(name) + ":1:1");
    }
}

TEST(CFrontendTest, deepNestingIsReadWhole) {
    const std::size_t depth = 20000;
    EXPECT_EQ(Reading("int a = " + repeat("(", depth) + "1" + repeat(")", depth) + ";").tree(), "variable a int = 1\n");

    const Reading blocks("int a; void f(void) {" + repeat("{", depth) + "a = 1;" + repeat("}", depth) + "}");
    EXPECT_EQ(blocks.result, Result::Complete);
    // The program, its unit, a, f, its body, the blocks, the assignment statement with three nodes.
    EXPECT_EQ(countNodes(const_cast<Tessel::ProgramUnit&>(blocks.program)), 5 + depth + 4);

    const Reading minus("int a; int f(void) { return " + repeat("- ", depth) + "a; }");
    EXPECT_EQ(minus.result, Result::Complete);
    EXPECT_EQ(countNodes(const_cast<Tessel::ProgramUnit&>(minus.program)), 5 + 1 + depth + 1);
}

TEST(CFrontendTest, aLongChainOfElseIfs) {
    const std::size_t length = 2000;
    const Reading reading("int a; void f(void) {" + repeat("if (a) a = 1; else ", length) + "a = 2; }");
    EXPECT_EQ(reading.result, Result::Complete);
    // Each if: itself, its condition, two blocks, the statement, the assignment, two operands; the last assignment:
    // four.
    EXPECT_EQ(countNodes(const_cast<Tessel::ProgramUnit&>(reading.program)), 5 + 8 * length + 4);
}

TEST(CFrontendTest, nestingBeyondAllMeasureIsAMessage) {
    const std::size_t depth = 200000;
    const Reading parentheses("int b; int a = " + repeat("(", depth) + "1" + repeat(")", depth) + ";");
    EXPECT_EQ(parentheses.result, Result::Partial);
    EXPECT_NE(parentheses.messages().find("bracket nesting level exceeded maximum of 30000"), std::string::npos);
}

TEST(CFrontendTest, aLineOfAMillionCharacters) {
    std::string text = "int a; void f(void) { a = 0";
    while (text.size() < 1000000)
        text += " + a";
    const Reading reading(text + "; }");
    EXPECT_EQ(reading.result, Result::Complete);
    EXPECT_GT(countNodes(const_cast<Tessel::ProgramUnit&>(reading.program)), 490000u);
}

TEST(CFrontendTest, readingTwiceGivesTheSameTree) {
    const char* const text =
        "#include <stdio.h>\n#include <stdlib.h>\nstruct s { int a; } v[3];\n"
        "int f(int n) { int b[n]; for (int i = 0; i < n; i++) printf(\"%d\", b[i] = v[i].a); exit(0); }\n";
    const Reading first(text);
    const Reading second(text);
    EXPECT_EQ(first.result, Result::Complete);
    EXPECT_EQ(first.tree(), second.tree());
    const auto externalNames = [](const Reading& reading) {
        std::string names;
        for (const Tessel::DeclarationPtr& declaration : reading.unit().getExternalDeclarations())
            names += declaration->getName() + ' ';
        return names;
    };
    EXPECT_EQ(externalNames(first), "printf exit ");
    EXPECT_EQ(externalNames(first), externalNames(second));
}

TEST(CFrontendTest, theSystemsHeadersAreRead) {
    std::string text = "#define _GNU_SOURCE\n";
    for (const char* header :
         {"assert",     "complex",    "ctype",    "dirent",   "dlfcn",       "errno",    "fcntl",     "fenv",
          "float",      "getopt",     "glob",     "inttypes", "iso646",      "langinfo", "limits",    "locale",
          "malloc",     "math",       "netdb",    "poll",     "pthread",     "pwd",      "regex",     "sched",
          "search",     "semaphore",  "setjmp",   "signal",   "stdalign",    "stdarg",   "stdatomic", "stdbool",
          "stddef",     "stdint",     "stdio",    "stdlib",   "stdnoreturn", "string",   "strings",   "sys/mman",
          "sys/select", "sys/socket", "sys/stat", "sys/time", "sys/types",   "sys/wait", "syslog",    "termios",
          "tgmath",     "time",       "uchar",    "unistd",   "utime",       "wchar",    "wctype",    "immintrin"})
        text += std::string("#include <") + header + ".h>\n";
    const Reading reading(
        text + "int main(void) { FILE* f = fopen(\"a\", \"r\"); struct stat s; pthread_mutex_t m; "
               "return f == NULL || stat(\"a\", &s) || S_ISDIR(s.st_mode) || pthread_mutex_lock(&m) || errno; }\n");
    EXPECT_EQ(reading.messages(), "");
    EXPECT_EQ(reading.result, Result::Complete);
    EXPECT_EQ(reading.unit().getChildCount(), 1u);
    EXPECT_EQ(reading.unit().getSystemIncludes().size(), 56u);
}

TEST(CFrontendTest, aSourceCutOffAnywhereIsReadAsFarAsItGoes) {
    std::ifstream own(KOVA_SAMPLE);
    const std::string text(std::istreambuf_iterator<char>(own), {});
    ASSERT_GT(text.size(), 1000u);
    for (std::size_t end = 0; end < text.size(); end += 97) {
        Reading reading(text.substr(0, end));
        EXPECT_EQ(reading.result == Result::Unreadable, reading.program.getChildCount() == 0) << end;
        (void)reading.tree();
    }
}

} // namespace Kova::Frontends
