// SPDX-License-Identifier: MIT
#include "tests/shell/ShellTesting.h"

#include "shell/program/SourceReader.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>
#include <QRegularExpression>

namespace Kova::Shell::Testing {

QString SourceFolder::write(const QString& name, const QByteArray& content) const {
    QFile file(path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(file.fileName()));
    return file.fileName();
}

QStringList FreshFolder::filesIn(const QString& directory) const {
    return Testing::filesIn(path(directory));
}

const QStringList describing = {"--view", "call-graph", "--describe"};

const SourceFiles staticsOfOneName = {{"a.c", "static int f(void) { return 1; }\n"},
                                      {"b.c", "static int f(void) { return 2; }\n"}};

WrittenProgram::WrittenProgram(const SourceFiles& files) {
    QStringList paths;
    for (const auto& [name, content] : files) {
        const QString path = folder.write(name, content);
        if (!name.endsWith(".h"))
            paths.append(path);
    }
    program = readProgram(paths);
}

QByteArray manyBranches(int branches) {
    QByteArray text = "void f(int n) {\n";
    for (int i = 0; i < branches; ++i)
        text += "    if (n) n = " + QByteArray::number(i) + ";\n";
    return text + "}\n";
}

FakeGraphviz::FakeGraphviz(Program program) : m_path(qgetenv("PATH")) {
    if (program == Program::Failing) {
        const QString dot = m_folder.write("dot", "#!/bin/sh\n: > \"${0%/*}/ran\"\nexit 1\n");
        QFile::setPermissions(dot, QFile::ReadOwner | QFile::ExeOwner);
    }
    qputenv("PATH", QFile::encodeName(m_folder.path({})));
}

FakeGraphviz::~FakeGraphviz() {
    qputenv("PATH", m_path);
}

bool FakeGraphviz::wasRun() const {
    return QFile::exists(m_folder.path("ran"));
}

QStringList filesIn(const QString& directory) {
    return QDir(directory).entryList(QDir::Files | QDir::Hidden, QDir::Name);
}

OpenedProgram readProgram(const QStringList& paths) {
    return SourceReader(Frontends::COptions()).read(paths);
}

QByteArray contentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString programPath() {
    return KOVA_SHELL_PROGRAM;
}

QProcessEnvironment withoutDisplay() {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* variable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "XDG_RUNTIME_DIR"})
        environment.remove(variable);
    return environment;
}

Finished runProgram(const QStringList& arguments, const QString& outFile, const QProcessEnvironment& environment) {
    QProcess process;
    process.setProcessEnvironment(environment);
    if (!outFile.isEmpty())
        process.setStandardOutputFile(outFile);
    process.start(programPath(), arguments);
    constexpr int mostMilliseconds = 120000;
    Finished finished;
    if (process.waitForFinished(mostMilliseconds) && process.exitStatus() == QProcess::NormalExit)
        finished.status = process.exitCode();
    process.kill();
    process.waitForFinished();
    finished.out = process.readAllStandardOutput();
    finished.error = process.readAllStandardError();
    return finished;
}

QJsonObject parse(const QByteArray& text) {
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(text, &error);
    return error.error == QJsonParseError::NoError ? document.object() : QJsonObject{{"invalid", error.errorString()}};
}

QStringList namesIn(const QJsonObject& list, const QString& what, const QString& field) {
    QStringList names;
    for (const QJsonValue& value : list[what].toArray())
        names.append(value.toObject()[field].toString());
    return names;
}

bool hasMessageForm(const QByteArray& error) {
    static const QRegularExpression form("^(kova-shell: .+|[^:]+(:\\d+:\\d+)?: .+)$");
    for (const QByteArray& line : error.split('\n'))
        if (!line.isEmpty() && !form.match(QString::fromUtf8(line)).hasMatch())
            return false;
    return true;
}

} // namespace Kova::Shell::Testing
