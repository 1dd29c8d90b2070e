// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/ArrowDescription_p.h"
#include "tests/environment/analyses/lamport/ExpectTags.h"

using namespace DepGraph;
using namespace Kova::Tessel;
using namespace Kova::Tests;

namespace {

/// The reason of an assumed arrow in one iteration.
void expectReason(const ArrowSample& sample, const Tags& reasons) {
    expectTags(
        sample,
        {"Значение, записанное в a[i] в строке 5, может быть прочитано как a[i - 2] в строке 7, так как " +
             reasons.popularRussian + ".",
         "flow dependence: a[i] (line 5) -> a[i - 2] (line 7); loop-independent; assumed: " + reasons.developerEnglish,
         "потоковая зависимость: a[i] (строка 5) -> a[i - 2] (строка 7); внутри итерации; "
         "предполагается: " +
             reasons.developerRussian,
         "The value written to a[i] in line 5 may be read as a[i - 2] in line 7, because " + reasons.popularEnglish +
             "."});
}

} // namespace

TEST(ArrowDescription, PossibleEvents) {
    ArrowSample sample;
    sample.carriers({-1}).doubt(Doubt::QuickTest).target(sample.element(use(sample.i), 7));
    const std::string because = ", because the quick tests cannot rule it out.";
    const std::string since = ", так как быстрые проверки этого не исключают.";
    EXPECT_EQ(sample.tag(PM_POPULAR_ENGLISH), "The value written to a[i] in line 5 may be read in line 7" + because);
    EXPECT_EQ(sample.tag(PM_POPULAR_RUSSIAN),
              "Значение, записанное в a[i] в строке 5, может быть прочитано в строке 7" + since);
    sample.kind(DT_ANTI);
    EXPECT_EQ(sample.tag(PM_POPULAR_ENGLISH),
              "The value read from a[i] in line 5 may be overwritten in line 7" + because);
    EXPECT_EQ(sample.tag(PM_POPULAR_RUSSIAN),
              "Значение, прочитанное из a[i] в строке 5, может быть перезаписано в строке 7" + since);
    sample.kind(DT_OUTPUT);
    EXPECT_EQ(sample.tag(PM_POPULAR_ENGLISH),
              "The value written to a[i] in line 5 may be overwritten in line 7" + because);
    EXPECT_EQ(sample.tag(PM_POPULAR_RUSSIAN),
              "Значение, записанное в a[i] в строке 5, может быть перезаписано в строке 7" + since);
    sample.kind(DT_INPUT);
    EXPECT_EQ(sample.tag(PM_POPULAR_ENGLISH),
              "The value read from a[i] in line 5 may be read again in line 7" + because);
    EXPECT_EQ(sample.tag(PM_POPULAR_RUSSIAN),
              "Значение, прочитанное из a[i] в строке 5, может быть прочитано снова в строке 7" + since);
}

TEST(ArrowDescription, NumbersOfIterations) {
    ArrowSample sample;
    sample.carriers({1}).target(sample.element(use(sample.i), 7));
    const std::vector<std::pair<long, std::pair<std::string, std::string>>> numbers = {
        {2, {"two iterations later", "через две итерации"}},
        {3, {"three iterations later", "через три итерации"}},
        {4, {"four iterations later", "через четыре итерации"}},
        {5, {"five iterations later", "через пять итераций"}},
        {6, {"six iterations later", "через шесть итераций"}},
        {7, {"seven iterations later", "через семь итераций"}},
        {8, {"eight iterations later", "через восемь итераций"}},
        {9, {"nine iterations later", "через девять итераций"}},
        {10, {"ten iterations later", "через десять итераций"}},
        {11, {"eleven iterations later", "через одиннадцать итераций"}},
        {12, {"twelve iterations later", "через двенадцать итераций"}},
        {13, {"13 iterations later", "через 13 итераций"}},
        {14, {"14 iterations later", "через 14 итераций"}},
        {20, {"20 iterations later", "через 20 итераций"}},
        {21, {"21 iterations later", "через 21 итерацию"}},
        {22, {"22 iterations later", "через 22 итерации"}},
        {24, {"24 iterations later", "через 24 итерации"}},
        {25, {"25 iterations later", "через 25 итераций"}},
        {100, {"100 iterations later", "через 100 итераций"}},
        {101, {"101 iterations later", "через 101 итерацию"}},
        {111, {"111 iterations later", "через 111 итераций"}},
        {112, {"112 iterations later", "через 112 итераций"}},
        {122, {"122 iterations later", "через 122 итерации"}},
        {1000000, {"1000000 iterations later", "через 1000000 итераций"}},
    };
    for (const auto& [distance, phrases] : numbers) {
        sample.loops({distance});
        EXPECT_EQ(sample.tag(PM_POPULAR_ENGLISH),
                  "The value written to a[i] in line 5 is read in line 7, " + phrases.first + " of the loop over i.");
        EXPECT_EQ(sample.tag(PM_POPULAR_RUSSIAN),
                  "Значение, записанное в a[i] в строке 5, читается в строке 7, " + phrases.second + " цикла по i.");
    }
}

