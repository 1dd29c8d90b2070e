// SPDX-License-Identifier: MIT
#include "visualization/sourceselector/SourceSelectorEx.h"

#include "environment/tessel/TypedefDeclaration.h"
#include "tests/environment/printing/Names.h"
#include "visualization/sourceselector/SourceSelector.h"

#include <QAbstractItemView>
#include <QAction>
#include <QBoxLayout>
#include <QComboBox>
#include <QImage>
#include <QMenu>
#include <QScrollBar>
#include <QToolButton>
#include <QtTest>

using namespace Kova::GUI;
using namespace Kova::Tessel;
using namespace Kova::Tests;

namespace {

QStringList lines(const SourceSelector& selector) {
    QStringList all;
    for (int i = 0; i < selector.getText().getLineCount(); ++i) {
        QString line;
        for (const SourceSelector::SStringPart& part : selector.getText().getLine(i))
            line += part.text;
        all.append(line.trimmed());
    }
    return all;
}

} // namespace

class SourceSelectorExTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void aNewBrowser();
    void takesTheSelector();
    void itsLayout();
    void theMenu();
    void theMenuFollowsTheSelectorsOptions();
    void theImages();
    void listsSubroutinesWithBodies();
    void entriesHoldTheirDeclarations();
    void theFirstEntryIsScrolledTo();
    void choosingScrolls();
    void choosingTheCurrentEntryScrolls();
    void theListHasRoomForNames();
    void aNullRootKeepsTheList();
    void forgettingTheRoot();
    void theUpButton();
    void goingUp();
    void goingUpFromTheTop();
    void showingPrototypes();
    void hidingTypedefsChangesTheTextOnly();
    void optionsAreHandedOver();
    void ensureNodeVisibleUnchecks();
    void ensureNodeVisibleDoesNotScroll();

private:
    [[nodiscard]] QComboBox& list() const { return *m_browser->findChild<QComboBox*>(); }
    [[nodiscard]] QToolButton& button(int index) const {
        return *m_browser->findChildren<QToolButton*>(QString(), Qt::FindDirectChildrenOnly).at(index);
    }
    [[nodiscard]] QToolButton& configurationButton() const { return button(0); }
    [[nodiscard]] QToolButton& upButton() const { return button(1); }
    [[nodiscard]] QAction& option(int index) const { return *configurationButton().menu()->actions().at(index); }
    [[nodiscard]] SourceSelector& selector() const { return *m_browser->getSelector(); }
    [[nodiscard]] QStringList names() const {
        QStringList all;
        for (int i = 0; i < list().count(); ++i)
            all.append(list().itemText(i));
        return all;
    }
    [[nodiscard]] std::array<bool, 4> checks() const {
        return {option(0).isChecked(), option(1).isChecked(), option(2).isChecked(), option(3).isChecked()};
    }
    void fillBody(SubroutineDeclaration& subroutine) {
        for (int i = 0; i < 60; ++i)
            perform(subroutine, literal("1"));
    }

    Names m_names;
    std::unique_ptr<ProgramUnit> m_program;
    TranslationUnit* m_unit = nullptr;
    SubroutineDeclaration* m_prototype = nullptr;
    SubroutineDeclaration* m_first = nullptr;
    SubroutineDeclaration* m_second = nullptr;
    TypedefDeclaration* m_alias = nullptr;
    VariableDeclaration* m_variable = nullptr;
    std::unique_ptr<SourceSelectorEx> m_browser;
};

/// A file with a type, a variable, a prototype and two subroutines with bodies of 60 lines.
void SourceSelectorExTest::init() {
    m_browser.reset();
    m_program = std::make_unique<ProgramUnit>();
    m_unit = &addUnit(*m_program, "a.c");
    auto alias = std::make_unique<TypedefDeclaration>("word", m_names.intType);
    m_alias = alias.get();
    m_unit->append(std::move(alias));
    auto variable = m_names.intVariable("g");
    m_variable = variable.get();
    m_unit->append(std::move(variable));
    m_prototype = &declare(*m_unit, "later");
    m_first = &define(*m_unit, "first");
    m_second = &define(*m_unit, "second");
    fillBody(*m_first);
    fillBody(*m_second);
    m_browser = std::make_unique<SourceSelectorEx>(new SourceSelector);
    m_browser->resize(400, 300);
    m_browser->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_browser.get()));
}

