// SPDX-License-Identifier: MIT
#include "shell/window/KeysDialog.h"

#include "shell/window/WindowActions.h"

#include <QAction>
#include <QLabel>
#include <QSet>
#include <QtTest>

namespace Kova::Shell {

class KeysDialogTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void listsEveryShortcut();
    void shortcutsAreDistinct();
};

void KeysDialogTest::listsEveryShortcut() {
    QWidget window;
    const WindowActions actions(window);
    const KeysDialog dialog(actions.all());
    const QString text = dialog.findChild<QLabel*>()->text();
    for (const QAction* action : actions.all())
        if (!action->shortcut().isEmpty()) {
            QVERIFY(text.contains(action->shortcut().toString(QKeySequence::NativeText).toHtmlEscaped()));
            QVERIFY(text.contains(action->statusTip()));
        }
    QVERIFY(text.contains("F5"));
    QVERIFY(text.contains("Wheel"));
    QVERIFY(!text.contains(actions.about->statusTip()));
}

void KeysDialogTest::shortcutsAreDistinct() {
    QWidget window;
    QSet<QString> seen;
    for (const QAction* action : WindowActions(window).all())
        for (const QKeySequence& key : action->shortcuts()) {
            QVERIFY2(!seen.contains(key.toString()), qPrintable(key.toString()));
            seen.insert(key.toString());
        }
}

} // namespace Kova::Shell

QTEST_MAIN(Kova::Shell::KeysDialogTest)
#include "KeysDialogTest.moc"
