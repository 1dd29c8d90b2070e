// SPDX-License-Identifier: MIT
#include "environment/tessel/OpaqueExpression.h"
#include "environment/tessel/OpaqueStatement.h"
#include "environment/tessel/service/Preorder.h"
#include "tests/frontends/c/Reading.h"
#include "tests/frontends/c/TreeText.h"

#include <gtest/gtest.h>

namespace Kova::Frontends {

using namespace Test;

namespace {

template <class Node>
std::string operandsOf(const Node& node) {
    std::string text;
    for (std::size_t i = 0; i < node.getChildCount(); ++i) {
        const auto place = node.getOperandPlaces().at(i);
        text += " {" + (place ? node.getText().substr(place->begin, place->end - place->begin) : "-") + '|' +
                treeText(*node.getChild(i)) + '}';
    }
    return text;
}

/// Each opaque node of a body with its operands, as the text has them and as the tree does: `text {a|a} {b + 1|(+ b
/// 1)}`.
std::string keptIn(const std::string& statements, const std::string& declarations) {
    const Reading reading(declarations + "\nvoid f(void) { " + statements + " }");
    std::string all = reading.messages();
    for (Tessel::TesselBase& node : Tessel::Service::Preorder(reading.unit())) {
        if (const auto* expression = dynamic_cast<const Tessel::OpaqueExpression*>(&node))
            all += expression->getText() + operandsOf(*expression) + '\n';
        if (const auto* statement = dynamic_cast<const Tessel::OpaqueStatement*>(&node))
            all += statement->getText() + operandsOf(*statement) + '\n';
    }
    return all;
}

} // namespace

TEST(KeptTextTest, theSourcesTextWithThePlacesOfItsOperands) {
    EXPECT_EQ(keptIn("a = __builtin_choose_expr(1, g(a), ((a + 1)));", "int a; int g(int);"),
              "__builtin_choose_expr(1, g(a), ((a + 1))) {1|1} {g(a)|(call @g a)} {a + 1|(+ a 1)}\n");
    EXPECT_EQ(keptIn("a = __builtin_offsetof(struct s, v[a].x);", "struct s { struct { int x; } v[3]; }; int a;"),
              "__builtin_offsetof(struct s, v[a].x) {a|a}\n");
    EXPECT_EQ(keptIn("a = __builtin_types_compatible_p(int, long);", "int a;"),
              "__builtin_types_compatible_p(int, long)\n");
}

TEST(KeptTextTest, operandsOfAssembly) {
    EXPECT_EQ(
        keptIn("__asm__ volatile (\"a %0, %1\"\n : [to] \"=r\" (*p), \"+m\"(a)\n : \"r\" ((a)), \"i\" (3) : \"cc\");",
               "int a, *p;"),
        "__asm__ volatile (\"a %0, %1\"\n : [to] \"=r\" (*p), \"+m\"(a)\n : \"r\" ((a)), \"i\" (3) : \"cc\");"
        " {*p|(* p)} {a|a} {a|a} {3|3}\n");
}

TEST(KeptTextTest, operandsStandInTheOrderOfTheText) {
    // Clang has the memory order before the value.
    EXPECT_EQ(keptIn("__atomic_store_n(p, a, 5);", "int a, *p;"), "__atomic_store_n(p, a, 5) {p|p} {a|a} {5|5}\n");
}

TEST(KeptTextTest, labelsOfAssemblyAreNoExpressionsInTheText) {
    EXPECT_EQ(keptIn("__asm__ goto (\"\" : : \"r\" (a) : : l); l: ;", "int a;"),
              "__asm__ goto (\"\" : : \"r\" (a) : : l); {a|a} {-|&&l}\n");
}

TEST(KeptTextTest, textFromAMacroIsWrittenOut) {
    EXPECT_EQ(keptIn("a = KIND(int);", "#define KIND(t) __builtin_types_compatible_p(t, long)\nint a;"),
              "__builtin_types_compatible_p(int, long)\n");
    EXPECT_EQ(keptIn("a = PICK(a, (a + 1));", "#define PICK(x, y) __builtin_choose_expr(0, x, y)\nint a;"),
              "__builtin_choose_expr(0, a, (a + 1)) {0|0} {a|a} {a + 1|(+ a 1)}\n");
}

TEST(KeptTextTest, textThatMentionsTheProgramsMacrosIsRenderedWithoutThem) {
    EXPECT_EQ(keptIn("__asm__ (\"\" : : \"r\" (a));", "int a;"), "__asm__ (\"\" : : \"r\" (a)); {a|a}\n");
    EXPECT_EQ(keptIn("asm (\"\" : : \"r\" (N));", "\n#define N 4\n"), "__asm__ (\"\" :  : \"r\" (4)); {4|4}\n");
    EXPECT_EQ(Reading("#define N 4\n_Static_assert(sizeof(int) == N, \"\");").tree(),
              "opaque `_Static_assert(sizeof(int) == 4, \"\");`\n");
}

TEST(KeptTextTest, aSystemHeadersMacroInAnOperandIsWhatItStandsFor) {
    EXPECT_EQ(keptIn("__asm__ (\"\" : : \"i\" (EOF));", "#include <stdio.h>"),
              "__asm__ (\"\" :  : \"i\" ((-1))); {-1|(-_ 1)}\n");
}

TEST(KeptTextTest, usesOfMacrosThatOnlyClangKnowsTheMeaningOf) {
    const std::string declarations =
        "\n#include <stdatomic.h>\n#define N 4\n#define TWICE(x) (2 * (x))\n#define SET(x) atomic_store(p, x)\n"
        "#define LET(x) atomic_store(x, N)\natomic_int a, *p;\n";
    EXPECT_EQ(keptIn("atomic_store(&a, 3);", declarations), "atomic_store(&a, 3) {&a|(& a)} {3|3}\n");
    EXPECT_EQ(keptIn("atomic_fetch_add(&a, N);", declarations), "atomic_fetch_add(&a, 4) {&a|(& a)} {4|4}\n");
    EXPECT_EQ(keptIn("atomic_store(&a, TWICE(N));", declarations),
              "atomic_store(&a, (2 * (4))) {&a|(& a)} {(2 * (4))|(* 2 4)}\n");
    EXPECT_EQ(keptIn("SET(7); LET(&a);", declarations),
              "atomic_store(p, 7) {p|p} {7|7}\natomic_store(&a, 4) {&a|(& a)} {4|4}\n");
    EXPECT_NE(keptIn("atomic_store(p, atomic_load(&a));", declarations).find("\natomic_load(&a) {&a|(& a)}\n"),
              std::string::npos);
}

TEST(KeptTextTest, macrosThatAreOtherNamesOfWhatIsCalled) {
    const std::string declarations = "\n#include <stdatomic.h>\n#define N 4\n#define SET(x, y) atomic_init(x, y)\n"
                                     "atomic_int a;\n";
    EXPECT_EQ(keptIn("atomic_init(&a, N);", declarations), "atomic_init(&a, 4) {&a|(& a)} {4|4}\n");
    EXPECT_EQ(keptIn("SET(&a, 3);", declarations), "atomic_init(&a, 3) {&a|(& a)} {3|3}\n");
    // Clang has the memory order before the value.
    EXPECT_EQ(keptIn("atomic_store_explicit(&a, 3, memory_order_release);", declarations),
              "atomic_store_explicit(&a, 3, memory_order_release) {&a|(& a)} {3|3} "
              "{memory_order_release|#memory_order_release}\n");
}

TEST(KeptTextTest, castsAroundWhatOnlyClangHasAreTheMacros) {
    EXPECT_EQ(keptIn("m = _mm_slli_si128(m, 4); a = (short) _mm_extract_epi16(m, 2);",
                     "\n#include <emmintrin.h>\n__m128i m; int a;\n"),
              "_mm_slli_si128(m, 4) {m|m} {4|4}\n_mm_extract_epi16(m, 2) {m|m} {2|2}\n");
}

TEST(KeptTextTest, callsOfTheProcessorsFunctionsByTheirOwnNamesAreCalls) {
    EXPECT_EQ(keptIn("__builtin_ia32_pause(); a = 1;", "int a;"), "");
}

TEST(KeptTextTest, renderedTextIsInWordsOfEveryDialect) {
    const std::string declarations = "#define SELF(e) __typeof__(*e)\nstruct s { int m[9]; } *e; int i, asmtypeof;";
    EXPECT_EQ(keptIn("i = __builtin_offsetof(SELF(e), m[i]);", declarations),
              "__builtin_offsetof(__typeof__ (*e), m[i]) {i|i}\n");
    EXPECT_EQ(
        keptIn("i = __builtin_choose_expr(sizeof(SELF(e)), asmtypeof, \"typeof\"[i]);", declarations),
        "__builtin_choose_expr(sizeof(__typeof__ (*e)), asmtypeof, \"typeof\"[i]) {sizeof(__typeof__ (*e))|(sizeof "
        "<struct s>)} {asmtypeof|asmtypeof} {\"typeof\"[i]|([] \"typeof\" i)}\n");
}

} // namespace Kova::Frontends
