// SPDX-License-Identifier: MIT
#include "shell/window/SourcePane.h"

#include "environment/tessel/ProgramUnit.h"
#include "environment/tessel/SourceFile.h"
#include "environment/tessel/StatementBase.h"
#include "environment/tessel/TranslationUnit.h"
#include "environment/tessel/service/Preorder.h"
#include "shell/window/DockedSelector.h"
#include "shell/window/SourceFilePage.h"
#include "visualization/sourceselector/SourceSelectorEx.h"

#include <QScopedValueRollback>
#include <QScrollBar>

#include <algorithm>

namespace Kova::Shell {

namespace {

using Tessel::TesselBase;

/// The marks of the user, and behind them two without keys for what was picked in a view.
constexpr int userMarks = 4;
constexpr int pickedMark = userMarks;
constexpr int otherMark = userMarks + 1;
constexpr int noMark = -1;
constexpr int firstMarkSlot = 2;

bool isWithin(const TesselBase* node, const TesselBase* root) {
    while (node != nullptr && node != root)
        node = node->getParent();
    return node != nullptr;
}

/// The file that a node is printed with: a program's first.
TesselBase* unitOf(TesselBase& node) {
    if (auto* program = dynamic_cast<Tessel::ProgramUnit*>(&node))
        return program->getTranslationUnit(0);
    return node.findTranslationUnit();
}

} // namespace

SourcePane::SourcePane(QWidget* parent)
    : QTabWidget(parent),
      m_browser(new GUI::SourceSelectorEx(new DockedSelector, this)),
      m_filePage(new SourceFilePage(this)) {
    setDocumentMode(true);
    addTab(m_browser, tr("Printed Text"));
    addTab(m_filePage, tr("File"));
    selector().setMarksNum(userMarks + 2);
    selector().setMarkParams(pickedMark, 0xFF000000, 0xFFFFC070, true, {0, 0});
    selector().setMarkParams(otherMark, 0xFF000000, 0xFFD8B0F0, true, {0, 0});
    selector().enableFragmentSelection(true);
    connect(&selector(), &GUI::SourceSelector::markChanged, this, &SourcePane::pick);
    connect(selector().verticalScrollBar(), &QScrollBar::valueChanged, this, &SourcePane::updateFilePage);
    connect(this, &QTabWidget::currentChanged, this, &SourcePane::updateFilePage);
    connect(m_filePage, &SourceFilePage::lineClicked, this, &SourcePane::pickLine);
}

GUI::SourceSelector& SourcePane::selector() const {
    return *m_browser->getSelector();
}

void SourcePane::forgetProgram() {
    const QScopedValueRollback<bool> silence(m_silent, true);
    m_browser->forgetRootNode();
    m_filePage->clear();
}

void SourcePane::showSubject(const Subject& subject) {
    TesselBase* node = subject.getNode();
    if (node == nullptr)
        return;
    const QScopedValueRollback<bool> silence(m_silent, true);
    showFileOf(*node);
    mark(node, 0);
    markPicked(nullptr, nullptr);
    reveal(node);
    updateFilePage();
}

// A mark without its colour still holds its node, and is not set to it again.
void SourcePane::mark(TesselBase* node, int mark) {
    if (mark == 0)
        m_isSubjectMarked = selector().containsNode(node);
    selector().setMark(nullptr, mark);
    if (node != nullptr && selector().getMark(mark) == node)
        selector().markNode(node, mark + firstMarkSlot);
    else
        selector().setMark(node, mark);
}

void SourcePane::markPicked(TesselBase* node, TesselBase* other) {
    unmarkPicked(noMark);
    mark(node, pickedMark);
    mark(other, otherMark);
}

void SourcePane::unmarkPicked(int changing) {
    mark(nullptr, pickedMark);
    mark(nullptr, otherMark);
    for (int mark = m_isSubjectMarked ? 0 : 1; mark < userMarks; ++mark) {
        selector().markNode(selector().getMark(mark), mark + firstMarkSlot);
        if (mark != changing)
            selector().markFragment(selector().getMarkFragment(mark), mark + firstMarkSlot);
    }
}

// The root stays when it holds the node, were it only a part of the file.
void SourcePane::showFileOf(TesselBase& node) {
    TesselBase* unit = unitOf(node);
    const TesselBase* root = m_browser->getRootNode();
    const bool isShown = root != nullptr && (isWithin(&node, root) || isWithin(root, &node));
    if (unit != nullptr && !isShown)
        m_browser->setRootNode(unit);
}

void SourcePane::showPicked(TesselBase* node, TesselBase* other) {
    const QScopedValueRollback<bool> silence(m_silent, true);
    if (node != nullptr)
        showFileOf(*node);
    markPicked(node, other);
    reveal(node);
    if (node != nullptr && currentWidget() == m_filePage)
        showInFile(*node);
}

// To the selector a line is visible, too, that its scroll bar covers or that begins just below.
void SourcePane::reveal(const TesselBase* node) {
    selector().ensureNodeVisible(node);
    const int line = selector().getText().findLine(node);
    if (line >= linesInView().second)
        selector().verticalScrollBar()->setValue(line * QFontMetrics(selector().getFont()).height());
}

void SourcePane::showText() {
    setCurrentWidget(m_browser);
}

// What was picked in a view would cover it: its marks have the larger numbers.
void SourcePane::pick(int mark) {
    TesselBase* node = selector().getMark(mark);
    const bool isUsers = node != nullptr && mark < userMarks && !m_silent;
    if (isUsers) {
        m_isSubjectMarked = m_isSubjectMarked || mark == 0;
        unmarkPicked(mark);
    }
    updateFilePage();
    if (isUsers && mark == 0)
        Q_EMIT nodePicked(node);
}

// The outermost statement of the text that begins on the line.
void SourcePane::pickLine(int line) {
    TesselBase* root = m_browser->getRootNode();
    if (root == nullptr)
        return;
    for (TesselBase& node : Tessel::Service::Preorder(*root)) {
        const Tessel::SourceRange& range = node.getSourceRange();
        const bool isOnLine = range.file != nullptr && static_cast<int>(range.beginLine) == line &&
                              QString::fromStdString(range.file->getPath()) == m_filePage->getPath();
        if (isOnLine && dynamic_cast<const Tessel::StatementBase*>(&node) != nullptr &&
            selector().containsNode(&node)) {
            reveal(&node);
            selector().setMark(&node, 0);
            return;
        }
    }
}

// What is marked when it is in view, otherwise what the view begins with.
void SourcePane::updateFilePage() {
    if (currentWidget() != m_filePage)
        return;
    TesselBase* node = firstNodeInView();
    if (node != nullptr)
        showInFile(*node);
    else
        m_filePage->clear();
}

void SourcePane::showInFile(const TesselBase& node) {
    const Tessel::SourceRange& range = node.getSourceRange();
    if (range.file == nullptr)
        return;
    m_filePage->showFile(QString::fromStdString(range.file->getPath()));
    m_filePage->showLine(static_cast<int>(range.beginLine));
}

std::pair<int, int> SourcePane::linesInView() const {
    const QFontMetrics metrics(selector().getFont());
    const int top = selector().verticalScrollBar()->value();
    const int bottom = top + selector().viewport()->height() - metrics.descent();
    const int first = top / metrics.height();
    return {first, std::max(bottom / metrics.height(), first + 1)};
}

TesselBase* SourcePane::firstNodeInView() const {
    const GUI::SourceText& text = selector().getText();
    const auto [first, end] = linesInView();
    TesselBase* marked = selector().getMark(0);
    const int markedLine = text.findLine(marked);
    if (markedLine >= first && markedLine < end && m_isSubjectMarked && marked->getSourceRange().file != nullptr)
        return marked;
    for (int line = first; line < text.getLineCount(); ++line)
        for (const GUI::SourceText::Part& part : text.getLine(line))
            if (part.node->getSourceRange().file != nullptr)
                return part.node;
    return nullptr;
}

} // namespace Kova::Shell
