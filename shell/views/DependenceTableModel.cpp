// SPDX-License-Identifier: MIT
#include "shell/views/DependenceTableModel.h"

namespace Kova::Shell {

namespace {

QString lineText(const DependenceRecord::End& end) {
    return end.line == 0 ? QString("?") : QString::number(end.line);
}

bool isNumeric(int column) {
    return column == DependenceTableModel::FromColumn || column == DependenceTableModel::ToColumn;
}

} // namespace

DependenceTableModel::DependenceTableModel(QObject* parent) : QAbstractTableModel(parent) {}

void DependenceTableModel::setRecords(std::vector<DependenceRecord> records) {
    beginResetModel();
    m_records = std::move(records);
    endResetModel();
}

int DependenceTableModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_records.size());
}

int DependenceTableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant DependenceTableModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= rowCount())
        return {};
    const DependenceRecord& record = m_records[static_cast<std::size_t>(index.row())];
    if (role == Qt::TextAlignmentRole && isNumeric(index.column()))
        return QVariant(static_cast<int>(Qt::AlignRight | Qt::AlignVCenter));
    // The last wording is the one that everybody understands.
    if (role == Qt::ToolTipRole)
        return record.tags.isEmpty() ? QString() : record.tags.last();
    // The table is the picture's legend.
    if (role == Qt::DecorationRole && index.column() == KindColumn)
        return record.color;
    if (role != Qt::DisplayRole && role != sortRole)
        return {};
    switch (index.column()) {
    case KindColumn:
        return record.kind;
    case VariableColumn:
        return record.getVariable();
    case FromColumn:
        return role == sortRole ? QVariant(record.source.line) : QVariant(lineText(record.source));
    case ToColumn:
        return role == sortRole ? QVariant(record.target.line) : QVariant(lineText(record.target));
    case CarriersColumn:
        return record.getCarriersText();
    case DistanceColumn:
        return record.getDistanceText();
    case StateColumn:
        return record.proven ? tr("proven") : tr("assumed");
    default:
        return {};
    }
}

QVariant DependenceTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    const QStringList titles = {tr("Kind"),     tr("Variable"), tr("From"), tr("To"),
                                tr("Carriers"), tr("Distance"), tr("State")};
    return titles.value(section);
}

} // namespace Kova::Shell
