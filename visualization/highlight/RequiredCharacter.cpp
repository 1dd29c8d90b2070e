// SPDX-License-Identifier: MIT
#include "visualization/highlight/RequiredCharacter.h"

namespace Kova::GUI {

namespace {

/// Reads a pattern atom by atom. Whatever it does not understand makes it give up.
class PatternReader {
public:
    explicit PatternReader(const QString& pattern) : m_pattern(pattern) {}

    QChar findRequired() {
        QChar required;
        while (m_understood && !atEnd()) {
            const QChar candidate = readAtom();
            if (readQuantifier() && required.isNull())
                required = candidate;
        }
        return m_understood ? required : QChar();
    }

private:
    [[nodiscard]] bool atEnd() const { return m_position >= m_pattern.length(); }
    [[nodiscard]] bool isNext(char character) const { return !atEnd() && m_pattern.at(m_position) == character; }
    QChar take() { return atEnd() ? giveUp() : m_pattern.at(m_position++); }
    QChar giveUp() {
        m_understood = false;
        return {};
    }

    /// @return what the atom cannot match without, or null.
    QChar readAtom() {
        const QChar character = take();
        switch (character.unicode()) {
        case '|': // what is found may belong to one of the alternatives only
            return giveUp();
        case '^':
        case '$':
        case '.':
            return {};
        case '\\':
            return readEscape();
        case '[':
            return readClass();
        case '(':
            return readGroup();
        default:
            return character;
        }
    }

    QChar readEscape() {
        const QChar character = take();
        if (character.isDigit() || character == 'x') // the digits that follow belong to it
            return giveUp();
        return character.isLetter() ? QChar() : character;
    }

    /// The first character of a class is never its end.
    QChar readClass() {
        if (isNext('^'))
            take();
        do {
            if (take() == '\\')
                take();
        } while (m_understood && !isNext(']'));
        take();
        return {};
    }

    QChar readGroup() {
        const int start = m_position;
        while (m_understood && !isNext(')'))
            readAtomInGroup();
        const QString group = m_pattern.mid(start, m_position - start);
        take();
        return m_understood && group.startsWith("?=") ? PatternReader(group.mid(2)).findRequired() : QChar();
    }

    void readAtomInGroup() {
        if (isNext('|'))
            take();
        else
            readAtom();
    }

    /// @return whether what stands before is needed once at least.
    bool readQuantifier() {
        bool needed = true;
        while (isNext('*') || isNext('?') || isNext('+') || isNext('{')) {
            const QChar quantifier = take();
            needed = needed && quantifier == '+';
            while (quantifier == '{' && m_understood && take() != '}') {
            }
        }
        return needed;
    }

    const QString m_pattern;
    int m_position = 0;
    bool m_understood = true;
};

} // namespace

QChar requiredCharacter(const QRegExp& expression) {
    const bool perlLike =
        expression.patternSyntax() == QRegExp::RegExp || expression.patternSyntax() == QRegExp::RegExp2;
    if (!perlLike || expression.caseSensitivity() != Qt::CaseSensitive)
        return {};
    return PatternReader(expression.pattern()).findRequired();
}

int indexOfMatch(const QRegExp& expression, QChar required, const QString& text, int from) {
    if (!required.isNull() && text.indexOf(required, from) < 0)
        return -1;
    return expression.indexIn(text, from);
}

} // namespace Kova::GUI
