// SPDX-License-Identifier: MIT
#include "shell/program/ProgramListing.h"

#include "tests/shell/ShellTesting.h"

#include <QJsonArray>
#include <QtTest>

namespace Kova::Shell {

class ProgramListingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void listsEverything();
    void unreadableFilesHaveNoLanguage();
    void diagnosticsHaveTheirPlaces();
};

void ProgramListingTest::listsEverything() {
    const Testing::SourceFolder folder;
    folder.write("h.h", "static int h(void) { return 1; }\n");
    const QString file = folder.write("a.c", "#include \"h.h\"\nint f(void) {\n  for (;;)\n    while (h()) ;\n}\n");
    const QJsonObject list = listProgram(Testing::readProgram({file}));
    const QJsonArray files = list["files"].toArray();
    QCOMPARE(files.size(), 2);
    QCOMPARE(files[0].toObject(), (QJsonObject{{"path", file}, {"language", "C"}, {"read", "complete"}}));
    QCOMPARE(files[1].toObject()["read"].toString(), QString("included"));
    QVERIFY(files[1].toObject()["path"].toString().endsWith("h.h"));

    const QJsonArray subroutines = list["subroutines"].toArray();
    QCOMPARE(subroutines.size(), 2);
    const QJsonObject f = subroutines[0].toObject();
    QCOMPARE(f["name"].toString(), QString("f"));
    QCOMPARE(f["file"].toString(), file);
    QCOMPARE(f["firstLine"].toInt(), 2);
    QCOMPARE(f["lastLine"].toInt(), 5);
    const QJsonArray expected = {QJsonObject{{"kind", "for"}, {"firstLine", 3}, {"lastLine", 4}, {"depth", 1}},
                                 QJsonObject{{"kind", "while"}, {"firstLine", 4}, {"lastLine", 4}, {"depth", 2}}};
    QCOMPARE(f["loops"].toArray(), expected);
    QCOMPARE(subroutines[1].toObject()["name"].toString(), QString("h"));
    QCOMPARE(list["diagnostics"].toArray(), QJsonArray());
}

void ProgramListingTest::unreadableFilesHaveNoLanguage() {
    const QJsonObject list = listProgram(Testing::readProgram({"/nowhere/a.c"}));
    const QJsonObject file = list["files"].toArray().at(0).toObject();
    QCOMPARE(file["read"].toString(), QString("unreadable"));
    QVERIFY(file["language"].isNull());
    QVERIFY(!list["diagnostics"].toArray().isEmpty());
}

void ProgramListingTest::diagnosticsHaveTheirPlaces() {
    const Testing::SourceFolder folder;
    const QString file = folder.write("a.c", "int f(void) {\n  return unknown;\n}\nint g(void) { return 1; }\n");
    const QJsonArray diagnostics = listProgram(Testing::readProgram({file}))["diagnostics"].toArray();
    QCOMPARE(diagnostics.size(), 1);
    const QJsonObject diagnostic = diagnostics[0].toObject();
    QCOMPARE(diagnostic["file"].toString(), file);
    QCOMPARE(diagnostic["line"].toInt(), 2);
    QCOMPARE(diagnostic["column"].toInt(), 10);
    QCOMPARE(diagnostic["level"].toString(), QString("error"));
    QVERIFY(diagnostic["text"].toString().contains("unknown"));
}

} // namespace Kova::Shell

QTEST_MAIN(Kova::Shell::ProgramListingTest)
#include "ProgramListingTest.moc"
