// SPDX-License-Identifier: MIT
#include "environment/analyses/callgraph/CallGraph.h"

#include "environment/analyses/callgraph/CallGraphBuilder_p.h"
#include "environment/tessel/ProgramUnit.h"
#include "environment/tessel/StatementBase.h"
#include "environment/tessel/SubroutineDeclaration.h"

#include <algorithm>
#include <tuple>

using Kova::Tessel::ProgramUnit;
using Kova::Tessel::StatementBase;
using Kova::Tessel::SubroutineDeclaration;
using Kova::Tessel::TesselBase;
using Kova::Tessel::TranslationUnit;

namespace {

// What a unit keeps apart stands behind all its numbered declarations.
std::size_t indexIn(const TesselBase& parent, const TesselBase& node) {
    const std::size_t index = node.getIndexInParent();
    const auto* unit = dynamic_cast<const TranslationUnit*>(&parent);
    if (unit == nullptr || parent.getChild(index) == &node)
        return index;
    const auto& externals = unit->getExternalDeclarations();
    const auto found = std::find_if(externals.begin(), externals.end(),
                                    [&node](const auto& declaration) { return declaration.get() == &node; });
    return parent.getChildCount() + static_cast<std::size_t>(found - externals.begin());
}

/// The way from the root to a node, as child numbers: orders nodes of one tree as the program does.
std::vector<std::size_t> positionOf(const TesselBase& node) {
    std::vector<std::size_t> path;
    for (const TesselBase* child = &node; child->getParent() != nullptr; child = child->getParent())
        path.push_back(indexIn(*child->getParent(), *child));
    std::reverse(path.begin(), path.end());
    return path;
}

std::string filePathOf(const SubroutineDeclaration& procedure) {
    if (const Kova::Tessel::SourceFile* file = procedure.getSourceRange().file)
        return file->getPath();
    const TranslationUnit* unit = procedure.findTranslationUnit();
    return unit != nullptr ? unit->getPath() : std::string();
}

/// A key that no other procedure has yet.
template <class Map>
std::string freeKey(const Map& taken, const SubroutineDeclaration& procedure) {
    const std::string& name = procedure.getName();
    if (taken.count(name) == 0)
        return name;
    const std::string path = filePathOf(procedure);
    std::string key = name + " (" + path.substr(path.find_last_of('/') + 1) + ")";
    if (taken.count(key) == 0)
        return key;
    key = name + " (" + path + ")";
    const std::string beginning = name + " (" + path + ", ";
    for (int number = 2; taken.count(key) != 0; ++number)
        key = beginning + std::to_string(number) + ")";
    return key;
}

} // namespace

bool CallGraph::Node::ByName::operator()(const SubroutineDeclaration* a, const SubroutineDeclaration* b) const {
    if (a == b)
        return false;
    if (const int order = a->getName().compare(b->getName()); order != 0)
        return order < 0;
    const auto& x = a->getSourceRange();
    const auto& y = b->getSourceRange();
    // The source position tells declarations of no tree apart.
    return std::make_tuple(positionOf(*a), x.beginLine, x.beginColumn) <
           std::make_tuple(positionOf(*b), y.beginLine, y.beginColumn);
}

CallGraph::CallGraph(ProgramUnit* program) {
    if (program == nullptr)
        return;
    Builder builder(*this, program);
    builder.addAll();
    builder.run();
    nameNodes();
}

CallGraph::CallGraph(StatementBase* statement) {
    TesselBase* holder = statement;
    while (holder != nullptr && dynamic_cast<SubroutineDeclaration*>(holder) == nullptr)
        holder = holder->getParent();
    if (holder == nullptr)
        return;
    Builder builder(*this, statement->findProgramUnit());
    builder.addPart(static_cast<SubroutineDeclaration&>(*holder), *statement);
    builder.run();
    nameNodes();
}

CallGraph::CallGraph(SubroutineDeclaration* procedure) {
    if (procedure == nullptr)
        return;
    Builder builder(*this, procedure->findProgramUnit());
    builder.add(*procedure);
    builder.run();
    nameNodes();
}

CallGraph::~CallGraph() = default;

void CallGraph::nameNodes() {
    std::vector<Node*> nodes;
    for (const auto& node : m_nodes)
        nodes.push_back(node.get());
    std::stable_sort(nodes.begin(), nodes.end(),
                     [](const Node* a, const Node* b) { return Node::ByName()(a->getSubProc(), b->getSubProc()); });
    for (Node* node : nodes)
        m_graph.emplace(freeKey(m_graph, *node->getSubProc()), node);
}
