// SPDX-License-Identifier: MIT
// Generated texts, coloured by the highlighters and by the plain walk.
#include "tests/visualization/highlight/ColouredText.h"
#include "tests/visualization/highlight/TestedHighlighter.h"
#include "visualization/highlight/CSyntaxHighlighter.h"
#include "visualization/highlight/FortranSyntaxHighlighter.h"

#include <QTextCursor>
#include <QtTest>

#include <random>

using Kova::GUI::CSyntaxHighlighter;
using Kova::GUI::FortranSyntaxHighlighter;

namespace {

/// Texts of pieces that mean something to highlighters, thrown together.
class TextGenerator {
public:
    explicit TextGenerator(unsigned seed) : m_random(seed) {}

    int below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(m_random); }
    const QString& pick(const QStringList& list) { return list.at(below(list.size())); }

    QString piece(const QStringList& keywords) {
        static const QStringList signs = {"/*",
                                          "*/",
                                          "/",
                                          "*",
                                          "//",
                                          "\"",
                                          "'",
                                          "!",
                                          "c",
                                          "C",
                                          "(",
                                          ")",
                                          "_",
                                          " ",
                                          " ",
                                          " ",
                                          " ",
                                          "\t",
                                          "\\",
                                          "#",
                                          "-",
                                          "9",
                                          "x",
                                          "Z",
                                          "if(",
                                          "f (",
                                          "/*/",
                                          QString::fromUtf8("\u00e9"),
                                          QString::fromUtf8("\u017f"),
                                          QString::fromUtf8("\u212a"),
                                          QString::fromUtf8("\u0301"),
                                          QString::fromUtf8("\U0001F600"),
                                          QString::fromUtf8("\U00010400"),
                                          QString(QChar(0xD801)),
                                          QString(QChar(0xDC00)),
                                          QString(QChar(0x2028)),
                                          QString(QChar(0))};
        if (below(2) == 0)
            return pick(signs);
        const QString& word = pick(keywords);
        switch (below(5)) {
        case 0:
            return word.toUpper();
        case 1:
            return QString(word).replace('s', QChar(0x17F)).replace('k', QChar(0x212A));
        case 2:
            return word.left(below(word.length() + 1));
        default:
            return word;
        }
    }

    QString line(const QStringList& keywords) {
        QString line;
        for (int pieces = below(16); pieces > 0; --pieces)
            line += piece(keywords);
        return line;
    }

    QString text(const QStringList& keywords) {
        QStringList lines;
        for (int count = 1 + below(10); count > 0; --count)
            lines.append(line(keywords));
        return lines.join('\n');
    }

private:
    std::mt19937 m_random;
};

/// What is in the tables of an odd language.
const QStringList oddWords = {"a", "aa", "ab", "a-a", "b1", "1", "a_b", "_", " ", "", "Sk", "\u00e9"};
const QStringList oddPatterns = {"a",   "^a",     "a*",  "\\ba",     "b|aa", "(a|b)1",  "a(?=b)", "a(?!b)",  "[ab]+",
                                 "\\s", "a{2}",   "b+a", "(ab)*a",   "$",    ".",       "\\W",    "[^a]a",   "-?1",
                                 "_+",  "(a)\\1", "",    "(?=a|b)1", "(",    "\\x0061", "b*$",    "a.*(?=_)"};

PlainWalk oddWalk(TextGenerator& generator) {
    PlainWalk walk;
    for (int count = generator.below(6); count > 0; --count) {
        const QString word = generator.pick(oddWords);
        if (!word.isEmpty())
            walk.addKeywords({word}, generator.below(2) == 0 ? Qt::CaseSensitive : Qt::CaseInsensitive);
    }
    const std::vector<QTextCharFormat> formats = {PlainWalk::functionFormat(), PlainWalk::commentFormat(),
                                                  PlainWalk::quotationFormat()};
    for (int count = generator.below(4); count > 0; --count) {
        QRegExp pattern(generator.pick(oddPatterns));
        if (generator.below(4) == 0)
            pattern.setCaseSensitivity(Qt::CaseInsensitive);
        if (generator.below(4) == 0)
            pattern.setPatternSyntax(generator.below(2) == 0 ? QRegExp::FixedString : QRegExp::Wildcard);
        pattern.setMinimal(generator.below(4) == 0);
        walk.rules.push_back({pattern, formats.at(static_cast<std::size_t>(generator.below(3)))});
    }
    walk.commentStart = QRegExp(generator.pick(oddPatterns));
    walk.commentEnd = QRegExp(generator.pick(oddPatterns));
    return walk;
}

template <class Highlighter>
void compareGenerated(unsigned seed, const PlainWalk& walk, const QStringList& keywords) {
    TextGenerator generator(seed);
    for (int i = 0; i < 1500; ++i) {
        const QString text = generator.text(keywords);
        const int line = firstDifference(ColouredText<Highlighter>(text), walk);
        QVERIFY2(line == -1, qPrintable(QString("line %1 of: %2").arg(line).arg(text)));
    }
}

/// The same text after edits at random places is coloured as if it had always been so.
template <class Highlighter>
void compareEdited(unsigned seed, const PlainWalk& walk, const QStringList& keywords) {
    TextGenerator generator(seed);
    for (int i = 0; i < 30; ++i) {
        ColouredText<Highlighter> text(generator.text(keywords));
        for (int edit = 0; edit < 30; ++edit) {
            QTextCursor cursor(&text.document());
            const int length = text.document().characterCount() - 1;
            cursor.setPosition(generator.below(length + 1));
            if (generator.below(3) == 0)
                cursor.setPosition(generator.below(length + 1), QTextCursor::KeepAnchor);
            cursor.insertText(generator.below(4) == 0 ? QString("\n") : generator.piece(keywords));
            QCOMPARE(firstDifference(text, walk), -1);
        }
    }
}

} // namespace

class HighlightedTextsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void c() { compareGenerated<CSyntaxHighlighter>(1, plainC(), cKeywords()); }
    void fortran() { compareGenerated<FortranSyntaxHighlighter>(2, plainFortran(), fortranKeywords()); }
    void editedC() { compareEdited<CSyntaxHighlighter>(3, plainC(), cKeywords()); }
    void editedFortran() { compareEdited<FortranSyntaxHighlighter>(4, plainFortran(), fortranKeywords()); }

    void oddLanguages() {
        const QStringList words = {"a", "b", "A", "1", "ab", "aa", "-"};
        TextGenerator generator(5);
        for (int i = 0; i < 4000; ++i) {
            const PlainWalk walk = oddWalk(generator);
            const QString text = generator.text(words);
            const int line = firstDifference(ColouredText<TestedHighlighter>(text, walk), walk);
            QVERIFY2(line == -1, qPrintable(QString("line %1 of: %2").arg(line).arg(text)));
        }
    }

    // Otherwise the comparisons would say nothing.
    void generatedTextsHoldEverything() {
        TextGenerator generator(6);
        QString letters;
        int open = 0;
        for (int i = 0; i < 200; ++i) {
            const ColouredText<CSyntaxHighlighter> text(generator.text(cKeywords()));
            letters += text.letters();
            open += text.state(0);
        }
        for (const char letter : {'k', 'f', 'c', 'q', '.'})
            QVERIFY2(letters.count(letter) > 50, qPrintable(QString(letter)));
        QVERIFY(!letters.contains('?'));
        QVERIFY(open > 10);
        QVERIFY(open < 190);
    }
};

QTEST_MAIN(HighlightedTextsTest)
#include "HighlightedTextsTest.moc"
