// SPDX-License-Identifier: MIT
// The words of real and generated programs are what views over text rely on.
#include "environment/tessel/BlockStatement.h"
#include "environment/tessel/LoopStatement.h"
#include "environment/tessel/SubroutineDeclaration.h"
#include "environment/tessel/VariableDeclaration.h"
#include "environment/tessel/VariableReference.h"
#include "environment/tessel/service/Preorder.h"
#include "tests/environment/printing/PrintedLines.h"
#include "tests/frontends/c/Reading.h"
#include "tests/roundtrip/PrintedText.h"
#include "tests/roundtrip/WordRules.h"
#include "tests/roundtrip/generator/ProgramGenerator.h"

#include <gtest/gtest.h>

#include <typeinfo>

namespace Kova::Test {

namespace {

using namespace Tessel;

/// Every kind of statement and expression that the front end makes, in the places where printing them is special.
constexpr const char* everything = R"(
#include <stdarg.h>
#include <stdatomic.h>
#include <tgmath.h>
#include <assert.h>
#include <errno.h>
#define TWICE(v) ((v) + (v))
#define MAX(a, b) ({ __typeof__(a) _a = (a); __typeof__(b) _b = (b); _a > _b ? _a : _b; })
struct pair { int a, b; int v[4]; struct { int in; union { int u; float f; }; }; };
static int sum(int n, ...)
{
    va_list l; va_start(l, n);
    int s = 0; while (n--) s += va_arg(l, int);
    va_end(l); return s;
}
static int old(a, b) int a; char *b; { return a + *b; }
int all(int n, int m, int w[n][m], struct pair *p)
{
    int i = 0, k = 2, vla[n][m + k], (*pv)[k] = (int (*)[k]) w;
    typedef int row[n + k]; row r; __typeof__(w[i][k]) t = i;
    struct local { int x : 3; enum { RED, GREEN = 3 } c; struct named { int y; } in; } loc = { .x = 1, .c = GREEN };
    static struct pair ps[] = { { 1, 2, { 1, 2, 3 } }, { .b = 3, .v = { [1 ... 2] = 4 } }, { 5 } };
    const int *list = (int[]) { 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, n };
    if (({ int q = n; q + k; }) && i) k++; else k--;
    if (((int[]) { 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, n })[i]) k = 2; else k = 3;
    for (struct { int x; } s = { k }; s.x < 10; s.x++) k += s.x;
    for (int a = 0, *b = &a, c[] = { 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, k }; *b < c[0]; a++) k += TWICE(*b);
    for (;;) if (k) break; else continue;
    for (i = 0, k = 1; i < 3; i++, k--) ;
    while (sum(2, ({ k; }), ((int[]) { 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, k })[i])) { break; }
    do i++; while (({ int z = i; z < 3; }));
    switch (k) { case 1 ... 5: i = 3; __attribute__((fallthrough)); case RED + 7: case 8: i = 4; default: ; }
    switch (k) while (k) { case 1: k--; }
    if (i) if (k) i = 1; else if (n) i = 2; else if (m) i = 5; else i = 3; else ;
    if (i) k = 1; else { if (n) k = 2; }
    if (i) ; else { if (n) k = 2; m = 3; }
    __asm__ volatile ("" : "=r" (i) : "0" (i), [q] "r" (k) : "memory");
    __asm__ goto ("" : : "r" (k) : : lab);
lab:
    i = MAX(i, MAX(k, 3));
    i = __builtin_choose_expr(1, k, n) + _Generic(k, int: i, default: n) + __builtin_types_compatible_p(int, __typeof__(i));
    atomic_int at = i; atomic_fetch_add(&at, k); i += at;
    i += (int) sqrt((double) k) + sizeof(vla) + sizeof(int[k]) + _Alignof(int) + sizeof vla[0];
    assert(i > k); errno = i;
    void *labels[] = { &&lab, &&end }; if (0) goto *labels[i];
    i = k ?: n; i = - -k; i = +(+k); i = k - -1; i = k & *&k; i = k / *p->v;
    i = sum(2, (i, k), loc.x) + ps[1].v[i & 1] + (*pv)[0] + p->in + p->u + old(1, "a" "b") + list[0] + r[0] + t + loc.in.y;
    { extern int g; int h(int, int (*)[n]); _Static_assert(sizeof(int) == 4, "x"); (void) h; (void) g; }
    unsigned long long big = 0xFFFFull + 'a' + L'b' + (i, k); (void) big; __extension__ i = k;
    int __attribute__((unused)) at2 = k, *at3 __attribute__((unused)) = &k;
    struct pair { int other; } q = { i }; q.other++;
    #pragma GCC unroll 2
    for (int z = 0; z < n; z++) k += z;
    { end: ; }
    return i > 3 ? i : (k = 3, k);
}
)";

struct Checked {
    std::size_t statements = 0;
    std::size_t occurrences = 0;
};

/// Expects a piece for every node of the program, and the name alone for each variable that an expression mentions.
void expectPieces(ProgramUnit& program) {
    Tests::PrintedLines out;
    out.print(program);
    EXPECT_TRUE(out.isWellFormed);
    for (const TesselBase& node : Service::Preorder(program)) {
        EXPECT_NE(out.partsOf.count(&node), 0u) << typeid(node).name() << " at " << toString(node.getSourceRange());
        if (const auto* occurrence = dynamic_cast<const VariableReference*>(&node)) {
            EXPECT_EQ(out.partsOf[&node], std::vector<std::string>{occurrence->getVariable().getName()});
        }
    }
}

/// Expects the rules of the bodies of subroutines and of all loops, which are what views are asked for.
Checked expectWords(ProgramUnit& program) {
    expectPieces(program);
    Checked checked;
    for (TesselBase& node : Service::Preorder(program)) {
        checked.occurrences += dynamic_cast<const VariableReference*>(&node) != nullptr ? 1U : 0U;
        auto* statement = dynamic_cast<StatementBase*>(&node);
        if (statement == nullptr)
            continue;
        ++checked.statements;
        const bool isBody = dynamic_cast<const SubroutineDeclaration*>(node.getParent()) != nullptr;
        if (isBody || dynamic_cast<const LoopStatement*>(&node) != nullptr)
            for (const std::string& broken : brokenWordRules(*statement))
                ADD_FAILURE() << broken;
    }
    return checked;
}

Checked expectWords(const std::string& text) {
    Reading reading(text);
    EXPECT_EQ(reading.result, Frontends::CFrontend::Result::Complete) << reading.messages();
    return expectWords(reading.program);
}

} // namespace

