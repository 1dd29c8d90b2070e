// SPDX-License-Identifier: MIT
#pragma once

#include "shell/views/DependenceRecord.h"

#include <QAbstractTableModel>

namespace Kova::Shell {

/// Dependences, a row each, in the order of the picture's edges.
class DependenceTableModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column : int {
        KindColumn,
        VariableColumn,
        FromColumn,
        ToColumn,
        CarriersColumn,
        DistanceColumn,
        StateColumn,
        ColumnCount
    };
    /// What rows are sorted by: lines as numbers, everything else as text. The table sorts lists of numbers itself.
    static constexpr int sortRole = Qt::UserRole;

    explicit DependenceTableModel(QObject* parent = nullptr);

    void setRecords(std::vector<DependenceRecord> records);
    [[nodiscard]] const std::vector<DependenceRecord>& getRecords() const { return m_records; }

    [[nodiscard]] int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role = Qt::DisplayRole) const override;

private:
    std::vector<DependenceRecord> m_records;
};

} // namespace Kova::Shell
