// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/LamportGraph.h"

#include "environment/analyses/lamport/QuickFacts_p.h"
#include "environment/analyses/lamport/ValueBasedTest_p.h"
#include "environment/core/Console.h"

#include <string>

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

void warn(const std::string& text) {
    Kova::getOutputConsole("LamportGraph", true).log(Kova::Console::Warning, text);
}

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
    dropArrows();
    m_leftOut = LeftOut::Nothing;
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

LamportGraph::LeftOut LamportGraph::getLeftOut() const {
    (void)getArrows();
    return m_leftOut;
}

void LamportGraph::findArrows(PairTest& test) const {
    m_unrefined = false;
    if (findArrows(test, m_withInput)) {
        m_leftOut = LeftOut::Nothing;
        return;
    }
    const std::string tooMany = "The block has more than " + std::to_string(mostArrows) + " dependences: ";
    if (m_withInput && findArrows(test, false)) {
        m_leftOut = LeftOut::Input;
        warn(tooMany + "input dependences are left out.");
        return;
    }
    // A part of them would pass for the whole.
    dropArrows();
    m_leftOut = LeftOut::Everything;
    warn(tooMany + "none is shown. Choose a smaller block.");
}

/// @returns false when there are too many.
bool LamportGraph::findArrows(PairTest& test, bool withInput) const {
    dropArrows();
    const DependenceFinder finder(m_model->getAccesses(), m_model->getDeclarations(), m_model->getDisorder(),
                                  withInput);
    bool isComplete = true;
    finder.find(test, [&](DependenceFacts facts) {
        isComplete = m_arrows.size() < mostArrows;
        if (isComplete)
            m_arrows.push_back(&m_owned.emplace_back(std::move(facts)));
        return isComplete;
    });
    return isComplete;
}

void LamportGraph::dropArrows() const {
    m_arrows.clear();
    m_owned.clear();
}

} // namespace DepGraph
