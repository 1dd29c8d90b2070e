// SPDX-License-Identifier: MIT
// What stands in for Graphviz in tests, and the files that are exchanged with it.
#pragma once

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

constexpr auto dotFile = "/tmp/1.dot";
constexpr auto plainFile = "/tmp/1.dot.plain";

inline QByteArray contentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

inline void write(const QString& path, const QByteArray& content) {
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
}

inline void removeDotFiles() {
    QFile::remove(dotFile);
    QFile::remove(plainFile);
}

/// While it lives, what a program called dot does: writes the given result, and nothing else.
class FakeDot {
public:
    explicit FakeDot(const QByteArray& plain, int exitCode = 0) {
        write(m_folder.filePath("plain"), plain);
        write(m_folder.filePath("dot"), "#!/bin/sh\necho \"$@\" > '" + m_folder.filePath("arguments").toUtf8() +
                                            "'\ncat '" + m_folder.filePath("plain").toUtf8() +
                                            "' > /tmp/1.dot.plain\nexit " + QByteArray::number(exitCode) + "\n");
        QFile::setPermissions(m_folder.filePath("dot"), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        qputenv("PATH", m_folder.path().toUtf8() + ":" + m_path);
    }
    ~FakeDot() { qputenv("PATH", m_path); }
    FakeDot(const FakeDot&) = delete;
    FakeDot& operator=(const FakeDot&) = delete;

    /// Empty until it ran.
    [[nodiscard]] QByteArray arguments() const { return contentOf(m_folder.filePath("arguments")); }

private:
    QTemporaryDir m_folder;
    QByteArray m_path = qgetenv("PATH");
};

/// While it lives, a machine without dot.
class NoDot {
public:
    NoDot() { qputenv("PATH", m_folder.path().toUtf8()); }
    ~NoDot() { qputenv("PATH", m_path); }
    NoDot(const NoDot&) = delete;
    NoDot& operator=(const NoDot&) = delete;

private:
    QTemporaryDir m_folder;
    QByteArray m_path = qgetenv("PATH");
};
