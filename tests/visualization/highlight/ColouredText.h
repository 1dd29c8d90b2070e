// SPDX-License-Identifier: MIT
#pragma once

#include "tests/visualization/highlight/PlainWalk.h"

#include <QPlainTextDocumentLayout>
#include <QSyntaxHighlighter>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>

#include <vector>

/// The formats of a line, one for each character.
using CharacterFormats = std::vector<QTextCharFormat>;

[[nodiscard]] inline CharacterFormats formatsOf(const QTextBlock& block) {
    CharacterFormats formats(static_cast<std::size_t>(block.length() - 1));
    for (const QTextLayout::FormatRange& range : block.layout()->formats())
        for (int i = range.start; i < range.start + range.length; ++i)
            formats.at(static_cast<std::size_t>(i)) = range.format;
    return formats;
}

/// What a walk does, written down: the formats of a line, and its state.
struct WalkedLine {
    CharacterFormats formats;
    int state;

    WalkedLine(const PlainWalk& walk, const QString& text, int before)
        : formats(static_cast<std::size_t>(text.length())) {
        state = walk.walk(text, before, [this](int start, int count, const QTextCharFormat& format) {
            for (int i = start; i < start + count; ++i)
                formats.at(static_cast<std::size_t>(i)) = format;
        });
    }
};

/// A letter for each character of a line: k keyword, f function, c comment, q quotation, . nothing, ? anything else.
[[nodiscard]] inline QString lettersOf(const CharacterFormats& formats) {
    QString letters;
    for (const QTextCharFormat& format : formats) {
        if (format == QTextCharFormat())
            letters += '.';
        else if (format == PlainWalk::keywordFormat())
            letters += 'k';
        else if (format == PlainWalk::functionFormat())
            letters += 'f';
        else if (format == PlainWalk::commentFormat())
            letters += 'c';
        else if (format == PlainWalk::quotationFormat())
            letters += 'q';
        else
            letters += '?';
    }
    return letters;
}

/// A text that a highlighter has coloured.
template <class Highlighter>
class ColouredText {
public:
    /// Lines end with '\n'. The rest is handed on to the highlighter.
    template <class... Arguments>
    explicit ColouredText(const QString& text, const Arguments&... arguments)
        : m_highlighter(&m_document, arguments...) {
        m_document.setDocumentLayout(new QPlainTextDocumentLayout(&m_document)); // without one no edit is told of
        m_document.setPlainText(text);
        m_highlighter.rehighlight();
    }

    [[nodiscard]] QTextDocument& document() { return m_document; }
    [[nodiscard]] Highlighter& highlighter() { return m_highlighter; }
    [[nodiscard]] QTextBlock line(int number) const { return m_document.findBlockByNumber(number); }
    [[nodiscard]] int lineCount() const { return m_document.blockCount(); }
    [[nodiscard]] QString letters(int number) const { return lettersOf(formatsOf(line(number))); }
    [[nodiscard]] int state(int number) const { return line(number).userState(); }

    /// The letters of all lines, joined with '\n'.
    [[nodiscard]] QString letters() const {
        QStringList lines;
        for (int i = 0; i < lineCount(); ++i)
            lines.append(letters(i));
        return lines.join('\n');
    }

private:
    QTextDocument m_document;
    Highlighter m_highlighter;
};

/// For a highlighter of one language.
template <class Highlighter>
[[nodiscard]] QString coloured(const QString& text) {
    return ColouredText<Highlighter>(text).letters();
}

/// The number of the first line that is coloured otherwise than the walk does it or has another state; -1 for none.
template <class Highlighter>
[[nodiscard]] int firstDifference(const ColouredText<Highlighter>& text, const PlainWalk& walk) {
    int before = -1;
    for (int i = 0; i < text.lineCount(); ++i) {
        const QTextBlock line = text.line(i);
        const WalkedLine expected(walk, line.text(), before);
        if (formatsOf(line) != expected.formats || line.userState() != expected.state)
            return i;
        before = expected.state;
    }
    return -1;
}
