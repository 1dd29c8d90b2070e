// SPDX-License-Identifier: MIT
// Runs the real window on a display of its own, a virtual one.
#include "shell/ShellApplication.h"
#include "shell/window/MainWindow.h"
#include "shell/window/ProgramTree.h"
#include "tests/shell/ShellTesting.h"

#include <QImage>
#include <QProcess>
#include <QScreen>
#include <QSet>
#include <QSettings>
#include <QtTest>

namespace Kova::Shell {

namespace {

constexpr int patience = 60000; // milliseconds

constexpr auto source = Testing::callInALoop;

/// A virtual X server that ends with the object.
class Display {
public:
    Display() {
        m_server.setStandardErrorFile(QProcess::nullDevice());
        m_server.start("Xvfb", {"-displayfd", "1", "-screen", "0", "1280x900x24", "-nolisten", "tcp"});
        QByteArray answer;
        while (!answer.contains('\n') && m_server.state() != QProcess::NotRunning &&
               m_server.waitForReadyRead(patience))
            answer += m_server.readAllStandardOutput();
        m_name = answer.trimmed().isEmpty() ? QByteArray() : ":" + answer.trimmed();
    }
    ~Display() {
        m_server.terminate();
        m_server.waitForFinished();
    }
    Display(const Display&) = delete;
    Display& operator=(const Display&) = delete;

    /// Empty when there is no server.
    [[nodiscard]] QByteArray getName() const { return m_name; }

private:
    QProcess m_server;
    QByteArray m_name;
};

QImage screenshot() {
    return QGuiApplication::primaryScreen()->grabWindow(0).toImage();
}

int coloursOf(const QImage& image) {
    QSet<QRgb> colours;
    for (int y = 0; y < image.height(); y += 2)
        for (int x = 0; x < image.width(); x += 2)
            colours.insert(image.pixel(x, y));
    return colours.size();
}

/// Where something blue, as Qt paints the selected row of a tree, can be seen in the left of the window.
bool hasSelectedRow(const QImage& image) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < 250 && x < image.width(); ++x) {
            const QColor colour = image.pixelColor(x, y);
            count += colour.blue() > colour.red() + 60;
        }
    return count > 500;
}

} // namespace

class MainWindowOnDisplayTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theWindowIsOnTheScreen();
    void theProgramOpensItsWindow();
};

void MainWindowOnDisplayTest::theWindowIsOnTheScreen() {
    QCOMPARE(QGuiApplication::platformName(), QString("xcb"));
    QVERIFY(coloursOf(screenshot()) == 1); // nothing but the root window
    const Testing::SourceFolder folder;
    QSettings settings(folder.path("settings.ini"), QSettings::IniFormat);
    MainWindow window(settings, Frontends::COptions());
    window.show();
    QVERIFY(window.openFiles({folder.write("a.c", source)}));
    QVERIFY(QTest::qWaitForWindowExposed(&window, patience));
    QTRY_VERIFY_WITH_TIMEOUT(hasSelectedRow(screenshot()), patience);
    QVERIFY(coloursOf(screenshot()) > 30);

    const ProgramTreeModel& model = window.findChild<ProgramTree*>()->getModel();
    const QModelIndex file = model.index(0, 0);
    QCOMPARE(file.data().toString(), QString("a.c"));
    QCOMPARE(model.rowCount(file), 2);
    QCOMPARE(model.index(0, 0, file).data().toString(), QString("leaf"));
    QCOMPARE(model.index(1, 0, file).data().toString(), QString("main"));
    QCOMPARE(model.rowCount(model.index(1, 0, file)), 1);
}

void MainWindowOnDisplayTest::theProgramOpensItsWindow() {
    QTRY_COMPARE_WITH_TIMEOUT(coloursOf(screenshot()), 1, patience);
    const Testing::SourceFolder folder;
    QProcessEnvironment environment = Testing::withoutDisplay();
    environment.insert("DISPLAY", QString::fromLocal8Bit(qgetenv("DISPLAY")));
    environment.insert("XDG_CONFIG_HOME", folder.path("config"));
    QProcess program;
    program.setProcessEnvironment(environment);
    program.start(Testing::programPath(), {folder.write("a.c", source)});
    QTRY_VERIFY_WITH_TIMEOUT(hasSelectedRow(screenshot()), patience);
    QVERIFY(coloursOf(screenshot()) > 30);
    QCOMPARE(program.state(), QProcess::Running);
    program.kill();
    QVERIFY(program.waitForFinished());
    QCOMPARE(program.readAllStandardError(), QByteArray());
}

} // namespace Kova::Shell

// A missing server is a failure: a test that is skipped tests nothing.
int main(int argc, char** argv) {
    const Kova::Shell::Display display;
    if (display.getName().isEmpty()) {
        qCritical("Xvfb cannot be started");
        return 1;
    }
    qputenv("DISPLAY", display.getName());
    qputenv("QT_QPA_PLATFORM", "xcb");
    const Kova::Shell::ShellApplication application(argc, argv);
    Kova::Shell::MainWindowOnDisplayTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "MainWindowOnDisplayTest.moc"
