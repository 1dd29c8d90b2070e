// SPDX-License-Identifier: MIT
#include "environment/analyses/callgraph/CallGraphBuilder_p.h"
#include "environment/tessel/ProgramUnit.h"
#include "environment/tessel/SubroutineCallExpression.h"
#include "environment/tessel/SubroutineDeclaration.h"
#include "environment/tessel/service/Evaluation.h"
#include "environment/tessel/service/Preorder.h"

using namespace Kova::Tessel;

CallGraph::Builder::Builder(CallGraph& graph, const ProgramUnit* program) : m_graph(graph) {
    if (program == nullptr)
        return;
    m_index = std::make_unique<Service::SubroutineIndex>(*program);
    for (Declaration* implementation : m_index->getImplementations())
        (void)representativeOf(*implementation);
}

void CallGraph::Builder::addAll() {
    for (Declaration* implementation : m_index->getImplementations())
        add(*implementation);
}

CallGraph::Node& CallGraph::Builder::add(Declaration& procedure) {
    Declaration& resolved = resolve(procedure);
    if (const auto found = m_nodeOf.find(&resolved); found != m_nodeOf.end())
        return *found->second;
    Node& node = makeNode(resolved);
    m_waiting.push_back(&node);
    return node;
}

void CallGraph::Builder::addPart(Declaration& procedure, TesselBase& part) {
    collectCalls(makeNode(resolve(procedure)), part);
}

void CallGraph::Builder::run() {
    while (!m_waiting.empty()) {
        Node& caller = *m_waiting.front();
        m_waiting.pop_front();
        Declaration& procedure = *caller.getSubProc();
        for (std::size_t k = 0; k < procedure.getChildCount(); ++k)
            if (TesselBase* part = procedure.getChild(k))
                collectCalls(caller, *part);
    }
}

CallGraph::Builder::Declaration& CallGraph::Builder::resolve(Declaration& declaration) {
    Declaration*& resolved = m_meaningOf[&declaration];
    if (resolved == nullptr)
        resolved = &findMeaning(declaration);
    return *resolved;
}

/// The one declaration that stands for what a declaration means.
CallGraph::Builder::Declaration& CallGraph::Builder::findMeaning(Declaration& declaration) {
    Declaration* implementation = declaration.hasImplementation() ? &declaration : nullptr;
    if (implementation == nullptr && m_index)
        implementation = m_index->findImplementation(declaration);
    if (implementation != nullptr)
        return representativeOf(*implementation);
    if (declaration.isExternal() || !declaration.hasExternalLinkage())
        return declaration;
    return *m_prototypeOf.try_emplace(declaration.getName(), &declaration).first->second;
}

CallGraph::Builder::Declaration& CallGraph::Builder::representativeOf(Declaration& implementation) {
    const SourceRange& range = implementation.getSourceRange();
    if (!range.isKnown())
        return implementation;
    const Place place(implementation.getName(), range.file, range.beginLine, range.beginColumn);
    return *m_firstAt.try_emplace(place, &implementation).first->second;
}

CallGraph::Node& CallGraph::Builder::makeNode(Declaration& procedure) {
    m_graph.m_nodes.push_back(std::make_unique<Node>(procedure));
    Node& node = *m_graph.m_nodes.back();
    m_nodeOf.emplace(&procedure, &node);
    return node;
}

void CallGraph::Builder::collectCalls(Node& caller, TesselBase& part) {
    const Service::Preorder nodes(part);
    for (Service::Preorder::Iterator node = nodes.begin(); node != nodes.end();) {
        auto* inner = dynamic_cast<Declaration*>(&*node);
        if (inner != nullptr || !Service::isEvaluated(*node)) {
            // A procedure inside another one has calls of its own.
            if (inner != nullptr && inner->hasImplementation())
                add(*inner);
            node.skipChildren();
            continue;
        }
        if (const auto* call = dynamic_cast<const SubroutineCallExpression*>(&*node))
            addCall(caller, *call);
        ++node;
    }
}

void CallGraph::Builder::addCall(Node& caller, const SubroutineCallExpression& call) {
    Declaration* named = call.getSubroutine();
    if (named == nullptr)
        return;
    Declaration* callee = &resolve(*named);
    if (!callee->isExternal())
        callee = add(*callee).getSubProc();
    caller.m_calls[callee].push_back(&call);
}
