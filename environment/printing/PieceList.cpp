// SPDX-License-Identifier: MIT
#include "environment/printing/PieceList.h"

#include "environment/tessel/TesselBase.h"

#include <iterator>
#include <utility>

namespace Kova::Backends {

void PieceList::text(std::string text, Tessel::TesselBase& node) {
    if (!text.empty())
        m_pieces.push_back({Piece::Kind::Text, &node, std::move(text)});
}

void PieceList::node(const Tessel::TesselBase* node, Precedence context) {
    // Nodes are built non-const and accept visitors only so; printing changes none.
    if (node != nullptr)
        m_pieces.push_back({Piece::Kind::Node, const_cast<Tessel::TesselBase*>(node), {}, context});
}

void PieceList::type(const Tessel::Type* type, Tessel::TesselBase& node) {
    if (type != nullptr)
        m_pieces.push_back({Piece::Kind::Type, &node, {}, Precedence::Comma, type});
}

void PieceList::lineBreak(Tessel::TesselBase& node) {
    m_pieces.push_back({Piece::Kind::LineBreak, &node});
}

void PieceList::indent() {
    m_pieces.push_back({Piece::Kind::Indent});
}

void PieceList::unindent() {
    m_pieces.push_back({Piece::Kind::Unindent});
}

void PieceList::append(PieceList&& other) {
    m_pieces.insert(m_pieces.end(), std::make_move_iterator(other.m_pieces.begin()),
                    std::make_move_iterator(other.m_pieces.end()));
    other.m_pieces.clear();
}

} // namespace Kova::Backends
