// SPDX-License-Identifier: MIT
#include "shell/views/DependenceTable.h"

#include <QAbstractItemModelTester>
#include <QHeaderView>
#include <QSignalSpy>
#include <QtTest>

namespace Kova::Shell {

namespace {

DependenceRecord record(const QString& kind, const QString& name, int from, int to, std::vector<int> carriers) {
    DependenceRecord result;
    result.kind = kind;
    result.source = {name, from, 1};
    result.target = {name, to, 5};
    result.carriers = std::move(carriers);
    result.distance = {1, std::nullopt};
    result.proven = kind == "flow";
    result.tags = QStringList({"a", "b", "c", "popular"});
    return result;
}

std::vector<DependenceRecord> threeRecords() {
    return {record("flow", "b", 10, 9, {1}), record("anti", "a", 9, 10, {-1, 2}), record("input", "c", 100, 0, {})};
}

} // namespace

class DependenceTableTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void modelKeepsItsContract();
    void rowsReadAsPeopleExpect();
    void differentNamesAreBothNamed();
    void inThePicturesOrderAtFirst();
    void linesAreSortedAsNumbers();
    void listsAreSortedNumberByNumber();
    void kindsHaveTheColoursOfTheirArrows();
    void filteredRowsGoAndComeBack();
    void pickedRowsAreToldByTheirNumbers();
    void selectingByProgramTellsNobody();
    void clicksPickRows();
    void columnsAreAsWideAsTheirTexts();
    void titlesSort();
    void selectedRowsAreScrolledTo();

private:
    [[nodiscard]] QStringList column(int number) const;

    QSet<int> m_hidden;
    std::unique_ptr<DependenceTable> m_table;
};

void DependenceTableTest::init() {
    m_hidden.clear();
    m_table = std::make_unique<DependenceTable>([this](int number) { return !m_hidden.contains(number); });
    m_table->setRecords(threeRecords());
    m_table->resize(800, 300);
    m_table->show();
}

QStringList DependenceTableTest::column(int number) const {
    QStringList texts;
    for (int row = 0; row < m_table->model()->rowCount(); ++row)
        texts.append(m_table->model()->index(row, number).data().toString());
    return texts;
}

void DependenceTableTest::modelKeepsItsContract() {
    DependenceTableModel model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    model.setRecords(threeRecords());
    QCOMPARE(model.rowCount(), 3);
    model.setRecords({});
    QCOMPARE(model.rowCount(), 0);
}

void DependenceTableTest::rowsReadAsPeopleExpect() {
    QStringList titles;
    for (int i = 0; i < m_table->model()->columnCount(); ++i)
        titles.append(m_table->model()->headerData(i, Qt::Horizontal).toString());
    QCOMPARE(titles, QStringList({"Kind", "Variable", "From", "To", "Carriers", "Distance", "State"}));
    QCOMPARE(column(DependenceTableModel::KindColumn), QStringList({"flow", "anti", "input"}));
    QCOMPARE(column(DependenceTableModel::VariableColumn), QStringList({"b", "a", "c"}));
    QCOMPARE(column(DependenceTableModel::FromColumn), QStringList({"10", "9", "100"}));
    QCOMPARE(column(DependenceTableModel::ToColumn), QStringList({"9", "10", "?"}));
    QCOMPARE(column(DependenceTableModel::CarriersColumn), QStringList({"1", "LID, 2", "?"}));
    QCOMPARE(column(DependenceTableModel::DistanceColumn), QStringList({"(1, *)", "(1, *)", "(1, *)"}));
    QCOMPARE(column(DependenceTableModel::StateColumn), QStringList({"proven", "assumed", "assumed"}));
    QCOMPARE(m_table->model()->index(0, 0).data(Qt::ToolTipRole).toString(), QString("popular"));
}

void DependenceTableTest::differentNamesAreBothNamed() {
    DependenceRecord one = record("flow", "a", 1, 2, {});
    one.target.text = "b";
    QCOMPARE(one.getVariable(), QString("a, b"));
    one.distance.clear();
    QCOMPARE(one.getDistanceText(), QString());
}

