// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/TesselBase.h"

#include <cstddef>
#include <iterator>

namespace Kova::Tessel::Service {

/// The nodes of a subtree, root first, parents before children, children in program order: `for (TesselBase& node :
/// Preorder(root))`. Uses the tree's own links, so it needs no stack, whatever the depth. The tree must not change
/// under a walk.
class Preorder {
public:
    class Iterator {
    public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = TesselBase;
        using difference_type = std::ptrdiff_t;
        using pointer = TesselBase*;
        using reference = TesselBase&;

        Iterator(TesselBase* root, TesselBase* node) : m_root(root), m_node(node) {}

        [[nodiscard]] TesselBase& operator*() const { return *m_node; }
        [[nodiscard]] TesselBase* operator->() const { return m_node; }
        Iterator& operator++();
        /// Goes on behind the present node without visiting what is below it.
        void skipChildren();
        [[nodiscard]] bool operator==(const Iterator& other) const { return m_node == other.m_node; }
        [[nodiscard]] bool operator!=(const Iterator& other) const { return m_node != other.m_node; }

    private:
        TesselBase* m_root;
        TesselBase* m_node;
    };

    explicit Preorder(TesselBase& root) : m_root(&root) {}

    [[nodiscard]] Iterator begin() const { return {m_root, m_root}; }
    [[nodiscard]] Iterator end() const { return {m_root, nullptr}; }

private:
    TesselBase* m_root;
};

} // namespace Kova::Tessel::Service
