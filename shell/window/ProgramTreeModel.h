// SPDX-License-Identifier: MIT
#pragma once

#include "shell/program/Subject.h"

#include <QAbstractItemModel>

#include <vector>

namespace Kova::Shell {

class ProgramOutline;
struct OutlineBlock;
struct OutlineFile;
struct OutlineLoop;
struct OutlineSubroutine;

/// A program as a tree: files, their subroutines, their loops in one another and, where asked for, their blocks; the
/// second column has the lines.
class ProgramTreeModel : public QAbstractItemModel {
    Q_OBJECT

public:
    enum Column : int { NameColumn = 0, LinesColumn = 1, ColumnCount = 2 };

    explicit ProgramTreeModel(QObject* parent = nullptr);

    /// Shows another program. @param program what the rows of files stand for; null shows nothing. Both the program
    /// and what the outline points at live until the next call.
    /// @param withBlocks whether blocks have rows, below the innermost loop around them.
    void setProgram(const ProgramOutline& outline, Tessel::ProgramUnit* program, bool withBlocks = false);

    /// A file stands for the whole program. A subject of no kind for an invalid index.
    [[nodiscard]] Subject getSubject(const QModelIndex& index) const;
    /// The row of a subroutine or loop; the first row for a program; invalid for what has no row.
    [[nodiscard]] QModelIndex findIndex(const Subject& subject) const;

    [[nodiscard]] QModelIndex index(int row, int column, const QModelIndex& parent = QModelIndex()) const override;
    [[nodiscard]] QModelIndex parent(const QModelIndex& index) const override;
    [[nodiscard]] int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role = Qt::DisplayRole) const override;

private:
    struct Item {
        QString name;
        QString lines;
        QString toolTip;
        Subject subject;
        int parent = 0;
        int row = 0;
        std::vector<int> children;
    };

    void appendFile(const OutlineFile& file, Tessel::ProgramUnit& program, bool withBlocks);
    void appendSubroutine(const OutlineSubroutine& subroutine, const QString& file, int parent, bool withBlocks);
    int appendLoop(const OutlineLoop& loop, const QString& file, int parent);
    void appendBlock(const OutlineBlock& block, const QString& file, int parent);
    int append(int parent, Item item);
    [[nodiscard]] const Item& itemOf(const QModelIndex& index) const;

    /// The first is the invisible root.
    std::vector<Item> m_items;
};

} // namespace Kova::Shell
