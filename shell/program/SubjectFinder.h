// SPDX-License-Identifier: MIT
#pragma once

#include "shell/program/Subject.h"

#include <QStringList>

#include <optional>
#include <vector>

namespace Kova::Shell {

class OpenedProgram;

/// What a person asks to see, by name and line.
struct SubjectRequest {
    /// Empty: none was named.
    QString function;
    /// A line of the source; none when not asked for.
    std::optional<int> line;

    [[nodiscard]] bool namesSomething() const { return !function.isEmpty() || line.has_value(); }
};

/// What a view looks at when nothing, or only a line, is named.
struct SubjectPreference {
    /// Program, Subroutine or Loop: the whole program, the first subroutine with a body, the first loop.
    Subject::Kind whenNothingNamed = Subject::Kind::Program;
    /// Statement: the statement that starts on the line; Loop, Block: the innermost one around that statement.
    Subject::Kind atLine = Subject::Kind::Statement;
    /// What is around a node that is pointed at in the source: as at a line, or the Subroutine, and then only if what
    /// is shown does not hold the node anyway.
    Subject::Kind whenPointedAt = atLine;
};

/// Either a subject or the reason why there is none, for people.
struct FoundSubject {
    Subject subject;
    QString error;
};

/// Finds the parts of a program that people name. Made for a program as it is; owns nothing.
class SubjectFinder {
public:
    explicit SubjectFinder(const OpenedProgram& program);

    /// A subroutine with a body: the first of that name in program order, or the one that "name (file.c)" singles out,
    /// the file without its directory. Null when there is none.
    [[nodiscard]] Tessel::SubroutineDeclaration* findSubroutine(const QString& name) const;

    /// The outermost statement that starts on a line of its subroutine's file, in that subroutine or, with null, in the
    /// first that has one. A label stands for the statement that it marks. Null when no statement starts there.
    [[nodiscard]] Tessel::StatementBase* findStatement(int line, Tessel::SubroutineDeclaration* subroutine) const;

    [[nodiscard]] FoundSubject find(const SubjectRequest& request, const SubjectPreference& preference) const;

    /// The part of this program that corresponds to a subject of an earlier reading, by what identifies it: kind, name
    /// of the subroutine, file and line. The whole program when there is no such part any more.
    struct Identity {
        Subject::Kind kind = Subject::Kind::None;
        QString function;
        QString file;
        int line = 0;
    };
    [[nodiscard]] static Identity identify(const Subject& subject);
    [[nodiscard]] Subject findAgain(const Identity& identity) const;

    /// The subroutine and, within it, the innermost loop around a place; a subject of kind None outside all.
    [[nodiscard]] Subject findAround(const QString& file, int line) const;

    /// What a view looks at when a node is pointed at, by its preference for lines: the statement that the node belongs
    /// to, or the innermost loop or block around it. The subroutine where there is no such statement; a subject of kind
    /// None outside of subroutines with bodies.
    [[nodiscard]] static Subject subjectAt(Tessel::TesselBase& node, Subject::Kind atLine);

private:
    [[nodiscard]] FoundSubject findDefault(Tessel::SubroutineDeclaration* named, Subject::Kind wanted) const;
    [[nodiscard]] QString namesThatExist() const;

    Tessel::ProgramUnit& m_program;
    std::vector<Tessel::SubroutineDeclaration*> m_subroutines;
};

} // namespace Kova::Shell
