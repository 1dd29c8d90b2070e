// SPDX-License-Identifier: MIT
#include "environment/printing/PieceList.h"

#include "environment/tessel/TesselBase.h"

#include <cstring>
#include <utility>

namespace Kova::Backends {

namespace {

Piece piece(Piece::Kind kind, Tessel::TesselBase* node = nullptr) {
    Piece result{};
    result.kind = kind;
    result.node = node;
    return result;
}

} // namespace

void PieceList::add(const char* text, std::size_t length, Tessel::TesselBase& node) {
    Piece result = piece(Piece::Kind::Text, &node);
    result.text = text;
    result.length = static_cast<std::uint32_t>(length);
    m_pieces.push_back(result);
}

void PieceList::text(const char* text, Tessel::TesselBase& node) {
    if (*text != '\0')
        add(text, std::strlen(text), node);
}

void PieceList::text(std::string text, Tessel::TesselBase& node) {
    if (!text.empty())
        name(m_kept.emplace_back(std::move(text)), node);
}

void PieceList::name(const std::string& name, Tessel::TesselBase& node) {
    if (!name.empty())
        add(name.c_str(), name.size(), node);
}

void PieceList::nothing(Tessel::TesselBase& node) {
    add("", 0, node);
}

void PieceList::node(const Tessel::TesselBase* node, Precedence context) {
    if (node == nullptr)
        return;
    // Large trees are cold memory: the nodes of a list are fetched side by side.
    __builtin_prefetch(node);
    // Nodes are built non-const and accept visitors only so; printing changes none.
    Piece result = piece(Piece::Kind::Node, const_cast<Tessel::TesselBase*>(node));
    result.context = context;
    m_pieces.push_back(result);
}

void PieceList::type(const Tessel::Type* type, Tessel::TesselBase& node) {
    if (type == nullptr)
        return;
    Piece result = piece(Piece::Kind::Type, &node);
    result.type = type;
    m_pieces.push_back(result);
}

void PieceList::lineBreak(Tessel::TesselBase& node) {
    m_pieces.push_back(piece(Piece::Kind::LineBreak, &node));
}

void PieceList::emptyLine(Tessel::TesselBase& node) {
    m_pieces.push_back(piece(Piece::Kind::EmptyLine, &node));
}

void PieceList::indent() {
    m_pieces.push_back(piece(Piece::Kind::Indent));
}

void PieceList::unindent() {
    m_pieces.push_back(piece(Piece::Kind::Unindent));
}

void PieceList::append(PieceList&& other) {
    m_pieces.insert(m_pieces.end(), other.m_pieces.begin(), other.m_pieces.end());
    other.m_pieces.clear();
    m_kept.splice(m_kept.end(), other.m_kept);
}

} // namespace Kova::Backends
