// SPDX-License-Identifier: MIT
#pragma once

#include <QRegExp>
#include <QString>
#include <QStringList>
#include <QStringMatcher>
#include <QTextCharFormat>

#include <vector>

/// How a line is coloured, told as plainly as it can be: every keyword is searched for, then every rule, then comments
/// over lines. The tables are open, so that languages and odd rules can be put together by hand.
struct PlainWalk {
    struct Keyword {
        QStringMatcher matcher;
        int length;
    };
    struct Rule {
        QRegExp pattern;
        QTextCharFormat format;
    };

    std::vector<Keyword> keywords;
    std::vector<Rule> rules;
    QRegExp commentStart, commentEnd;

    static QTextCharFormat coloured(Qt::GlobalColor colour) {
        QTextCharFormat format;
        format.setForeground(QBrush(colour, Qt::SolidPattern));
        return format;
    }

    static QTextCharFormat keywordFormat() {
        QTextCharFormat format = coloured(Qt::darkBlue);
        format.setFontWeight(75);
        return format;
    }

    static QTextCharFormat functionFormat() {
        QTextCharFormat format = coloured(Qt::blue);
        format.setFontItalic(true);
        return format;
    }

    static QTextCharFormat commentFormat() { return coloured(Qt::red); }
    static QTextCharFormat quotationFormat() { return coloured(Qt::darkGreen); }

    void addKeywords(const QStringList& words, Qt::CaseSensitivity sensitivity) {
        for (const QString& word : words)
            keywords.push_back({QStringMatcher(word, sensitivity), static_cast<int>(word.length())});
    }

    /// Calls apply(start, count, format) for each stretch in turn; later ones replace earlier ones.
    /// @param before the state of the line before, -1 for none. @return the state of this line.
    template <class Apply>
    int walk(const QString& text, int before, Apply apply) const {
        const QTextCharFormat ofKeywords = keywordFormat();
        for (const Keyword& keyword : keywords)
            walkKeyword(text, keyword, ofKeywords, apply);
        for (const Rule& rule : rules)
            walkRule(text, rule, apply);
        return walkComments(text, before, apply);
    }

private:
    template <class Apply>
    static void walkKeyword(const QString& text, const Keyword& keyword, const QTextCharFormat& format, Apply& apply) {
        int p = keyword.matcher.indexIn(text, 0);
        while (p != -1) {
            const int after = p + keyword.length;
            const bool joinedBefore = p > 0 && text[p - 1].isLetterOrNumber();
            const bool joinedAfter = after < text.length() && text[after].isLetterOrNumber();
            if (!joinedBefore && !joinedAfter)
                apply(p, keyword.length, format);
            p = keyword.matcher.indexIn(text, after);
        }
    }

    template <class Apply>
    static void walkRule(const QString& text, const Rule& rule, Apply& apply) {
        int p = rule.pattern.indexIn(text, 0);
        while (p != -1) {
            const int m = rule.pattern.matchedLength();
            if (m == 0)
                return;
            apply(p, m, rule.format);
            p = rule.pattern.indexIn(text, p + m);
        }
    }

    template <class Apply>
    int walkComments(const QString& text, int before, Apply& apply) const {
        if (commentStart.isEmpty())
            return 0;
        int s = 0;
        if (before != 1) {
            s = commentStart.indexIn(text, 0);
            if (s == -1)
                return 0;
        }
        do {
            const int e = commentEnd.indexIn(text, s);
            if (e == -1) {
                apply(s, text.length() - s, commentFormat());
                return 1;
            }
            const int next = e + commentEnd.matchedLength();
            apply(s, next - s, commentFormat());
            if (next == s)
                return 0;
            s = commentStart.indexIn(text, next);
        } while (s != -1);
        return 0;
    }
};

inline QStringList cKeywords() {
    return QString(
               "auto break case char const continue default do double else enum extern float for goto if int long "
               "register restrict return short signed sizeof static struct switch typedef union unsigned void volatile "
               "while")
        .split(' ');
}

inline QStringList fortranKeywords() {
    return QString(
               "access action advance allocatable allocate apostrophe assign assignment associate asynchronous "
               "backspace "
               "bind blank blockdata call case character class close common complex contains continue cycle data "
               "deallocate decimal delim default dimension direct do dowhile double doubleprecision else elseif "
               "elsewhere "
               "encoding end endassociate endblockdata enddo endfile endforall endfunction endif endinterface "
               "endmodule "
               "endprogram endselect endsubroutine endtype endwhere entry eor equivalence err errmsg exist exit "
               "external "
               "file flush fmt forall form format formatted function go goto id if implicit in include inout integer "
               "inquire intent interface intrinsic iomsg iolength iostat kind len logical module name named namelist "
               "nextrec nml none nullify number only open opened operator optional out pad parameter pass pause "
               "pending "
               "pointer pos position precision print private program protected public quote read readwrite real rec "
               "recl "
               "recursive result return rewind save select selectcase selecttype sequential sign size stat status stop "
               "stream subroutine target then to type unformatted unit use value volatile wait where while write")
        .split(' ');
}

inline PlainWalk plainC() {
    PlainWalk walk;
    walk.rules.push_back({QRegExp("\\b[A-Za-z0-9_]+(?=\\()"), PlainWalk::functionFormat()});
    walk.addKeywords(cKeywords(), Qt::CaseSensitive);
    walk.rules.push_back({QRegExp("//[^\n]*"), PlainWalk::commentFormat()});
    walk.rules.push_back({QRegExp("\".*\""), PlainWalk::quotationFormat()});
    walk.commentStart = QRegExp("/\\*");
    walk.commentEnd = QRegExp("\\*/");
    return walk;
}

inline PlainWalk plainFortran() {
    PlainWalk walk;
    walk.addKeywords(fortranKeywords(), Qt::CaseInsensitive);
    walk.rules.push_back({QRegExp("^[Cc!][^\n]*"), PlainWalk::commentFormat()});
    walk.rules.push_back({QRegExp("'.*'"), PlainWalk::quotationFormat()});
    return walk;
}
