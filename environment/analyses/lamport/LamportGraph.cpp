// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/LamportGraph.h"

#include "environment/analyses/lamport/QuickFacts_p.h"
#include "environment/analyses/lamport/ValueBasedTest_p.h"

namespace DepGraph {
namespace {

/// Knows nothing but the order of execution.
class OrderTest final : public PairTest {
public:
    [[nodiscard]] std::optional<PairFacts> test(const AccessPair& pair) override {
        std::vector<int> carriers = listCarriers(pair);
        if (carriers.empty())
            return std::nullopt;
        return assumeAll(pair, std::move(carriers), Doubt::NotRefined);
    }
    [[nodiscard]] std::optional<PairFacts> testUnordered(const AccessPair& pair) override {
        return assumeAll(pair, {}, Doubt::NotRefined);
    }
};

} // namespace

LamportGraph::LamportGraph() = default;

LamportGraph::LamportGraph(std::vector<LampArrow> arrows) {
    for (LampArrow& arrow : arrows)
        m_arrows.push_back(&m_owned.emplace_back(std::move(arrow)));
}

LamportGraph::~LamportGraph() = default;

void LamportGraph::Build(Kova::Tessel::BlockStatement& block, EN_LamportGraphBuildParams /*parameters*/,
                         bool withInput) {
    Clear();
    m_model = std::make_unique<AccessModel>(block);
    m_withInput = withInput;
    m_unrefined = true;
}

void LamportGraph::Refine(EN_RefineMethod method) {
    if (!m_model)
        return;
    const std::vector<Access>& accesses = m_model->getAccesses();
    const isl::ctx context = m_model->getContext();
    const AccessShapes shapes(context, accesses);
    if (method == RM_QUICK_TESTS) {
        QuickPairTest test(shapes);
        findArrows(test);
        return;
    }
    ExactTest exact(context, shapes, {});
    if (method == RM_VALUE_BASED) {
        const DependenceFinder finder(accesses, m_model->getDeclarations(), m_model->getDisorder(), m_withInput);
        ValueBasedTest test(context, accesses, shapes, finder, exact, {});
        findArrows(test);
        return;
    }
    findArrows(exact);
}

void LamportGraph::Clear() {
    m_arrows.clear();
    m_owned.clear();
    m_model.reset();
    m_unrefined = false;
}

const std::vector<LampArrow*>& LamportGraph::getArrows() const {
    if (m_unrefined) {
        OrderTest test;
        findArrows(test);
    }
    return m_arrows;
}

void LamportGraph::findArrows(PairTest& test) const {
    m_unrefined = false;
    m_arrows.clear();
    m_owned.clear();
    const DependenceFinder finder(m_model->getAccesses(), m_model->getDeclarations(), m_model->getDisorder(),
                                  m_withInput);
    finder.find(test, [&](DependenceFacts facts) { m_arrows.push_back(&m_owned.emplace_back(std::move(facts))); });
}

} // namespace DepGraph