TEST(ArrowDescription, ConditionsOnUnknowns) {
    ArrowSample sample;
    sample.loops({2}).carriers({1}).condition("n >= 3 and m > n or m = 0").target(sample.element(use(sample.i), 7));
    expectTags(sample, {"Значение, записанное в a[i] в строке 5, читается в строке 7, через две итерации цикла по i, "
                        "если n >= 3 и m > n или m = 0.",
                        "flow dependence: a[i] (line 5) -> a[i] (line 7); carried by loop 1 (i); distance vector (2); "
                        "proven if n >= 3 and m > n or m = 0",
                        "потоковая зависимость: a[i] (строка 5) -> a[i] (строка 7); переносится циклом 1 (i); вектор "
                        "расстояний (2); доказана при n >= 3 и m > n или m = 0",
                        "The value written to a[i] in line 5 is read in line 7, two iterations later of the loop over "
                        "i, if n >= 3 and m > n or m = 0."});
    sample.doubt(Doubt::WorkLimit);
    expectTags(sample,
               {"Значение, записанное в a[i] в строке 5, может быть прочитано в строке 7, через две итерации "
                "цикла по i, если n >= 3 и m > n или m = 0, так как точная проверка остановлена после заданного "
                "объёма вычислений.",
                "flow dependence: a[i] (line 5) -> a[i] (line 7); carried by loop 1 (i); distance vector (2); "
                "assumed if n >= 3 and m > n or m = 0: operation limit reached",
                "потоковая зависимость: a[i] (строка 5) -> a[i] (строка 7); переносится циклом 1 (i); вектор "
                "расстояний (2); предполагается при n >= 3 и m > n или m = 0: исчерпан предел операций",
                "The value written to a[i] in line 5 may be read in line 7, two iterations later of the loop "
                "over i, if n >= 3 and m > n or m = 0, because the exact test was stopped after a fixed amount "
                "of work."});
}

TEST(ArrowDescription, ReasonsWithoutAPlace) {
    ArrowSample sample;
    sample.carriers({-1});
    expectReason(sample.doubt(Doubt::NotRefined), {"учтён только порядок выполнения", "not refined", "не уточнялась",
                                                   "only the order of execution has been looked at"});
    expectReason(sample.doubt(Doubt::Subscript),
                 {"один из индексов нельзя вычислить заранее", "a subscript is not affine",
                  "один из индексов не аффинный", "a subscript cannot be worked out in advance"});
    expectReason(sample.doubt(Doubt::Pointer),
                 {"неизвестно, к какой памяти ведёт указатель", "memory behind a pointer is unknown",
                  "неизвестна память, к которой ведёт указатель", "it is not known to which memory a pointer leads"});
    expectReason(sample.doubt(Doubt::Member),
                 {"части структуры или объединения могут перекрываться", "members may overlap",
                  "поля могут перекрываться", "parts of a structure or union may overlap"});
    expectReason(sample.doubt(Doubt::Bounds),
                 {"неизвестно число итераций цикла", "a trip count is not affine", "число итераций цикла не аффинное",
                  "it is not known how often a loop runs"});
    expectReason(sample.doubt(Doubt::Condition),
                 {"неизвестно, когда выполняется одно из условий", "a condition is not affine",
                  "одно из условий не аффинное", "it is not known when a condition holds"});
    expectReason(sample.doubt(Doubt::Jump), {"из-за перехода неясно, что и когда выполняется", "jump", "переход",
                                             "a jump makes it unclear what is executed and when"});
    expectReason(sample.doubt(Doubt::Call),
                 {"неизвестно, что делает со своими аргументами вызов функции", "effect of a call is unknown",
                  "неизвестно действие вызова", "it is not known what a call does to its arguments"});
    expectReason(sample.doubt(Doubt::Opaque),
                 {"не удалось разобрать фрагмент программы", "source text without a representation",
                  "исходный текст без представления", "a piece of the program could not be understood"});
    expectReason(sample.doubt(Doubt::QuickTest),
                 {"быстрые проверки этого не исключают", "not disproved by the quick tests (ZIV, SIV, GCD, Banerjee)",
                  "не опровергнута быстрыми тестами (ZIV, SIV, НОД, Банерджи)", "the quick tests cannot rule it out"});
    expectReason(sample.doubt(Doubt::WorkLimit),
                 {"точная проверка остановлена после заданного объёма вычислений", "operation limit reached",
                  "исчерпан предел операций", "the exact test was stopped after a fixed amount of work"});
}

