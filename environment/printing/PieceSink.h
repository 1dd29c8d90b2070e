// SPDX-License-Identifier: MIT
#pragma once

namespace Kova::Tessel {
class TesselBase;
}

namespace Kova::Backends {

/// Takes printed text piece by piece, in order, each with the node that it was printed for. A name that an expression
/// mentions is always a piece of its own without blanks; an operator comes with the blanks around it.
class PieceSink {
public:
    virtual ~PieceSink() = default;

    /// @param text without line ends; empty for a node that the language gives no text of its own.
    virtual void write(const char* text, Tessel::TesselBase& node) = 0;
    /// The node opens a new line.
    virtual void breakLine(Tessel::TesselBase& node) = 0;
    /// The node opens a new line that stays empty.
    virtual void skipLine(Tessel::TesselBase& node) = 0;
    /// Lines opened from here on stand that many levels deeper. @param levels 1 or -1.
    virtual void changeIndent(int levels) = 0;

protected:
    PieceSink() = default;
    PieceSink(const PieceSink&) = default;
    PieceSink& operator=(const PieceSink&) = default;
};

} // namespace Kova::Backends
