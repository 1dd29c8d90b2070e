// SPDX-License-Identifier: MIT
#include "tests/roundtrip/generator/ProgramGenerator.h"

#include "tests/roundtrip/generator/StatementGenerator.h"

namespace Kova::Test {

namespace {

/// What every program declares and uses, in the many ways that C has to say it.
const char* const prelude = R"C(#include <stdarg.h>
#include <stdio.h>
#include <string.h>

typedef unsigned int word;
typedef word operation(word, word);
typedef operation *operation_ptr;
typedef struct list list_t;

struct point { word x, y; };
union number { word whole; unsigned char bytes[sizeof (word)]; struct { word low : 16; word high : 16; }; };
struct list { list_t *next; word value; struct { word a; union { word b; word c; }; } in; struct point ends[2]; };
enum color { red, green = 5, blue, last = blue + 10 } shade = green, *shade_ptr = &shade;
enum { limit = 1 << 4, mask = limit - 1 };
static const struct flags { unsigned ready : 1, : 2, level : 5; signed delta : 7; _Bool on : 1; } preset = { 1, .delta = -3 };

_Static_assert(sizeof (word) == 4, "a word has " "four bytes");
static word checksum = 1u;
static word state[8] = { [1] = 3, 5, [6] = 'x' }, grid[2][8] = { { 1, 2 }, [1] = { [7] = 9 } };
static list_t tail = { .value = 7, .in = { .b = 2 } }, head = { &tail, 1, .ends[1].y = 4, .in.a = 6 };
static union number shared = { .bytes = { 1, 2, 3 } };
static _Thread_local volatile word ticks;
static _Alignas(16) word aligned;
static const char words[][4] = { "one", "two", { 't', 'e', 'n', 0 } }, *const texts[] = { "a\x1" "2", "\0339", words[1] };
extern word later;

static word mix(word a, word b) { return (a ^ (b * 2654435761u)) + (a >> 7); }
static inline __attribute__((const)) word twist(word a, word b) { return (a << 3 | a >> 29) - b; }
static word clip(a, b) word a, b; { return a > b ? b : a; }
static struct point make_point(word x, word y) { return (struct point) { .y = x, .x = y }; }
static operation *const operations[3] = { mix, &twist, [2] = clip };
static word (*choose_operation(word which))(word, word) { return which & 1u ? *operations[1] : mix; }
static void note(word value) { ticks++; checksum = mix(checksum, value + later); }
static word sum(int count, ...)
{
    va_list list;
    word all = 0;
    va_start(list, count);
    while (count-- > 0)
        all += va_arg(list, word);
    va_end(list);
    return all;
}
static word walk(const list_t *from, word (*by)(word, word), word grid_of[static 2][8])
{
    word all = grid_of[1][7];
    for (; from; from = from->next)
        all = by(all, from->value + from->in.c + from->ends[1].y);
    return all;
}
word later = limit;

)C";

const char* const ending = R"C(    for (word i = 0; i < sizeof state / sizeof *state; i++)
        note(state[i] ^ grid[i % 2u][i]);
    note(walk(&head, mix, grid));
    note((word) strlen(texts[0]) + (unsigned char) texts[1][1] + (word) words[2][1]);
    note(shared.low + shared.bytes[3] + (word) preset.delta + preset.ready + (word) *shade_ptr + aligned);
    printf("%u %u\n", checksum, (unsigned) ticks);
    return 0;
}
)C";

Scope globalScope() {
    Scope scope;
    scope.writable = {"checksum",     "state[3]",  "grid[1][2]",      "tail.value",     "head.in.a", "head.ends[1].x",
                      "shared.whole", "head.in.c", "head.next->in.b", "(&tail)->value", "later",     "aligned"};
    scope.readable = scope.writable;
    scope.readable.insert(scope.readable.end(), {"(unsigned) green", "(unsigned) mask", "(unsigned) preset.level",
                                                 "(unsigned) shared.high", "(word) last", "(unsigned) shade"});
    scope.arrays = {"state", "grid[1]", "(*grid)", "(&state)[0]"};
    return scope;
}

/// A pure function: with fuel for its recursion, the first parameter's low bits.
std::string pureFunction(const std::string& name, const Scope& scope, ExpressionGenerator& expressions) {
    Scope inside;
    inside.readable = {"a", "b", "a", "b", "1u"};
    inside.arrays = {"((word[8]) { 1u, 2u })"};
    inside.functions = scope.functions;
    return "static word " + name +
           "(word a, word b)\n{\n    const word fuel = a & 3u;\n    if (fuel == 0u)\n        return " +
           expressions.value(inside, 2) + ";\n    return " + name + "(fuel - 1u, b) + (" +
           expressions.value(inside, 3) + ");\n}\n\n";
}

std::string action(const std::string& name, Scope scope, StatementGenerator& statements) {
    scope.readable.insert(scope.readable.end(), {"a", "p->x", "p->y"});
    scope.writable.insert(scope.writable.end(), {"a", "p->x", "(*p).y"});
    scope.arrays.push_back("v");
    return "static word " + name + "(word a, struct point *p, word v[8])\n{\n" + statements.sequence(scope, 3) +
           statements.sequence(scope, 2) + "    return a ^ p->x + v[a % 8u];\n}\n\n";
}

} // namespace

std::string generateProgram(unsigned seed) {
    Random random(seed);
    ExpressionGenerator expressions(random);
    StatementGenerator statements(random);
    Scope scope = globalScope();
    std::string text = prelude;
    std::string main = "int main(void)\n{\n    struct point at = { 1, 2 };\n    checksum ^= at.x;\n";
    for (unsigned i = 0; i < 3; ++i) {
        const std::string name = "pure" + std::to_string(i);
        text += pureFunction(name, scope, expressions);
        scope.functions.push_back(name);
        main += "    note(" + name + "(checksum, at.y));\n";
    }
    for (unsigned i = 0; i < 4; ++i) {
        const std::string name = "act" + std::to_string(i);
        text += "static word " + name + "(word, struct point *, word [8]);\n\n" + action(name, scope, statements);
        main += "    note(" + name + "(" + std::to_string(random.below(50)) + "u, &at, state));\n";
    }
    return text + main + ending;
}

} // namespace Kova::Test
