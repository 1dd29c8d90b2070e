// SPDX-License-Identifier: MIT
#include "visualization/textgraph/WordLayout.h"

#include "visualization/textgraph/NodeBase.h"

#include <QFont>

#include <algorithm>

namespace Kova::GUI::TextGraph {

namespace {

bool isWordEmpty(const QString& text) {
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c.isSpace(); });
}

} // namespace

WordLayout::WordLayout(const QFont& font, QList<NodesLine>& lines)
    : m_metrics(font),
      m_cell(m_metrics),
      m_lines(lines) {}

NodesLine& WordLayout::openLine() {
    m_lines.append(NodesLine());
    NodesLine& line = m_lines.last();
    line.setY(m_lines.size() * (m_cell.lineHeight + 2));
    return line;
}

void WordLayout::place(NodesLine& line, NodeBase& node) {
    node.setRect(rectOf(node.getText()));
    line.nodes.append(&node);
    m_rightEnd = std::max(m_rightEnd, node.getRightEnd());
}

void WordLayout::addWords(const ProgramLines& text, const MakeNode& makeNode) {
    for (const std::list<BasicWord>& words : text) {
        NodesLine& line = openLine();
        int x = 0;
        for (const BasicWord& word : words) {
            const QString wordText = QString::fromStdString(word.text);
            if (isWordEmpty(wordText)) {
                x += blankWidth(wordText);
                continue;
            }
            NodeBase* node = makeNode(QPoint(x, line.y), wordText, word.object);
            place(line, *node);
            x += m_cell.charWidth / 2 + node->getRect().width();
        }
    }
}

void WordLayout::addStatements(const ProgramLines& text, const MakeNode& makeNode) {
    for (const std::list<BasicWord>& words : text) {
        NodesLine& line = openLine();
        if (words.empty())
            continue;
        const QString wordText = QString::fromStdString(words.front().text);
        // An indentation is made of these alone.
        const auto ink = std::find_if(wordText.begin(), wordText.end(), [](QChar c) { return c != QLatin1Char(' '); });
        const int blanks = static_cast<int>(ink - wordText.begin());
        place(line, *makeNode(QPoint(m_cell.charWidth * blanks, line.y), wordText.mid(blanks), words.front().object));
    }
}

void WordLayout::addLine(NodeBase& node, int column) {
    NodesLine& line = openLine();
    node.setPos(QPoint(m_cell.charWidth * column, line.y));
    place(line, node);
}

const QRect& WordLayout::rectOf(const QString& text) {
    auto known = m_rects.find(text);
    if (known == m_rects.end()) {
        QRect rect = m_metrics.boundingRect(text);
        rect.setRight(rect.left() + m_cell.charWidth * text.size() - 1);
        known = m_rects.insert(text, rect);
    }
    return *known;
}

int WordLayout::blankWidth(const QString& blanks) {
    auto known = m_blanks.find(blanks);
    if (known == m_blanks.end())
        known = m_blanks.insert(blanks, m_metrics.horizontalAdvance(blanks));
    return *known;
}

QSize WordLayout::getSize() const {
    return {m_rightEnd, m_lines.isEmpty() ? 0 : m_lines.last().y + m_cell.lineHeight};
}

} // namespace Kova::GUI::TextGraph
