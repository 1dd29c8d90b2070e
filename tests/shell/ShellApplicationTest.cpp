// SPDX-License-Identifier: MIT
#include "shell/ShellApplication.h"

#include <QSignalSpy>
#include <QtTest>

#include <stdexcept>

namespace Kova::Shell {

namespace {

class Thrower : public QObject {
public:
    bool event(QEvent* event) override {
        if (event->type() == QEvent::User)
            throw std::runtime_error("a broken event");
        if (event->type() == QEvent::User + 1)
            throw 5;
        return QObject::event(event);
    }
};

} // namespace

class ShellApplicationTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void exceptionsEndTheEventOnly();
    void settingsHaveTheirPlace();
};

void ShellApplicationTest::exceptionsEndTheEventOnly() {
    QSignalSpy caught(static_cast<ShellApplication*>(qApp), &ShellApplication::exceptionCaught);
    Thrower thrower;
    QCoreApplication::postEvent(&thrower, new QEvent(QEvent::User));
    QCoreApplication::postEvent(&thrower, new QEvent(static_cast<QEvent::Type>(QEvent::User + 1)));
    QCoreApplication::processEvents();
    QCOMPARE(caught.size(), 2);
    QCOMPARE(caught.at(0).at(0).toString(), QString("that failed: a broken event"));
    QCOMPARE(caught.at(1).at(0).toString(), QString("that failed for an unknown reason"));
}

void ShellApplicationTest::settingsHaveTheirPlace() {
    QCOMPARE(QCoreApplication::organizationName(), QString("Kova"));
    QCOMPARE(QCoreApplication::applicationName(), QString("kova-shell"));
}

} // namespace Kova::Shell

int main(int argc, char** argv) {
    const Kova::Shell::ShellApplication application(argc, argv);
    Kova::Shell::ShellApplicationTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "ShellApplicationTest.moc"