TEST(ProgramWordsTest, ofEverything) {
    const Checked checked = expectWords(everything);
    EXPECT_GT(checked.statements, 150u);
    EXPECT_GT(checked.occurrences, 150u);
}

TEST(ProgramWordsTest, ofSamples) {
    std::size_t statements = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(KOVA_SAMPLES)) {
        if (entry.path().extension() != ".c")
            continue;
        ProgramUnit program;
        ASSERT_EQ(Frontends::CFrontend({}).read(entry.path().string(), program),
                  Frontends::CFrontend::Result::Complete);
        statements += expectWords(program).statements;
    }
    EXPECT_GT(statements, 300u);
}

TEST(ProgramWordsTest, ofGeneratedPrograms) {
    for (unsigned seed = 1; seed <= 100; ++seed) {
        const Checked checked = expectWords(generateProgram(seed));
        ASSERT_FALSE(testing::Test::HasFailure()) << "seed " << seed;
        EXPECT_GT(checked.occurrences, 20u);
    }
}

TEST(ProgramWordsTest, ofStatementsThatAreCutOut) {
    Reading reading(everything);
    ASSERT_EQ(reading.result, Frontends::CFrontend::Result::Complete) << reading.messages();
    std::size_t count = 0;
    std::vector<BlockStatement*> blocks;
    for (TesselBase& node : Service::Preorder(reading.program))
        if (auto* block = dynamic_cast<BlockStatement*>(&node))
            blocks.push_back(block);
    for (BlockStatement* block : blocks)
        for (std::size_t i = 0; i < block->getChildCount(); ++i, ++count) {
            const std::string inPlace = printedText(*block->getStatement(i));
            StatementPtr cut = block->take(i);
            EXPECT_EQ(printedText(*cut), inPlace);
            EXPECT_EQ(brokenWordRules(*cut), std::vector<std::string>()) << inPlace;
            block->insert(i, std::move(cut));
        }
    EXPECT_GT(count, 100u);
}

} // namespace Kova::Test
