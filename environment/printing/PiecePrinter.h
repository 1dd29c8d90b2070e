// SPDX-License-Identifier: MIT
#pragma once

#include "environment/printing/PieceList.h"

#include <vector>

namespace Kova::Backends {

class PieceLanguage;
class PieceSink;

/// Prints a tree into a sink: expands node after node from a list of what is left to print. It does not recurse, so a
/// tree may be of any depth. It sets the parentheses that the language's precedences need and no others, puts a blank
/// between two texts that would be read as one operator or as the begin of a comment, and gives a node that prints as
/// nothing an empty text.
class PiecePrinter {
public:
    /// Both outlive the printer.
    PiecePrinter(PieceLanguage& language, PieceSink& sink) : m_language(language), m_sink(sink) {}

    void print(const Tessel::TesselBase& root);
    void print(PieceList&& pieces);

private:
    void printPiece(const Piece& piece);
    void expandNode(Tessel::TesselBase& node, Precedence context);
    void write(const Piece& piece);
    /// Moves what is expanded in front of what is left to print.
    void schedule();

    PieceLanguage& m_language;
    PieceSink& m_sink;
    PieceList m_expanded;
    // What is left to print, the next one last.
    std::vector<Piece> m_pending;
    char m_lastCharacter = ' ';
};

} // namespace Kova::Backends