TEST(ArrowDescription, ReasonsWithAPlace) {
    ArrowSample sample;
    sample.carriers({-1});
    VariableDeclaration p("p", nullptr);
    const ExpressionBase& element = sample.keep(subscript(use(p), use(sample.i)));
    expectReason(sample.doubt(Doubt::Subscript, &element),
                 {"индекс p[i] нельзя вычислить заранее", "subscript p[i] is not affine", "индекс p[i] не аффинный",
                  "the subscript p[i] cannot be worked out in advance"});
    expectReason(sample.doubt(Doubt::Pointer, element.getChild(0)),
                 {"неизвестно, к какой памяти ведёт p", "memory behind p is unknown",
                  "неизвестна память, к которой ведёт p", "it is not known to which memory p leads"});
    expectReason(sample.doubt(Doubt::Member, &element),
                 {"p[i] может перекрываться с другой частью той же структуры или объединения",
                  "p[i] may overlap other members", "p[i] может перекрываться с другими полями",
                  "p[i] may overlap another part of the same structure or union"});
    const ExpressionBase& condition = sample.keep(binary(use(p), BinaryOperator::Greater, literal("0")));
    expectReason(sample.doubt(Doubt::Condition, &condition),
                 {"неизвестно, когда выполняется условие p > 0", "condition p > 0 is not affine",
                  "условие p > 0 не аффинное", "it is not known when the condition p > 0 holds"});
    SubroutineDeclaration f("f", nullptr);
    const ExpressionBase& called = sample.keep(call(f, use(p)));
    expectReason(sample.doubt(Doubt::Call, &called),
                 {"неизвестно, что делает со своими аргументами вызов f(p)", "effect of the call f(p) is unknown",
                  "неизвестно действие вызова f(p)", "it is not known what the call f(p) does to its arguments"});
    GotoStatement jump("done");
    atLine(jump, 9);
    expectReason(sample.doubt(Doubt::Jump, &jump),
                 {"из-за перехода в строке 9 неясно, что и когда выполняется", "jump in line 9", "переход в строке 9",
                  "the jump in line 9 makes it unclear what is executed and when"});
    GotoStatement nowhere("done");
    EXPECT_EQ(sample.doubt(Doubt::Jump, &nowhere).tag(PM_DEVELOPER_ENGLISH),
              "flow dependence: a[i] (line 5) -> a[i - 2] (line 7); loop-independent; assumed: jump");
    OpaqueStatement assembly("asm(\"nop\"\n    : : );");
    expectReason(sample.doubt(Doubt::Opaque, &assembly),
                 {"не удалось разобрать фрагмент программы: asm(\"nop\" : : );",
                  "source text without a representation: asm(\"nop\" : : );",
                  "исходный текст без представления: asm(\"nop\" : : );",
                  "a piece of the program could not be understood: asm(\"nop\" : : );"});
}

TEST(ArrowDescription, LoopsOfUnknownLength) {
    ArrowSample sample;
    sample.carriers({-1});
    const auto loop = loopOver(sample.j, 4);
    const Tags counted = {"неизвестно число итераций цикла по j", "trip count of the loop over j is not affine",
                          "число итераций цикла по j не аффинное", "it is not known how often the loop over j runs"};
    expectReason(sample.doubt(Doubt::Bounds, loop.get()), counted);
    expectReason(sample.doubt(Doubt::Bounds, loop->getCondition()), counted);
    const auto endless = whileLoop(4);
    expectReason(sample.doubt(Doubt::Bounds, endless.get()),
                 {"неизвестно число итераций цикла в строке 4", "trip count of the loop in line 4 is not affine",
                  "число итераций цикла в строке 4 не аффинное", "it is not known how often the loop in line 4 runs"});
    const Tags unnamed = {"неизвестно число итераций цикла", "a trip count is not affine",
                          "число итераций цикла не аффинное", "it is not known how often a loop runs"};
    expectReason(sample.doubt(Doubt::Bounds, whileLoop(0).get()), unnamed);
    expectReason(sample.doubt(Doubt::Bounds, &sample.keep(use(sample.j))), unnamed);
}

TEST(ArrowDescription, PercentSignsAreText) {
    ArrowSample sample;
    const auto odd = [&sample] { return binary(use(sample.i), BinaryOperator::Remainder, literal("2")); };
    sample.carriers({-1}).target(sample.element(odd(), 7)).doubt(Doubt::Subscript, &sample.keep(odd()));
    EXPECT_EQ(sample.tag(PM_POPULAR_ENGLISH), "The value written to a[i] in line 5 may be read as a[i % 2] in line 7, "
                                              "because the subscript i % 2 cannot be worked out in advance.");
}
