// SPDX-License-Identifier: MIT
#include "frontends/c/Packing_p.h"

#include <clang/AST/ASTContext.h>
#include <clang/AST/Attr.h>
#include <clang/AST/Decl.h>

#include <algorithm>

namespace Kova::Frontends {

unsigned packingOf(const clang::RecordDecl& record) {
    const auto* limit = record.getAttr<clang::MaxFieldAlignmentAttr>();
    if (limit == nullptr)
        return 0;
    const clang::ASTContext& context = record.getASTContext();
    const auto isAlignedMore = [&](const clang::FieldDecl* field) {
        const clang::QualType element = context.getBaseElementType(field->getType());
        return !element->isIncompleteType() &&
               std::max(context.getTypeAlign(element), field->getMaxAlignment()) > limit->getAlignment();
    };
    return std::any_of(record.field_begin(), record.field_end(), isAlignedMore)
               ? limit->getAlignment() / static_cast<unsigned>(context.getCharWidth())
               : 0;
}

} // namespace Kova::Frontends
