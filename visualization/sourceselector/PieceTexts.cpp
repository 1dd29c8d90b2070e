// SPDX-License-Identifier: MIT
#include "visualization/sourceselector/PieceTexts.h"

#include <cstring>

namespace Kova::GUI {

QString PieceTexts::toString(const char* text) {
    const std::size_t length = text == nullptr ? 0 : std::strlen(text);
    if (length == 0)
        return QStringLiteral("");
    if (length > longestShared)
        return QString::fromUtf8(text, static_cast<int>(length));
    // No byte of a text is 0, so the word tells its length as well.
    quint64 bytes = 0;
    std::memcpy(&bytes, text, length);
    if (m_entries.empty())
        m_entries.resize(std::size_t{1} << tableBits);
    Entry& entry = m_entries[(bytes * 0x9E3779B97F4A7C15U) >> (64 - tableBits)];
    if (entry.bytes != bytes)
        entry = {bytes, QString::fromUtf8(text, static_cast<int>(length))};
    return entry.string;
}

} // namespace Kova::GUI
