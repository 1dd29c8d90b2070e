// SPDX-License-Identifier: MIT
#include "environment/printing/PiecePrinter.h"

#include "environment/printing/PieceLanguage.h"
#include "environment/printing/PieceSink.h"

#include <utility>

namespace Kova::Backends {

namespace {

/// True when the two characters, one after the other, would not be read as the end of one word and the begin of
/// another.
bool wouldMerge(char last, char first) {
    if (last == '/')
        return first == '/' || first == '*';
    return last == first && (last == '+' || last == '-' || last == '&');
}

Piece textPiece(const char* text, Tessel::TesselBase& node) {
    Piece piece{};
    piece.kind = Piece::Kind::Text;
    piece.length = 1;
    piece.node = &node;
    piece.text = text;
    return piece;
}

} // namespace

void PiecePrinter::print(const Tessel::TesselBase& root) {
    PieceList pieces;
    pieces.node(&root);
    print(std::move(pieces));
}

void PiecePrinter::print(PieceList&& pieces) {
    m_expanded.append(std::move(pieces));
    schedule();
    while (!m_pending.empty()) {
        const Piece piece = m_pending.back();
        m_pending.pop_back();
        printPiece(piece);
    }
}

void PiecePrinter::printPiece(const Piece& piece) {
    switch (piece.kind) {
    case Piece::Kind::Text:
        write(piece);
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
    case Piece::Kind::EmptyLine:
        m_sink.skipLine(*piece.node);
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
    if (m_expanded.isEmpty())
        m_expanded.nothing(node);
    const bool parenthesized = precedence < context;
    if (parenthesized)
        m_pending.push_back(textPiece(")", node));
    schedule();
    if (parenthesized)
        write(textPiece("(", node));
}

void PiecePrinter::write(const Piece& piece) {
    if (wouldMerge(m_lastCharacter, *piece.text))
        m_sink.write(" ", *piece.node);
    m_sink.write(piece.text, *piece.node);
    if (piece.length != 0)
        m_lastCharacter = piece.text[piece.length - 1];
}

void PiecePrinter::schedule() {
    const std::vector<Piece>& pieces = m_expanded.getPieces();
    m_pending.insert(m_pending.end(), pieces.rbegin(), pieces.rend());
    m_expanded.clearPieces();
}

} // namespace Kova::Backends