void SourceSelectorExTest::aNewBrowser() {
    QVERIFY(!list().isEnabled());
    QCOMPARE(list().count(), 0);
    QVERIFY(!configurationButton().isEnabled());
    QVERIFY(!upButton().isEnabled());
    QCOMPARE(m_browser->getRootNode(), nullptr);
}

void SourceSelectorExTest::takesTheSelector() {
    auto* selector = new SourceSelector;
    QPointer<SourceSelector> watched(selector);
    {
        SourceSelectorEx browser(selector, nullptr);
        QCOMPARE(browser.getSelector(), selector);
        QCOMPARE(selector->parentWidget(), static_cast<QWidget*>(&browser));
    }
    QVERIFY(watched.isNull());
    SourceSelectorEx withoutOne(nullptr);
    QVERIFY(withoutOne.getSelector() != nullptr);
}

void SourceSelectorExTest::itsLayout() {
    auto* column = qobject_cast<QVBoxLayout*>(m_browser->layout());
    QVERIFY(column != nullptr);
    QCOMPARE(column->contentsMargins(), QMargins(1, 1, 1, 1));
    QCOMPARE(column->spacing(), 1);
    QCOMPARE(column->count(), 2);
    QCOMPARE(column->itemAt(1)->widget(), static_cast<QWidget*>(&selector()));
    auto* row = qobject_cast<QHBoxLayout*>(column->itemAt(0)->layout());
    QVERIFY(row != nullptr);
    QCOMPARE(row->count(), 4);
    QCOMPARE(row->itemAt(0)->widget(), static_cast<QWidget*>(&list()));
    QCOMPARE(row->itemAt(1)->widget(), static_cast<QWidget*>(&configurationButton()));
    QCOMPARE(row->itemAt(2)->widget(), static_cast<QWidget*>(&upButton()));
    QVERIFY(row->itemAt(3)->spacerItem() != nullptr);
    QCOMPARE(row->stretch(0), 1);
    QCOMPARE(row->stretch(1), 0);
    QCOMPARE(row->stretch(2), 0);
    QCOMPARE(row->stretch(3), 3);
}

void SourceSelectorExTest::theMenu() {
    QCOMPARE(configurationButton().popupMode(), QToolButton::InstantPopup);
    const QList<QAction*> options = configurationButton().menu()->actions();
    QCOMPARE(options.size(), 4);
    const QStringList texts = {"Hide prototypes", "Hide typedefs", "Hide variables", "Hide external declarations"};
    for (int i = 0; i < 4; ++i) {
        QCOMPARE(options[i]->text(), texts[i]);
        QVERIFY(options[i]->isCheckable());
        QVERIFY(options[i]->isChecked());
        QVERIFY(options[i]->shortcut().isEmpty());
    }
}

void SourceSelectorExTest::theMenuFollowsTheSelectorsOptions() {
    for (int shown = 0; shown < 4; ++shown) {
        auto* selector = new SourceSelector;
        SourceSelector::Options options;
        options.hidePrototypes = shown != 0;
        options.hideTypedefs = shown != 1;
        options.hideVariables = shown != 2;
        options.hideExternalDeclarations = shown != 3;
        selector->setOptions(options);
        m_browser = std::make_unique<SourceSelectorEx>(selector);
        for (int i = 0; i < 4; ++i)
            QCOMPARE(option(i).isChecked(), i != shown);
    }
}

void SourceSelectorExTest::theImages() {
    for (const char* path : {":/visualization/images/configuration.png", ":/visualization/images/arrow_up.png"}) {
        const QImage image{QString(path)};
        // Twice the size of a tool button's icon.
        QCOMPARE(image.size(), QSize(32, 32));
        QVERIFY(image.hasAlphaChannel());
    }
    QCOMPARE(QDir(":/visualization/images").entryList().size(), 2);
    QVERIFY(!configurationButton().icon().isNull());
    QVERIFY(!upButton().icon().isNull());
    QVERIFY(configurationButton().icon().pixmap(16, 16).toImage() != upButton().icon().pixmap(16, 16).toImage());
}

void SourceSelectorExTest::listsSubroutinesWithBodies() {
    m_browser->setRootNode(m_unit);
    QCOMPARE(m_browser->getRootNode(), m_unit);
    QCOMPARE(selector().getRootNode(), m_unit);
    QCOMPARE(names(), QStringList({"first", "second"}));
    QVERIFY(list().isEnabled());
    QVERIFY(configurationButton().isEnabled());
}

