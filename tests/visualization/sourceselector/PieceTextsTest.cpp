// SPDX-License-Identifier: MIT
#include "visualization/sourceselector/PieceTexts.h"

#include <QtTest>

using Kova::GUI::PieceTexts;

class PieceTextsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void makesEveryText();
    void makesNothingOfNothing();
    void sharesShortTexts();
};

// More different ones than are kept at a time, twice, so that each place is taken by several.
void PieceTextsTest::makesEveryText() {
    PieceTexts texts;
    for (int round = 0; round < 2; ++round) {
        for (int i = 0; i < 10000; ++i) {
            const QString wanted = QString::number(i * 7919);
            QCOMPARE(texts.toString(wanted.toUtf8().constData()), wanted);
        }
    }
    for (const QString& wanted : {QString("1234567"), QString("12345678"), QString("123456789"), QString(500, 'x'),
                                  QString::fromUtf8("\xC3\xA4\xC3\xB6"), QString::fromUtf8("\xD0\xB6\xD0\xB6\xD0\xB6"),
                                  QString("    "), QString("        "), QString("            ")})
        QCOMPARE(texts.toString(wanted.toUtf8().constData()), wanted);
}

void PieceTextsTest::makesNothingOfNothing() {
    PieceTexts texts;
    QCOMPARE(texts.toString(""), QString(""));
    QCOMPARE(texts.toString(nullptr), QString(""));
}

void PieceTextsTest::sharesShortTexts() {
    PieceTexts texts;
    const QString first = texts.toString(" = ");
    const QString second = texts.toString(" = ");
    QCOMPARE(static_cast<const void*>(first.constData()), static_cast<const void*>(second.constData()));
}

QTEST_APPLESS_MAIN(PieceTextsTest)
#include "PieceTextsTest.moc"
