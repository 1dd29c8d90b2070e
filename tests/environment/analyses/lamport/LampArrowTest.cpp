// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/LampArrow.h"

#include "tests/environment/analyses/lamport/ExpectTags.h"

using namespace DepGraph;
using namespace Kova::Tessel;
using namespace Kova::Tests;

namespace {

/// What stands between the occurrences and the proof, and the times of the sentences.
void expectTimes(const ArrowSample& sample, const Tags& middle) {
    expectTags(
        sample,
        {"Значение, записанное в a[i] в строке 5, читается как a[i - 2] в строке 7" + middle.popularRussian + ".",
         "flow dependence: a[i] (line 5) -> a[i - 2] (line 7); " + middle.developerEnglish + "; proven",
         "потоковая зависимость: a[i] (строка 5) -> a[i - 2] (строка 7); " + middle.developerRussian + "; доказана",
         "The value written to a[i] in line 5 is read as a[i - 2] in line 7" + middle.popularEnglish + "."});
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

TEST(LampArrow, OtherNumbersOfKindsAndModes) {
    ArrowSample sample;
    sample.carriers({-1}).kind(static_cast<EN_DepType>(3));
    EXPECT_EQ(sample.tag(PM_DEVELOPER_ENGLISH), "dependence: a[i] (line 5) -> a[i - 2] (line 7); loop-independent; "
                                                "proven");
    EXPECT_EQ(sample.tag(PM_DEVELOPER_RUSSIAN),
              "зависимость: a[i] (строка 5) -> a[i - 2] (строка 7); внутри итерации; доказана");
    EXPECT_EQ(sample.tag(static_cast<EN_PrintModes>(9)), sample.tag(PM_DEVELOPER_ENGLISH));
}
