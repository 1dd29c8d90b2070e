// SPDX-License-Identifier: MIT
#include "frontends/c/Directives_p.h"

#include <clang/Basic/SourceManager.h>

#include <iterator>

namespace Kova::Frontends {

bool Directives::areBefore(clang::SourceLocation end, const clang::SourceManager& sources) const {
    return m_next != m_all.size() && end.isValid() && sources.isBeforeInTranslationUnit(m_all[m_next].place, end);
}

std::vector<Directive> Directives::takeBefore(clang::SourceLocation end, const clang::SourceManager& sources) {
    std::vector<Directive> taken;
    while (areBefore(end, sources))
        taken.push_back(std::move(m_all[m_next++]));
    return taken;
}

std::vector<Directive> Directives::takeRest() {
    const auto first = m_all.begin() + static_cast<std::ptrdiff_t>(m_next);
    std::vector<Directive> taken(std::make_move_iterator(first), std::make_move_iterator(m_all.end()));
    m_next = m_all.size();
    return taken;
}

} // namespace Kova::Frontends
