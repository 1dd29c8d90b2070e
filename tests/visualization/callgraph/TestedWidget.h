// SPDX-License-Identifier: MIT
#pragma once

#include "tests/visualization/callgraph/SampleProgram.h"
#include "visualization/callgraph/CallGraphWidget.h"

#include <QStringList>

/// A call graph widget that shows its inner parts to tests.
class TestedWidget : public Kova::GUI::CallGraph::CallGraphWidget {
public:
    using CallGraphWidget::callGraphToLists;
    using CallGraphWidget::contextMenu;
    using CallGraphWidget::edgeBounds;
    using CallGraphWidget::hoveredNode;
    using CallGraphWidget::layOut;
    using CallGraphWidget::showLists;

    [[nodiscard]] Kova::GUI::GenericGraph::NodeBase* nodeCalled(const QString& text) const {
        for (Kova::GUI::GenericGraph::NodeBase* node : getNodes()) {
            if (node->getText() == text)
                return node;
        }
        return nullptr;
    }

    [[nodiscard]] QStringList nodeTexts() const {
        QStringList texts;
        for (const Kova::GUI::GenericGraph::NodeBase* node : getNodes())
            texts.append(node->getText());
        return texts;
    }

    /// Every edge as "caller > callee".
    [[nodiscard]] QStringList edgeTexts() const {
        QStringList texts;
        for (const Kova::GUI::GenericGraph::EdgeBase* edge : getEdges())
            texts.append(edge->getSource()->getText() + " > " + edge->getTarget()->getText());
        return texts;
    }

    [[nodiscard]] std::vector<QPoint> centers() const {
        std::vector<QPoint> centers;
        for (const Kova::GUI::GenericGraph::NodeBase* node : getNodes())
            centers.push_back(node->getCenter());
        return centers;
    }
};

/// main calls alpha twice and beta once; beta calls itself; lonely does nothing.
class Sample : public SampleProgram {
public:
    Kova::Tessel::TranslationUnit& file = addFile("sample.c");
    Procedure& main = addProcedure(file, "main");
    Procedure& beta = addProcedure(file, "beta");
    Procedure& alpha = addProcedure(file, "alpha");
    Procedure& lonely = addProcedure(file, "lonely");
    /// The second call of alpha.
    Kova::Tessel::StatementBase* secondCall;

    Sample() {
        addCall(main, alpha, "7");
        addCall(main, beta, "1");
        secondCall = &addCall(main, alpha, "3");
        addCall(beta, beta, "2");
    }
};

/// main calls a library's puts once.
class LibraryUser : public SampleProgram {
public:
    LibraryUser() {
        Kova::Tessel::TranslationUnit& file = addFile("a.c");
        Procedure& puts = addExternal(file, "puts");
        addCall(addProcedure(file, "main"), puts, "0");
    }
};
