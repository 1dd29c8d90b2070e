// SPDX-License-Identifier: MIT
#include "tests/visualization/depgraph/BracketingTranslator.h"
#include "tests/visualization/depgraph/TestedWidget.h"
#include "visualization/depgraph/DepGraphWidget.h"

#include <QActionGroup>
#include <QApplication>
#include <QtTest>

using namespace DepGraph;

namespace {

const QStringList hintForms = {"Popular Russian", "Developer English", "Developer Russian", "Popular English"};

} // namespace

/// What people choose in the menu, with the menu's own actions.
class DepGraphMenuTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void entriesAreInOrder();
    void entriesAreTranslated();
    void hintFormsAreExclusive();
    void hintFormsChooseTags();
    void hiddenEdgesChangeTheirHintsToo();
    void strangeHintFormsChangeNothing();
    void buildingGoesBackToTheFirstForm();
    void kinds();
    void variables();
    void carriers();
    void allAtOnce();
    void hiddenEdgesGiveTheirPortsBack();
    void kindsOutliveABuild();
    void choicesRepaint();
    void aRightClickOpensTheMenu();

private:
    void build() { m_widget->build(*m_sample); }
    void choose(const QString& path) { m_widget->entry(path)->trigger(); }
    void rightClick() {
        const QPoint point(500, 300);
        m_widget->mouse(QEvent::MouseButtonPress, point, Qt::RightButton, Qt::RightButton);
        m_widget->mouse(QEvent::MouseButtonRelease, point, Qt::RightButton);
    }
    [[nodiscard]] QString checkedForm() const {
        QStringList checked;
        for (const QString& form : hintForms) {
            if (m_widget->entry(form)->isChecked())
                checked.append(form);
        }
        return checked.join('+');
    }
    [[nodiscard]] bool allHintsAre(int tag) const {
        for (int i = 0; i < m_widget->getEdges().size(); ++i) {
            if (m_widget->edge(i).getHint() != m_widget->edge(i).getTags().at(tag))
                return false;
        }
        return m_widget->getEdges().size() > 0;
    }

    std::unique_ptr<SampleBlock> m_sample;
    std::unique_ptr<TestedWidget> m_widget;
};

void DepGraphMenuTest::init() {
    m_sample = std::make_unique<SampleBlock>();
    m_sample->addOneOfEachKind();
    m_widget = std::make_unique<TestedWidget>();
    m_widget->resize(900, 600);
}

void DepGraphMenuTest::entriesAreInOrder() {
    QStringList texts;
    QStringList checkable;
    QStringList separators;
    for (const QAction* action : m_widget->menu().actions()) {
        texts.append(action->isSeparator() ? QString("-") : action->text());
        if (action->isSeparator())
            separators.append(action->text());
        if (action->isCheckable())
            checkable.append(action->text());
    }
    const QStringList kindTexts = {"Flow", "Anti", "Output", "Input"};
    QCOMPARE(texts, kindTexts + QStringList({"Variables", "Carriers", "-"}) + hintForms +
                        QStringList({"-", "Save As Image...", "Save As SVG..."}));
    QCOMPARE(separators, QStringList({"Hints Form", ""}));
    QCOMPARE(checkable, kindTexts + hintForms);
}

void DepGraphMenuTest::entriesAreTranslated() {
    const BracketingTranslator translator("Kova::GUI::DepGraph::DepGraphWidget");
    TestedWidget widget;
    QStringList texts;
    for (const QAction* action : widget.menu().actions().mid(6, 5))
        texts.append(action->text());
    QCOMPARE(texts, QStringList({"<Hints Form>", "<Popular Russian>", "<Developer English>", "<Developer Russian>",
                                 "<Popular English>"}));
}

void DepGraphMenuTest::hintFormsAreExclusive() {
    QCOMPARE(checkedForm(), QString("Popular Russian"));
    const QActionGroup* group = m_widget->entry("Popular Russian")->actionGroup();
    QVERIFY(group != nullptr);
    QVERIFY(group->isExclusive());
    QCOMPARE(group->actions().size(), 4);
    for (const QString& form : hintForms) {
        choose(form);
        QCOMPARE(checkedForm(), form);
    }
}

void DepGraphMenuTest::hintFormsChooseTags() {
    build();
    QVERIFY(allHintsAre(0));
    for (const int tag : {2, 1, 3, 0}) {
        choose(hintForms.at(tag));
        QVERIFY(allHintsAre(tag));
        choose(hintForms.at(tag));
        QVERIFY(allHintsAre(tag));
    }
}

void DepGraphMenuTest::hiddenEdgesChangeTheirHintsToo() {
    build();
    choose("Flow");
    choose("Developer English");
    QVERIFY(allHintsAre(1));
}

void DepGraphMenuTest::strangeHintFormsChangeNothing() {
    build();
    choose("Developer Russian");
    QAction stranger("Popular English", nullptr);
    m_widget->hintsFormChanged(&stranger);
    m_widget->hintsFormChanged(nullptr);
    QVERIFY(allHintsAre(2));
}

