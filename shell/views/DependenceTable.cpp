// SPDX-License-Identifier: MIT
#include "shell/views/DependenceTable.h"

#include <QHeaderView>
#include <QScopedValueRollback>
#include <QSortFilterProxyModel>

namespace Kova::Shell {

namespace {

constexpr QSize swatch(10, 10);

class ShownRows : public QSortFilterProxyModel {
public:
    ShownRows(DependenceTable::Test isShown, DependenceTableModel& model, QObject* parent)
        : QSortFilterProxyModel(parent),
          m_isShown(std::move(isShown)),
          m_model(model) {
        setSourceModel(&model);
        setSortRole(DependenceTableModel::sortRole);
        setDynamicSortFilter(true);
    }

protected:
    [[nodiscard]] bool filterAcceptsRow(int row, const QModelIndex& /*parent*/) const override {
        return m_isShown(row);
    }

    /// Lists of numbers one number after the other: what is unknown, or varies, goes first.
    [[nodiscard]] bool lessThan(const QModelIndex& left, const QModelIndex& right) const override {
        const DependenceRecord& one = recordAt(left);
        const DependenceRecord& other = recordAt(right);
        if (left.column() == DependenceTableModel::CarriersColumn)
            return one.carriers < other.carriers;
        if (left.column() == DependenceTableModel::DistanceColumn)
            return one.distance < other.distance;
        return QSortFilterProxyModel::lessThan(left, right);
    }

private:
    [[nodiscard]] const DependenceRecord& recordAt(const QModelIndex& index) const {
        return m_model.getRecords()[static_cast<std::size_t>(index.row())];
    }

    DependenceTable::Test m_isShown;
    DependenceTableModel& m_model;
};

} // namespace

DependenceTable::DependenceTable(Test isShown, QWidget* parent)
    : QTableView(parent),
      m_model(new DependenceTableModel(this)),
      m_shown(new ShownRows(std::move(isShown), *m_model, this)) {
    setWindowTitle(tr("Dependences"));
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
    setIconSize(swatch);
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
