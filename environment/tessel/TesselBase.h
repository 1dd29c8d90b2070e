// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/SourceRange.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace Kova::Tessel {

class BaseVisitor;
class ProgramUnit;
class TranslationUnit;

/// Common base of every node of the program's tree. A node owns its children; a parent outlives them. Children are
/// numbered in program order; a number may hold no child (null) where the language leaves a part out, such as the
/// condition of `for (;;)`.
class TesselBase {
public:
    /// Frees the whole subtree without recursion, so that a tree may be of any depth.
    virtual ~TesselBase();
    TesselBase(const TesselBase&) = delete;
    TesselBase& operator=(const TesselBase&) = delete;

    /// Calls the visitor's visit for this node's own class.
    virtual void accept(BaseVisitor& visitor) = 0;

    /// Null for the root of a tree.
    [[nodiscard]] TesselBase* getParent() { return m_parent; }
    [[nodiscard]] const TesselBase* getParent() const { return m_parent; }

    [[nodiscard]] std::size_t getChildCount() const { return m_children.size(); }
    /// Null where the part is left out, and for an index outside [0, getChildCount()).
    [[nodiscard]] TesselBase* getChild(std::size_t index) const {
        return index < m_children.size() ? m_children[index].get() : nullptr;
    }
    /// This node's number among its parent's children; 0 without a parent or for a declaration kept apart.
    [[nodiscard]] std::size_t getIndexInParent() const { return m_indexInParent; }

    /// The unit that holds this node, which may be the node itself; null when it is in none.
    [[nodiscard]] ProgramUnit* findProgramUnit() const;
    [[nodiscard]] TranslationUnit* findTranslationUnit() const;

    [[nodiscard]] const SourceRange& getSourceRange() const { return m_sourceRange; }
    void setSourceRange(const SourceRange& range) { m_sourceRange = range; }

protected:
    TesselBase() = default;

    void appendChild(std::unique_ptr<TesselBase> child);
    /// @param index in [0, getChildCount()].
    void insertChild(std::size_t index, std::unique_ptr<TesselBase> child);
    /// Takes a child out and closes the gap. @param index in [0, getChildCount()).
    std::unique_ptr<TesselBase> takeChild(std::size_t index);
    /// Puts a child, or none, at a number and gives back what stood there. @param index in [0, getChildCount()).
    std::unique_ptr<TesselBase> exchangeChild(std::size_t index, std::unique_ptr<TesselBase> child);
    /// Makes this node the parent of one that it owns outside its numbered children.
    void adopt(TesselBase& node) { node.m_parent = this; }

    template <class T>
    [[nodiscard]] T* childAs(std::size_t index) const {
        return static_cast<T*>(getChild(index));
    }

private:
    void renumberFrom(std::size_t index);

    TesselBase* m_parent = nullptr;
    std::vector<std::unique_ptr<TesselBase>> m_children;
    SourceRange m_sourceRange;
    std::uint32_t m_indexInParent = 0;
};

} // namespace Kova::Tessel
