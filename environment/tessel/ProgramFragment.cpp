// SPDX-License-Identifier: MIT
#include "environment/tessel/ProgramFragment.h"

#include "environment/tessel/BlockStatement.h"

namespace Kova::Tessel {

namespace {

StatementIterator iteratorAt(const StatementBase* statement, std::size_t offset) {
    if (statement == nullptr)
        return {};
    const auto* block = dynamic_cast<const BlockStatement*>(statement->getParent());
    return {block, statement->getIndexInParent() + offset};
}

} // namespace

bool ProgramFragment::isFragment(const StatementBase& first, const StatementBase& last) {
    return first.getParent() == last.getParent() && dynamic_cast<const BlockStatement*>(first.getParent()) != nullptr &&
           first.getIndexInParent() <= last.getIndexInParent();
}

void ProgramFragment::set(StatementBase& first, StatementBase& last) {
    setEmpty();
    if (!isFragment(first, last))
        return;
    m_first = &first;
    m_last = &last;
}

StatementIterator ProgramFragment::getFirstIterator() const {
    return iteratorAt(m_first, 0);
}

StatementIterator ProgramFragment::getAfterLastIterator() const {
    return iteratorAt(m_last, 1);
}

} // namespace Kova::Tessel