void DependenceTableTest::inThePicturesOrderAtFirst() {
    m_table->setRecords(
        {record("output", "z", 3, 3, {}), record("anti", "y", 2, 2, {}), record("flow", "x", 1, 1, {})});
    QCOMPARE(column(DependenceTableModel::VariableColumn), QStringList({"z", "y", "x"}));
}

void DependenceTableTest::linesAreSortedAsNumbers() {
    m_table->sortByColumn(DependenceTableModel::FromColumn, Qt::AscendingOrder);
    QCOMPARE(column(DependenceTableModel::FromColumn), QStringList({"9", "10", "100"}));
    // What is not known goes first.
    m_table->sortByColumn(DependenceTableModel::ToColumn, Qt::AscendingOrder);
    QCOMPARE(column(DependenceTableModel::ToColumn), QStringList({"?", "9", "10"}));
    for (int i = 0; i < DependenceTableModel::ColumnCount; ++i) {
        const bool isLine = i == DependenceTableModel::FromColumn || i == DependenceTableModel::ToColumn;
        const QVariant alignment = m_table->model()->index(0, i).data(Qt::TextAlignmentRole);
        QCOMPARE((alignment.toInt() & Qt::AlignRight) != 0, isLine);
    }
    m_table->sortByColumn(DependenceTableModel::VariableColumn, Qt::DescendingOrder);
    QCOMPARE(column(DependenceTableModel::VariableColumn), QStringList({"c", "b", "a"}));
}

void DependenceTableTest::listsAreSortedNumberByNumber() {
    std::vector<DependenceRecord> records;
    const std::vector<std::vector<int>> carriers = {{10}, {2}, {-1, 2}, {}, {-1}, {1, 10}, {1, 9}};
    const std::vector<std::vector<std::optional<long>>> distances = {
        {10}, {9}, {0, 10}, {}, {std::nullopt, 1}, {0, std::nullopt}, {0, -2}};
    for (std::size_t i = 0; i < carriers.size(); ++i) {
        records.push_back(record("flow", "a", 1, 1, carriers[i]));
        records.back().distance = distances[i];
    }
    m_table->setRecords(records);
    m_table->sortByColumn(DependenceTableModel::CarriersColumn, Qt::AscendingOrder);
    QCOMPARE(column(DependenceTableModel::CarriersColumn),
             QStringList({"?", "LID", "LID, 2", "1, 9", "1, 10", "2", "10"}));
    m_table->sortByColumn(DependenceTableModel::DistanceColumn, Qt::DescendingOrder);
    QCOMPARE(column(DependenceTableModel::DistanceColumn),
             QStringList({"(10)", "(9)", "(0, 10)", "(0, -2)", "(0, *)", "(*, 1)", ""}));
}

void DependenceTableTest::kindsHaveTheColoursOfTheirArrows() {
    std::vector<DependenceRecord> records = threeRecords();
    records[1].color = Qt::red;
    m_table->setRecords(records);
    const auto decoration = [this](int columnNumber) {
        return m_table->model()->index(1, columnNumber).data(Qt::DecorationRole);
    };
    QCOMPARE(decoration(DependenceTableModel::KindColumn).value<QColor>(), QColor(Qt::red));
    for (int other = 1; other < DependenceTableModel::ColumnCount; ++other)
        QVERIFY(!decoration(other).isValid());
    const QRect cell = m_table->visualRect(m_table->model()->index(1, 0));
    const QImage painted = m_table->viewport()->grab(cell).toImage();
    int red = 0;
    for (int x = 0; x < painted.width(); ++x)
        red += painted.pixelColor(x, painted.height() / 2) == QColor(Qt::red);
    QCOMPARE(red, 10);
}

void DependenceTableTest::filteredRowsGoAndComeBack() {
    m_hidden = {0, 2};
    m_table->filterAgain();
    QCOMPARE(column(DependenceTableModel::KindColumn), QStringList({"anti"}));
    m_hidden = {};
    m_table->filterAgain();
    QCOMPARE(column(DependenceTableModel::KindColumn), QStringList({"flow", "anti", "input"}));
}

