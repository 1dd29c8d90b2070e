// SPDX-License-Identifier: MIT
#include "frontends/c/Packing_p.h"

#include <clang/AST/ASTContext.h>
#include <clang/AST/Attr.h>
#include <clang/AST/Decl.h>

#include <algorithm>

namespace Kova::Frontends {

namespace {

/// In bits; 0 without the pragma.
unsigned limitOf(const clang::RecordDecl& record) {
    const auto* limit = record.getAttr<clang::MaxFieldAlignmentAttr>();
    return limit != nullptr ? limit->getAlignment() : 0;
}

std::string aligned(unsigned bits, const clang::ASTContext& context) {
    return "__attribute__((aligned(" + std::to_string(bits / context.getCharWidth()) + ")))";
}

} // namespace

std::string packingOf(const clang::FieldDecl& field) {
    const unsigned limit = limitOf(*field.getParent());
    const clang::ASTContext& context = field.getASTContext();
    if (limit == 0 || field.getType()->isIncompleteType() || limit >= context.getTypeAlign(field.getType()))
        return {};
    const std::string packed = "__attribute__((packed))";
    return field.isBitField() ? packed : packed + ' ' + aligned(limit, context);
}

std::string packingOf(const clang::RecordDecl& record) {
    const auto isBitField = [](const clang::FieldDecl* field) { return field->isBitField(); };
    if (limitOf(record) == 0 || record.isInvalidDecl() ||
        std::none_of(record.field_begin(), record.field_end(), isBitField))
        return {};
    const clang::ASTContext& context = record.getASTContext();
    return aligned(context.getTypeAlign(context.getRecordType(&record)), context);
}

} // namespace Kova::Frontends
