// SPDX-License-Identifier: MIT
#pragma once

#include "shell/views/DependenceTableModel.h"

#include <QTableView>

#include <functional>

class QSortFilterProxyModel;

namespace Kova::Shell {

/// The dependences of a picture as a sortable table that shows those which the picture shows. Dependences are numbered
/// as the picture's edges.
class DependenceTable : public QTableView {
    Q_OBJECT

public:
    /// Whether a dependence is to have a row.
    using Test = std::function<bool(int number)>;

    explicit DependenceTable(Test isShown, QWidget* parent = nullptr);

    void setRecords(std::vector<DependenceRecord> records);
    [[nodiscard]] const std::vector<DependenceRecord>& getRecords() const { return m_model->getRecords(); }
    /// Asks the test anew for every dependence.
    void filterAgain();
    /// Selects the row of a dependence, and scrolls to it, without telling that it was picked; -1 selects none.
    void selectRecord(int number);
    /// The dependence of the selected row, -1 for none.
    [[nodiscard]] int getSelectedRecord() const;

Q_SIGNALS:
    /// The user selected another row; -1 for none.
    void recordPicked(int number);

protected:
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

private:
    DependenceTableModel* m_model;
    QSortFilterProxyModel* m_shown;
    bool m_silent = false;
};

} // namespace Kova::Shell
