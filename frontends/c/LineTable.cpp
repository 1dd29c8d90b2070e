// SPDX-License-Identifier: MIT
#include "frontends/c/LineTable_p.h"

#include <algorithm>

namespace Kova::Frontends {

LineTable::LineTable(std::string_view text) : m_lineStarts{0} {
    for (std::size_t i = 0; i < text.size(); ++i) {
        // A lone carriage return ends a line as well, as compilers have it.
        const bool isEnd = text[i] == '\n' || (text[i] == '\r' && (i + 1 == text.size() || text[i + 1] != '\n'));
        if (isEnd)
            m_lineStarts.push_back(static_cast<std::uint32_t>(i + 1));
    }
}

LineTable::Place LineTable::find(std::uint32_t offset) {
    const auto isInLine = [&](std::size_t line) {
        return m_lineStarts[line] <= offset && (line + 1 == m_lineStarts.size() || offset < m_lineStarts[line + 1]);
    };
    if (!isInLine(m_lastLine)) {
        const auto next = std::upper_bound(m_lineStarts.begin(), m_lineStarts.end(), offset);
        m_lastLine = static_cast<std::size_t>(next - m_lineStarts.begin()) - 1;
    }
    return {static_cast<std::uint32_t>(m_lastLine + 1), offset - m_lineStarts[m_lastLine] + 1};
}

} // namespace Kova::Frontends
