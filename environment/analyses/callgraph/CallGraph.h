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
/// Calls through pointers are no edges; an operand of sizeof is not called.
class CallGraph {
public:
    class Node {
    public:
        /// Orders procedures by name, then by where they stand in the program, never by address.
        struct ByName {
            bool operator()(const Kova::Tessel::SubroutineDeclaration* a,
                            const Kova::Tessel::SubroutineDeclaration* b) const;
        };
        /// The calls to each procedure, in program order.
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
    explicit CallGraph(Kova::Tessel::StatementBase* statement);
    /// The procedure and all that it reaches.
    explicit CallGraph(Kova::Tessel::SubroutineDeclaration* procedure);
    ~CallGraph();
    CallGraph(const CallGraph&) = delete;
    CallGraph& operator=(const CallGraph&) = delete;

    /// Procedures by name. Where several file-local procedures bear one name, the first in program order has it as its
    /// key and the others have their file's name added, as in "helper (b.c)".
    [[nodiscard]] const std::map<std::string, Node*>& getGraph() const { return m_graph; }

private:
    std::vector<std::unique_ptr<Node>> m_nodes;
    std::map<std::string, Node*> m_graph;
};
