// SPDX-License-Identifier: MIT
#include "shell/pictures/OutputFile.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>

namespace Kova::Shell {

class OutputFileTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void writesANewFile();
    void replacesAFile();
    void aFailureLeavesTheOldFileAndNoOther();
    void unwritablePlaces_data();
    void unwritablePlaces();
    void aDeviceIsNotReplaced();
    void aFullDevice();
    void aLinkIsFollowed();

private:
    [[nodiscard]] QString path(const QString& name) const { return m_directory->filePath(name); }
    [[nodiscard]] static QByteArray read(const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
    }
    [[nodiscard]] QStringList names() const { return QDir(m_directory->path()).entryList(QDir::Files | QDir::Hidden); }

    std::unique_ptr<QTemporaryDir> m_directory;
};

void OutputFileTest::init() {
    m_directory = std::make_unique<QTemporaryDir>();
}

void OutputFileTest::writesANewFile() {
    QCOMPARE(writeFile(path("a"), "content"), QString());
    QCOMPARE(read(path("a")), QByteArray("content"));
    QCOMPARE(names(), QStringList("a"));
}

void OutputFileTest::replacesAFile() {
    QCOMPARE(writeFile(path("a"), "a longer content"), QString());
    QCOMPARE(writeFile(path("a"), "short"), QString());
    QCOMPARE(read(path("a")), QByteArray("short"));
}

// A limit on file sizes stands for a full disk: the write fails half-way.
void OutputFileTest::aFailureLeavesTheOldFileAndNoOther() {
    QCOMPARE(writeFile(path("a"), "old"), QString());
    rlimit before{};
    QCOMPARE(getrlimit(RLIMIT_FSIZE, &before), 0);
    rlimit tight = before;
    tight.rlim_cur = 100000;
    std::signal(SIGXFSZ, SIG_IGN);
    QCOMPARE(setrlimit(RLIMIT_FSIZE, &tight), 0);
    const QString reason = writeFile(path("a"), QByteArray(300000, 'x'));
    const QString reasonOfNew = writeFile(path("b"), QByteArray(300000, 'x'));
    QCOMPARE(setrlimit(RLIMIT_FSIZE, &before), 0);
    QVERIFY(!reason.isEmpty());
    QVERIFY(!reasonOfNew.isEmpty());
    QCOMPARE(read(path("a")), QByteArray("old"));
    QCOMPARE(names(), QStringList("a"));
}

void OutputFileTest::unwritablePlaces_data() {
    QTest::addColumn<QString>("place");
    QTest::newRow("directory") << "/tmp";
    QTest::newRow("missing directory") << "/nowhere/at/all/a.png";
    QTest::newRow("below a file") << "/etc/passwd/a.png";
    QTest::newRow("kernel") << "/proc/a.png";
}

void OutputFileTest::unwritablePlaces() {
    QFETCH(QString, place);
    QVERIFY(!writeFile(place, "content").isEmpty());
}

void OutputFileTest::aDeviceIsNotReplaced() {
    QCOMPARE(writeFile("/dev/null", "content"), QString());
    struct stat status {};
    QCOMPARE(stat("/dev/null", &status), 0);
    QVERIFY(S_ISCHR(status.st_mode));
}

void OutputFileTest::aFullDevice() {
    QCOMPARE(writeFile("/dev/full", "content"), QString("No space left on device"));
    QVERIFY(QFile::link("/dev/full", path("a.png")));
    QCOMPARE(writeFile(path("a.png"), "content"), QString("No space left on device"));
    QVERIFY(QFileInfo(path("a.png")).isSymLink());
}

void OutputFileTest::aLinkIsFollowed() {
    QCOMPARE(writeFile(path("target"), "old"), QString());
    QVERIFY(QFile::link(path("target"), path("link")));
    QCOMPARE(writeFile(path("link"), "new"), QString());
    QCOMPARE(read(path("target")), QByteArray("new"));
    QVERIFY(QFileInfo(path("link")).isSymLink());
}

} // namespace Kova::Shell

QTEST_APPLESS_MAIN(Kova::Shell::OutputFileTest)
#include "OutputFileTest.moc"
