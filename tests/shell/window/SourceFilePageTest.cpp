// SPDX-License-Identifier: MIT
#include "shell/window/SourceFilePage.h"

#include "shell/window/LineNumberMargin.h"
#include "tests/shell/ShellTesting.h"

#include <QElapsedTimer>
#include <QFile>
#include <QImage>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTextBlock>
#include <QTextLayout>
#include <QWheelEvent>
#include <QtTest>

#include <sys/stat.h>

namespace Kova::Shell {

namespace {

QByteArray numberedLines(int count) {
    QByteArray text;
    for (int i = 1; i <= count; ++i)
        text += "int line_" + QByteArray::number(i) + ";\n";
    return text;
}

} // namespace

class SourceFilePageTest : public QObject, private Testing::FreshFolder {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void showsTheTextOnly();
    void colouredByTheEnding();
    void whatCannotBeReadIsSaid();
    void aFileIsReadAgainWhenItChanged();
    void aFileThatGoesIsMissed();
    void linesAreThoseOfTheFile();
    void oddTexts();
    void emptyFile();
    void aLineIsMarked();
    void linesThatThereAreNotAreNotMarked();
    void aLineOutOfSightComesToTheMiddle();
    void aLineInSightStaysWhereItIs();
    void markedBeforeItIsSeen();
    void clicksNameTheirLine();
    void clicksElsewhereNameNone();
    void selectingIsNoClick();
    void numbersAreDrawn();
    void numbersFollowTheText();
    void clearing();

private:
    [[nodiscard]] QTextBlock block(int line) const { return m_page->document()->findBlockByNumber(line - 1); }
    /// The colour of a line's first character; black where it has none of its own.
    [[nodiscard]] QColor colourOf(int line) const;
    /// Within the line, in the viewport.
    [[nodiscard]] QPoint placeOf(int line) const { return m_page->cursorRect(QTextCursor(block(line))).center(); }
    [[nodiscard]] bool isInSight(int line) const;
    [[nodiscard]] LineNumberMargin& margin() const { return *m_page->findChild<LineNumberMargin*>(); }
    void showLines(int count);

