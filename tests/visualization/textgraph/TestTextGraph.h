// SPDX-License-Identifier: MIT
// A text graph that tests fill by hand or at random, with all its parts in reach.
#pragma once

#include "visualization/textgraph/EdgeBase.h"
#include "visualization/textgraph/GraphNodeBase.h"
#include "visualization/textgraph/TextGraphWidgetBase.h"
#include "visualization/textgraph/WordLayout.h"

#include <QApplication>
#include <QMouseEvent>
#include <QScrollBar>
#include <QStringList>

#include <functional>
#include <random>
#include <vector>

namespace Kova::GUI::TextGraph {

class TestTextGraph : public TextGraphWidgetBase {
public:
    /// The viewport has the given size and keeps it.
    explicit TestTextGraph(const QSize& viewportSize = QSize(600, 400)) {
        setFrameShape(QFrame::NoFrame);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        resize(viewportSize);
    }

    using TextGraphWidgetBase::createMenu;
    using TextGraphWidgetBase::edgePolygons;
    using TextGraphWidgetBase::edgeRects;
    using TextGraphWidgetBase::edges;
    using TextGraphWidgetBase::heldNode;
    using TextGraphWidgetBase::lines;
    using TextGraphWidgetBase::menu;
    using TextGraphWidgetBase::moveCloseLinesApart;
    using TextGraphWidgetBase::reorder;
    using TextGraphWidgetBase::setBuilded;
    using TextGraphWidgetBase::shiftLines;
    using TextGraphWidgetBase::sprainLine;
    using TextGraphWidgetBase::updateEdgesVisibility;

    [[nodiscard]] bool filterEdge(const EdgeBase* edge) override {
        ++asked;
        return !filter || filter(edge);
    }

    /// A line for each text; words are what is between single blanks, all of them nodes that edges can attach to.
    void addText(const QStringList& texts) {
        ProgramLines text;
        for (const QString& line : texts) {
            text.emplace_back();
            for (const QString& word : line.split(QLatin1Char(' ')))
                text.back().push_back({word.isEmpty() ? std::string(1, ' ') : word.toStdString(), nullptr});
        }
        WordLayout layout(getFont(), lines());
        layout.addWords(text, [](const QPoint& pos, const QString& word, const Tessel::TesselBase*) {
            return new GraphNodeBase(pos, word);
        });
        setGraphSize(layout.getSize());
    }

    [[nodiscard]] GraphNodeBase* node(int line, int index) const {
        return dynamic_cast<GraphNodeBase*>(getLines().at(line).nodes.at(index));
    }
    EdgeBase* join(GraphNodeBase* from, GraphNodeBase* to, const QColor& color = Qt::blue) {
        auto* edge = new EdgeBase(from, to);
        edge->setColor(color);
        edges().add(edge);
        return edge;
    }

    void finish() {
        setBuilded();
        updateEdgesVisibility();
        updateScrollBars();
        updateMap();
    }

    /// Words of all lengths, edges between any of them or within a few lines.
    void addRandom(std::mt19937& generator, int lineCount, int wordCount, int edgeCount, int reach) {
        const auto any = [&](int low, int high) { return std::uniform_int_distribution<int>(low, high)(generator); };
        QStringList texts;
        for (int line = 0; line < lineCount; ++line) {
            QStringList words;
            for (int word = 0; word < wordCount; ++word)
                words.append(QString(any(1, 7), QLatin1Char(static_cast<char>(any('a', 'z')))));
            texts.append(QString(any(0, 6), QLatin1Char(' ')) + words.join(QLatin1Char(' ')));
        }
        addText(texts);
        static const QColor colors[] = {Qt::blue, Qt::red, Qt::darkGreen, Qt::magenta};
        for (int i = 0; i < edgeCount; ++i) {
            const int line = any(0, lineCount - 1);
            const int other = any(std::max(0, line - reach), std::min(lineCount - 1, line + reach));
            GraphNodeBase* from = node(line, any(0, wordCount - 1));
            join(from, any(0, 9) == 0 ? from : node(other, any(0, wordCount - 1)), colors[i % 4]);
        }
        moveCloseLinesApart();
    }

    /// Of both ends of each edge.
    [[nodiscard]] std::vector<int> portNumbers() const {
        std::vector<int> numbers;
        for (const EdgeBase* edge : getEdges()) {
            for (const EdgeSide side : {EdgeSide::From, EdgeSide::To})
                numbers.push_back(edge->getPort(side));
        }
        return numbers;
    }

    /// The middle of a word.
    [[nodiscard]] QPoint middleOf(int line, int index) const {
        const NodeBase* word = node(line, index);
        return {(word->getPos().x() + word->getRightEnd()) / 2, word->getPos().y() - getLineHeight() / 2};
    }

    /// Each sends an event to the viewport; true when it was accepted.
    bool press(const QPoint& position, Qt::MouseButton button = Qt::LeftButton) {
        return mouse(QEvent::MouseButtonPress, position, button, button, Qt::NoModifier);
    }
    bool release(const QPoint& position, Qt::MouseButton button = Qt::LeftButton) {
        return mouse(QEvent::MouseButtonRelease, position, button, Qt::NoButton, Qt::NoModifier);
    }
    bool moveMouse(const QPoint& position, Qt::MouseButtons buttons = Qt::NoButton,
                   Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        return mouse(QEvent::MouseMove, position, Qt::NoButton, buttons, modifiers);
    }
    bool drag(const QPoint& position, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        return moveMouse(position, Qt::LeftButton, modifiers);
    }

    [[nodiscard]] QPoint scrolled() const { return {horizontalScrollBar()->value(), verticalScrollBar()->value()}; }
    void scrollTo(int x, int y) {
        horizontalScrollBar()->setValue(x);
        verticalScrollBar()->setValue(y);
    }
    [[nodiscard]] QAction* imageAction() const { return m_saveImageAction; }
    [[nodiscard]] QAction* svgAction() const { return m_saveSvgAction; }

    std::function<bool(const EdgeBase*)> filter;
    int asked = 0;

    /// How often the viewport is painted because of the action.
    int repaintsAfter(const std::function<void()>& action) {
        QCoreApplication::processEvents();
        m_repaints = 0;
        action();
        QCoreApplication::processEvents();
        return m_repaints;
    }

protected:
    void paintEvent(QPaintEvent* event) override {
        ++m_repaints;
        TextGraphWidgetBase::paintEvent(event);
    }
    void mousePressEvent(QMouseEvent* event) override {
        TextGraphWidgetBase::mousePressEvent(event);
        m_accepted = event->isAccepted();
    }
    void mouseMoveEvent(QMouseEvent* event) override {
        TextGraphWidgetBase::mouseMoveEvent(event);
        m_accepted = event->isAccepted();
    }
    void mouseReleaseEvent(QMouseEvent* event) override {
        TextGraphWidgetBase::mouseReleaseEvent(event);
        m_accepted = event->isAccepted();
    }

private:
    bool mouse(QEvent::Type type, const QPoint& position, Qt::MouseButton button, Qt::MouseButtons buttons,
               Qt::KeyboardModifiers modifiers) {
        QMouseEvent event(type, position, viewport()->mapToGlobal(position), button, buttons, modifiers);
        QApplication::sendEvent(viewport(), &event);
        return m_accepted;
    }

    // What the widget did, before the event went on to its parents.
    bool m_accepted = false;
    int m_repaints = 0;
};

} // namespace Kova::GUI::TextGraph
