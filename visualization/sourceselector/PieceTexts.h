// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/VisualizationExport.h"

#include <QString>

#include <array>
#include <vector>

namespace Kova::GUI {

/// Makes strings of what a printer writes. Short pieces come again and again in a program: those seen lately share one
/// string, which saves both time and memory.
class VISUALIZATION_EXPORT PieceTexts {
public:
    /// @param text UTF-8; null is empty.
    [[nodiscard]] QString toString(const char* text);

private:
    /// As many bytes as are kept in a word.
    static constexpr int longestShared = 8;
    static constexpr int tableBits = 10;

    struct Entry {
        quint64 bytes = 0;
        QString string;
    };
    std::vector<Entry> m_entries;
};

} // namespace Kova::GUI
