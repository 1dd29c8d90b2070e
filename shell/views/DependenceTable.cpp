// SPDX-License-Identifier: MIT
#include "shell/views/DependenceTable.h"

#include <QHeaderView>
#include <QScopedValueRollback>
#include <QSortFilterProxyModel>

namespace Kova::Shell {

namespace {

class ShownRows : public QSortFilterProxyModel {
public:
    ShownRows(DependenceTable::Test isShown, QObject* parent)
        : QSortFilterProxyModel(parent),
          m_isShown(std::move(isShown)) {
        setSortRole(DependenceTableModel::sortRole);
        setDynamicSortFilter(true);
    }

protected:
    [[nodiscard]] bool filterAcceptsRow(int row, const QModelIndex& /*parent*/) const override {
        return m_isShown(row);
    }

private:
    DependenceTable::Test m_isShown;
};

} // namespace

DependenceTable::DependenceTable(Test isShown, QWidget* parent)
    : QTableView(parent),
      m_model(new DependenceTableModel(this)),
      m_shown(new ShownRows(std::move(isShown), this)) {
    setWindowTitle(tr("Dependences"));
    m_shown->setSourceModel(m_model);
    setModel(m_shown);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setSortingEnabled(true);
    // In the order of the picture until the user asks for another.
    sortByColumn(-1, Qt::AscendingOrder);
    setWordWrap(false);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    horizontalHeader()->setStretchLastSection(true);
    horizontalHeader()->setHighlightSections(false);
}

void DependenceTable::setRecords(std::vector<DependenceRecord> records) {
    const QScopedValueRollback<bool> silent(m_silent, true);
    m_model->setRecords(std::move(records));
    resizeColumnsToContents();
}

void DependenceTable::filterAgain() {
    m_shown->invalidate();
}

void DependenceTable::selectRecord(int number) {
    const QScopedValueRollback<bool> silent(m_silent, true);
    const QModelIndex row = m_shown->mapFromSource(m_model->index(number, 0));
    if (!row.isValid()) {
        clearSelection();
        return;
    }
    selectRow(row.row());
    scrollTo(row);
}

int DependenceTable::getSelectedRecord() const {
    const QModelIndexList rows = selectionModel()->selectedRows();
    return rows.isEmpty() ? -1 : m_shown->mapToSource(rows.first()).row();
}

void DependenceTable::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    QTableView::selectionChanged(selected, deselected);
    if (!m_silent)
        Q_EMIT recordPicked(getSelectedRecord());
}

} // namespace Kova::Shell
