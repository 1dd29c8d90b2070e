// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>
#include <QTextCharFormat>
#include <QTextDocument>
#include <QtTest>

#include <vector>

/// Compares the tables that a language's highlighter has filled in its constructor.
/// @param formats of the rules in their order.
template <class Highlighter>
void compareTables(const QStringList& words, Qt::CaseSensitivity sensitivity,
                   const std::vector<QTextCharFormat>& formats) {
    class OpenHighlighter : public Highlighter {
    public:
        using Highlighter::getKeywords;
        using Highlighter::getRules;
        using Highlighter::Highlighter;
    };
    QTextDocument document;
    const OpenHighlighter highlighter(&document);

    QStringList foundWords;
    for (const auto& keyword : highlighter.getKeywords()) {
        foundWords.append(keyword.matcher.pattern());
        QCOMPARE(keyword.matcher.caseSensitivity(), sensitivity);
        QCOMPARE(keyword.length, static_cast<int>(keyword.matcher.pattern().length()));
    }
    QCOMPARE(foundWords, words);

    std::vector<QTextCharFormat> foundFormats;
    for (const auto& rule : highlighter.getRules()) {
        foundFormats.push_back(rule.format);
        QVERIFY(rule.pattern.isValid());
        QCOMPARE(rule.pattern.patternSyntax(), QRegExp::RegExp);
        QCOMPARE(rule.pattern.caseSensitivity(), Qt::CaseSensitive);
    }
    QCOMPARE(foundFormats, formats);
}
