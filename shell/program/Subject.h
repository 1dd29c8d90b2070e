// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <cstdint>

namespace Kova::Tessel {
class ProgramUnit;
class SubroutineDeclaration;
class StatementBase;
class TesselBase;
} // namespace Kova::Tessel

namespace Kova::Shell {

/// The part of a program that a view shows. A value that points into the program's tree, which must live as long.
class Subject {
public:
    enum class Kind { None, Program, Subroutine, Statement, Loop, Block };

    Subject() = default;
    explicit Subject(Tessel::ProgramUnit& program);
    explicit Subject(Tessel::SubroutineDeclaration& subroutine);
    /// A loop and a block are subjects of their own kinds.
    explicit Subject(Tessel::StatementBase& statement);

    [[nodiscard]] Kind getKind() const { return m_kind; }
    /// Null unless the kind is Program.
    [[nodiscard]] Tessel::ProgramUnit* getProgram() const;
    /// The subroutine itself, or the one that holds the statement; null for a program.
    [[nodiscard]] Tessel::SubroutineDeclaration* getSubroutine() const;
    /// The statement, loop or block; null for the other kinds.
    [[nodiscard]] Tessel::StatementBase* getStatement() const;

    /// Whatever the kind; null for none.
    [[nodiscard]] Tessel::TesselBase* getNode() const { return m_node; }

    /// "program", "subroutine main", "loop at line 7 in main", "statement at line 9 in main"; empty without a subject.
    [[nodiscard]] QString getTitle() const;
    /// Where it stands; a program stands in its first file. Empty when unknown.
    [[nodiscard]] QString getFile() const;
    /// The line that it begins on, 0 for a program or when unknown.
    [[nodiscard]] std::uint32_t getLine() const;

    /// True of the subject's own node and all below it.
    [[nodiscard]] bool holds(const Tessel::TesselBase& node) const;

    [[nodiscard]] bool operator==(const Subject& other) const { return m_node == other.m_node; }
    [[nodiscard]] bool operator!=(const Subject& other) const { return m_node != other.m_node; }

private:
    Kind m_kind = Kind::None;
    Tessel::TesselBase* m_node = nullptr;
};

} // namespace Kova::Shell
