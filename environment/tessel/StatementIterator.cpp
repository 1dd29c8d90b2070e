// SPDX-License-Identifier: MIT
#include "environment/tessel/StatementIterator.h"

#include "environment/core/Exception.h"
#include "environment/tessel/BlockStatement.h"

namespace Kova::Tessel {

bool StatementIterator::isValid() const {
    return m_block != nullptr && m_block->getStatement(m_index) != nullptr;
}

StatementBase& StatementIterator::operator*() const {
    if (!isValid())
        throw StateError("Unexpected dereferencing of null iterator.");
    return *m_block->getStatement(m_index);
}

void StatementIterator::goNext() {
    if (!isValid())
        throw StateError("Unexpected goNext() after the end of the list.");
    ++m_index;
}

bool StatementIterator::operator==(const StatementIterator& other) const {
    if (!isValid() || !other.isValid())
        return isValid() == other.isValid();
    return m_block == other.m_block && m_index == other.m_index;
}

} // namespace Kova::Tessel
