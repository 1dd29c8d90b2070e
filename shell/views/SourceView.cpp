// SPDX-License-Identifier: MIT
#include "shell/views/SourceView.h"

#include "environment/core/Strings.h"
#include "environment/tessel/ProgramUnit.h"
#include "environment/tessel/SubroutineDeclaration.h"
#include "shell/program/Counted.h"
#include "shell/views/SourceSheet.h"
#include "visualization/sourceselector/SourceSelector.h"
#include "visualization/sourceselector/SubroutineCollector.h"

#include <QJsonArray>

namespace Kova::Shell {

namespace {

using GUI::SourceSelector;
using Tessel::TesselBase;

bool takesAll(const Subject& subject) {
    return subject.getKind() != Subject::Kind::None;
}

/// Procedures that one can still read in a picture, which cannot be of any height either.
bool isShortSubroutine(const Subject& subject) {
    constexpr std::uint32_t mostLines = 1000;
    if (subject.getKind() != Subject::Kind::Subroutine)
        return false;
    const Tessel::SourceRange& range = subject.getNode()->getSourceRange();
    return range.endLine - range.beginLine < mostLines;
}

/// "ForStatement": the class of a node without its namespace.
QString kindOf(const TesselBase& node) {
    const QString name = QString::fromStdString(Strings::demangle(typeid(node).name()));
    return name.mid(name.lastIndexOf(':') + 1);
}

int lineOf(const TesselBase& node) {
    return static_cast<int>(node.getSourceRange().beginLine);
}

QJsonArray describeLine(const GUI::SourceText::Line& line) {
    QJsonArray parts;
    for (const SourceSelector::SStringPart& part : line)
        parts.append(QJsonObject{{"text", part.text}, {"node", kindOf(*part.node)}, {"line", lineOf(*part.node)}});
    return parts;
}

QJsonArray describeMarks(const SourceSelector& selector) {
    QJsonArray marks;
    for (int mark = 0; mark < selector.getMarksNum(); ++mark)
        if (const TesselBase* node = selector.getMark(mark))
            marks.append(QJsonObject{{"mark", mark}, {"node", kindOf(*node)}, {"line", lineOf(*node)}});
    return marks;
}

} // namespace

ViewKind SourceView::kind() {
    ViewKind kind;
    kind.name = "source";
    kind.title = "Source";
    kind.preference = {Subject::Kind::Program, Subject::Kind::Statement};
    kind.takes = &takesAll;
    kind.isWorthExporting = &isShortSubroutine;
    kind.create = []() -> std::unique_ptr<View> { return std::make_unique<SourceView>(); };
    return kind;
}

// A picture of the source shows all of it; what is to be hidden is chosen where one works with it.
SourceView::SourceView()
    : m_selector(std::make_unique<SourceSelector>()),
      m_sheet(std::make_unique<SourceSheet>(*m_selector)) {
    m_selector->setOptions({});
}

SourceView::~SourceView() = default;

GUI::GraphWidgetBase& SourceView::getWidget() const {
    return *m_sheet;
}

void SourceView::show(const Subject& subject) {
    TesselBase* subroutine = subject.getSubroutine();
    m_selector->setRootNode(subroutine != nullptr ? subroutine : subject.getNode());
    m_selector->setMark(subject.getStatement(), 0);
    m_sheet->update();
}

void SourceView::clear() {
    m_selector->forgetRootNode();
    m_sheet->update();
}

Picked SourceView::findAt(const QPoint& position) const {
    return {m_selector->getNodeByPos(m_sheet->screenToGraph(position)), nullptr};
}

QStringList SourceView::subroutineNames() const {
    QStringList names;
    if (TesselBase* root = m_selector->getRootNode()) {
        GUI::SubroutineCollector collector;
        root->accept(collector);
        for (const Tessel::SubroutineDeclaration* subroutine : collector.getSubroutines())
            if (subroutine->hasImplementation())
                names.append(QString::fromStdString(subroutine->getName()));
    }
    return names;
}

QJsonObject SourceView::describe() const {
    const GUI::SourceText& text = m_selector->getText();
    QJsonArray lines;
    for (int i = 0; i < text.getLineCount(); ++i)
        lines.append(describeLine(text.getLine(i)));
    return {{"nodes", QJsonArray()},
            {"edges", QJsonArray()},
            {"lines", lines},
            {"subroutines", QJsonArray::fromStringList(subroutineNames())},
            {"marks", describeMarks(*m_selector)}};
}

QString SourceView::summarize() const {
    if (!m_sheet->isBuilded())
        return {};
    const int lines = m_selector->getText().getLineCount();
    return counted(static_cast<std::size_t>(lines), "line") + ", " +
           counted(static_cast<std::size_t>(subroutineNames().size()), "subroutine");
}

} // namespace Kova::Shell
