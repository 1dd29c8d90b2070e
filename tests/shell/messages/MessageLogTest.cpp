// SPDX-License-Identifier: MIT
#include "shell/messages/MessageLog.h"

#include "environment/core/Console.h"

#include <QSignalSpy>
#include <QtTest>

namespace Kova::Shell {

class MessageLogTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void collectsAllTagsInOrder();
    void endsWithTheObject();
};

void MessageLogTest::collectsAllTagsInOrder() {
    MessageLog log;
    QSignalSpy appended(&log, &MessageLog::messageAppended);
    getOutputConsole("First", true).log(Console::Warning, "one");
    getOutputConsole("Second", true).log(Console::Error, "zwei \xc3\xa4");
    getOutputConsole("First", true).log(Console::Info, "three");
    const std::vector<Message>& messages = log.getMessages();
    QCOMPARE(messages.size(), std::size_t(3));
    QCOMPARE(messages[0].tag, QString("First"));
    QCOMPARE(messages[0].level, 2);
    QCOMPARE(messages[0].text, QString("one"));
    QCOMPARE(messages[1].tag, QString("Second"));
    QCOMPARE(messages[1].level, 4);
    QCOMPARE(messages[1].text, QString::fromUtf8("zwei \xc3\xa4"));
    QCOMPARE(messages[2].tag, QString("First"));
    QCOMPARE(appended.size(), 3);
    log.clear();
    QVERIFY(log.getMessages().empty());
}

void MessageLogTest::endsWithTheObject() {
    { const MessageLog first; }
    MessageLog second;
    getOutputConsole("Tag", true).log(Console::Info, "to the second");
    QCOMPARE(second.getMessages().size(), std::size_t(1));
}

} // namespace Kova::Shell

QTEST_APPLESS_MAIN(Kova::Shell::MessageLogTest)
#include "MessageLogTest.moc"
