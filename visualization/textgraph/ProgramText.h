// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/VisualizationExport.h"

#include <iosfwd>
#include <list>
#include <string>
#include <vector>

namespace Kova::Tessel {
class StatementBase;
class TesselBase;
} // namespace Kova::Tessel

namespace Kova::GUI::TextGraph {

/// A piece of a printed line and what it was printed for.
struct BasicWord {
    /// As the printer wrote it, indentation included; may be empty.
    std::string text;
    /// Not owned. Null when the printer wrote the piece for something that is not of the kind looked for.
    const Tessel::TesselBase* object = nullptr;
};

/// Printed lines, in order, as words; a line's words one after the other are the line.
using ProgramLines = std::vector<std::list<BasicWord>>;

/// Appends a statement's text with one word a line, which holds the statement that opened the line; null for a line
/// that something else opened.
/// @param out what the printer wrote before it threw stays there.
VISUALIZATION_EXPORT void buildStmtProgramText(ProgramLines& out, Tessel::StatementBase& stmt);

/// Appends a statement's text with a word for each piece, which holds the innermost expression that the piece was
/// printed for; null for keywords, punctuation and indentation of statements.
/// @param out what the printer wrote before it threw stays there.
VISUALIZATION_EXPORT void buildExprProgramText(ProgramLines& out, Tessel::StatementBase& stmt);

/// The plain text, for debugging. Each line is flushed.
VISUALIZATION_EXPORT std::ostream& operator<<(std::ostream& stream, ProgramLines& lines);

} // namespace Kova::GUI::TextGraph