    std::unique_ptr<SourceFilePage> m_page;
};

void SourceFilePageTest::init() {
    renewFolder();
    m_page = std::make_unique<SourceFilePage>();
    m_page->resize(500, 400);
    m_page->show();
}

QColor SourceFilePageTest::colourOf(int line) const {
    const auto formats = block(line).layout()->formats();
    return formats.isEmpty() || formats.first().start > 0 ? QColor(Qt::black)
                                                          : formats.first().format.foreground().color();
}

bool SourceFilePageTest::isInSight(int line) const {
    return m_page->viewport()->rect().contains(placeOf(line));
}

void SourceFilePageTest::showLines(int count) {
    QVERIFY(m_page->showFile(write("lines.c", numberedLines(count))));
}

void SourceFilePageTest::showsTheTextOnly() {
    const QString path = write("a.c", "int a; // \xc3\xbc\n\tint b;\n");
    QVERIFY(m_page->showFile(path));
    QCOMPARE(m_page->getPath(), path);
    QCOMPARE(m_page->toPlainText(), QString::fromUtf8("int a; // \xc3\xbc\n\tint b;\n"));
    QVERIFY(m_page->isReadOnly());
    QTest::keyClicks(m_page.get(), "x");
    QCOMPARE(m_page->toPlainText().left(6), QString("int a;"));
    QCOMPARE(m_page->font().family(), QString("Monospace"));
    QCOMPARE(m_page->lineWrapMode(), QPlainTextEdit::NoWrap);
}

// At once: no event has come yet that would colour later.
void SourceFilePageTest::colouredByTheEnding() {
    const QByteArray text = "IF\nif\n! a\nmodule\n";
    QVERIFY(m_page->showFile(write("a.c", text)));
    QCOMPARE(colourOf(1), QColor(Qt::black));
    QCOMPARE(colourOf(2), QColor(Qt::darkBlue));
    QCOMPARE(colourOf(3), QColor(Qt::black));
    QCOMPARE(colourOf(4), QColor(Qt::black));
    for (const char* name : {"a.F90", "a.f", "a.for"}) {
        QVERIFY(m_page->showFile(write(name, text)));
        QCOMPARE(colourOf(1), QColor(Qt::darkBlue));
        QCOMPARE(colourOf(3), QColor(Qt::red));
        QCOMPARE(colourOf(4), QColor(Qt::darkBlue));
    }
    QVERIFY(m_page->showFile(write("a.h", text)));
    QCOMPARE(colourOf(1), QColor(Qt::black));
    QCOMPARE(colourOf(2), QColor(Qt::darkBlue));
}

void SourceFilePageTest::whatCannotBeReadIsSaid() {
    const QString pipe = path("pipe.c");
    QCOMPARE(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    const QString large = write("large.c", QByteArray(1024 * 1024, 'a'));
    for (const QString& bad : {path("missing.c"), path(""), pipe, large, QString()}) {
        QVERIFY(m_page->showFile(write("a.c", "int a;\nint b;\n")));
        m_page->showLine(2);
        QVERIFY(!m_page->showFile(bad));
        QVERIFY2(m_page->toPlainText().startsWith(bad + " cannot be read: "), qPrintable(m_page->toPlainText()));
        QVERIFY(m_page->toPlainText().length() > bad.length() + 20);
        QCOMPARE(m_page->getPath(), QString());
        QCOMPARE(m_page->getMarkedLine(), 0);
        QVERIFY(!margin().isVisible());
        m_page->showLine(1); // a message has no lines
        QCOMPARE(m_page->getMarkedLine(), 0);
        QSignalSpy clicked(m_page.get(), &SourceFilePage::lineClicked);
        QTest::mouseClick(m_page->viewport(), Qt::LeftButton, {}, placeOf(1));
        QCOMPARE(clicked.size(), 0);
    }
}

void SourceFilePageTest::aFileIsReadAgainWhenItChanged() {
    const QString file = write("a.c", numberedLines(500));
    QVERIFY(m_page->showFile(file));
    m_page->showLine(300);
    const int scrolled = m_page->verticalScrollBar()->value();
    QVERIFY(scrolled > 0);
    QSignalSpy changed(m_page.get(), &QPlainTextEdit::textChanged);
    QVERIFY(m_page->showFile(file));
    QCOMPARE(changed.size(), 0);
    QCOMPARE(m_page->getMarkedLine(), 300);
    QCOMPARE(m_page->verticalScrollBar()->value(), scrolled);

    write("a.c", "int other;\n"); // of another size
    QVERIFY(m_page->showFile(file));
    QCOMPARE(m_page->toPlainText(), QString("int other;\n"));
    QCOMPARE(m_page->getMarkedLine(), 0);

    write("a.c", "int OTHER;\n"); // of the same size at another time
    QFile writable(file);
    QVERIFY(writable.open(QIODevice::ReadWrite));
    QVERIFY(writable.setFileTime(QDateTime::currentDateTime().addSecs(5), QFileDevice::FileModificationTime));
    QVERIFY(m_page->showFile(file));
    QCOMPARE(m_page->toPlainText(), QString("int OTHER;\n"));
}

void SourceFilePageTest::aFileThatGoesIsMissed() {
    const QString file = write("a.c", "int a;\n");
    QVERIFY(m_page->showFile(file));
    QVERIFY(QFile::remove(file));
    QVERIFY(!m_page->showFile(file));
    QVERIFY(!m_page->showFile(file));
    QVERIFY(m_page->toPlainText().contains("cannot be read"));
    write("a.c", "int a;\n");
    QVERIFY(m_page->showFile(file));
    QCOMPARE(m_page->toPlainText(), QString("int a;\n"));
}

void SourceFilePageTest::linesAreThoseOfTheFile() {
    QVERIFY(m_page->showFile(write("a.c", "1\r\n2\r3\n\xe2\x80\xa9 4\xef\xb7\x90 4\xef\xb7\x91 4\xe2\x80\xa8 4\n5")));
    QCOMPARE(m_page->blockCount(), 5);
    QCOMPARE(block(2).text(), QString("2"));
    QCOMPARE(block(3).text(), QString("3"));
    QCOMPARE(block(4).text(), QString::fromUtf8("\ufffd 4\ufffd 4\ufffd 4\u2028 4"));
    QCOMPARE(block(5).text(), QString("5"));
}

void SourceFilePageTest::oddTexts() {
    QByteArray bytes;
    for (int i = 0; i < 256; ++i)
        bytes += static_cast<char>(i);
    QVERIFY(m_page->showFile(write("a.c", bytes)));
    QCOMPARE(m_page->blockCount(), 3); // a line feed and a carriage return among them
    m_page->grab();
    QElapsedTimer timer;
    timer.start();
    QVERIFY(m_page->showFile(write("b.c", QByteArray("if (f(a)) ").repeated(10000) + "\nint b;\n")));
    m_page->showLine(2);
    m_page->grab();
    QCOMPARE(colourOf(2), QColor(Qt::darkBlue));
    QVERIFY(timer.elapsed() < 5000);
}

void SourceFilePageTest::emptyFile() {
    QVERIFY(m_page->showFile(write("a.c", "")));
    QCOMPARE(m_page->toPlainText(), QString());
    m_page->showLine(1);
    QCOMPARE(m_page->getMarkedLine(), 1);
    m_page->grab();
}

void SourceFilePageTest::aLineIsMarked() {
    showLines(20);
    m_page->showLine(3);
    m_page->showLine(4);
    QCOMPARE(m_page->getMarkedLine(), 4);
    const QImage image = m_page->viewport()->grab().toImage();
    const int right = image.width() - 20; // behind the text
    QVERIFY(image.pixelColor(right, placeOf(4).y()) != image.pixelColor(right, placeOf(3).y()));
    QCOMPARE(image.pixelColor(right, placeOf(3).y()), image.pixelColor(right, placeOf(5).y()));
    // Light enough for black and blue to be read on.
    QVERIFY(image.pixelColor(right, placeOf(4).y()).lightness() > 200);
}

void SourceFilePageTest::linesThatThereAreNotAreNotMarked() {
    showLines(20);
    for (const int line : {0, -1, 22, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        m_page->showLine(3);
        m_page->showLine(line);
        QCOMPARE(m_page->getMarkedLine(), 0);
        QVERIFY(m_page->extraSelections().isEmpty());
    }
    m_page->showLine(21); // behind the last line's end
    QCOMPARE(m_page->getMarkedLine(), 21);
}

void SourceFilePageTest::aLineOutOfSightComesToTheMiddle() {
    showLines(1000);
    for (const int line : {500, 100, 900}) {
        QVERIFY(!isInSight(line));
        m_page->showLine(line);
        const int middle = m_page->viewport()->height() / 2;
        const int offset = std::abs(placeOf(line).y() - middle);
        QVERIFY2(offset <= 2 * m_page->fontMetrics().lineSpacing(), qPrintable(QString::number(offset)));
    }
    m_page->showLine(1);
    QVERIFY(isInSight(1));
    m_page->showLine(1000);
    QVERIFY(isInSight(1000));
}

void SourceFilePageTest::aLineInSightStaysWhereItIs() {
    showLines(1000);
    m_page->verticalScrollBar()->setValue(200);
    for (const int line : {201, 205, 210}) {
        QVERIFY(isInSight(line));
        m_page->showLine(line);
        QCOMPARE(m_page->verticalScrollBar()->value(), 200);
    }
}

void SourceFilePageTest::markedBeforeItIsSeen() {
    SourceFilePage hidden;
    QVERIFY(hidden.showFile(write("a.c", numberedLines(1000))));
    hidden.showLine(500);
    hidden.resize(400, 120);
    hidden.show();
    const QRect line = hidden.cursorRect(QTextCursor(hidden.document()->findBlockByNumber(499)));
    QVERIFY(hidden.viewport()->rect().contains(line.center()));
}

void SourceFilePageTest::clicksNameTheirLine() {
    showLines(1000);
    m_page->verticalScrollBar()->setValue(100);
    QSignalSpy clicked(m_page.get(), &SourceFilePage::lineClicked);
    QTest::mouseClick(m_page->viewport(), Qt::LeftButton, {}, placeOf(105) + QPoint(200, 0)); // behind its text
    QTest::mouseClick(&margin(), Qt::LeftButton, {}, {5, placeOf(103).y()});
    QCOMPARE(clicked.size(), 2);
    QCOMPARE(clicked.at(0).at(0).toInt(), 105);
    QCOMPARE(clicked.at(1).at(0).toInt(), 103);
    QCOMPARE(m_page->verticalScrollBar()->value(), 100);
}

void SourceFilePageTest::clicksElsewhereNameNone() {
    showLines(3);
    QSignalSpy clicked(m_page.get(), &SourceFilePage::lineClicked);
    const int below = placeOf(4).y() + 50;
    QTest::mouseClick(m_page->viewport(), Qt::LeftButton, {}, {20, below});
    QTest::mouseClick(&margin(), Qt::LeftButton, {}, {5, below});
    QTest::mouseClick(m_page->viewport(), Qt::MiddleButton, {}, placeOf(2));
    QTest::mouseClick(&margin(), Qt::MiddleButton, {}, {5, placeOf(2).y()});
    QCOMPARE(clicked.size(), 0);
}

void SourceFilePageTest::selectingIsNoClick() {
    showLines(10);
    QSignalSpy clicked(m_page.get(), &SourceFilePage::lineClicked);
    QTest::mousePress(m_page->viewport(), Qt::LeftButton, {}, placeOf(2));
    QMouseEvent move(QEvent::MouseMove, placeOf(2) + QPoint(60, 0), Qt::NoButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(m_page->viewport(), &move);
    QTest::mouseRelease(m_page->viewport(), Qt::LeftButton, {}, placeOf(2) + QPoint(60, 0));
    QVERIFY(m_page->textCursor().hasSelection());
    QCOMPARE(clicked.size(), 0);
    QTest::mousePress(m_page->viewport(), Qt::LeftButton, {}, placeOf(2));
    QTest::mouseRelease(m_page->viewport(), Qt::LeftButton, {}, placeOf(4));
    QCOMPARE(clicked.size(), 0);
}

// A line with a number has other pixels than ground in the margin; there is ground only below the last line.
void SourceFilePageTest::numbersAreDrawn() {
    showLines(3);
    const QImage image = margin().grab().toImage();
    const auto hasInk = [&](int line) {
        const QRect place = m_page->cursorRect(QTextCursor(block(line)));
        for (int y = place.top(); y <= place.bottom(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (image.pixelColor(x, y) != image.pixelColor(0, image.height() - 1))
                    return true;
        return false;
    };
    for (int line = 1; line <= 4; ++line)
        QVERIFY2(hasInk(line), qPrintable(QString::number(line)));
    const int below = m_page->cursorRect(QTextCursor(block(4))).bottom() + 1;
    for (int y = below; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            QCOMPARE(image.pixel(x, y), image.pixel(0, image.height() - 1));
}

void SourceFilePageTest::numbersFollowTheText() {
    showLines(8);
    const int narrow = margin().width();
    QCOMPARE(margin().geometry().topRight() + QPoint(1, 0), m_page->viewport()->geometry().topLeft());
    showLines(1000); // 1001 numbers
    QCOMPARE(margin().width() - narrow,
             m_page->fontMetrics().horizontalAdvance("9999") - m_page->fontMetrics().horizontalAdvance("9"));
    m_page->resize(300, 200);
    QCOMPARE(margin().height(), m_page->viewport()->height());
    QCOMPARE(margin().lineAt(placeOf(2).y()), 2);
    const int before = margin().width();
    m_page->setFont(QFont("Monospace", 20));
    QVERIFY(margin().width() > before);
    QWheelEvent wheel(QPointF(5, 5), margin().mapToGlobal(QPoint(5, 5)), {}, {0, -120}, Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&margin(), &wheel);
    QVERIFY(m_page->verticalScrollBar()->value() > 0);
}

void SourceFilePageTest::clearing() {
    showLines(100);
    m_page->showLine(50);
    m_page->clear();
    QCOMPARE(m_page->toPlainText(), QString());
    QCOMPARE(m_page->getPath(), QString());
    QCOMPARE(m_page->getMarkedLine(), 0);
    QVERIFY(!margin().isVisible());
    m_page->clear();
    showLines(100); // the same file is read again
    QCOMPARE(m_page->blockCount(), 101);
    QVERIFY(margin().isVisible());
}

} // namespace Kova::Shell

QTEST_MAIN(Kova::Shell::SourceFilePageTest)
#include "SourceFilePageTest.moc"
