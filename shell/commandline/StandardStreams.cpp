// SPDX-License-Identifier: MIT
#include "shell/commandline/StandardStreams.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

namespace Kova::Shell {

bool printOut(const QByteArray& text) {
    const auto size = static_cast<std::size_t>(text.size());
    if (std::fwrite(text.constData(), 1, size, stdout) == size && std::fflush(stdout) == 0)
        return true;
    printMessage(QString("cannot write to standard output: %1").arg(QString::fromLocal8Bit(std::strerror(errno))));
    return false;
}

void printMessage(const QString& text) {
    printErrorLine("kova-shell: " + text.toStdString());
}

void printErrorLine(const std::string& line) {
    std::fprintf(stderr, "%s\n", line.c_str());
}

} // namespace Kova::Shell