void SourceSelectorExTest::entriesHoldTheirDeclarations() {
    m_browser->setRootNode(m_unit);
    QCOMPARE(list().itemData(0, Qt::UserRole).value<void*>(), static_cast<void*>(m_first));
    QCOMPARE(list().itemData(1, Qt::UserRole).value<void*>(), static_cast<void*>(m_second));
    QVERIFY(list().itemIcon(0).isNull());
}

void SourceSelectorExTest::theFirstEntryIsScrolledTo() {
    m_browser->setRootNode(m_unit);
    selector().verticalScrollBar()->setValue(selector().verticalScrollBar()->maximum());
    m_browser->fillSubroutineList();
    QCOMPARE(list().currentIndex(), 0);
    QCOMPARE(selector().verticalScrollBar()->value(), 0);
}

void SourceSelectorExTest::choosingScrolls() {
    m_browser->setRootNode(m_unit);
    list().setCurrentIndex(1);
    const int line = selector().getText().findLine(m_second);
    QVERIFY(line > 60);
    QCOMPARE(selector().verticalScrollBar()->value(), line * QFontMetrics(selector().getFont()).height());
    m_browser->subroutineSelected(-1);
    m_browser->subroutineSelected(17);
    QCOMPARE(selector().verticalScrollBar()->value(), line * QFontMetrics(selector().getFont()).height());
    m_browser->subroutineSelected(0);
    QCOMPARE(selector().verticalScrollBar()->value(), 0);
}

// As a person does it: open the list and press Enter.
void SourceSelectorExTest::choosingTheCurrentEntryScrolls() {
    m_browser->setRootNode(m_unit);
    selector().verticalScrollBar()->setValue(selector().verticalScrollBar()->maximum());
    list().showPopup();
    QTest::keyClick(list().view(), Qt::Key_Return);
    QCOMPARE(list().currentIndex(), 0);
    QCOMPARE(selector().verticalScrollBar()->value(), 0);
}

void SourceSelectorExTest::theListHasRoomForNames() {
    QVERIFY(list().width() > list().fontMetrics().horizontalAdvance("fallbackSimpleS"));
}

void SourceSelectorExTest::aNullRootKeepsTheList() {
    m_browser->setRootNode(m_unit);
    m_browser->setRootNode(nullptr);
    QCOMPARE(m_browser->getRootNode(), m_unit);
    QCOMPARE(names(), QStringList({"first", "second"}));
    QVERIFY(list().isEnabled());
    QVERIFY(configurationButton().isEnabled());
    QCOMPARE(selector().getText().getLineCount(), 0);
}

void SourceSelectorExTest::forgettingTheRoot() {
    m_browser->setRootNode(m_first);
    m_browser->forgetRootNode();
    m_program.reset();
    QCOMPARE(m_browser->getRootNode(), nullptr);
    QCOMPARE(list().count(), 0);
    QVERIFY(!list().isEnabled());
    QVERIFY(!configurationButton().isEnabled());
    QVERIFY(!upButton().isEnabled());
    option(2).trigger();
    m_browser->goUp();
    QCOMPARE(selector().getText().getLineCount(), 0);
}

void SourceSelectorExTest::theUpButton() {
    // A file is in a program, but there is nothing to see above it.
    QVERIFY(m_unit->getParent() != nullptr);
    m_browser->setRootNode(m_unit);
    QVERIFY(!upButton().isEnabled());
    m_browser->setRootNode(m_first);
    QVERIFY(upButton().isEnabled());
    m_browser->setRootNode(m_program.get());
    QVERIFY(!upButton().isEnabled());
}

void SourceSelectorExTest::goingUp() {
    m_browser->setRootNode(m_second->getBody());
    QVERIFY(upButton().isEnabled());
    QTest::mouseClick(&upButton(), Qt::LeftButton);
    QCOMPARE(m_browser->getRootNode(), m_second);
    QVERIFY(upButton().isEnabled());
    QTest::mouseClick(&upButton(), Qt::LeftButton);
    QCOMPARE(m_browser->getRootNode(), m_unit);
    QVERIFY(!upButton().isEnabled());
    QCOMPARE(names(), QStringList({"first", "second"}));
    // What was shown before is in view.
    QCOMPARE(selector().verticalScrollBar()->value() / QFontMetrics(selector().getFont()).height(),
             selector().getText().findLine(m_second));
}

