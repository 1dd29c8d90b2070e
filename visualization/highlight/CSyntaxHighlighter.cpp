// SPDX-License-Identifier: MIT
#include "visualization/highlight/CSyntaxHighlighter.h"

namespace Kova::GUI {

CSyntaxHighlighter::CSyntaxHighlighter(QTextDocument* document) : SyntaxHighlighterBase(document) {
    setFunctionFormat(QRegExp(R"(\b[A-Za-z0-9_]+(?=\())"));
    const QStringList keywords = {"auto",  "break",    "case",   "char",     "const",    "continue", "default",
                                  "do",    "double",   "else",   "enum",     "extern",   "float",    "for",
                                  "goto",  "if",       "int",    "long",     "register", "restrict", "return",
                                  "short", "signed",   "sizeof", "static",   "struct",   "switch",   "typedef",
                                  "union", "unsigned", "void",   "volatile", "while"};
    addKeywords(keywords, true);
    setSingleLineCommentFormat(QRegExp("//[^\n]*"));
    setQuotationFormat(QRegExp("\".*\""));
    setMultilineCommentFormat(QRegExp(R"(/\*)"), QRegExp(R"(\*/)"));
}

} // namespace Kova::GUI
