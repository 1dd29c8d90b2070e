// SPDX-License-Identifier: MIT
#pragma once

#include <list>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace Kova::Tessel {
class ProgramUnit;
class StatementBase;
class SubroutineCallExpression;
class SubroutineDeclaration;
} // namespace Kova::Tessel

/// Which procedure calls which. A procedure has an entry when the program holds its body, or when it is called, has no
/// body and is declared outside system headers (a file of the program that was not read, a library of the user's).
/// What a header defines is one procedure, however many files of the program read it.
///
/// A call belongs to the procedure whose execution makes it, wherever in the body or in a parameter's bounds it stands.
/// No calls are: calls through pointers; what a sizeof or _Alignof is asked about, apart from the lengths of
/// variable-length arrays, which sizeof evaluates; the control and the values not chosen of a generic selection; and
/// what stands outside procedures. The graph refers to the program's tree and keeps none of it alive.
class CallGraph {
public:
    class Node {
    public:
        /// Orders procedures by name, then by where they stand in the program, never by address.
        struct ByName {
            [[nodiscard]] bool operator()(const Kova::Tessel::SubroutineDeclaration* a,
                                          const Kova::Tessel::SubroutineDeclaration* b) const;
        };
        /// The calls to each procedure, in program order. A key is what getSubProc() of the procedure's own entry
        /// gives; for a procedure without an entry, the declaration that the calls refer to.
        using Calls = std::map<const Kova::Tessel::SubroutineDeclaration*,
                               std::list<const Kova::Tessel::SubroutineCallExpression*>, ByName>;

        explicit Node(Kova::Tessel::SubroutineDeclaration& procedure) : m_procedure(procedure) {}

        /// The implementation where the program has one, else a prototype. Never null.
        [[nodiscard]] Kova::Tessel::SubroutineDeclaration* getSubProc() const { return &m_procedure; }
        [[nodiscard]] const Calls& getCalls() const { return m_calls; }

    private:
        friend class CallGraph;
        Kova::Tessel::SubroutineDeclaration& m_procedure;
        Calls m_calls;
    };

    /// The procedures of a whole program. Null gives an empty graph, as for the other two.
    explicit CallGraph(Kova::Tessel::ProgramUnit* program);
    /// The procedure that holds the statement, with the calls inside the statement only, and all that these reach.
    /// Empty when no procedure holds it.
    explicit CallGraph(Kova::Tessel::StatementBase* statement);
    /// The procedure, be it given by its implementation or by a prototype, and all that it reaches.
    explicit CallGraph(Kova::Tessel::SubroutineDeclaration* procedure);
    ~CallGraph();
    CallGraph(const CallGraph&) = delete;
    CallGraph& operator=(const CallGraph&) = delete;

    /// Procedures by name. Where several procedures bear one name, as file-local ones may, the first in program order
    /// has it as its key and the others have their file's name added, as in "helper (b.c)"; the file's whole path where
    /// the name does not tell them apart.
    [[nodiscard]] const std::map<std::string, Node*>& getGraph() const { return m_graph; }

private:
    class Builder;

    void nameNodes();

    std::vector<std::unique_ptr<Node>> m_nodes;
    std::map<std::string, Node*> m_graph;
};