void DependenceTableTest::pickedRowsAreToldByTheirNumbers() {
    const QSignalSpy picked(m_table.get(), &DependenceTable::recordPicked);
    m_table->sortByColumn(DependenceTableModel::FromColumn, Qt::AscendingOrder);
    m_table->selectRow(2);
    QCOMPARE(picked.size(), 1);
    QCOMPARE(picked[0][0].toInt(), 2);
    m_table->selectRow(0);
    QCOMPARE(picked.last()[0].toInt(), 1);
    m_table->clearSelection();
    QCOMPARE(picked.last()[0].toInt(), -1);
}

void DependenceTableTest::selectingByProgramTellsNobody() {
    const QSignalSpy picked(m_table.get(), &DependenceTable::recordPicked);
    m_table->sortByColumn(DependenceTableModel::FromColumn, Qt::DescendingOrder);
    m_table->selectRecord(1);
    QCOMPARE(m_table->getSelectedRecord(), 1);
    QCOMPARE(m_table->selectionModel()->selectedRows().first().row(), 2);
    m_hidden = {0};
    m_table->filterAgain();
    m_table->selectRecord(0); // has no row
    QCOMPARE(m_table->getSelectedRecord(), -1);
    m_table->selectRecord(17);
    QCOMPARE(m_table->getSelectedRecord(), -1);
    QCOMPARE(picked.size(), 0);
}

void DependenceTableTest::clicksPickRows() {
    const QSignalSpy picked(m_table.get(), &DependenceTable::recordPicked);
    const QRect cell = m_table->visualRect(m_table->model()->index(1, 0));
    QTest::mouseClick(m_table->viewport(), Qt::LeftButton, Qt::NoModifier, cell.center());
    QCOMPARE(picked.size(), 1);
    QCOMPARE(picked[0][0].toInt(), 1);
    // One at a time: there is one arrow to show.
    const QRect next = m_table->visualRect(m_table->model()->index(2, 3));
    QTest::mouseClick(m_table->viewport(), Qt::LeftButton, Qt::ControlModifier, next.center());
    QCOMPARE(picked.last()[0].toInt(), 2);
    QCOMPARE(m_table->selectionModel()->selectedRows().size(), 1);
}

void DependenceTableTest::columnsAreAsWideAsTheirTexts() {
    const QString name(60, 'm');
    m_table->setRecords({record("flow", name, 1, 1, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15})});
    for (int i = 0; i < DependenceTableModel::ColumnCount; ++i) {
        const QString text = m_table->model()->index(0, i).data().toString();
        QVERIFY2(m_table->columnWidth(i) > m_table->fontMetrics().horizontalAdvance(text), qPrintable(text));
    }
}

void DependenceTableTest::titlesSort() {
    QHeaderView* titles = m_table->horizontalHeader();
    const int from = DependenceTableModel::FromColumn;
    const QPoint title(titles->sectionViewportPosition(from) + titles->sectionSize(from) / 2, titles->height() / 2);
    const QStringList ascending = {"9", "10", "100"};
    const QStringList descending = {"100", "10", "9"};
    QTest::mouseClick(titles->viewport(), Qt::LeftButton, Qt::NoModifier, title);
    const QStringList first = column(from);
    QVERIFY(first == ascending || first == descending);
    QTest::mouseClick(titles->viewport(), Qt::LeftButton, Qt::NoModifier, title);
    QCOMPARE(column(from), first == ascending ? descending : ascending);
}

void DependenceTableTest::selectedRowsAreScrolledTo() {
    std::vector<DependenceRecord> records;
    for (int i = 0; i < 200; ++i)
        records.push_back(record("flow", "a", i + 1, i + 1, {1}));
    m_table->setRecords(std::move(records));
    for (const int number : {199, 0, 100}) {
        m_table->selectRecord(number);
        const QRect row = m_table->visualRect(m_table->model()->index(number, 0));
        QVERIFY(m_table->viewport()->rect().contains(row.center()));
    }
}

} // namespace Kova::Shell

QTEST_MAIN(Kova::Shell::DependenceTableTest)
#include "DependenceTableTest.moc"
