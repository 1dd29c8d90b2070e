// SPDX-License-Identifier: MIT
#include "visualization/sourceselector/SourceSelector.h"

#include "environment/tessel/StatementBase.h"
#include "environment/tessel/VariableDeclaration.h"
#include "visualization/sourceselector/SourceSelectorOutput.h"

#include <QFontMetrics>
#include <QPalette>
#include <QScrollBar>

#include <algorithm>

namespace Kova::GUI {

namespace {

using Tessel::TesselBase;

constexpr int plainSlot = 0;
constexpr int hoverSlot = 1;
constexpr int firstMarkSlot = 2;

constexpr unsigned int black = 0xFF000000;

SourceSelector::Options hidingAll() {
    SourceSelector::Options options;
    options.hidePrototypes = true;
    options.hideVariables = true;
    options.hideTypedefs = true;
    options.hideExternalDeclarations = true;
    return options;
}

} // namespace

SourceSelector::SourceSelector(QWidget* parent)
    : QAbstractScrollArea(parent),
      m_text(std::make_unique<SourceText>(m_pieceTexts)) {
    m_slots.resize(firstMarkSlot);
    m_slots[plainSlot] = {black, palette().color(QPalette::Base).rgba(), false, {0, 0}};
    m_slots[hoverSlot] = {black, qRgb(230, 230, 230), true, {0, 0}};
    rebuildEventMap();
    setMarksNum(4);
    setMarkParams(0, black, qRgb(200, 250, 200), true, {Qt::LeftButton, 0});
    setMarkParams(1, black, qRgb(200, 200, 250), true, {Qt::RightButton, 0});
    setMarkParams(2, black, qRgb(250, 200, 200), true, {Qt::MiddleButton, int(Qt::ShiftModifier) | Qt::LeftButton});
    setMarkParams(3, black, qRgb(250, 250, 200), true, {int(Qt::ShiftModifier) | Qt::RightButton, 0});
    setFont(QFont("Monospace", 10));
    m_options = hidingAll();
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    updateScrollBars();
}

void SourceSelector::setRootNode(TesselBase* node) {
    startText();
    // Whoever hears of a change may change the number of marks.
    for (int slot = 0; slot < getSlotCount(); ++slot) {
        storeMark(slot, nullptr);
        if (isSlot(slot))
            m_marks[static_cast<std::size_t>(slot)].fragment.setEmpty();
    }
    if (node != nullptr) {
        print(node);
        m_root = node;
    }
    updateScrollBars();
    viewport()->update();
}

void SourceSelector::forgetRootNode() {
    setRootNode(nullptr);
    m_hover.clear();
    m_root = nullptr;
}

void SourceSelector::startText() {
    m_text = std::make_unique<SourceText>(m_pieceTexts);
    m_selection.reset(m_text->getNodes());
}

// A text that a printer gave up half-way is shown as far as it got.
void SourceSelector::print(TesselBase* node) {
    // Whoever heard of the marks may have had another root printed.
    startText();
    SourceSelectorOutput output(*m_text);
    Shared::ProgramTextBuilder builder(output, m_options);
    builder.increaseIndent();
    node->accept(builder);
}

void SourceSelector::setOptions(const Options& options) {
    if (m_options == options)
        return;
    m_options = options;
    setRootNode(m_root);
}

void SourceSelector::setFont(const QFont& font) {
    m_font = font;
    const QFontMetrics metrics(font);
    m_charWidth = metrics.averageCharWidth();
    m_lineHeight = metrics.height();
    m_descent = metrics.descent();
    verticalScrollBar()->setSingleStep(m_lineHeight);
    horizontalScrollBar()->setSingleStep(m_charWidth);
}

QSize SourceSelector::getTextSize() const {
    return {m_text->getWidestLine() * m_charWidth, m_text->getLineCount() * m_lineHeight};
}

void SourceSelector::updateScrollBars() {
    const QSize page = viewport()->size();
    const QSize size = getTextSize();
    verticalScrollBar()->setPageStep(page.height());
    horizontalScrollBar()->setPageStep(page.width());
    verticalScrollBar()->setRange(0, size.height() - page.height());
    horizontalScrollBar()->setRange(0, size.width() - page.width());
}

void SourceSelector::setMarksNum(int count) {
    const int slots = std::max(count, 0) + firstMarkSlot;
    m_marks.assign(static_cast<std::size_t>(slots), {});
    m_slots.resize(slots);
    rebuildEventMap();
}

void SourceSelector::setMarkParams(int mark, unsigned int textColor, unsigned int background, bool withChildren,
                                   const std::pair<int, int>& keys) {
    const int slot = slotOfMark(mark);
    if (slot < 0)
        return;
    m_slots[slot] = {textColor, background, withChildren, keys};
    rebuildEventMap();
    viewport()->update();
}

void SourceSelector::setOverParams(unsigned int textColor, unsigned int background) {
    SSelParams& params = m_slots[hoverSlot];
    params = {textColor, background, params.withChildren, params.keys};
    viewport()->update();
}

unsigned int SourceSelector::getMarkColor(int mark) const {
    const int slot = slotOfMark(mark);
    return slot < 0 ? 0 : m_slots[slot].brush.color().rgba();
}

std::pair<int, int> SourceSelector::getMarkKeys(int mark) const {
    const int slot = slotOfMark(mark);
    return slot < 0 ? std::pair<int, int>{0, 0} : m_slots[slot].keys;
}

void SourceSelector::rebuildEventMap() {
    m_eventMap.clear();
    for (int slot = firstMarkSlot; slot < getSlotCount(); ++slot)
        for (const int key : {m_slots[slot].keys.first, m_slots[slot].keys.second})
            if (key != 0)
                m_eventMap[key] = slot;
}

int SourceSelector::slotOfMark(int mark) const {
    return mark >= 0 && mark < getMarksNum() ? mark + firstMarkSlot : -1;
}

TesselBase* SourceSelector::getMark(int mark) const {
    const int slot = slotOfMark(mark);
    return slot < 0 ? nullptr : m_marks[static_cast<std::size_t>(slot)].node;
}

Tessel::ProgramFragment SourceSelector::getMarkFragment(int mark) const {
    const int slot = slotOfMark(mark);
    return slot < 0 ? Tessel::ProgramFragment() : m_marks[static_cast<std::size_t>(slot)].fragment;
}

void SourceSelector::storeMark(int slot, TesselBase* node) {
    Mark& mark = m_marks[static_cast<std::size_t>(slot)];
    if (mark.node == node)
        return;
    mark.node = node;
    Q_EMIT markChanged(slot - firstMarkSlot);
}

void SourceSelector::setMark(TesselBase* node, int mark) {
    const int slot = slotOfMark(mark);
    if (slot < 0 || getMark(mark) == node)
        return;
    if (node == nullptr) {
        clearSelection(slot);
        return;
    }
    if (!containsNode(node))
        return;
    clearSelection(slot);
    markNode(node, slot);
    storeMark(slot, node);
    if (isSlot(slot))
        m_marks[static_cast<std::size_t>(slot)].fragment.setEmpty();
    viewport()->update();
}

void SourceSelector::setMarkFragment(const Tessel::ProgramFragment& fragment, int mark) {
    const int slot = slotOfMark(mark);
    if (slot < 0 || getMarkFragment(mark) == fragment)
        return;
    clearSelection(slot);
    if (!fragment.isEmpty())
        markFragment(fragment, slot);
    m_marks[static_cast<std::size_t>(slot)] = {nullptr, fragment};
    viewport()->update();
}

void SourceSelector::markFragment(const Tessel::ProgramFragment& fragment, int slot) {
    const Tessel::StatementIterator end = fragment.getAfterLastIterator();
    for (Tessel::StatementIterator at = fragment.getFirstIterator(); at != end; at.goNext())
        markNode(&*at, slot);
}

void SourceSelector::markNode(TesselBase* node, int slot) {
    if (node == nullptr || !isSlot(slot))
        return;
    const bool withChildren = m_slots[slot].withChildren;
    if (slot == hoverSlot) {
        m_hover.insert(*node, withChildren, m_text->getNodes());
        return;
    }
    std::vector<TesselBase*> pending{node};
    while (!pending.empty()) {
        const TesselBase* marked = pending.back();
        pending.pop_back();
        m_selection.raise(*marked, slot);
        if (!withChildren)
            return;
        for (std::size_t i = 0; i < marked->getChildCount(); ++i) {
            TesselBase* child = marked->getChild(i);
            if (child != nullptr && containsNode(child) &&
                dynamic_cast<const Tessel::VariableDeclaration*>(child) == nullptr)
                pending.push_back(child);
        }
    }
}

void SourceSelector::clearSelection(int slot) {
    m_selection.clearSlot(slot);
    viewport()->update();
}

bool SourceSelector::isNodeSelected(const TesselBase& node) const {
    return m_selection.getSlot(node) != plainSlot;
}

bool SourceSelector::containsNode(const TesselBase* node) const {
    return m_text->findLine(node) >= 0;
}

void SourceSelector::ensureNodeVisible(const TesselBase* node) {
    const int line = m_text->findLine(node);
    if (line < 0 || m_lineHeight <= 0)
        return;
    QScrollBar& bar = *verticalScrollBar();
    const int first = bar.value() / m_lineHeight;
    if (line < first || line > first + height() / m_lineHeight + 1)
        bar.setValue(line * m_lineHeight);
}

} // namespace Kova::GUI
