// SPDX-License-Identifier: MIT
#include "shell/program/FileText.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace Kova::Shell {

namespace {

constexpr qint64 mostBytes = 16 * 1024 * 1024;
constexpr int mostLines = 500000;
constexpr std::ptrdiff_t mostBytesInLine = 200000;

QString tr(const char* text) {
    return QCoreApplication::translate("FileText", text);
}

bool isLineEnd(char character) {
    return character == '\n' || character == '\r';
}

/// Empty when the content can be shown.
QString whyTooLarge(const QByteArray& content) {
    if (content.size() > mostBytes)
        return tr("it is larger than %1 MiB").arg(mostBytes / (1024 * 1024));
    int lines = 0;
    for (auto line = content.begin(); line != content.end(); ++lines) {
        const auto end = std::find_if(line, content.end(), isLineEnd);
        if (end - line > mostBytesInLine)
            return tr("it has a line of more than %1 bytes").arg(mostBytesInLine);
        line = end == content.end() ? end : end + 1;
    }
    return lines > mostLines ? tr("it has more than %1 lines").arg(mostLines) : QString();
}

/// Paragraph separators and the two frame marks would begin lines.
QString decoded(const QByteArray& content) {
    constexpr ushort beginningOfFrame = 0xFDD0;
    constexpr ushort endOfFrame = 0xFDD1;
    QString text = QString::fromUtf8(content.constData(), content.size());
    for (const QChar character :
         {QChar(QChar::Null), QChar(QChar::ParagraphSeparator), QChar(beginningOfFrame), QChar(endOfFrame)})
        text.replace(character, QChar::ReplacementCharacter);
    return text;
}

} // namespace

FileText readFileText(const QString& path) {
    const QFileInfo info(path);
    if (path.isEmpty())
        return {{}, tr("it has no name")};
    if (info.exists() && !info.isFile()) // pipes and devices might never end
        return {{}, tr("it is no ordinary file")};
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {{}, file.errorString()};
    const QByteArray content = file.read(mostBytes + 1);
    if (file.error() != QFile::NoError)
        return {{}, file.errorString()};
    const QString tooLarge = whyTooLarge(content);
    return tooLarge.isEmpty() ? FileText{decoded(content), {}} : FileText{{}, tooLarge};
}

} // namespace Kova::Shell
