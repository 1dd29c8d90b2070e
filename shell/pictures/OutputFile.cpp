// SPDX-License-Identifier: MIT
#include "shell/pictures/OutputFile.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Kova::Shell {

namespace {

QString systemReason() {
    return QString::fromLocal8Bit(std::strerror(errno));
}

bool writeAll(int descriptor, const QByteArray& content) {
    for (qint64 done = 0; done < content.size();) {
        const ssize_t count =
            ::write(descriptor, content.constData() + done, static_cast<size_t>(content.size() - done));
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return false;
        done += count;
    }
    return true;
}

QString writeToDevice(const QString& path, const QByteArray& content) {
    const int descriptor = ::open(QFile::encodeName(path).constData(), O_WRONLY | O_CLOEXEC);
    if (descriptor < 0)
        return systemReason();
    QString reason = writeAll(descriptor, content) ? QString() : systemReason();
    if (::close(descriptor) != 0 && reason.isEmpty())
        reason = systemReason();
    return reason;
}

} // namespace

bool isDevice(const QString& path) {
    struct stat status {};
    return ::stat(QFile::encodeName(path).constData(), &status) == 0 && !S_ISREG(status.st_mode) &&
           !S_ISDIR(status.st_mode);
}

QString writeFile(const QString& path, const QByteArray& content) {
    if (isDevice(path))
        return writeToDevice(path, content);
    if (QFileInfo(path).isDir())
        return QString::fromLocal8Bit(std::strerror(EISDIR));
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size() || !file.commit())
        return file.errorString();
    return {};
}

} // namespace Kova::Shell
