// SPDX-License-Identifier: MIT
#include "shell/window/ProgramTreeModel.h"

#include "environment/tessel/ProgramUnit.h"
#include "environment/tessel/SubroutineDeclaration.h"
#include "shell/program/ProgramOutline.h"
#include "tests/shell/ShellTesting.h"

#include <QAbstractItemModelTester>
#include <QtTest>

namespace Kova::Shell {

namespace {

/// The rows as text, two blanks a level.
void dump(const QAbstractItemModel& model, const QModelIndex& parent, int level, QStringList& lines) {
    for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        const QString numbers = index.sibling(row, 1).data().toString();
        lines.append(QString(2 * level, ' ') + index.data().toString() + (numbers.isEmpty() ? "" : " " + numbers));
        dump(model, index, level + 1, lines);
    }
}

QStringList dump(const QAbstractItemModel& model) {
    QStringList lines;
    dump(model, {}, 0, lines);
    return lines;
}

constexpr auto source = "int f(int n) {\n"
                        "    for (;;) {\n"
                        "        while (n) --n;\n"
                        "    }\n"
                        "    do ; while (n);\n"
                        "}\n"
                        "int g(void) { return 0; }\n";

/// A program in the model.
struct Shown {
    template <class Files>
    explicit Shown(const Files& files) : written(files) {
        model.setProgram(ProgramOutline(written.program), &written.program.getUnit());
    }

    Testing::WrittenProgram written;
    ProgramTreeModel model;
};

} // namespace

class ProgramTreeModelTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void keepsTheModelsContract();
    void rowsAreFilesSubroutinesLoops();
    void blocksHaveRowsWhereAskedFor();
    void rowsKnowTheirSubjects();
    void rowsAreFoundBySubject();
    void headersAndTips();
};

void ProgramTreeModelTest::keepsTheModelsContract() {
    const Testing::WrittenProgram written({{"a.c", source}, {"b.c", source}});
    ProgramTreeModel model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    QCOMPARE(dump(model), QStringList());
    model.setProgram(ProgramOutline(written.program), &written.program.getUnit());
    QCOMPARE(model.rowCount(), 2);
    model.setProgram(ProgramOutline(), nullptr);
    QCOMPARE(model.rowCount(), 0);
}

void ProgramTreeModelTest::rowsAreFilesSubroutinesLoops() {
    const Shown shown(Testing::SourceFiles{{"a.c", source}, {"empty.c", "int x;\n"}});
    QCOMPARE(dump(shown.model),
             QStringList({"a.c", QString::fromUtf8("  f 1\u20136"), QString::fromUtf8("    for loop 2\u20134"),
                          "      while loop 3", "    do loop 5", "  g 7", "empty.c"}));
}

void ProgramTreeModelTest::blocksHaveRowsWhereAskedFor() {
    Shown shown(Testing::blocksOfAllKinds);
    const QStringList loops = {"a.c", QString::fromUtf8("  f 1\u201317"), QString::fromUtf8("    for loop 2\u20138"),
                               "    while loop 13"};
    QCOMPARE(dump(shown.model), loops);
    const QAbstractItemModelTester tester(&shown.model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    const ProgramOutline outline(shown.written.program);
    shown.model.setProgram(outline, &shown.written.program.getUnit(), true);
    QCOMPARE(dump(shown.model),
             QStringList({"a.c", QString::fromUtf8("  f 1\u201317"), QString::fromUtf8("    for loop 2\u20138"),
                          QString::fromUtf8("      body 2\u20138"), QString::fromUtf8("      else 5\u20137"),
                          QString::fromUtf8("    block 9\u201311"), QString::fromUtf8("    then 12\u201314"),
                          "    while loop 13"}));
    const QModelIndex f = shown.model.index(0, 0, shown.model.index(0, 0));
    const QModelIndex body = shown.model.index(0, 0, shown.model.index(0, 0, f));
    QVERIFY(shown.model.getSubject(body).getKind() == Subject::Kind::Block);
    QCOMPARE(shown.model.getSubject(body).getTitle(), QString("block at line 2 in f"));
    QCOMPARE(shown.model.findIndex(shown.model.getSubject(body)), body);
    QCOMPARE(body.data(Qt::ToolTipRole).toString(), shown.written.folder.path("a.c") + ":2");
    shown.model.setProgram(outline, &shown.written.program.getUnit());
    QCOMPARE(dump(shown.model), loops);
}

void ProgramTreeModelTest::rowsKnowTheirSubjects() {
    const Shown shown(source);
    const ProgramTreeModel& model = shown.model;
    const QModelIndex file = model.index(0, 0);
    const QModelIndex f = model.index(0, 0, file);
    const QModelIndex loop = model.index(0, 0, f);
    QCOMPARE(model.getSubject(file).getTitle(), QString("program"));
    QCOMPARE(model.getSubject(f).getTitle(), QString("subroutine f"));
    QCOMPARE(model.getSubject(loop).getTitle(), QString("loop at line 2 in f"));
    QCOMPARE(model.getSubject(model.index(0, 1, loop)).getTitle(), QString("loop at line 3 in f"));
    QVERIFY(model.getSubject({}).getKind() == Subject::Kind::None);
}

void ProgramTreeModelTest::rowsAreFoundBySubject() {
    const Shown shown(source);
    const ProgramTreeModel& model = shown.model;
    const QModelIndex file = model.index(0, 0);
    const QModelIndex f = model.index(0, 0, file);
    for (const QModelIndex& index : {file, f, model.index(1, 0, file), model.index(0, 0, f), model.index(1, 0, f)})
        QCOMPARE(model.findIndex(model.getSubject(index)), index);
    const Subject body(*static_cast<Tessel::StatementBase*>(model.getSubject(f).getSubroutine()->getBody()));
    QVERIFY(!model.findIndex(body).isValid());
}

void ProgramTreeModelTest::headersAndTips() {
    const Shown shown(source);
    const ProgramTreeModel& model = shown.model;
    const QString path = shown.written.folder.path("a.c");
    QCOMPARE(model.columnCount(), 2);
    QCOMPARE(model.headerData(0, Qt::Horizontal).toString(), QString("Name"));
    QCOMPARE(model.headerData(1, Qt::Horizontal).toString(), QString("Lines"));
    const QModelIndex file = model.index(0, 0);
    QCOMPARE(file.data(Qt::ToolTipRole).toString(), path);
    QCOMPARE(model.index(1, 0, file).data(Qt::ToolTipRole).toString(), path + ":7");
}

} // namespace Kova::Shell

QTEST_MAIN(Kova::Shell::ProgramTreeModelTest)
#include "ProgramTreeModelTest.moc"
