// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/LampArrow.h"

#include "environment/analyses/lamport/ArrowDescription_p.h"

namespace DepGraph {

std::string LampArrow::GetTag(EN_PrintModes mode) const {
    const bool russian = mode == PM_POPULAR_RUSSIAN || mode == PM_DEVELOPER_RUSSIAN;
    const bool popular = mode == PM_POPULAR_RUSSIAN || mode == PM_POPULAR_ENGLISH;
    const ArrowParts parts(m_facts);
    const ArrowDescription description(parts, russian ? getRussian() : getEnglish());
    return popular ? description.makeSentence() : description.makeDeveloperLine();
}

} // namespace DepGraph
