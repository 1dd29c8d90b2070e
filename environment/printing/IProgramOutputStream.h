// SPDX-License-Identifier: MIT
#pragma once

namespace Kova::Tessel {
class TesselBase;
}

namespace Kova::Shared {

/// Takes the text that a ProgramTextBuilder prints, piece by piece and in order. The two operations and their order are
/// part of the interface's binary form: nothing is added to them, a destructor neither.
class IProgramOutputStream {
public:
    /// Appends a text, printed for the node, to the current line.
    /// @param text UTF-8 as in the program's sources, without line ends; may be empty. Lives for the call.
    virtual void write(const char* text, Tessel::TesselBase& node) = 0;
    /// Starts a line, the first one included, and writes the text for the node on it. The node opens the line.
    virtual void writeNewLine(const char* text, Tessel::TesselBase& node) = 0;

protected:
    ~IProgramOutputStream() = default;
};

} // namespace Kova::Shared
