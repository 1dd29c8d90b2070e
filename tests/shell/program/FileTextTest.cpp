// SPDX-License-Identifier: MIT
#include "shell/program/FileText.h"

#include "tests/shell/ShellTesting.h"

#include <QFile>
#include <QtTest>

#include <sys/stat.h>

namespace Kova::Shell {

class FileTextTest : public QObject, private Testing::FreshFolder {
    Q_OBJECT

private Q_SLOTS:
    void init() { renewFolder(); }
    void utf8();
    void marksOfDocuments();
    void everyByte();
    void noFile();
    void noOrdinaryFile();
    void tooMuch();

private:
    /// What stands in a file of the content, or the error.
    [[nodiscard]] QString read(const QByteArray& content) const {
        const FileText source = readFileText(write("a.c", content));
        return source.text + source.error;
    }
};

void FileTextTest::utf8() {
    QCOMPARE(read("gr\xc3\xbc\xc3\x9f\ta\r\n\n"), QString::fromUtf8("gr\u00fc\u00df\ta\r\n\n"));
    QCOMPARE(read("\xef\xbb\xbfint a;"), QString("int a;")); // a byte order mark is no text
    QCOMPARE(read("a\xff"
                  "b"),
             QString::fromUtf8("a\ufffdb"));
    QCOMPARE(read(""), QString());
    QCOMPARE(readFileText(write("a.c", "")).error, QString());
}

void FileTextTest::marksOfDocuments() {
    QCOMPARE(read("a\xe2\x80\xa9"
                  "b\xef\xb7\x90"
                  "c\xef\xb7\x91"
                  "d\xe2\x80\xa8"
                  "e"),
             QString::fromUtf8("a\ufffdb\ufffdc\ufffdd\u2028e"));
    QCOMPARE(read(QByteArray("a\0b", 3)), QString::fromUtf8("a\ufffdb"));
}

void FileTextTest::everyByte() {
    QByteArray bytes;
    for (int i = 0; i < 256; ++i)
        bytes += static_cast<char>(i);
    const QString text = read(bytes);
    QCOMPARE(text.length(), 256); // no two bytes above 127 in a row make a character here
    QCOMPARE(text.mid(1, 127), QString::fromLatin1(bytes.mid(1, 127)));
    QCOMPARE(text.count(QChar(QChar::ReplacementCharacter)), 129);
}

void FileTextTest::noFile() {
    QVERIFY(!readFileText(path("missing.c")).error.isEmpty());
    QVERIFY(readFileText(path("missing.c")).text.isEmpty());
    QCOMPARE(readFileText("").error, QString("it has no name"));
}

void FileTextTest::noOrdinaryFile() {
    QCOMPARE(::mkfifo(QFile::encodeName(path("pipe.c")).constData(), 0600), 0);
    for (const QString& odd : {path("pipe.c"), path(""), QString("/dev/zero")})
        QCOMPARE(readFileText(odd).error, QString("it is no ordinary file"));
}

void FileTextTest::tooMuch() {
    const QByteArray line = QByteArray(1023, 'a') + '\n';
    QCOMPARE(read(line.repeated(16 * 1024)).length(), 16 * 1024 * 1024);
    QCOMPARE(read(line.repeated(16 * 1024) + 'a'), QString("it is larger than 16 MiB"));
    QCOMPARE(read(QByteArray(500000, '\n')).length(), 500000);
    QCOMPARE(read(QByteArray(500000, '\r') + 'a'), QString("it has more than 500000 lines"));
    QCOMPARE(read("a\n" + QByteArray(200000, 'a')).length(), 200002);
    QCOMPARE(read("a\n" + QByteArray(200001, 'a')), QString("it has a line of more than 200000 bytes"));
}

} // namespace Kova::Shell

QTEST_MAIN(Kova::Shell::FileTextTest)
#include "FileTextTest.moc"
