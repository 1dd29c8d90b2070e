// SPDX-License-Identifier: MIT
#include "environment/analyses/callgraph/CallGraphBuilder_p.h"
#include "environment/tessel/GenericSelectionExpression.h"
#include "environment/tessel/ProgramUnit.h"
#include "environment/tessel/SubroutineCallExpression.h"
#include "environment/tessel/SubroutineDeclaration.h"
#include "environment/tessel/TypeQueryExpression.h"
#include "environment/tessel/TypedefDeclaration.h"
#include "environment/tessel/service/Preorder.h"

#include <unordered_set>

using namespace Kova::Tessel;

namespace {

bool isVariableLength(const Type* type) {
    while (type != nullptr) {
        if (const auto* array = dynamic_cast<const ArrayType*>(type)) {
            for (const ArrayDimension& dimension : array->getDimensions())
                if (dimension.kind == ArrayDimension::Extent::Variable)
                    return true;
            type = array->getElement();
        } else if (const auto* declared = dynamic_cast<const DeclaredType*>(type)) {
            const auto* alias = dynamic_cast<const TypedefDeclaration*>(&declared->getDeclaration());
            type = alias != nullptr ? alias->getType() : nullptr;
        } else {
            return false;
        }
    }
    return false;
}

/// Meets the nodes of a procedure one by one and says which are calls and below which nothing is executed.
class ExecutionFilter : public BaseVisitor {
public:
    using BaseVisitor::visit;

    /// The call that a node is; null for any other node.
    const SubroutineCallExpression* meet(TesselBase& node) {
        m_call = nullptr;
        m_entered = m_skipped.empty() || m_skipped.erase(&node) == 0;
        if (m_entered)
            node.accept(*this);
        return m_call;
    }
    /// False when the node met last executes nothing.
    [[nodiscard]] bool isEntered() const { return m_entered; }
    /// The procedure that the node met last is; null for any other node.
    [[nodiscard]] SubroutineDeclaration* takeProcedure() { return std::exchange(m_procedure, nullptr); }

    void visit(TesselBase& /*node*/) override {}
    void visit(SubroutineCallExpression& node) override { m_call = &node; }
    void visit(SubroutineDeclaration& node) override {
        m_procedure = &node;
        m_entered = false;
    }
    void visit(TypeQueryExpression& node) override {
        if (node.getQuery() == TypeQueryExpression::Query::AlignOf)
            m_entered = false;
        else if (node.getOperand() != nullptr && !isVariableLength(node.getOperand()->getType()))
            m_skipped.insert(node.getOperand());
    }
    void visit(GenericSelectionExpression& node) override {
        for (std::size_t i = 0; i < node.getChildCount(); ++i)
            if (i != node.getChosen() + 1)
                m_skipped.insert(node.getChild(i));
    }

private:
    const SubroutineCallExpression* m_call = nullptr;
    SubroutineDeclaration* m_procedure = nullptr;
    bool m_entered = true;
    // Roots, still to come, of parts that are not evaluated; looked up, never walked.
    std::unordered_set<const TesselBase*> m_skipped;
};

} // namespace

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
    ExecutionFilter filter;
    const Service::Preorder nodes(part);
    for (Service::Preorder::Iterator node = nodes.begin(); node != nodes.end();) {
        if (const SubroutineCallExpression* call = filter.meet(*node))
            addCall(caller, *call);
        // A procedure inside another one has calls of its own.
        if (Declaration* inner = filter.takeProcedure(); inner != nullptr && inner->hasImplementation())
            add(*inner);
        if (filter.isEntered())
            ++node;
        else
            node.skipChildren();
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
