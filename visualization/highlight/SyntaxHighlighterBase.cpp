// SPDX-License-Identifier: MIT
#include "visualization/highlight/SyntaxHighlighterBase.h"

#include "visualization/highlight/RequiredCharacter.h"

#include <QBrush>
#include <QFont>

namespace Kova::GUI {

namespace {

enum BlockState { OutsideComment = 0, InsideComment = 1 };

QTextCharFormat colouredFormat(Qt::GlobalColor colour) {
    QTextCharFormat format;
    format.setForeground(QBrush(colour));
    return format;
}

QTextCharFormat makeKeywordFormat() {
    QTextCharFormat format = colouredFormat(Qt::darkBlue);
    format.setFontWeight(QFont::Bold);
    return format;
}

bool standsAlone(const QString& text, int position, int length) {
    const int behind = position + length;
    return (position == 0 || !text.at(position - 1).isLetterOrNumber()) &&
           (behind >= text.length() || !text.at(behind).isLetterOrNumber());
}

} // namespace

SyntaxHighlighterBase::SyntaxHighlighterBase(QTextDocument* document) : QSyntaxHighlighter(document) {}

void SyntaxHighlighterBase::addKeywords(const QStringList& words, bool caseSensitive) {
    const Qt::CaseSensitivity sensitivity = caseSensitive ? Qt::CaseSensitive : Qt::CaseInsensitive;
    for (const QString& word : words) {
        m_keywords.append({QStringMatcher(word, sensitivity), static_cast<int>(word.length())});
        m_words.add(word);
    }
}

void SyntaxHighlighterBase::addRule(const HighlightingRule& rule) {
    m_rules.append(rule);
    m_ruleCharacters.append(requiredCharacter(rule.pattern));
}

void SyntaxHighlighterBase::setFunctionFormat(const QRegExp& pattern) {
    QTextCharFormat format = colouredFormat(Qt::blue);
    format.setFontItalic(true);
    addRule({pattern, format});
}

void SyntaxHighlighterBase::setSingleLineCommentFormat(const QRegExp& pattern) {
    addRule({pattern, colouredFormat(Qt::red)});
}

void SyntaxHighlighterBase::setQuotationFormat(const QRegExp& pattern) {
    addRule({pattern, colouredFormat(Qt::darkGreen)});
}

void SyntaxHighlighterBase::setMultilineCommentFormat(const QRegExp& start, const QRegExp& end) {
    m_multilineCommentFormat.setForeground(QBrush(Qt::red));
    m_commentStart = start;
    m_commentStartCharacter = requiredCharacter(start);
    m_commentEnd = end;
}

void SyntaxHighlighterBase::highlightBlock(const QString& text) {
    highlightKeywords(text);
    for (int i = 0; i < m_rules.size(); ++i)
        highlightRule(text, m_rules.at(i), m_ruleCharacters.at(i));
    highlightMultilineComments(text);
}

void SyntaxHighlighterBase::highlightKeywords(const QString& text) {
    const QTextCharFormat format = makeKeywordFormat();
    m_words.findPossible(text, m_possibleKeywords);
    for (const int number : m_possibleKeywords)
        highlightKeyword(text, m_keywords.at(number), format);
}

void SyntaxHighlighterBase::highlightKeyword(const QString& text, const Keyword& keyword,
                                             const QTextCharFormat& format) {
    if (keyword.length == 0)
        return;
    for (int position = keyword.matcher.indexIn(text); position >= 0;
         position = keyword.matcher.indexIn(text, position + keyword.length))
        if (standsAlone(text, position, keyword.length))
            setFormat(position, keyword.length, format);
}

// A match of no length would be found again and again.
void SyntaxHighlighterBase::highlightRule(const QString& text, const HighlightingRule& rule, QChar required) {
    int position = indexOfMatch(rule.pattern, required, text, 0);
    while (position >= 0 && rule.pattern.matchedLength() > 0) {
        const int length = rule.pattern.matchedLength();
        setFormat(position, length, rule.format);
        position = indexOfMatch(rule.pattern, required, text, position + length);
    }
}

void SyntaxHighlighterBase::highlightMultilineComments(const QString& text) {
    setCurrentBlockState(OutsideComment);
    if (m_commentStart.isEmpty())
        return;
    int start = previousBlockState() == InsideComment ? 0 : findCommentStart(text, 0);
    while (start >= 0) {
        const int end = m_commentEnd.indexIn(text, start);
        if (end < 0) {
            setCurrentBlockState(InsideComment);
            setFormat(start, text.length() - start, m_multilineCommentFormat);
            return;
        }
        const int length = end - start + m_commentEnd.matchedLength();
        if (length == 0) // the same comment would be found again and again
            return;
        setFormat(start, length, m_multilineCommentFormat);
        start = findCommentStart(text, start + length);
    }
}

int SyntaxHighlighterBase::findCommentStart(const QString& text, int from) const {
    return indexOfMatch(m_commentStart, m_commentStartCharacter, text, from);
}

} // namespace Kova::GUI
