// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/ArrowLanguage_p.h"

namespace DepGraph {

namespace {

/// The accusative that "через" asks for. Numbers up to twelve are words.
std::string countIterations(long count) {
    static const std::array<const char*, 13> words = {"ноль",   "одну",        "две",       "три",    "четыре",
                                                      "пять",   "шесть",       "семь",      "восемь", "девять",
                                                      "десять", "одиннадцать", "двенадцать"};
    const auto index = static_cast<std::size_t>(count);
    const std::string number = index < words.size() ? words[index] : std::to_string(count);
    const long last = count % 10;
    const bool teen = count % 100 / 10 == 1;
    if (last == 1 && !teen)
        return number + " итерацию";
    return number + (last >= 2 && last <= 4 && !teen ? " итерации" : " итераций");
}

ArrowLanguage makeRussian() {
    ArrowLanguage words = {};
    words.readFrom = "Значение, прочитанное из %";
    words.writtenTo = "Значение, записанное в %";
    words.subjectEnd = ",";
    words.inLine = " в строке %";
    words.inSameLine = " в той же строке";
    words.there = " там же";
    words.as = " как %";
    words.read = {" читается", " может быть прочитано"};
    words.readAgain = {" читается снова", " может быть прочитано снова"};
    words.overwritten = {" перезаписывается", " может быть перезаписано"};

    words.sameIteration = "на той же итерации";
    words.unknownIteration = "на неизвестной итерации";
    words.nextIteration = "на следующей итерации";
    words.laterIteration = "на одной из последующих итераций";
    words.iterationsLater = "через %";
    words.countIterations = countIterations;

    words.of = " ";
    words.loopOver = "цикла по %";
    words.loopsOver = "циклов по %";
    words.loopInLine = "цикла в строке %";
    words.loopNumber = "цикла %";

    words.conjunction = " и ";
    words.disjunction = " или ";
    words.sentenceCondition = ", если %";
    words.because = ", так как %";

    words.flow = "потоковая зависимость";
    words.anti = "антизависимость";
    words.output = "выходная зависимость";
    words.input = "входная зависимость";
    words.otherKind = "зависимость";
    words.line = "строка %";
    words.sameOccurrence = "то же вхождение";
    words.withinIteration = "внутри итерации";
    words.carriedByOne = "переносится циклом %";
    words.carriedByMany = "переносится циклами %";
    words.also = ", а также ";
    words.carriersUnknown = "носители неизвестны";
    words.distanceVector = "вектор расстояний %";
    words.directionVector = "вектор направлений %";
    words.proven = "доказана";
    words.assumed = "предполагается";
    words.condition = " при %";
    return words;
}

const std::array<Reason, doubtCount> sentenceReasons = {{
    {"", ""},
    {"учтён только порядок выполнения", "учтён только порядок выполнения"},
    {"индекс % нельзя вычислить заранее", "один из индексов нельзя вычислить заранее"},
    {"неизвестно, к какой памяти ведёт %", "неизвестно, к какой памяти ведёт указатель"},
    {"% может перекрываться с другой частью той же структуры или объединения",
     "части структуры или объединения могут перекрываться"},
    {"неизвестно число итераций %", "неизвестно число итераций цикла"},
    {"неизвестно, когда выполняется условие %", "неизвестно, когда выполняется одно из условий"},
    {"из-за перехода в строке % неясно, что и когда выполняется", "из-за перехода неясно, что и когда выполняется"},
    {"неизвестно, что делает со своими аргументами вызов %",
     "неизвестно, что делает со своими аргументами вызов функции"},
    {"не удалось разобрать фрагмент программы: %", "не удалось разобрать фрагмент программы"},
    {"быстрые проверки этого не исключают", "быстрые проверки этого не исключают"},
    {"точная проверка остановлена после заданного объёма вычислений",
     "точная проверка остановлена после заданного объёма вычислений"},
}};

const std::array<Reason, doubtCount> reasons = {{
    {"", ""},
    {"не уточнялась", "не уточнялась"},
    {"индекс % не аффинный", "один из индексов не аффинный"},
    {"неизвестна память, к которой ведёт %", "неизвестна память, к которой ведёт указатель"},
    {"% может перекрываться с другими полями", "поля могут перекрываться"},
    {"число итераций % не аффинное", "число итераций цикла не аффинное"},
    {"условие % не аффинное", "одно из условий не аффинное"},
    {"переход в строке %", "переход"},
    {"неизвестно действие вызова %", "неизвестно действие вызова"},
    {"исходный текст без представления: %", "исходный текст без представления"},
    {"не опровергнута быстрыми тестами (ZIV, SIV, НОД, Банерджи)",
     "не опровергнута быстрыми тестами (ZIV, SIV, НОД, Банерджи)"},
    {"исчерпан предел операций", "исчерпан предел операций"},
}};

} // namespace

const ArrowLanguage& getRussian() {
    static const ArrowLanguage language = [] {
        ArrowLanguage words = makeRussian();
        words.sentenceReasons = sentenceReasons;
        words.reasons = reasons;
        return words;
    }();
    return language;
}

} // namespace DepGraph