void SourceSelectorExTest::goingUpFromTheTop() {
    m_browser->goUp();
    QCOMPARE(m_browser->getRootNode(), nullptr);
    m_browser->setRootNode(m_program.get());
    m_browser->goUp();
    QCOMPARE(m_browser->getRootNode(), m_program.get());
    // The button is off above a file, the slot is not.
    m_browser->setRootNode(m_unit);
    m_browser->goUp();
    QCOMPARE(m_browser->getRootNode(), m_program.get());
}

void SourceSelectorExTest::showingPrototypes() {
    m_browser->setRootNode(m_unit);
    QVERIFY(!selector().containsNode(m_prototype));
    selector().verticalScrollBar()->setValue(selector().verticalScrollBar()->maximum());
    option(0).trigger();
    QCOMPARE(names(), QStringList({"later", "first", "second"}));
    QVERIFY(selector().containsNode(m_prototype));
    // It is the first entry now, and in the text before it is scrolled to.
    QCOMPARE(selector().verticalScrollBar()->value() / QFontMetrics(selector().getFont()).height(),
             selector().getText().findLine(m_prototype));
    option(0).trigger();
    QCOMPARE(names(), QStringList({"first", "second"}));
    QVERIFY(!selector().containsNode(m_prototype));
}

void SourceSelectorExTest::hidingTypedefsChangesTheTextOnly() {
    m_browser->setRootNode(m_unit);
    list().setCurrentIndex(1);
    option(1).trigger();
    QVERIFY(lines(selector()).contains("typedef int word;"));
    QCOMPARE(names(), QStringList({"first", "second"}));
    QCOMPARE(list().currentIndex(), 1);
}

void SourceSelectorExTest::optionsAreHandedOver() {
    m_browser->setRootNode(m_unit);
    using Options = SourceSelector::Options;
    // Only what the user does in the menu counts.
    for (int i = 0; i < 4; ++i) {
        option(i).setChecked(false);
        option(i).setChecked(true);
        option(i).setChecked(false);
    }
    QVERIFY(selector().getOptions().hidePrototypes && selector().getOptions().hideTypedefs);
    QVERIFY(selector().getOptions().hideVariables && selector().getOptions().hideExternalDeclarations);
    for (int i = 0; i < 4; ++i)
        option(i).setChecked(true);
    bool Options::*flags[] = {&Options::hidePrototypes, &Options::hideTypedefs, &Options::hideVariables,
                              &Options::hideExternalDeclarations};
    for (int i = 0; i < 4; ++i) {
        option(i).trigger();
        for (int k = 0; k < 4; ++k)
            QCOMPARE(selector().getOptions().*flags[k], k != i);
        option(i).trigger();
    }
}

void SourceSelectorExTest::ensureNodeVisibleUnchecks() {
    using Checks = std::array<bool, 4>;
    m_browser->setRootNode(m_unit);
    m_browser->ensureNodeVisible(nullptr);
    m_browser->ensureNodeVisible(m_first);
    QCOMPARE(checks(), (Checks{true, true, true, true}));
    m_browser->ensureNodeVisible(m_variable);
    QCOMPARE(checks(), (Checks{true, true, false, false}));
    QVERIFY(selector().containsNode(m_variable));
    QVERIFY(!selector().containsNode(m_alias));
    m_browser->ensureNodeVisible(m_alias);
    QCOMPARE(checks(), (Checks{true, false, false, false}));
    QVERIFY(selector().containsNode(m_alias));
    m_browser->ensureNodeVisible(m_prototype);
    QCOMPARE(checks(), (Checks{false, false, false, false}));
    QVERIFY(selector().containsNode(m_prototype));
    // The list waits for the next time it is filled.
    QCOMPARE(names(), QStringList({"first", "second"}));
    // The options of the menu are handed over even for nothing.
    SourceSelector::Options others;
    others.hideTypedefs = true;
    selector().setOptions(others);
    m_browser->ensureNodeVisible(nullptr);
    QVERIFY(selector().getOptions() == SourceSelector::Options());
}

void SourceSelectorExTest::ensureNodeVisibleDoesNotScroll() {
    m_browser->setRootNode(m_unit);
    m_browser->ensureNodeVisible(m_second);
    QCOMPARE(selector().verticalScrollBar()->value(), 0);
}

QTEST_MAIN(SourceSelectorExTest)
#include "SourceSelectorExTest.moc"
