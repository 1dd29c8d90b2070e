// SPDX-License-Identifier: MIT
#include "environment/tessel/ProgramUnit.h"
#include "environment/tessel/TypeDeclaration.h"
#include "frontends/c/TypeBuilder_p.h"
#include "frontends/c/UnitContext_p.h"

#include <clang/AST/ASTContext.h>
#include <clang/AST/Decl.h>
#include <clang/AST/Expr.h>

namespace Kova::Frontends {

using Tessel::ArrayDimension;
using Tessel::BasicType;
using Tessel::FunctionType;
using Tessel::Type;

namespace {

std::uint8_t qualifiersOf(clang::QualType type) {
    std::uint8_t result = Type::NoQualifier;
    if (type.isLocalConstQualified())
        result |= Type::Const;
    if (type.isLocalVolatileQualified())
        result |= Type::Volatile;
    if (type.isLocalRestrictQualified())
        result |= Type::Restrict;
    return result;
}

BasicType::Category categoryOf(const clang::BuiltinType& type) {
    if (type.getKind() == clang::BuiltinType::Void)
        return BasicType::Category::Void;
    if (type.getKind() == clang::BuiltinType::Bool)
        return BasicType::Category::Boolean;
    if (type.isFloatingPoint())
        return BasicType::Category::Floating;
    if (type.isAnyCharacterType())
        return BasicType::Category::Character;
    return type.isUnsignedInteger() ? BasicType::Category::UnsignedInteger : BasicType::Category::SignedInteger;
}

/// The structure, union or enumeration that a type points to, is an array of, or is; null for any other type.
const clang::TagDecl* tagBehind(const clang::Type& type) {
    const clang::Type* inner = &type;
    while (true) {
        if (const auto* pointer = inner->getAs<clang::PointerType>())
            inner = pointer->getPointeeType().getTypePtr();
        else if (const clang::ArrayType* array = inner->getAsArrayTypeUnsafe())
            inner = array->getElementType().getTypePtr();
        else
            return inner->getAsTagDecl();
    }
}

/// True for the structure that a va_list is an array of, whose name is Clang's.
bool isInsideVariadicList(const clang::TagDecl& tag) {
    return tag.isImplicit() && tag.getName() == "__va_list_tag";
}

/// A parameter that is a va_list stays one, though the type of the function has it as a pointer.
clang::QualType withVariadicList(clang::QualType parameter) {
    const auto* decayed = llvm::dyn_cast<clang::DecayedType>(parameter.getTypePtr());
    const clang::TagDecl* tag = decayed != nullptr ? decayed->getPointeeType()->getAsTagDecl() : nullptr;
    return tag != nullptr && isInsideVariadicList(*tag) ? decayed->getOriginalType() : parameter;
}

} // namespace

bool leavesLengthOut(const clang::TypeSourceInfo* written, clang::QualType known) {
    return written != nullptr && known->isConstantArrayType() &&
           llvm::isa<clang::IncompleteArrayType>(written->getType().IgnoreParens().getTypePtr());
}

const Type* TypeBuilder::buildInto(clang::QualType type, Bounds* bounds) {
    if (type.isNull())
        return nullptr;
    if (const auto found = m_built.find(type.getAsOpaquePtr()); found != m_built.end())
        return found->second;
    // The map may grow meanwhile: no iterator is kept.
    const Type* built = make(*type.getTypePtr(), qualifiersOf(type), bounds);
    m_built[type.getAsOpaquePtr()] = built;
    return built;
}

const Type* TypeBuilder::make(const clang::Type& type, std::uint8_t qualifiers, Bounds* bounds) {
    Tessel::TypeTable& types = m_context.program.getTypes();
    if (const auto* builtin = llvm::dyn_cast<clang::BuiltinType>(&type))
        return makeBuiltin(*builtin, qualifiers);
    if (const auto* pointer = llvm::dyn_cast<clang::PointerType>(&type))
        return types.pointer(buildInto(pointer->getPointeeType(), bounds), qualifiers);
    if (const auto* array = llvm::dyn_cast<clang::ArrayType>(&type))
        return makeArray(*array, qualifiers, bounds);
    if (const auto* function = llvm::dyn_cast<clang::FunctionType>(&type))
        return makeFunction(*function);
    if (const auto* name = llvm::dyn_cast<clang::TypedefType>(&type))
        return types.declared(m_context.declarations.typedefOf(*name->getDecl()), qualifiers);
    const auto* tag = llvm::dyn_cast<clang::TagType>(&type);
    if (tag != nullptr && isInsideVariadicList(*tag->getDecl()))
        return types.opaque("__typeof__(**(__builtin_va_list *) 0)", qualifiers);
    if (tag != nullptr)
        return types.declared(m_context.declarations.tag(*tag->getDecl()), qualifiers);
    return makeOther(type, qualifiers, bounds);
}

const Type* TypeBuilder::makeBuiltin(const clang::BuiltinType& type, std::uint8_t qualifiers) {
    if (type.isPlaceholderType() || type.isDependentType())
        return nullptr;
    const clang::ASTContext& clang = m_context.clang;
    const auto bits = type.isVoidType() ? 0U : static_cast<unsigned>(clang.getTypeSize(&type));
    return m_context.program.getTypes().basic(type.getName(clang.getPrintingPolicy()).str(), categoryOf(type), bits,
                                              qualifiers);
}

const Type* TypeBuilder::makeArray(const clang::ArrayType& type, std::uint8_t qualifiers, Bounds* bounds) {
    ArrayDimension dimension;
    if (const auto* constant = llvm::dyn_cast<clang::ConstantArrayType>(&type)) {
        dimension.kind = ArrayDimension::Extent::Constant;
        dimension.extent = constant->getSize().getZExtValue();
    } else if (const auto* variable = llvm::dyn_cast<clang::VariableArrayType>(&type);
               variable != nullptr && variable->getSizeExpr() != nullptr) {
        dimension.kind = ArrayDimension::Extent::Variable;
        if (bounds != nullptr) {
            bounds->push_back(buildExpression(m_context, *variable->getSizeExpr()));
            dimension.upperBound = bounds->back().get();
        }
    }
    const Type* element = buildInto(type.getElementType(), bounds);
    return m_context.program.getTypes().array(element, {dimension}, qualifiers);
}

const Type* TypeBuilder::makeFunction(const clang::FunctionType& type) {
    const auto* prototype = llvm::dyn_cast<clang::FunctionProtoType>(&type);
    std::vector<const Type*> parameters;
    auto kind = FunctionType::Parameters::Unspecified;
    if (prototype != nullptr) {
        kind = prototype->isVariadic() ? FunctionType::Parameters::Variadic : FunctionType::Parameters::Fixed;
        // Bounds that only a function type names belong to no node: its parameters are declared nowhere.
        for (const clang::QualType parameter : prototype->param_types())
            parameters.push_back(buildInto(withVariadicList(parameter), nullptr));
    }
    return m_context.program.getTypes().function(buildInto(type.getReturnType(), nullptr), std::move(parameters), kind);
}

/// The source's text of a `typeof` that is made from a structure or the like without a name, and `__auto_type` for a
/// type that is deduced to be: to write such a type out again would declare another one. Empty for any other type.
std::string TypeBuilder::unnamedTypeOf(const clang::Type& type) const {
    const clang::TagDecl* tag = tagBehind(type);
    if (tag == nullptr || tag->getIdentifier() != nullptr || tag->getTypedefNameForAnonDecl() != nullptr)
        return {};
    if (llvm::isa<clang::AutoType>(type))
        return "__auto_type";
    const auto* ofExpression = llvm::dyn_cast<clang::TypeOfExprType>(&type);
    return ofExpression != nullptr
               ? "__typeof__(" + m_context.keeper.textOf(*ofExpression->getUnderlyingExpr()->IgnoreParens()) + ')'
               : "";
}

const Type* TypeBuilder::makeOther(const clang::Type& type, std::uint8_t qualifiers, Bounds* bounds) {
    Tessel::TypeTable& types = m_context.program.getTypes();
    const clang::QualType whole(&type, 0);
    const clang::PrintingPolicy& policy = m_context.clang.getPrintingPolicy();
    if (const auto* complex = llvm::dyn_cast<clang::ComplexType>(&type))
        return types.basic("_Complex " + complex->getElementType().getAsString(policy), BasicType::Category::Complex,
                           static_cast<unsigned>(m_context.clang.getTypeSize(&type)), qualifiers);
    if (const auto* bits = llvm::dyn_cast<clang::BitIntType>(&type))
        return types.basic(whole.getAsString(policy),
                           bits->isUnsigned() ? BasicType::Category::UnsignedInteger
                                              : BasicType::Category::SignedInteger,
                           bits->getNumBits(), qualifiers);
    if (const std::string text = unnamedTypeOf(type); !text.empty())
        return types.opaque(text, qualifiers);
    // Parentheses, typeof, attributes, `struct` before a name: what they stand for counts.
    clang::QualType inner = whole.getSingleStepDesugaredType(m_context.clang);
    if (const auto* atomic = llvm::dyn_cast<clang::AtomicType>(&type)) {
        qualifiers |= Type::Atomic;
        inner = atomic->getValueType();
    }
    if (inner == whole)
        return types.opaque(whole.getAsString(policy), qualifiers);
    qualifiers |= qualifiersOf(inner);
    return qualifiers == Type::NoQualifier ? buildInto(inner, bounds) : make(*inner.getTypePtr(), qualifiers, bounds);
}

} // namespace Kova::Frontends
