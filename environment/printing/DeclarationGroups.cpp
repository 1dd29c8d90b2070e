// SPDX-License-Identifier: MIT
#include "environment/printing/DeclarationGroups.h"

#include "environment/printing/CDeclarator.h"
#include "environment/printing/DeclarationFilter.h"
#include "environment/printing/DeclarationHead.h"
#include "environment/tessel/EnumDeclaration.h"
#include "environment/tessel/RecordDeclaration.h"
#include "environment/tessel/SubroutineDeclaration.h"

#include <set>
#include <tuple>

namespace Kova::Backends {

using namespace Tessel;

namespace {

bool isNotAfter(std::uint32_t lineA, std::uint32_t columnA, std::uint32_t lineB, std::uint32_t columnB) {
    return std::tie(lineA, columnA) <= std::tie(lineB, columnB);
}

/// True when the source writes one inside the other; false where that is not known.
bool isInside(const TesselBase& inner, const TesselBase& outer) {
    const SourceRange& a = inner.getSourceRange();
    const SourceRange& b = outer.getSourceRange();
    return a.isKnown() && b.isKnown() && a.file == b.file &&
           isNotAfter(b.beginLine, b.beginColumn, a.beginLine, a.beginColumn) &&
           isNotAfter(a.endLine, a.endColumn, b.endLine, b.endColumn);
}

/// True when the source writes them as one declaration; false where that is not known.
bool beginTogether(const TesselBase& a, const TesselBase& b) {
    const SourceRange& first = a.getSourceRange();
    const SourceRange& second = b.getSourceRange();
    return first.isKnown() && second.isKnown() && first.file == second.file && first.beginLine == second.beginLine &&
           first.beginColumn == second.beginColumn;
}

/// The type when it is a structure, union or enumeration, which can be declared where it is used; else null.
const TypeDeclaration* asTag(const DeclarationBase* declaration) {
    const bool isTag = dynamic_cast<const RecordDeclaration*>(declaration) != nullptr ||
                       dynamic_cast<const EnumDeclaration*>(declaration) != nullptr;
    return isTag ? static_cast<const TypeDeclaration*>(declaration) : nullptr;
}

bool isUnnamedTag(const DeclarationBase& declaration) {
    return declaration.getName().empty() && asTag(&declaration) != nullptr;
}

/// True when the declared type is the tag, or one that the tag mentions ahead of its definition.
bool declaresWith(const DeclarationBase& declaration, const TypeDeclaration& tag) {
    const TypeDeclaration* used = asTag(CDeclarator::declarationBehind(DeclarationHead::typeOf(declaration)));
    return used == &tag || (used != nullptr && !tag.getName().empty() && used->getName() == tag.getName() &&
                            isInside(tag, declaration));
}

class Grouping {
public:
    Grouping(const TesselBase& holder, DeclarationPlace place, const DeclarationFilter& filter)
        : m_holder(holder),
          m_place(place),
          m_filter(filter) {}

    std::vector<DeclarationGroup> take() {
        for (std::size_t i = 0; i < m_holder.getChildCount(); ++i)
            if (auto* declaration = dynamic_cast<DeclarationBase*>(m_holder.getChild(i)))
                if (!m_filter.hides(*declaration))
                    m_written.push_back(declaration);
        std::vector<DeclarationGroup> groups;
        for (std::size_t i = 0; i < m_written.size(); ++i)
            add(groups, i);
        return groups;
    }

private:
    void add(std::vector<DeclarationGroup>& groups, std::size_t index) {
        DeclarationBase& declaration = *m_written[index];
        const TypeDeclaration* tag = asTag(&declaration);
        if (tag != nullptr && isWrittenElsewhere(*tag, index))
            return;
        if (!groups.empty() && goesOn(groups.back(), declaration))
            groups.back().declarators.push_back(&declaration);
        else
            groups.push_back({index == 0 ? nullptr : definitionFor(index), {&declaration}});
    }

    /// True for a tag that the declaration behind it declares by the way, and for one without a name that is written
    /// wherever it is used.
    bool isWrittenElsewhere(const TypeDeclaration& tag, std::size_t index) {
        if (index + 1 < m_written.size() && definitionFor(index + 1) == &tag)
            return true;
        return tag.getName().empty() && (isUsed(tag) || isPartOfNeighbour(index));
    }

    /// A type that the source declares somewhere inside the next declaration, such as in a function's cast, or inside
    /// the last one, such as in a variable's initializer. There may be more of them.
    [[nodiscard]] bool isPartOfNeighbour(std::size_t index) const {
        std::size_t next = index + 1;
        while (next < m_written.size() && isUnnamedTag(*m_written[next]))
            ++next;
        std::size_t last = index;
        while (last > 0 && isUnnamedTag(*m_written[last]))
            --last;
        return (next < m_written.size() && isInside(*m_written[index], *m_written[next])) ||
               (last != index && isInside(*m_written[index], *m_written[last]));
    }

    bool isUsed(const TypeDeclaration& tag) {
        if (m_used.empty())
            for (std::size_t i = 0; i < m_holder.getChildCount(); ++i)
                if (const auto* declaration = dynamic_cast<const DeclarationBase*>(m_holder.getChild(i)))
                    m_used.insert(CDeclarator::declarationBehind(DeclarationHead::typeOf(*declaration)));
        return m_used.count(&tag) != 0 && (dynamic_cast<const RecordDeclaration*>(&tag) != nullptr || isUsedShown(tag));
    }

    /// An enumeration without a name gives constants even when what it declares by the way is hidden.
    [[nodiscard]] bool isUsedShown(const TypeDeclaration& tag) const {
        for (const DeclarationBase* declaration : m_written)
            if (CDeclarator::declarationBehind(DeclarationHead::typeOf(*declaration)) == &tag)
                return true;
        return false;
    }

    /// The named tag before a declaration that is written as a part of it.
    [[nodiscard]] const TypeDeclaration* definitionFor(std::size_t index) const {
        const DeclarationBase& declaration = *m_written[index];
        const TypeDeclaration* tag = asTag(m_written[index - 1]);
        if (tag == nullptr || tag->getName().empty() || !declaresWith(declaration, *tag))
            return nullptr;
        const bool isNeeded = m_place == DeclarationPlace::Record || m_place == DeclarationPlace::LoopHeader;
        return isNeeded || isInside(*tag, declaration) ? tag : nullptr;
    }

    [[nodiscard]] bool goesOn(const DeclarationGroup& group, const DeclarationBase& declaration) const {
        const DeclarationBase& first = *group.declarators.front();
        if (!DeclarationHead::canShare(first, declaration))
            return false;
        if (m_place == DeclarationPlace::Statement || m_place == DeclarationPlace::LoopHeader)
            return true;
        const TypeDeclaration* tag = CDeclarator::declarationBehind(DeclarationHead::typeOf(first));
        return (tag != nullptr && tag->getName().empty()) || beginTogether(first, declaration);
    }

    const TesselBase& m_holder;
    DeclarationPlace m_place;
    const DeclarationFilter& m_filter;
    std::vector<DeclarationBase*> m_written;
    // The types that declarations of the holder use; looked up, never walked.
    std::set<const TypeDeclaration*> m_used;
};

} // namespace

std::vector<DeclarationGroup> groupDeclarations(const TesselBase& holder, DeclarationPlace place,
                                                const DeclarationFilter& filter) {
    return Grouping(holder, place, filter).take();
}

} // namespace Kova::Backends
