// SPDX-License-Identifier: MIT
#include "tests/frontends/c/Reading.h"
#include "tests/roundtrip/PrintedText.h"
#include "tests/roundtrip/RoundTrip.h"

namespace Kova::Test {

namespace {

std::string program(const std::string& declarations, const std::string& statements) {
    return "#include <stdio.h>\n" + declarations + "\nint main(void)\n{\n" + statements + "\nreturn 0;\n}\n";
}

std::string printed(const std::string& text) {
    const SourceFolder folder;
    return printedFile(folder.write("a.c", text));
}

} // namespace

TEST(LanguageRoundTripTest, stringsWithEveryEscape) {
    const std::string show = "static void show(const char *s, unsigned n) { for (unsigned i = 0; i < n; i++) "
                             "printf(\"%d \", s[i]); puts(\"\"); }\n#define SHOW(s) show(s, sizeof s)\n";
    EXPECT_TRUE(textSurvivesRoundTrip(
        program(show, R"(SHOW("\a\b\f\n\r\t\v\\\'\"\?\0"); SHOW("\x1" "2"); SHOW("\x12"); SHOW("\1" "2"); SHOW("\12");
SHOW("\1234"); SHOW("\0" "0"); SHOW("\x7f" "f" "\e"); SHOW("??" "=" "?\?="); SHOW("a" /* in between */ "b"
  "c"); SHOW("a\
b"); SHOW("\u00e9\U0001F600"); SHOW("/* no */ // comment"); SHOW(u8"\xe2\x82\xac" "1"); SHOW("");
printf("%d %d %d %d\n", 'ab', '\377', '\x7f', '\'' + '"' + '\?');
printf("%d %d\n", (int) L'\x20ac', (int) sizeof L"ab" "c"); printf("%d %d\n", (int) u"\u20ac"[0], (int) sizeof U"ab");)")));
    EXPECT_NE(printed("char s[] = \"\\x1\" \"2\";\n").find("\"\\x1\" \"2\""), std::string::npos);
}

TEST(LanguageRoundTripTest, trigraphs) {
    RoundTripUse use;
    use.reading.standard = "c99";
    use.compilerOptions = {"-std=c99"};
    // With ~ for the two question marks, for which this test's compiler would look as well.
    std::string statements = "puts(\"~=~(~)~/n\"); puts(\"?\" \"?=\"); int a<:2:> = ~<1~>; printf(\"%d\\n\", a~(0~));";
    for (std::size_t at = 0; (at = statements.find('~', at)) != std::string::npos;)
        statements.replace(at, 1,
                           "?"
                           "?");
    EXPECT_TRUE(textSurvivesRoundTrip(program("", statements), use));
}

TEST(LanguageRoundTripTest, utf8Identifiers) {
    EXPECT_TRUE(textSurvivesRoundTrip(
        program("static int gr\xc3\xb6\xc3\x9f"
                "e = 3; struct \xc3\xa4 { int \xce\xbb; }; static int \\u00fcber(int x) { return x; }",
                "struct \xc3\xa4 s = { .\xce\xbb = 4 }; printf(\"%d %s\\n\", gr\xc3\xb6\xc3\x9f"
                "e + s.\xce\xbb + "
                "\\u00fcber(2), \"\xe2\x82\xac\");")));
}

TEST(LanguageRoundTripTest, whatSystemHeadersMakeOfNames) {
    EXPECT_TRUE(textSurvivesRoundTrip(
        "#define _GNU_SOURCE\n#include <signal.h>\n#include <stdatomic.h>\n#include <string.h>\n#include <tgmath.h>\n"
        "#include <sys/stat.h>\n#include <errno.h>\n#include <assert.h>\n#include <stdbool.h>\n#include <stddef.h>\n"
        "#define STEP 4\n" +
        program("static atomic_int shared = ATOMIC_VAR_INIT(3); struct pair { char c; int i; };",
                "struct sigaction action; action.sa_handler = SIG_IGN; action.sa_flags = 0;\n"
                "sigemptyset(&action.sa_mask); sigaction(SIGUSR1, &action, NULL);\n"
                "atomic_fetch_add(&shared, STEP); atomic_store(&shared, atomic_load(&shared) + STEP);\n"
                "struct stat status; printf(\"%d\\n\", stat(\"/\", &status) == 0 && status.st_mtime != 0);\n"
                "errno = 0; assert(errno == 0); bool is = true;\n"
                "printf(\"%d %g %g %d %d %d\\n\", atomic_load(&shared), sqrt(2.0), (double) sqrt(2.0f),\n"
                "is, (int) offsetof(struct pair, i), strverscmp(\"a9\", \"a10\") < 0);")));
}

TEST(LanguageRoundTripTest, macrosInsideOfWhatIsKeptAsText) {
    EXPECT_TRUE(
        textSurvivesRoundTrip(program("#define SIZE 4\n#define TYPE struct pair\nTYPE { int a, b; };\n"
                                      "_Static_assert(sizeof(TYPE) == 2 * SIZE, \"size \" \"is\");",
                                      "__asm__ volatile (\"\" : : \"r\" (SIZE + 1)); _Static_assert(SIZE, \"\");\n"
                                      "printf(\"%d %d\\n\", (int) __builtin_offsetof(TYPE, b), "
                                      "__builtin_types_compatible_p(TYPE, struct pair));")));
}

TEST(LanguageRoundTripTest, packedStructures) {
    EXPECT_TRUE(textSurvivesRoundTrip(program(
        "#pragma pack(push, 2)\nstruct a { char c; int i; double d; short s; unsigned b : 3; };\n#pragma pack(1)\n"
        "struct b { char c; struct { long l; char z; } in; union { int i; char c[3]; } u[2]; };\n#pragma pack(pop)\n"
        "struct c { char c; int i; };\nstruct __attribute__((packed)) d { char c; int i; };",
        "printf(\"%d %d %d %d\\n\", (int) sizeof(struct a), (int) sizeof(struct b), (int) sizeof(struct c), "
        "(int) sizeof(struct d)); printf(\"%d %d %d\\n\", (int) _Alignof(struct a), "
        "(int) __builtin_offsetof(struct a, d), (int) __builtin_offsetof(struct b, u));")));
}

TEST(LanguageRoundTripTest, parametersWithWordsBetweenTheirBrackets) {
    const std::string head =
        "void f(int n, int a[static 3], int b[const 5], int c[restrict static n], int d[n][n], int e[])";
    const std::string text = printed(head + ";\nvoid g(int [*], int n, int [n][*]);\n");
    EXPECT_EQ(text, "void f(int n, int a[static 3], int b[const 5], int c[static restrict n], int d[n][n], int e[]);\n"
                    "void g(int[*], int n, int[n][*]);\n");
    EXPECT_TRUE(textSurvivesRoundTrip(
        program("static void copy(int n, int to[const restrict static 2], const int from[restrict n], int m[n][n],\n"
                "int (*f)(int k, int v[k][k]))\n{ for (int i = 0; i < n; i++) to[i] = from[i] + f(n, m); }\n"
                "static int at(int k, int v[k][k]) { return v[k - 1][k - 1]; }",
                "int a[2], b[2] = { 1, 2 }, m[2][2] = { [1] = { 3, 4 } }; copy(2, a, b, m, at); "
                "printf(\"%d %d\\n\", a[0], a[1]);")));
}

TEST(LanguageRoundTripTest, directives) {
    RoundTripUse use;
    use.compilerOptions = {"-fopenmp", "-Wno-unknown-pragmas"};
    EXPECT_TRUE(textSurvivesRoundTrip(
        program("#define DO(x) _Pragma(#x)\n#define WIDTH 2\n#pragma GCC diagnostic push\n"
                "#pragma GCC diagnostic ignored \"-Wunused-function\"\nstatic int unused(void) { return 1; }\n"
                "#pragma GCC diagnostic pop\n#pragma weak missing\nextern int missing(void);\n"
                "#pragma redefine_extname absolute abs\nextern int absolute(int);\n#pragma omp declare simd\n"
                "static int twice(int x) { return 2 * x; }\nstruct s {\n#pragma unknown to all\nint a; };",
                "int sum = 0, once = 0;\n#pragma omp parallel for num_threads(WIDTH) \\\n reduction(+ : sum)\n"
                "for (int i = 0; i < 100; i++)\n#pragma omp critical\n{ sum += twice(i); once = 0; }\n"
                "DO(omp parallel) { DO(omp single) once++; }\n#pragma GCC ivdep\nfor (int i = 0; i < 3; i++) sum++;\n"
                "switch (sum) {\n#pragma first\ncase 1:\n#pragma second\nsum = 0; default: break; }\n"
                "printf(\"%d %d %d %d\\n\", sum, once, missing != 0, absolute(-3));"),
        use));
}

TEST(LanguageRoundTripTest, attributes) {
    EXPECT_TRUE(textSurvivesRoundTrip(program(
        "#define PRINTF(f, a) __attribute__((format(gnu_printf, f, a)))\n"
        "static void note(const char *f, ...) PRINTF(1, 2);\nstatic void note(const char *f, ...) { puts(f); }\n"
        "static int twice(int x) __attribute__((noinline, noclone, optimize(\"O1\"), const, warn_unused_result));\n"
        "static int twice(int x) { return 2 * x; }\nint late(int x, ...) __attribute__((sentinel, deprecated));\n"
        "struct __attribute__((packed)) s { char c; int i; short h __attribute__((aligned(8))); };\n"
        "typedef struct { char c; } __attribute__((aligned(32))) wide;\nenum __attribute__((packed)) e { one, two };\n"
        "typedef int quad __attribute__((vector_size(16), aligned(16)));\nstatic int (*end)(int) "
        "__attribute__((unused));\n"
        "static void leave(int *p) { printf(\"%d left\\n\", *p); }\n"
        "static int old(a, b) int a; int b __attribute__((unused)); { return a; }\n"
        "static int hidden __attribute__((section(\".data.own\"), used)) = 3;\n_Alignas(64) static char block[2];",
        "int x __attribute__((cleanup(leave))) = twice(4); quad q = { 1, 2, 3, 4 }; int unused "
        "__attribute__((unused));\n"
        "printf(\"%d %d %d %d %d\\n\", (int) sizeof(struct s), (int) sizeof(wide), (int) sizeof(enum e), "
        "(int) _Alignof(quad), (q + q)[3]);\nnote(\"n\"); printf(\"%d\\n\", old(hidden, 2) + block[0]);\n"
        "switch (x) { case 8: x++; __attribute__((fallthrough)); case 9: x++; break; "
        "default: goto end; }\nend: __attribute__((unused));")));
}

TEST(LanguageRoundTripTest, arraysWithoutALength) {
    const std::string text =
        "int a[] = { 1, 2 };\nint b[][3] = { { 1 }, { 2, 3 } };\nchar c[] = \"ab\";\nextern int d[];\nint e[];\n"
        "const int *p = (const int[]) { 1, 2 };\n";
    EXPECT_EQ(printed(text), text);
    EXPECT_TRUE(textSurvivesRoundTrip(program(
        "static int a[] = { 1, 2, [4] = 3 }, b[][3] = { { 1 }, { 2, 3 } }; static char c[] = \"ab\" \"c\", d[] = { "
        "\"xy\" };\n"
        "static const char *const names[] = { \"one\", \"two\" }; extern int late[]; int late[2] = { 4, 5 };",
        "const short s[] = { 7, 8 }; printf(\"%d %d %d %d %d %d\\n\", (int) sizeof a, (int) sizeof b, (int) sizeof c, "
        "(int) sizeof d, (int) sizeof s, (int) sizeof (int[]) { 1, 2, 3 });\n"
        "printf(\"%s %d %d\\n\", names[1], late[1], (int[][2]) { { 1, 2 }, { 3, 4 } }[1][0]);")));
}

TEST(LanguageRoundTripTest, headersOfTheProgram) {
    const SourceFolder folder;
    folder.write("own.h",
                 "#pragma once\n#include <stdbool.h>\n#include <stdio.h>\nstatic const int used = 1, unused = 2;\n"
                 "static inline bool is(int x) { return x == used; }\nbool later(_Bool);\n");
    EXPECT_TRUE(survivesRoundTrip(
        {folder.write("a.c",
                      "#include \"own.h\"\nint main(void) { printf(\"%d\\n\", is(1) + later(true)); return 0; }\n"),
         folder.write("b.c", "#include \"own.h\"\nbool later(bool b) { return !b; }\n")}));
}

TEST(LanguageRoundTripTest, oldPrograms) {
    EXPECT_TRUE(
        textSurvivesRoundTrip("#include <stdio.h>\nstatic g;\nint add(a, b) short a; float b; { return a + (int) b; }\n"
                              "first(p) char *p; { return *p; }\nmain() { register i = 2; "
                              "printf(\"%d %d\\n\", add(i, 3.5), first(\"x\") + g + later(4)); return 0; }\n"
                              "int later(x) { return x * 2; }\n"));
}

TEST(LanguageRoundTripTest, waysThatCompilersChoose) {
    EXPECT_TRUE(textSurvivesRoundTrip(
        program("#if __GNUC__ < 7\n# define FALL_THROUGH\n#else\n# define FALL_THROUGH __attribute__((fallthrough));\n"
                "#endif\nint inBraces(int x) { switch (x) { case 1: { x++; /* no break */ FALL_THROUGH } case 2: { { "
                "if (x > 1) x++; FALL_THROUGH } } default: return x; } }",
                "printf(\"%d\\n\", inBraces(1));")));
    EXPECT_TRUE(textSurvivesRoundTrip(
        program("#if __GNUC__ < 7\n# define FALLTHROUGH ((void) 0)\n#else\n"
                "# define FALLTHROUGH __attribute__ ((__fallthrough__))\n#endif\n"
                "static int way(int x) { switch (x) { case 1: { x++; FALLTHROUGH; } case 2: x++; FALLTHROUGH; default: "
                "return x; } }\n"
                "static int second(int n, ...) { __builtin_va_list l; __builtin_va_start(l, n); (void) "
                "__builtin_va_arg(l, double); n = __builtin_va_arg(l, int); __builtin_va_end(l); return n; }",
                "printf(\"%d %d %d\\n\", way(1), way(2), second(2, 1.5, 7));")));
}

TEST(LanguageRoundTripTest, oneWayOutOfACase) {
    const std::string text = printed("int f(int x)\n{\n    switch (x)\n    {\n    case 1:\n        x = 2;\n"
                                     "        /* falls through */\n    default:\n        return x;\n    }\n}\n");
    EXPECT_EQ(text, "int f(int x)\n{\n    switch (x)\n    {\n    case 1:\n        x = 2;\n"
                    "        __attribute__((fallthrough));\n    default:\n        return x;\n    }\n}\n");
}

TEST(LanguageRoundTripTest, namesThatAreMacrosOfTheSystems) {
    EXPECT_TRUE(textSurvivesRoundTrip(
        "#include <ctype.h>\n#include <obstack.h>\n#include <stdlib.h>\n#define obstack_chunk_alloc malloc\n"
        "#define obstack_chunk_free free\n#undef isdigit\n#undef linux\n#undef EOF\n#define EOF -7\n" +
        program(
            "struct ops { int (*isdigit)(int); }; static int linux = 4; int (isalpha)(int c) { return c == 'q'; }\n"
            "int isdigit(int c) { return c == '5'; } static int (*pointer)(int) = isalpha; "
            "struct more { int (*isupper)(int); };",
            "struct ops o = { isdigit }; struct obstack pool; obstack_init(&pool); obstack_grow0(&pool, \"ab\", 2);\n"
            "struct more m = { pointer }, *p = &m; int (*islower)(int) = pointer; "
            "printf(\"%d\\n\", (p->isupper)('q') + (islower)('q'));\n"
            "puts(obstack_finish(&pool)); obstack_free(&pool, NULL);\n"
            "printf(\"%d %d %d %d %d %d\\n\", (isalpha)('q'), (isalpha)('a'), isdigit('5'), o.isdigit('6'), linux, "
            "pointer('q') + EOF);")));
}

TEST(LanguageRoundTripTest, vectorsOfTheProcessor) {
    EXPECT_TRUE(textSurvivesRoundTrip(
        "#if defined(__SSE2__)\n#include <emmintrin.h>\n#endif\n" +
        program("",
                "#if defined(__SSE2__)\n__m128i m = _mm_set_epi32(1, 2, 3, 4), s = _mm_shuffle_epi32(m, "
                "_MM_SHUFFLE(0, 1, 2, 3));\nint w[4]; m = _mm_slli_si128(s, 4);\n"
                "_mm_storeu_si128((__m128i *) w, m); printf(\"%d %d %d\\n\", w[1], w[2], _mm_extract_epi16(s, 2));\n"
                "#endif")));
}

TEST(LanguageRoundTripTest, unnamedTypesInsideOfExpressions) {
    EXPECT_TRUE(textSurvivesRoundTrip(
        program("#define ROOM (sizeof(union { int i; double d; }) - 1)\n"
                "static unsigned long room = (7 + ROOM) & ~ROOM; static int last = sizeof(struct { int i; });\n"
                "static int named = sizeof(struct late { int a, b; }); static struct late late = { 1, 2 };\n",
                "printf(\"%lu %d %d\\n\", room + ROOM, last + named + late.b, ((struct { int q; }) { 3 }).q + "
                "(int) sizeof(struct { int i; int j; }) + (int) sizeof(enum { ONE, TWO }) + TWO);")));
}

TEST(LanguageRoundTripTest, assignmentsThatAreNoComparisons) {
    EXPECT_TRUE(textSurvivesRoundTrip(
        program("", "int a = 1, b = 2, c = 0; if (a++, (b = c)) puts(\"1\"); if (a ? (b = 3) : (c = 1)) puts(\"2\");\n"
                    "while (+(a++, (b = a - 4)) && c < 5) c++; for (a = 0, b = 1; a < 3; a++, b = a) c += b;\n"
                    "if (!(a = 0)) puts(\"3\"); printf(\"%d %d %d\\n\", a, b, c);")));
}

TEST(LanguageRoundTripTest, warningsThatSystemHeadersKeepBack) {
    EXPECT_TRUE(textSurvivesRoundTrip(
        "#include <assert.h>\n" +
        program("static int f(int x) { switch (x) { case 1: x = 2; assert(x); case 2: { x++; assert(x != 0); } case 3: "
                "default: assert(!\"no\" || x); case 9: return x; } }",
                "printf(\"%d\\n\", f(1));")));
}

TEST(LanguageRoundTripTest, addressesInsideOfPackedStructures) {
    EXPECT_TRUE(textSurvivesRoundTrip(program(
        "#pragma pack(push, 1)\nstruct s { char c; int i; unsigned a : 3, b : 30; struct { short h; long l; } in; };\n"
        "static struct { char c; long l; } unnamed;\ntypedef union { char c[3]; int i; } either;\n#pragma pack(pop)\n"
        "struct mixed { char c;\n#pragma pack(2)\nstruct { char c; int i; } in;\n#pragma pack()\nint i; };",
        "#pragma pack(2)\nstruct local { char c; long l; } l = { 1, 2 };\n#pragma pack()\n"
        "struct s v = { 1, 2, 3, 4, { 5, 6 } }; int *p = &v.i; long *q = &v.in.l, *r = &unnamed.l; *r = 3;\n"
        "printf(\"%d %ld %ld %ld %d\\n\", *p, *q, *r, l.l, (int) v.b);\n"
        "printf(\"%d %d %d %d %d %d\\n\", (int) sizeof v, (int) sizeof unnamed, (int) sizeof(either), (int) sizeof l, "
        "(int) sizeof(struct mixed), (int) _Alignof(struct s));")));
}

TEST(LanguageRoundTripTest, listsOfArgumentsInTypesOfFunctions) {
    EXPECT_EQ(
        printed("#include <stdarg.h>\nextern int (*f)(const char *, va_list);\nint g(int (*)(__builtin_va_list));\n"),
        "#include <stdarg.h>\n\nextern int (*f)(const char *, va_list);\n\nint g(int (*)(__builtin_va_list));\n");
    EXPECT_TRUE(textSurvivesRoundTrip(
        "#include <stdarg.h>\n" +
        program("typedef int show(const char *, va_list); struct ops { int (*show)(const char *, va_list); show "
                "*again; };\n"
                "static int twice(const struct ops *o, const char *f, ...) { va_list l, *p = &l, copy; va_start(l, f); "
                "va_copy(copy, *p);\n"
                "int n = o->show(f, l) + o->again(f, copy); va_end(l); va_end(copy); __auto_type q = copy; (void) q; "
                "return n; }",
                "struct ops o = { vprintf, vprintf }; return twice(&o, \"%d %s\\n\", 3, \"a\") == 8;")));
}

} // namespace Kova::Test
