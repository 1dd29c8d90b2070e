// SPDX-License-Identifier: MIT
#pragma once

#include "tests/visualization/highlight/PlainWalk.h"
#include "visualization/highlight/SyntaxHighlighterBase.h"

/// A highlighter whose tables tests fill; colours anew by rehighlight().
class TestedHighlighter : public Kova::GUI::SyntaxHighlighterBase {
public:
    explicit TestedHighlighter(QTextDocument* document) : SyntaxHighlighterBase(document) {}

    /// With the tables of a walk.
    TestedHighlighter(QTextDocument* document, const PlainWalk& walk) : SyntaxHighlighterBase(document) {
        for (const PlainWalk::Keyword& keyword : walk.keywords)
            addKeywords({keyword.matcher.pattern()}, keyword.matcher.caseSensitivity() == Qt::CaseSensitive);
        for (const PlainWalk::Rule& rule : walk.rules)
            addRule({rule.pattern, rule.format});
        setMultilineCommentFormat(walk.commentStart, walk.commentEnd);
    }

    using SyntaxHighlighterBase::addKeywords;
    using SyntaxHighlighterBase::addRule;
    using SyntaxHighlighterBase::getKeywords;
    using SyntaxHighlighterBase::getRules;
    using SyntaxHighlighterBase::HighlightingRule;
    using SyntaxHighlighterBase::setFunctionFormat;
    using SyntaxHighlighterBase::setMultilineCommentFormat;
    using SyntaxHighlighterBase::setQuotationFormat;
    using SyntaxHighlighterBase::setSingleLineCommentFormat;
};
