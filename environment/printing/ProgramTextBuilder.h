// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/BaseVisitor.h"

namespace Kova::Shared {

class IProgramOutputStream;

/// Prints what accepts it as program text: a program, a file, a declaration, a statement, an expression, with all that
/// is below it. The text of C compiles again and means the same; comments and macros are not kept.
///
/// Every statement, every brace of a block, every `else` and every declaration begins a line. A line is opened with
/// blanks, four for a level, for the statement or declaration that it belongs to: an `if` opens the line of its
/// condition and the one of its `else`, a do/while loop the one of its condition as well, a block those of its two
/// braces. The condition of an `else if` stands behind the `else`, on a line that the second `if` opens. Every other
/// piece of text is for the innermost node that it belongs to, and every node printed has one, if only an empty one;
/// a name that an expression mentions is a piece of its own without blanks.
class ProgramTextBuilder : public Tessel::BaseVisitor {
public:
    /// What is left out. By default nothing is. What is asked for is shown whatever the options say: they are about
    /// what stands below it, outside of structures, parameter lists and headers of loops.
    struct Options {
        /// Subroutines that are only declared.
        bool hidePrototypes = false;
        /// Variables at file level and among statements, with their initial values. One whose initial value or array
        /// bound does something, such as calling a function, stays: no action of the program is hidden.
        bool hideVariables = false;
        /// Declarations of types: typedefs, structures, unions, enumerations.
        bool hideTypedefs = false;
        /// What is said of things that live elsewhere: `#include` of system headers, `extern` variables.
        bool hideExternalDeclarations = false;

        [[nodiscard]] bool operator==(const Options& other) const;
        [[nodiscard]] bool operator!=(const Options& other) const { return !(*this == other); }
    };

    /// @param output outlives the builder. What it throws ends the printing and reaches who asked for it; the builder
    /// can go on to print something else.
    ProgramTextBuilder(IProgramOutputStream& output, const Options& options) : m_output(output), m_options(options) {}

    using BaseVisitor::visit;
    /// Prints the node. A program prints file after file, each under a comment with its name.
    void visit(Tessel::TesselBase& node) override;

    /// All lines opened from here on stand one level deeper.
    void increaseIndent() { ++m_indent; }

private:
    IProgramOutputStream& m_output;
    Options m_options;
    int m_indent = 0;
};

} // namespace Kova::Shared
