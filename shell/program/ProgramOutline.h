// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <cstdint>
#include <vector>

namespace Kova::Tessel {
class BlockStatement;
class LoopStatement;
class SubroutineDeclaration;
} // namespace Kova::Tessel

namespace Kova::Shell {

class OpenedProgram;

/// A loop of a subroutine. Lines count from 1; 0 is unknown.
struct OutlineLoop {
    Tessel::LoopStatement* loop = nullptr;
    /// "for", "while" or "do".
    QString kind;
    std::uint32_t firstLine = 0;
    std::uint32_t lastLine = 0;
    /// 1 for a loop in no other.
    int depth = 1;
    /// Index of the loop around it in the subroutine's list; -1 without one.
    int outer = -1;
};

/// A block in braces inside a subroutine's body that is not empty.
struct OutlineBlock {
    Tessel::BlockStatement* block = nullptr;
    /// "body" of a loop, "then", "else", or "block".
    QString kind;
    std::uint32_t firstLine = 0;
    std::uint32_t lastLine = 0;
    /// Index of the innermost loop around it in the subroutine's list; -1 without one.
    int outer = -1;
    /// How many loops of the list begin before it.
    std::size_t loopsBefore = 0;
};

/// A subroutine with a body.
struct OutlineSubroutine {
    Tessel::SubroutineDeclaration* subroutine = nullptr;
    QString name;
    std::uint32_t firstLine = 0;
    std::uint32_t lastLine = 0;
    /// In program order, outer loops before those inside them.
    std::vector<OutlineLoop> loops;
    /// In program order, outer blocks before those inside them.
    std::vector<OutlineBlock> blocks;
};

/// A file that subroutines stand in.
struct OutlineFile {
    QString path;
    /// "C" or "Fortran".
    QString language;
    std::vector<OutlineSubroutine> subroutines;
};

/// The parts of a program that a person points at: files, their subroutines, their loops and blocks. The files that
/// were read come first, in their order, then the headers that hold subroutines. Points into the program's tree, which
/// must live as long.
class ProgramOutline {
public:
    ProgramOutline() = default;
    explicit ProgramOutline(const OpenedProgram& program);

    [[nodiscard]] const std::vector<OutlineFile>& getFiles() const { return m_files; }

private:
    OutlineFile& obtainFile(const QString& path, const QString& language);
    void add(Tessel::SubroutineDeclaration& subroutine);

    std::vector<OutlineFile> m_files;
};

} // namespace Kova::Shell
