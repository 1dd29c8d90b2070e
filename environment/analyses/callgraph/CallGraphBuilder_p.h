// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/callgraph/CallGraph.h"
#include "environment/tessel/service/SubroutineIndex.h"

#include <deque>
#include <memory>
#include <string>
#include <tuple>
#include <unordered_map>

namespace Kova::Tessel {
class SourceFile;
class TesselBase;
} // namespace Kova::Tessel

/// Fills a call graph: procedures wait in a list until the calls that they make are collected.
class CallGraph::Builder {
public:
    /// @param program what declarations are resolved in; without one they mean themselves.
    Builder(CallGraph& graph, const Kova::Tessel::ProgramUnit* program);

    /// Gives every procedure of the program its entry.
    void addAll();
    /// Gives one procedure its entry and collects its calls later, unless it has an entry already.
    Node& add(Kova::Tessel::SubroutineDeclaration& procedure);
    /// Gives one procedure an entry with the calls below a part of it only.
    void addPart(Kova::Tessel::SubroutineDeclaration& procedure, Kova::Tessel::TesselBase& part);
    /// Collects until no procedure waits.
    void run();

private:
    using Declaration = Kova::Tessel::SubroutineDeclaration;
    // What tells procedures of a header apart that several files read: name, file, line, column.
    using Place = std::tuple<std::string, const Kova::Tessel::SourceFile*, unsigned, unsigned>;

    [[nodiscard]] Declaration& resolve(Declaration& declaration);
    [[nodiscard]] Declaration& findMeaning(Declaration& declaration);
    [[nodiscard]] Declaration& representativeOf(Declaration& implementation);
    Node& makeNode(Declaration& procedure);
    void collectCalls(Node& caller, Kova::Tessel::TesselBase& part);
    void addCall(Node& caller, const Kova::Tessel::SubroutineCallExpression& call);

    CallGraph& m_graph;
    std::unique_ptr<Kova::Tessel::Service::SubroutineIndex> m_index;
    // Looked up, never walked.
    std::unordered_map<const Declaration*, Declaration*> m_meaningOf;
    std::unordered_map<const Declaration*, Node*> m_nodeOf;
    std::map<Place, Declaration*> m_firstAt;
    std::unordered_map<std::string, Declaration*> m_prototypeOf;
    std::deque<Node*> m_waiting;
};
