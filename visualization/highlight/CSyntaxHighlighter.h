// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/highlight/SyntaxHighlighterBase.h"

namespace Kova::GUI {

/// Colours C: keywords, names in front of an opening parenthesis, comments of both kinds, and what stands between the
/// first and the last double quote of a line.
class VISUALIZATION_EXPORT CSyntaxHighlighter : public SyntaxHighlighterBase {
    Q_OBJECT

public:
    explicit CSyntaxHighlighter(QTextDocument* document);
};

} // namespace Kova::GUI
