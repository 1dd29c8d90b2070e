// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/highlight/SyntaxHighlighterBase.h"

namespace Kova::GUI {

/// Colours Fortran: keywords in any case, lines that begin with "C", "c" or "!" as comments (an exclamation mark
/// further on begins none), and what stands between the first and the last single quote of a line.
class VISUALIZATION_EXPORT FortranSyntaxHighlighter : public SyntaxHighlighterBase {
    Q_OBJECT

public:
    explicit FortranSyntaxHighlighter(QTextDocument* document);
};

} // namespace Kova::GUI
