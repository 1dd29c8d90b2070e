// SPDX-License-Identifier: MIT
#include "environment/printing/PiecePrinter.h"

#include "environment/printing/PieceLanguage.h"
#include "environment/printing/PieceSink.h"

#include <cstring>
#include <utility>

namespace Kova::Backends {

namespace {

/// True when the two characters, one after the other, would not be read as the end of one word and the begin of
/// another.
bool wouldMerge(char last, char first) {
    if (last == '/')
        return first == '/' || first == '*';
    return last == first && std::strchr("+-&", last) != nullptr;
}

} // namespace

void PiecePrinter::print(const Tessel::TesselBase& root) {
    m_expanded.node(&root);
    schedule();
    while (!m_pending.empty()) {
        Piece piece = std::move(m_pending.back());
        m_pending.pop_back();
        printPiece(piece);
    }
}

void PiecePrinter::printPiece(Piece& piece) {
    switch (piece.kind) {
    case Piece::Kind::Text:
        write(piece.text, *piece.node);
        break;
    case Piece::Kind::Node:
        expandNode(*piece.node, piece.context);
        break;
    case Piece::Kind::Type:
        m_language.expandType(*piece.type, *piece.node, m_expanded);
        schedule();
        break;
    case Piece::Kind::LineBreak:
        m_sink.breakLine(*piece.node);
        m_lastCharacter = ' ';
        break;
    case Piece::Kind::Indent:
        m_sink.changeIndent(1);
        break;
    case Piece::Kind::Unindent:
        m_sink.changeIndent(-1);
        break;
    }
}

void PiecePrinter::expandNode(Tessel::TesselBase& node, Precedence context) {
    const Precedence precedence = m_language.expand(node, m_expanded);
    const bool parenthesized = precedence < context;
    if (parenthesized)
        m_pending.push_back({Piece::Kind::Text, &node, ")"});
    schedule();
    if (parenthesized)
        write("(", node);
}

void PiecePrinter::write(const std::string& text, Tessel::TesselBase& node) {
    if (wouldMerge(m_lastCharacter, text.front()))
        m_sink.write(" ", node);
    m_sink.write(text, node);
    m_lastCharacter = text.back();
}

void PiecePrinter::schedule() {
    std::vector<Piece>& pieces = m_expanded.getPieces();
    for (auto piece = pieces.rbegin(); piece != pieces.rend(); ++piece)
        m_pending.push_back(std::move(*piece));
    m_expanded.clear();
}

} // namespace Kova::Backends
