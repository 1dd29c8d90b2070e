// SPDX-License-Identifier: MIT
#include "shell/window/ProgramTreeModel.h"

#include "environment/tessel/BlockStatement.h"
#include "environment/tessel/LoopStatement.h"
#include "environment/tessel/ProgramUnit.h"
#include "environment/tessel/SubroutineDeclaration.h"
#include "shell/program/ProgramOutline.h"

#include <QFileInfo>

namespace Kova::Shell {

namespace {

QString linesText(std::uint32_t first, std::uint32_t last) {
    if (first == 0)
        return {};
    return last <= first ? QString::number(first) : QString("%1\u2013%2").arg(first).arg(last);
}

} // namespace

ProgramTreeModel::ProgramTreeModel(QObject* parent) : QAbstractItemModel(parent), m_items(1) {}

void ProgramTreeModel::setProgram(const ProgramOutline& outline, Tessel::ProgramUnit* program, bool withBlocks) {
    beginResetModel();
    m_items.assign(1, Item());
    if (program != nullptr)
        for (const OutlineFile& file : outline.getFiles())
            appendFile(file, *program, withBlocks);
    endResetModel();
}

void ProgramTreeModel::appendFile(const OutlineFile& file, Tessel::ProgramUnit& program, bool withBlocks) {
    Item item;
    item.name = QFileInfo(file.path).fileName();
    item.toolTip = file.path;
    item.subject = Subject(program);
    const int number = append(0, std::move(item));
    for (const OutlineSubroutine& subroutine : file.subroutines)
        appendSubroutine(subroutine, file.path, number, withBlocks);
}

void ProgramTreeModel::appendSubroutine(const OutlineSubroutine& subroutine, const QString& file, int parent,
                                        bool withBlocks) {
    Item item;
    item.name = subroutine.name;
    item.lines = linesText(subroutine.firstLine, subroutine.lastLine);
    item.toolTip = QString("%1:%2").arg(file).arg(subroutine.firstLine);
    item.subject = Subject(*subroutine.subroutine);
    const int holder = append(parent, std::move(item));
    std::vector<int> numbers;
    const auto rowOf = [&](int loop) { return loop < 0 ? holder : numbers[static_cast<std::size_t>(loop)]; };
    auto block = withBlocks ? subroutine.blocks.begin() : subroutine.blocks.end();
    const auto appendBlocks = [&] {
        for (; block != subroutine.blocks.end() && block->loopsBefore <= numbers.size(); ++block)
            appendBlock(*block, file, rowOf(block->outer));
    };
    for (const OutlineLoop& loop : subroutine.loops) {
        appendBlocks();
        numbers.push_back(appendLoop(loop, file, rowOf(loop.outer)));
    }
    appendBlocks();
}

int ProgramTreeModel::appendLoop(const OutlineLoop& loop, const QString& file, int parent) {
    Item row;
    row.name = tr("%1 loop").arg(loop.kind);
    row.lines = linesText(loop.firstLine, loop.lastLine);
    row.toolTip = tr("%1:%2, depth %3").arg(file).arg(loop.firstLine).arg(loop.depth);
    row.subject = Subject(*loop.loop);
    return append(parent, std::move(row));
}

void ProgramTreeModel::appendBlock(const OutlineBlock& block, const QString& file, int parent) {
    Item row;
    row.name = block.kind;
    row.lines = linesText(block.firstLine, block.lastLine);
    row.toolTip = QString("%1:%2").arg(file).arg(block.firstLine);
    row.subject = Subject(*block.block);
    append(parent, std::move(row));
}

int ProgramTreeModel::append(int parent, Item item) {
    const int number = static_cast<int>(m_items.size());
    std::vector<int>& siblings = m_items[static_cast<std::size_t>(parent)].children;
    item.parent = parent;
    item.row = static_cast<int>(siblings.size());
    siblings.push_back(number);
    m_items.push_back(std::move(item));
    return number;
}

const ProgramTreeModel::Item& ProgramTreeModel::itemOf(const QModelIndex& index) const {
    return index.isValid() ? m_items[static_cast<std::size_t>(index.internalId())] : m_items.front();
}

Subject ProgramTreeModel::getSubject(const QModelIndex& index) const {
    return itemOf(index).subject;
}

QModelIndex ProgramTreeModel::findIndex(const Subject& subject) const {
    for (std::size_t i = 1; i < m_items.size(); ++i)
        if (m_items[i].subject == subject)
            return createIndex(m_items[i].row, NameColumn, static_cast<quintptr>(i));
    return {};
}

QModelIndex ProgramTreeModel::index(int row, int column, const QModelIndex& parent) const {
    if (!hasIndex(row, column, parent))
        return {};
    return createIndex(row, column, static_cast<quintptr>(itemOf(parent).children[static_cast<std::size_t>(row)]));
}

QModelIndex ProgramTreeModel::parent(const QModelIndex& index) const {
    const int parent = itemOf(index).parent;
    if (parent == 0)
        return {};
    return createIndex(m_items[static_cast<std::size_t>(parent)].row, NameColumn, static_cast<quintptr>(parent));
}

int ProgramTreeModel::rowCount(const QModelIndex& parent) const {
    return parent.column() > NameColumn ? 0 : static_cast<int>(itemOf(parent).children.size());
}

int ProgramTreeModel::columnCount(const QModelIndex& /*parent*/) const {
    return ColumnCount;
}

QVariant ProgramTreeModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid())
        return {};
    const Item& item = itemOf(index);
    if (role == Qt::DisplayRole)
        return index.column() == NameColumn ? item.name : item.lines;
    if (role == Qt::ToolTipRole)
        return item.toolTip;
    if (role == Qt::TextAlignmentRole && index.column() == LinesColumn)
        return QVariant(static_cast<int>(Qt::AlignRight | Qt::AlignVCenter));
    return {};
}

QVariant ProgramTreeModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return section == NameColumn ? tr("Name") : tr("Lines");
}

} // namespace Kova::Shell
