// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/LampArrow.h"

#include "tests/environment/analyses/lamport/ArrowSample.h"

#include <gtest/gtest.h>

using namespace DepGraph;
using namespace Kova::Tessel;
using namespace Kova::Tests;

namespace {

struct Tags {
    std::string popularRussian;
    std::string developerEnglish;
    std::string developerRussian;
    std::string popularEnglish;
};

void expectTags(const ArrowSample& sample, const Tags& tags) {
    EXPECT_EQ(sample.tag(PM_POPULAR_RUSSIAN), tags.popularRussian);
    EXPECT_EQ(sample.tag(PM_DEVELOPER_ENGLISH), tags.developerEnglish);
    EXPECT_EQ(sample.tag(PM_DEVELOPER_RUSSIAN), tags.developerRussian);
    EXPECT_EQ(sample.tag(PM_POPULAR_ENGLISH), tags.popularEnglish);
}

/// What stands between the occurrences and the proof, and the times of the sentences.
void expectTimes(const ArrowSample& sample, const Tags& middle) {
    expectTags(
        sample,
        {"Значение, записанное в a[i] в строке 5, читается как a[i - 2] в строке 7" + middle.popularRussian + ".",
         "flow dependence: a[i] (line 5) -> a[i - 2] (line 7); " + middle.developerEnglish + "; proven",
         "потоковая зависимость: a[i] (строка 5) -> a[i - 2] (строка 7); " + middle.developerRussian + "; доказана",
         "The value written to a[i] in line 5 is read as a[i - 2] in line 7" + middle.popularEnglish + "."});
}

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

TEST(LampArrow, GivesWhatTheAnalysisFound) {
    ArrowSample sample;
    sample.loops({2}).carriers({1}).kind(DT_ANTI);
    const LampArrow arrow(sample.facts());
    EXPECT_EQ(arrow.getSource(), sample.facts().source);
    EXPECT_EQ(arrow.getTarget(), sample.facts().target);
    EXPECT_EQ(arrow.getType(), DT_ANTI);
    EXPECT_EQ(arrow.getCarriers(), std::vector<int>{1});
    EXPECT_EQ(arrow.getDistance(), std::vector<std::optional<long>>{2});
    EXPECT_TRUE(arrow.isProven());
    sample.doubt(Doubt::Call);
    EXPECT_FALSE(LampArrow(sample.facts()).isProven());
}

TEST(LampArrow, FlowTwoIterationsLater) {
    ArrowSample sample;
    sample.loops({2}).carriers({1});
    expectTags(
        sample,
        {"Значение, записанное в a[i] в строке 5, читается как a[i - 2] в строке 7, через две итерации цикла по i.",
         "flow dependence: a[i] (line 5) -> a[i - 2] (line 7); carried by loop 1 (i); distance vector (2); "
         "proven",
         "потоковая зависимость: a[i] (строка 5) -> a[i - 2] (строка 7); переносится циклом 1 (i); "
         "вектор расстояний (2); доказана",
         "The value written to a[i] in line 5 is read as a[i - 2] in line 7, two iterations later of the loop "
         "over i."});
}

TEST(LampArrow, TheSameAccessIsNamedOnce) {
    ArrowSample sample;
    sample.loops({2}).carriers({1}).target(sample.element(use(sample.i), 7));
    expectTags(sample,
               {"Значение, записанное в a[i] в строке 5, читается в строке 7, через две итерации цикла по i.",
                "flow dependence: a[i] (line 5) -> a[i] (line 7); carried by loop 1 (i); distance vector (2); proven",
                "потоковая зависимость: a[i] (строка 5) -> a[i] (строка 7); переносится циклом 1 (i); вектор "
                "расстояний (2); доказана",
                "The value written to a[i] in line 5 is read in line 7, two iterations later of the loop over i."});
}

TEST(LampArrow, Anti) {
    ArrowSample sample;
    sample.loops({1}).carriers({1}).kind(DT_ANTI);
    expectTags(sample,
               {"Значение, прочитанное из a[i] в строке 5, перезаписывается как a[i - 2] в строке 7, "
                "на следующей итерации цикла по i.",
                "anti dependence: a[i] (line 5) -> a[i - 2] (line 7); carried by loop 1 (i); distance vector "
                "(1); proven",
                "антизависимость: a[i] (строка 5) -> a[i - 2] (строка 7); переносится циклом 1 (i); вектор "
                "расстояний (1); доказана",
                "The value read from a[i] in line 5 is overwritten as a[i - 2] in line 7, in the next iteration "
                "of the loop over i."});
}

TEST(LampArrow, Output) {
    ArrowSample sample;
    sample.loops({0}).carriers({-1}).kind(DT_OUTPUT);
    expectTags(sample, {"Значение, записанное в a[i] в строке 5, перезаписывается как a[i - 2] в строке 7, "
                        "на той же итерации цикла по i.",
                        "output dependence: a[i] (line 5) -> a[i - 2] (line 7); loop-independent; distance vector (0); "
                        "proven",
                        "выходная зависимость: a[i] (строка 5) -> a[i - 2] (строка 7); внутри итерации; вектор "
                        "расстояний (0); доказана",
                        "The value written to a[i] in line 5 is overwritten as a[i - 2] in line 7, in the same "
                        "iteration of the loop over i."});
}

TEST(LampArrow, Input) {
    ArrowSample sample;
    sample.loops({{}}, {"<"}).carriers({1}).kind(DT_INPUT);
    expectTags(sample, {"Значение, прочитанное из a[i] в строке 5, читается снова как a[i - 2] в строке 7, "
                        "на одной из последующих итераций цикла по i.",
                        "input dependence: a[i] (line 5) -> a[i - 2] (line 7); carried by loop 1 (i); direction vector "
                        "(<); proven",
                        "входная зависимость: a[i] (строка 5) -> a[i - 2] (строка 7); переносится циклом 1 (i); вектор "
                        "направлений (<); доказана",
                        "The value read from a[i] in line 5 is read again as a[i - 2] in line 7, in a later iteration "
                        "of the loop over i."});
}

TEST(LampArrow, PossibleEvents) {
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

TEST(LampArrow, WithoutLoopsTheTimeIsClear) {
    ArrowSample sample;
    expectTimes(sample.carriers({-1}), {"", "loop-independent", "внутри итерации", ""});
}

TEST(LampArrow, TheSameIterationOfANest) {
    ArrowSample sample;
    expectTimes(sample.loops({0, 0}).carriers({-1}),
                {", на той же итерации циклов по i и j", "loop-independent; distance vector (0, 0)",
                 "внутри итерации; вектор расстояний (0, 0)", ", in the same iteration of the loops over i and j"});
    expectTimes(sample.loops({0, 0, 0}),
                {", на той же итерации циклов по i, j и k", "loop-independent; distance vector (0, 0, 0)",
                 "внутри итерации; вектор расстояний (0, 0, 0)",
                 ", in the same iteration of the loops over i, j and k"});
}

TEST(LampArrow, CarriedByAnInnerLoop) {
    ArrowSample sample;
    expectTimes(sample.loops({0, 3}).carriers({2}),
                {", через три итерации цикла по j", "carried by loop 2 (j); distance vector (0, 3)",
                 "переносится циклом 2 (j); вектор расстояний (0, 3)", ", three iterations later of the loop over j"});
}

TEST(LampArrow, CarriedByAnOuterLoopTowardsAnEarlierInnerIteration) {
    ArrowSample sample;
    expectTimes(sample.loops({1, -1}).carriers({1}),
                {", на следующей итерации цикла по i", "carried by loop 1 (i); distance vector (1, -1)",
                 "переносится циклом 1 (i); вектор расстояний (1, -1)", ", in the next iteration of the loop over i"});
}

TEST(LampArrow, WithinAnIterationAndCarried) {
    ArrowSample sample;
    expectTimes(sample.loops({{}}, {"<="}).carriers({-1, 1}),
                {", на той же итерации или на одной из последующих итераций цикла по i",
                 "loop-independent and carried by loop 1 (i); direction vector (<=)",
                 "внутри итерации, а также переносится циклом 1 (i); вектор направлений (<=)",
                 ", in the same iteration or in a later iteration of the loop over i"});
}

TEST(LampArrow, CarriedBySeveralLoops) {
    ArrowSample sample;
    expectTimes(sample.loops({{}, {}}, {"<=", "<=>"}).carriers({1, 2}),
                {", на одной из последующих итераций цикла по i или цикла по j",
                 "carried by loops 1 (i) and 2 (j); direction vector (<=, *)",
                 "переносится циклами 1 (i) и 2 (j); вектор направлений (<=, *)",
                 ", in a later iteration of the loop over i or of the loop over j"});
    expectTimes(sample.loops({{}, {}, {}}, {"<=", "<=>", "<=>"}).carriers({-1, 1, 2, 3}),
                {", на той же итерации, на одной из последующих итераций цикла по i, цикла по j или цикла по k",
                 "loop-independent and carried by loops 1 (i), 2 (j) and 3 (k); direction vector (<=, *, *)",
                 "внутри итерации, а также переносится циклами 1 (i), 2 (j) и 3 (k); вектор направлений (<=, *, *)",
                 ", in the same iteration, in a later iteration of the loop over i, of the loop over j or of the loop "
                 "over k"});
}

TEST(LampArrow, CarriersMayDifferInDistance) {
    ArrowSample sample;
    expectTimes(sample.loops({{}, 1}, {"<=", "<"}).carriers({1, 2}),
                {", на одной из последующих итераций цикла по i или на следующей итерации цикла по j",
                 "carried by loops 1 (i) and 2 (j); distance vector (*, 1); direction vector (<=, <)",
                 "переносится циклами 1 (i) и 2 (j); вектор расстояний (*, 1); вектор направлений (<=, <)",
                 ", in a later iteration of the loop over i or in the next iteration of the loop over j"});
}

TEST(LampArrow, EverySetOfDirectionsHasItsSign) {
    ArrowSample sample;
    const auto signOf = [&sample](const std::string& directions) {
        return sample.loops({{}}, {directions}).carriers({1}).tag(PM_DEVELOPER_ENGLISH);
    };
    const auto with = [](const std::string& sign) {
        return "flow dependence: a[i] (line 5) -> a[i - 2] (line 7); carried by loop 1 (i); direction vector (" + sign +
               "); proven";
    };
    EXPECT_EQ(signOf(""), with("?"));
    EXPECT_EQ(signOf("<"), with("<"));
    EXPECT_EQ(signOf("="), with("="));
    EXPECT_EQ(signOf("<="), with("<="));
    EXPECT_EQ(signOf("=<"), with("<="));
    EXPECT_EQ(signOf(">"), with(">"));
    EXPECT_EQ(signOf("<>"), with("!="));
    EXPECT_EQ(signOf("=>"), with(">="));
    EXPECT_EQ(signOf("<=>"), with("*"));
    sample.loops({{}}, {"<"}).facts().directions.clear();
    EXPECT_EQ(sample.tag(PM_DEVELOPER_ENGLISH), with("?"));
}

TEST(LampArrow, NothingIsKnownOfCarriers) {
    ArrowSample sample;
    expectTimes(sample.loops({{}}).carriers({}),
                {", на неизвестной итерации цикла по i", "carriers unknown; direction vector (?)",
                 "носители неизвестны; вектор направлений (?)", ", in an unknown iteration of the loop over i"});
    expectTimes(sample.loops({}).carriers({}), {"", "carriers unknown", "носители неизвестны", ""});
}

TEST(LampArrow, ACarrierWithoutALoopIsANumber) {
    ArrowSample sample;
    expectTimes(sample.loops({}).carriers({2}), {", на одной из последующих итераций цикла 2", "carried by loop 2",
                                                 "переносится циклом 2", ", in a later iteration of loop 2"});
}

TEST(LampArrow, ImpossibleDistancesOfACarrierAreNotSaid) {
    ArrowSample sample;
    expectTimes(sample.loops({0}).carriers({1}),
                {", на одной из последующих итераций цикла по i", "carried by loop 1 (i); distance vector (0)",
                 "переносится циклом 1 (i); вектор расстояний (0)", ", in a later iteration of the loop over i"});
}

TEST(LampArrow, NumbersOfIterations) {
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

TEST(LampArrow, OneOccurrenceDependsOnItself) {
    ArrowSample sample;
    sample.loops({1}).carriers({1}).target(*sample.facts().source);
    expectTags(sample,
               {"Значение, записанное в a[i] в строке 5, читается там же, на следующей итерации цикла по i.",
                "flow dependence: a[i] (line 5) -> same occurrence; carried by loop 1 (i); distance vector (1); "
                "proven",
                "потоковая зависимость: a[i] (строка 5) -> то же вхождение; переносится циклом 1 (i); вектор "
                "расстояний (1); доказана",
                "The value written to a[i] in line 5 is read there, in the next iteration of the loop over i."});
    sample.kind(DT_ANTI).loops({0}).carriers({-1});
    EXPECT_EQ(sample.tag(PM_POPULAR_ENGLISH),
              "The value read from a[i] in line 5 is overwritten there, in the same iteration of the loop over i.");
    EXPECT_EQ(sample.tag(PM_POPULAR_RUSSIAN),
              "Значение, прочитанное из a[i] в строке 5, перезаписывается там же, на той же итерации цикла по i.");
    sample.kind(DT_INPUT).loops({{}}, {"<"}).carriers({1});
    EXPECT_EQ(sample.tag(PM_POPULAR_ENGLISH),
              "The value read from a[i] in line 5 is read again there, in a later iteration of the loop over i.");
    EXPECT_EQ(sample.tag(PM_POPULAR_RUSSIAN),
              "Значение, прочитанное из a[i] в строке 5, читается снова там же, на одной из последующих итераций цикла "
              "по i.");
}

TEST(LampArrow, OtherOccurrencesOfTheSameLine) {
    ArrowSample sample;
    sample.loops({0}).carriers({-1}).target(sample.element(literal("0"), 5));
    EXPECT_EQ(sample.tag(PM_POPULAR_ENGLISH),
              "The value written to a[i] in line 5 is read as a[0] in the same line, in "
              "the same iteration of the loop over i.");
    EXPECT_EQ(
        sample.tag(PM_POPULAR_RUSSIAN),
        "Значение, записанное в a[i] в строке 5, читается как a[0] в той же строке, на той же итерации цикла по i.");
}

TEST(LampArrow, UnknownLinesAreNotSaid) {
    ArrowSample sample;
    sample.facts().source = &sample.element(use(sample.i), 0);
    expectTags(sample.carriers({-1}), {"Значение, записанное в a[i], читается как a[i - 2] в строке 7.",
                                       "flow dependence: a[i] -> a[i - 2] (line 7); loop-independent; proven",
                                       "потоковая зависимость: a[i] -> a[i - 2] (строка 7); внутри итерации; доказана",
                                       "The value written to a[i] is read as a[i - 2] in line 7."});
    sample.target(sample.element(use(sample.j), 0));
    EXPECT_EQ(sample.tag(PM_POPULAR_ENGLISH), "The value written to a[i] is read as a[j].");
    EXPECT_EQ(sample.tag(PM_POPULAR_RUSSIAN), "Значение, записанное в a[i], читается как a[j].");
}

TEST(LampArrow, LoopsWithoutCounters) {
    ArrowSample sample;
    const auto loop = whileLoop(4);
    sample.loops({{}}, {"<"}).carriers({1}).facts().commonLoops = {loop.get()};
    expectTimes(sample, {", на одной из последующих итераций цикла в строке 4",
                         "carried by loop 1 (line 4); direction vector (<)",
                         "переносится циклом 1 (строка 4); вектор направлений (<)",
                         ", in a later iteration of the loop in line 4"});
    const auto outer = loopOver(sample.i, 3);
    sample.loops({0, 0}).carriers({-1}).facts().commonLoops = {outer.get(), loop.get()};
    EXPECT_EQ(sample.tag(PM_POPULAR_ENGLISH),
              "The value written to a[i] in line 5 is read as a[i - 2] in line 7, in the "
              "same iteration of the loop over i and the loop in line 4.");
    EXPECT_EQ(sample.tag(PM_POPULAR_RUSSIAN),
              "Значение, записанное в a[i] в строке 5, читается как a[i - 2] в строке 7, "
              "на той же итерации цикла по i и цикла в строке 4.");
    const auto nowhere = whileLoop(0);
    sample.loops({{}}, {"<"}).carriers({1}).facts().commonLoops = {nowhere.get()};
    expectTimes(sample, {", на одной из последующих итераций цикла 1", "carried by loop 1; direction vector (<)",
                         "переносится циклом 1; вектор направлений (<)", ", in a later iteration of loop 1"});
}

TEST(LampArrow, CountersOfOneNameAreToldApart) {
    ArrowSample sample;
    VariableDeclaration shadow("i", nullptr);
    const auto outer = loopOver(sample.i, 3);
    const auto inner = loopOver(shadow, 4);
    sample.loops({0, 1}).carriers({2}).facts().commonLoops = {outer.get(), inner.get()};
    expectTimes(sample, {", на следующей итерации цикла по i в строке 4",
                         "carried by loop 2 (i, line 4); distance vector (0, 1)",
                         "переносится циклом 2 (i, строка 4); вектор расстояний (0, 1)",
                         ", in the next iteration of the loop over i in line 4"});
    sample.loops({0, 0}).carriers({-1}).facts().commonLoops = {outer.get(), inner.get()};
    EXPECT_EQ(sample.tag(PM_POPULAR_ENGLISH),
              "The value written to a[i] in line 5 is read as a[i - 2] in line 7, in the "
              "same iteration of the loop over i in line 3 and the loop over i in line "
              "4.");
}

TEST(LampArrow, ConditionsOnUnknowns) {
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

TEST(LampArrow, ReasonsWithoutAPlace) {
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

TEST(LampArrow, ReasonsWithAPlace) {
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

TEST(LampArrow, LoopsOfUnknownLength) {
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

TEST(LampArrow, PercentSignsAreText) {
    ArrowSample sample;
    const auto odd = [&sample] { return binary(use(sample.i), BinaryOperator::Remainder, literal("2")); };
    sample.carriers({-1}).target(sample.element(odd(), 7)).doubt(Doubt::Subscript, &sample.keep(odd()));
    EXPECT_EQ(sample.tag(PM_POPULAR_ENGLISH), "The value written to a[i] in line 5 may be read as a[i % 2] in line 7, "
                                              "because the subscript i % 2 cannot be worked out in advance.");
}

TEST(LampArrow, OtherNumbersOfKindsAndModes) {
    ArrowSample sample;
    sample.carriers({-1}).kind(static_cast<EN_DepType>(3));
    EXPECT_EQ(sample.tag(PM_DEVELOPER_ENGLISH), "dependence: a[i] (line 5) -> a[i - 2] (line 7); loop-independent; "
                                                "proven");
    EXPECT_EQ(sample.tag(PM_DEVELOPER_RUSSIAN),
              "зависимость: a[i] (строка 5) -> a[i - 2] (строка 7); внутри итерации; доказана");
    EXPECT_EQ(sample.tag(static_cast<EN_PrintModes>(9)), sample.tag(PM_DEVELOPER_ENGLISH));
}
