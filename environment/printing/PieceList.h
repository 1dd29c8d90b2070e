// SPDX-License-Identifier: MIT
#pragma once

#include "environment/printing/Precedence.h"

#include <string>
#include <vector>

namespace Kova::Tessel {
class TesselBase;
class Type;
} // namespace Kova::Tessel

namespace Kova::Backends {

/// A part of what a node prints as.
struct Piece {
    enum class Kind {
        /// The text, for the node.
        Text,
        /// All that the node prints as, in parentheses when it is looser than the context.
        Node,
        /// The type without a name, for the node.
        Type,
        /// What follows, up to the next break, is a line that the node opens.
        LineBreak,
        /// Lines opened from here on stand one level deeper, or one less deep.
        Indent,
        Unindent
    };

    Kind kind;
    Tessel::TesselBase* node = nullptr;
    std::string text = {};
    Precedence context = Precedence::Comma;
    const Tessel::Type* type = nullptr;
};

/// What a node prints as, one level deep and in order: texts of its own and, in their places, other nodes.
class PieceList {
public:
    /// Empty texts are left out.
    void text(std::string text, Tessel::TesselBase& node);
    /// A missing node is left out.
    void node(const Tessel::TesselBase* node, Precedence context = Precedence::Comma);
    /// A missing type is left out.
    void type(const Tessel::Type* type, Tessel::TesselBase& node);
    void lineBreak(Tessel::TesselBase& node);
    void indent();
    void unindent();
    void append(PieceList&& other);

    [[nodiscard]] bool isEmpty() const { return m_pieces.empty(); }
    [[nodiscard]] std::vector<Piece>& getPieces() { return m_pieces; }
    [[nodiscard]] const std::vector<Piece>& getPieces() const { return m_pieces; }
    void clear() { m_pieces.clear(); }

private:
    std::vector<Piece> m_pieces;
};

} // namespace Kova::Backends
