// SPDX-License-Identifier: MIT
#include "visualization/highlight/RequiredCharacter.h"

#include <QtTest>

#include <random>

using Kova::GUI::indexOfMatch;
using Kova::GUI::requiredCharacter;

namespace {

int below(std::mt19937& random, int limit) {
    return std::uniform_int_distribution<int>(0, limit - 1)(random);
}

QString generate(std::mt19937& random, const QStringList& pieces, int most) {
    QString text;
    for (int count = below(random, most + 1); count > 0; --count)
        text += pieces.at(below(random, pieces.size()));
    return text;
}

} // namespace

class RequiredCharacterTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void characters_data() {
        QTest::addColumn<QString>("pattern");
        QTest::addColumn<QString>("expected"); // empty for none
        QTest::newRow("nothing") << ""
                                 << "";
        QTest::newRow("plain") << "ab"
                               << "a";
        QTest::newRow("escaped") << "\\(a"
                                 << "(";
        QTest::newRow("call") << "\\b[A-Za-z0-9_]+(?=\\()"
                              << "(";
        QTest::newRow("line comment") << "//[^\n]*"
                                      << "/";
        QTest::newRow("string") << "\".*\""
                                << "\"";
        QTest::newRow("comment's start") << "/\\*"
                                         << "/";
        QTest::newRow("only in a class") << "^[Cc!][^\n]*"
                                         << "";
        QTest::newRow("class that holds its end") << "[]a]b"
                                                  << "b";
        QTest::newRow("class that excludes its end") << "[^]a]b"
                                                     << "b";
        QTest::newRow("class with an escaped end") << "[a\\]b]c"
                                                   << "c";
        QTest::newRow("many") << "a*b+c?"
                              << "b";
        QTest::newRow("counted") << "a{0,2}b"
                                 << "b";
        QTest::newRow("alternatives") << "a|b"
                                      << "";
        QTest::newRow("alternatives behind") << "ab|"
                                             << "";
        QTest::newRow("group") << "(a)b"
                               << "b";
        QTest::newRow("group of alternatives") << "(?:a|b)c"
                                               << "c";
        QTest::newRow("group in a group") << "((a)|[)])b"
                                          << "b";
        QTest::newRow("looked ahead for one of two") << "a*(?=b|c)"
                                                     << "";
        QTest::newRow("looked ahead for something else") << "x*(?!b)c"
                                                         << "c";
        QTest::newRow("looked ahead for, perhaps") << "(?=b)*"
                                                   << "";
        QTest::newRow("names of classes") << "\\w\\s\\bx"
                                          << "x";
        QTest::newRow("numbers of characters") << "\\x0041B"
                                               << "";
        QTest::newRow("octal numbers") << "\\0101B"
                                       << "";
        QTest::newRow("again") << "(a)\\1b"
                               << "";
        QTest::newRow("edges and anything") << "^.$"
                                            << "";
        QTest::newRow("class without an end") << "a[b"
                                              << "";
        QTest::newRow("group without an end") << "a(b"
                                              << "";
        QTest::newRow("count without an end") << "ab{"
                                              << "";
        QTest::newRow("escape of nothing") << "a\\"
                                           << "";
    }

    void characters() {
        QFETCH(QString, pattern);
        QFETCH(QString, expected);
        QCOMPARE(requiredCharacter(QRegExp(pattern)), expected.isEmpty() ? QChar() : expected.at(0));
    }

    void onlyCaseSensitivePerlLikePatterns() {
        QCOMPARE(requiredCharacter(QRegExp("a", Qt::CaseInsensitive)), QChar());
        QCOMPARE(requiredCharacter(QRegExp("a", Qt::CaseSensitive, QRegExp::RegExp2)), QChar('a'));
        for (const auto syntax :
             {QRegExp::Wildcard, QRegExp::WildcardUnix, QRegExp::FixedString, QRegExp::W3CXmlSchema11})
            QCOMPARE(requiredCharacter(QRegExp("a", Qt::CaseSensitive, syntax)), QChar());
    }

    // Wherever such an expression is found, the text holds its character there or behind.
    void searchesFindTheSame() {
        const QStringList atoms = {"a", "b",   "c",   "\\(", "\\b", ".", "[ab]", "[^a]", "(", ")",     "(?:", "(?=",
                                   "|", "(?!", "\\w", "*",   "+",   "?", "{2}",  "^",    "$", "\\x61", "\\1", "[]a]"};
        const QStringList characters = {"a", "b", "c", "(", " ", "]"};
        std::mt19937 random(11);
        int known = 0;
        int found = 0;
        for (int i = 0; i < 40000; ++i) {
            const QRegExp expression(generate(random, atoms, 6));
            const QChar required = requiredCharacter(expression);
            known += required.isNull() || !expression.isValid() ? 0 : 1;
            for (int j = 0; j < 4; ++j) {
                const QString text = generate(random, characters, 8);
                for (int from = 0; from <= text.length() + 1; ++from) {
                    const int expected = expression.indexIn(text, from);
                    found += expected >= 0 && !required.isNull() ? 1 : 0;
                    QVERIFY2(indexOfMatch(expression, required, text, from) == expected,
                             qPrintable(expression.pattern() + " in " + text));
                }
            }
        }
        QVERIFY(known > 3000);
        QVERIFY(found > 3000);
    }
};

QTEST_MAIN(RequiredCharacterTest)
#include "RequiredCharacterTest.moc"