void DepGraphMenuTest::buildingGoesBackToTheFirstForm() {
    build();
    choose("Developer Russian");
    build();
    QCOMPARE(checkedForm(), QString("Popular Russian"));
    QVERIFY(allHintsAre(0));
}

void DepGraphMenuTest::kinds() {
    build();
    const QStringList texts = {"Flow", "Anti", "Output", "Input"};
    for (int kind = 0; kind < 4; ++kind) {
        choose(texts.at(kind));
        QList<bool> expected = {true, true, true, true};
        expected[kind] = false;
        QCOMPARE(m_widget->visibleEdges(), expected);
        choose(texts.at(kind));
        QCOMPARE(m_widget->visibleEdges(), QList<bool>({true, true, true, true}));
    }
}

void DepGraphMenuTest::variables() {
    build();
    const QList<QAction*> entries = m_widget->entry("Variables")->menu()->actions();
    QCOMPARE(entries.size(), 5);
    QCOMPARE(entries.at(2)->text(), QString("a"));
    QCOMPARE(entries.at(3)->text(), QString("n"));
    QCOMPARE(entries.at(4)->text(), QString("s"));
    choose("Variables/s");
    QCOMPARE(m_widget->visibleEdges(), QList<bool>({true, false, false, true}));
    choose("Variables/a");
    QCOMPARE(m_widget->visibleEdges(), QList<bool>({false, false, false, true}));
    choose("Variables/s");
    QCOMPARE(m_widget->visibleEdges(), QList<bool>({false, true, true, true}));
}

void DepGraphMenuTest::carriers() {
    m_sample->add(1, m_sample->writtenS, m_sample->lastS, {-1});
    build();
    QCOMPARE(m_widget->entry("Carriers")->menu()->actions().size(), 4);
    choose("Carriers/1");
    QCOMPARE(m_widget->visibleEdges(), QList<bool>({false, true, false, false, true}));
    choose("Carriers/LID");
    QCOMPARE(m_widget->visibleEdges(), QList<bool>({false, false, false, false, false}));
    choose("Carriers/1");
    QCOMPARE(m_widget->visibleEdges(), QList<bool>({true, true, true, true, false}));
}

void DepGraphMenuTest::allAtOnce() {
    build();
    for (const char* submenu : {"Variables/All", "Carriers/All"}) {
        choose(submenu);
        QCOMPARE(m_widget->visibleEdges(), QList<bool>({false, false, false, false}));
        choose(submenu);
        QCOMPARE(m_widget->visibleEdges(), QList<bool>({true, true, true, true}));
    }
}

void DepGraphMenuTest::hiddenEdgesGiveTheirPortsBack() {
    build();
    const auto& flow = m_widget->edge(0);
    QCOMPARE(flow.getFrom()->getDownPorts().size(), std::size_t{1});
    choose("Flow");
    QVERIFY(flow.getFrom()->getDownPorts().empty());
    QVERIFY(m_widget->edgePolygons().at(0).isEmpty());
    QVERIFY(!m_widget->edgePolygons().at(1).isEmpty());
    choose("Flow");
    QCOMPARE(flow.getFrom()->getDownPorts().size(), std::size_t{1});
    QVERIFY(!m_widget->edgePolygons().at(0).isEmpty());
}

void DepGraphMenuTest::kindsOutliveABuild() {
    build();
    choose("Anti");
    choose("Variables/a");
    choose("Carriers/All");
    build();
    QVERIFY(!m_widget->entry("Anti")->isChecked());
    QVERIFY(m_widget->entry("Variables/a")->isChecked());
    QVERIFY(m_widget->entry("Carriers/All")->isChecked());
    QCOMPARE(m_widget->visibleEdges(), QList<bool>({true, false, true, true}));
}

void DepGraphMenuTest::choicesRepaint() {
    m_widget->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_widget.get()));
    build();
    for (const char* path : {"Output", "Variables/s", "Carriers/LID", "Developer English"}) {
        QCoreApplication::processEvents();
        const int before = m_widget->repaints;
        choose(path);
        QCoreApplication::processEvents();
        QCOMPARE(m_widget->repaints, before + 1);
    }
}

void DepGraphMenuTest::aRightClickOpensTheMenu() {
    m_widget->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_widget.get()));
    build();
    rightClick();
    QMenu& menu = m_widget->menu();
    QCOMPARE(QApplication::activePopupWidget(), &menu);
    QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(m_widget->entry("Anti")).center());
    QVERIFY(!menu.isVisible());
    QCOMPARE(m_widget->visibleEdges(), QList<bool>({true, false, true, true}));
    rightClick();
    QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(m_widget->entry("Popular English")).center());
    QVERIFY(allHintsAre(3));
}

QTEST_MAIN(DepGraphMenuTest)
#include "DepGraphMenuTest.moc"
