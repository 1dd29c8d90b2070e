// SPDX-License-Identifier: MIT
#pragma once

#include "environment/printing/Precedence.h"

#include <cstdint>
#include <list>
#include <string>
#include <vector>

namespace Kova::Tessel {
class TesselBase;
class Type;
} // namespace Kova::Tessel

namespace Kova::Backends {

/// A part of what a node prints as. A plain value: printing moves millions of them.
struct Piece {
    enum class Kind : std::uint8_t {
        /// The text, for the node.
        Text,
        /// All that the node prints as, in parentheses when it is looser than the context.
        Node,
        /// The type without a name, for the node.
        Type,
        /// What follows, up to the next break, is a line that the node opens.
        LineBreak,
        /// A line with nothing on it, which the node opens.
        EmptyLine,
        /// Lines opened from here on stand one level deeper, or one less deep.
        Indent,
        Unindent
    };

    Kind kind;
    Precedence context = Precedence::Comma;
    std::uint32_t length = 0;
    Tessel::TesselBase* node = nullptr;
    union {
        /// Of a Text.
        const char* text = nullptr;
        /// Of a Type.
        const Tessel::Type* type;
    };
};

/// What a node prints as, one level deep and in order: texts of its own and, in their places, other nodes.
class PieceList {
public:
    /// @param text outlives the printing, as a constant does. An empty one is left out.
    void text(const char* text, Tessel::TesselBase& node);
    /// @param text is kept by the list. An empty one is left out.
    void text(std::string text, Tessel::TesselBase& node);
    /// @param name outlives the printing, as what the tree holds does. An empty one is left out.
    void name(const std::string& name, Tessel::TesselBase& node);
    /// An empty text, for a node that the language gives no text of its own, so that it has its place all the same.
    void nothing(Tessel::TesselBase& node);
    /// A missing node is left out.
    void node(const Tessel::TesselBase* node, Precedence context = Precedence::Comma);
    /// A missing type is left out.
    void type(const Tessel::Type* type, Tessel::TesselBase& node);
    void lineBreak(Tessel::TesselBase& node);
    void emptyLine(Tessel::TesselBase& node);
    void indent();
    void unindent();
    void append(PieceList&& other);

    [[nodiscard]] bool isEmpty() const { return m_pieces.empty(); }
    [[nodiscard]] const std::vector<Piece>& getPieces() const { return m_pieces; }
    /// Takes the pieces out. The list keeps the texts that it was given to keep.
    void clearPieces() { m_pieces.clear(); }

private:
    void add(const char* text, std::size_t length, Tessel::TesselBase& node);

    std::vector<Piece> m_pieces;
    std::list<std::string> m_kept;
};

} // namespace Kova::Backends
