// SPDX-License-Identifier: MIT
#include "shell/pictures/PictureFormat.h"

#include <QtTest>

namespace Kova::Shell {

class PictureFormatTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void suffixesInAnyCase();
    void othersAreUnknown();
    void devicesGetPng();
};

void PictureFormatTest::suffixesInAnyCase() {
    QVERIFY(pictureFormatOf("dir.d/a.png") == PictureFormat::Png);
    QVERIFY(pictureFormatOf("a.b.PNG") == PictureFormat::Png);
    QVERIFY(pictureFormatOf("a.Xpm") == PictureFormat::Xpm);
    QVERIFY(pictureFormatOf(".svg") == PictureFormat::Svg);
}

void PictureFormatTest::othersAreUnknown() {
    for (const char* path : {"a.gif", "a", "png", "a.png.txt", "dir.png/a", "", "a.svgz"})
        QVERIFY2(!pictureFormatOf(path), path);
}

void PictureFormatTest::devicesGetPng() {
    QVERIFY(pictureFormatOf("/dev/null") == PictureFormat::Png);
    QVERIFY(!pictureFormatOf("/tmp"));
}

} // namespace Kova::Shell

QTEST_APPLESS_MAIN(Kova::Shell::PictureFormatTest)
#include "PictureFormatTest.moc"
