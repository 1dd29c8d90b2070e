// SPDX-License-Identifier: MIT
#include "visualization/highlight/WordTable.h"

#include <QSet>
#include <QStringList>
#include <QtTest>

#include <random>

using Kova::GUI::WordTable;

namespace {

std::vector<int> possibleIn(const WordTable& table, const QString& text) {
    std::vector<int> numbers = {77}; // to be replaced
    table.findPossible(text, numbers);
    return numbers;
}

WordTable tableOf(const QStringList& words) {
    WordTable table;
    for (const QString& word : words)
        table.add(word);
    return table;
}

} // namespace

class WordTableTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void wordsThatStandAlone() {
        const WordTable table = tableOf({"if", "do", "end1", "x"});
        QCOMPARE(possibleIn(table, "do if do"), std::vector<int>({0, 1}));
        QCOMPARE(possibleIn(table, "x"), std::vector<int>({3}));
        QCOMPARE(possibleIn(table, "_end1_"), std::vector<int>({2}));
        QCOMPARE(possibleIn(table, "xif ifx doo od end"), std::vector<int>());
        QCOMPARE(possibleIn(table, ""), std::vector<int>());
    }

    void caseDoesNotMatter() {
        const WordTable table = tableOf({"Back", "saVe"});
        QCOMPARE(possibleIn(table, "BACK"), std::vector<int>({0}));
        QCOMPARE(possibleIn(table, QString::fromUtf8("bac\u212a \u017fave")), std::vector<int>({0, 1}));
    }

    void lettersBeyondAsciiJoin() {
        const WordTable table = tableOf({"if"});
        QCOMPARE(possibleIn(table, QString::fromUtf8("if\u00e9 \u0663if")), std::vector<int>());
        QCOMPARE(possibleIn(table, QString("if") + QChar(0xD835)), std::vector<int>({0}));
    }

    void aWordAddedTwiceIsTwoWords() {
        QCOMPARE(possibleIn(tableOf({"if", "x", "IF"}), "if"), std::vector<int>({0, 2}));
    }

    void otherWordsAreAlwaysPossible() {
        const WordTable table = tableOf({"a_b", "if", "", QString::fromUtf8("\u00fc"), "#x"});
        QCOMPARE(possibleIn(table, "z"), std::vector<int>({0, 2, 3, 4}));
        QCOMPARE(possibleIn(table, "if"), std::vector<int>({0, 1, 2, 3, 4}));
    }

    // More words than the table has heads, all of the text's words among them.
    void manyWords() {
        std::mt19937 random(7);
        QStringList words;
        for (int i = 0; i < 5000; ++i)
            words.append(QString::number(qulonglong(random() % 1000000), 36));
        const WordTable table = tableOf(words);
        for (int i = 0; i < 200; ++i) {
            QStringList texts;
            QSet<QString> inText;
            for (int j = 0; j < 20; ++j) {
                texts.append(j % 2 == 0 ? words.at(static_cast<int>(random() % 5000))
                                        : QString::number(qulonglong(random()), 36));
                inText.insert(texts.last());
            }
            const std::vector<int> possible = possibleIn(table, texts.join(' '));
            const QSet<int> found(possible.begin(), possible.end());
            QVERIFY(std::is_sorted(possible.begin(), possible.end()));
            QCOMPARE(static_cast<std::size_t>(found.size()), possible.size());
            for (int number = 0; number < words.size(); ++number)
                if (inText.contains(words.at(number)))
                    QVERIFY(found.contains(number));
            QVERIFY(found.size() < 40); // hardly any others
        }
    }
};

QTEST_MAIN(WordTableTest)
#include "WordTableTest.moc"
