// SPDX-License-Identifier: MIT
#include "shell/pictures/GalleryPage.h"

#include <QXmlStreamReader>
#include <QtTest>

namespace Kova::Shell {

namespace {

/// Links and images of a page, read with a parser of its own: "a:FILE" and "img:FILE" in order.
QStringList referencesOf(QByteArray page) {
    // The page is well-formed but for the void elements of HTML and its entity.
    page.replace("<!DOCTYPE html>", "").replace("&middot;", "-");
    QString text = QString::fromUtf8(page);
    text.replace(QRegularExpression("<(meta|img|br)([^>]*)>"), "<\\1\\2/>");
    text.replace(QRegularExpression("<style>.*</style>", QRegularExpression::DotMatchesEverythingOption), "");
    QXmlStreamReader reader(text);
    QStringList references;
    while (!reader.atEnd())
        if (reader.readNext() == QXmlStreamReader::StartElement) {
            if (reader.name() == "a")
                references.append("a:" + reader.attributes().value("href").toString());
            if (reader.name() == "img")
                references.append("img:" + reader.attributes().value("src").toString());
        }
    return reader.hasError() ? QStringList("error: " + reader.errorString()) : references;
}

} // namespace

class GalleryPageTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void leadsToTheFiles();
    void showsWhatThereIs();
    void textsAreEscaped();
    void namesAreEncoded();
    void viewsAreGroups();
    void nothingToShow();
};

void GalleryPageTest::leadsToTheFiles() {
    const QByteArray page = renderGalleryPage({"a.c"}, {{"Call Graph", "program", "2 procedures", "p.png", "p.svg"}});
    QCOMPARE(referencesOf(page), QStringList({"a:p.png", "img:p.png", "a:p.png", "a:p.svg"}));
    QVERIFY(page.contains("2 procedures"));
}

void GalleryPageTest::showsWhatThereIs() {
    const QByteArray page = renderGalleryPage({"a.c"}, {{"Call Graph", "program", "", "", "p.svg"}});
    QCOMPARE(referencesOf(page), QStringList({"a:p.svg", "img:p.svg", "a:p.svg"}));
}

void GalleryPageTest::textsAreEscaped() {
    const QByteArray page = renderGalleryPage({"<a>&\".c"}, {{"<i>", "s<b>\"&", "<u>", "p.png", "p.svg"}});
    QCOMPARE(referencesOf(page).size(), 4);
    for (const char* raw : {"<i>", "s<b>", "<u>", "<a>&"})
        QVERIFY2(!page.contains(raw), raw);
    QVERIFY(page.contains("s&lt;b&gt;&quot;&amp;"));
}

void GalleryPageTest::namesAreEncoded() {
    const QByteArray page = renderGalleryPage({"a.c"}, {{"v", "s", "", "a b#?.png", ""}});
    QVERIFY(page.contains("\"a%20b%23%3F.png\""));
}

void GalleryPageTest::viewsAreGroups() {
    const QByteArray page = renderGalleryPage(
        {"a.c"}, {{"One", "s", "", "1.png", ""}, {"One", "t", "", "2.png", ""}, {"Two", "s", "", "3.png", ""}});
    QCOMPARE(page.count("<h2>"), 2);
    QVERIFY(page.indexOf("<h2>One") < page.indexOf("2.png"));
    QVERIFY(page.indexOf("2.png") < page.indexOf("<h2>Two"));
    QVERIFY(!referencesOf(page).first().startsWith("error"));
}

void GalleryPageTest::nothingToShow() {
    const QByteArray page = renderGalleryPage({}, {});
    QVERIFY(page.contains("There is nothing to show."));
    QCOMPARE(referencesOf(page), QStringList());
}

} // namespace Kova::Shell

QTEST_APPLESS_MAIN(Kova::Shell::GalleryPageTest)
#include "GalleryPageTest.moc"
