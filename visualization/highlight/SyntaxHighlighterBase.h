// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/VisualizationExport.h"
#include "visualization/highlight/WordTable.h"

#include <QList>
#include <QRegExp>
#include <QStringMatcher>
#include <QSyntaxHighlighter>
#include <QTextCharFormat>
#include <QVector>

#include <vector>

namespace Kova::GUI {

/// Colours program text line by line: keywords first, then rules in the order they were added, then comments that go on
/// over lines, each over what was coloured before it.
///
/// Nothing is parsed. A block's state is 1 when a comment is still open at its end, 0 otherwise. A language is a
/// subclass whose constructor fills the tables; they do not change afterwards. All expressions are case-sensitive.
class VISUALIZATION_EXPORT SyntaxHighlighterBase : public QSyntaxHighlighter {
    Q_OBJECT

public:
    /// @param document which is coloured and owns the highlighter; null for none.
    explicit SyntaxHighlighterBase(QTextDocument* document);

protected:
    struct Keyword {
        QStringMatcher matcher;
        /// In characters.
        int length;
    };

    struct HighlightingRule {
        QRegExp pattern;
        QTextCharFormat format;
    };

    /// Words that stand alone, that is, between characters that are neither letters nor digits: an underscore parts
    /// words.
    void addKeywords(const QStringList& words, bool caseSensitive);
    void addRule(const HighlightingRule& rule);
    void setFunctionFormat(const QRegExp& pattern);
    void setSingleLineCommentFormat(const QRegExp& pattern);
    void setQuotationFormat(const QRegExp& pattern);
    /// The end is searched from the start's first character on, not from behind it.
    void setMultilineCommentFormat(const QRegExp& start, const QRegExp& end);

    [[nodiscard]] const QList<Keyword>& getKeywords() const { return m_keywords; }
    [[nodiscard]] const QVector<HighlightingRule>& getRules() const { return m_rules; }

    void highlightBlock(const QString& text) override;

private:
    void highlightKeywords(const QString& text);
    void highlightKeyword(const QString& text, const Keyword& keyword, const QTextCharFormat& format);
    void highlightRule(const QString& text, const HighlightingRule& rule, QChar required);
    void highlightMultilineComments(const QString& text);
    [[nodiscard]] int findCommentStart(const QString& text, int from) const;

    QList<Keyword> m_keywords;
    QVector<HighlightingRule> m_rules;
    QRegExp m_commentStart;
    QRegExp m_commentEnd;
    QTextCharFormat m_multilineCommentFormat;

    /// Which keywords a block may hold: no other is searched for.
    WordTable m_words;
    std::vector<int> m_possibleKeywords;
    /// The required characters of the expressions: lines without them are not searched.
    QVector<QChar> m_ruleCharacters;
    QChar m_commentStartCharacter;
};

} // namespace Kova::GUI
