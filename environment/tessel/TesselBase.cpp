// SPDX-License-Identifier: MIT
#include "environment/tessel/TesselBase.h"

#include "environment/tessel/ProgramUnit.h"
#include "environment/tessel/TranslationUnit.h"

#include <utility>

namespace Kova::Tessel {

namespace {

template <class T>
T* findAncestorOrSelf(const TesselBase* node) {
    for (; node != nullptr; node = node->getParent())
        // The tree is built non-const: constness of a query does not reach what it finds.
        if (const T* found = dynamic_cast<const T*>(node))
            return const_cast<T*>(found);
    return nullptr;
}

} // namespace

TesselBase::~TesselBase() {
    std::vector<std::unique_ptr<TesselBase>> pending = std::move(m_children);
    while (!pending.empty()) {
        const std::unique_ptr<TesselBase> node = std::move(pending.back());
        pending.pop_back();
        if (!node)
            continue;
        for (std::unique_ptr<TesselBase>& child : node->m_children)
            pending.push_back(std::move(child));
        node->m_children.clear();
    }
}

ProgramUnit* TesselBase::findProgramUnit() const {
    return findAncestorOrSelf<ProgramUnit>(this);
}

TranslationUnit* TesselBase::findTranslationUnit() const {
    return findAncestorOrSelf<TranslationUnit>(this);
}

void TesselBase::appendChild(std::unique_ptr<TesselBase> child) {
    insertChild(m_children.size(), std::move(child));
}

void TesselBase::insertChild(std::size_t index, std::unique_ptr<TesselBase> child) {
    if (child)
        child->m_parent = this;
    m_children.insert(m_children.begin() + static_cast<std::ptrdiff_t>(index), std::move(child));
    renumberFrom(index);
}

std::unique_ptr<TesselBase> TesselBase::takeChild(std::size_t index) {
    std::unique_ptr<TesselBase> child = exchangeChild(index, nullptr);
    m_children.erase(m_children.begin() + static_cast<std::ptrdiff_t>(index));
    renumberFrom(index);
    return child;
}

std::unique_ptr<TesselBase> TesselBase::exchangeChild(std::size_t index, std::unique_ptr<TesselBase> child) {
    std::swap(m_children[index], child);
    if (child) {
        child->m_parent = nullptr;
        child->m_indexInParent = 0;
    }
    if (m_children[index]) {
        m_children[index]->m_parent = this;
        m_children[index]->m_indexInParent = static_cast<std::uint32_t>(index);
    }
    return child;
}

void TesselBase::renumberFrom(std::size_t index) {
    for (std::size_t i = index; i < m_children.size(); ++i)
        if (m_children[i])
            m_children[i]->m_indexInParent = static_cast<std::uint32_t>(i);
}

} // namespace Kova::Tessel
