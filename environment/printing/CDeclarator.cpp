// SPDX-License-Identifier: MIT
#include "environment/printing/CDeclarator.h"

#include "environment/tessel/EnumDeclaration.h"
#include "environment/tessel/RecordDeclaration.h"
#include "environment/tessel/TypedefDeclaration.h"
#include "environment/tessel/types/ArrayType.h"
#include "environment/tessel/types/BasicType.h"
#include "environment/tessel/types/DeclaredType.h"
#include "environment/tessel/types/FunctionType.h"
#include "environment/tessel/types/OpaqueType.h"
#include "environment/tessel/types/PointerType.h"

#include <algorithm>
#include <utility>

namespace Kova::Backends::CDeclarator {

using Tessel::ArrayDimension;
using Tessel::ArrayType;
using Tessel::FunctionType;
using Tessel::PointerType;
using Tessel::TesselBase;
using Tessel::Type;

namespace {

std::string qualifierWords(unsigned qualifiers) {
    std::string words;
    const auto add = [&](unsigned bit, const char* word) {
        if ((qualifiers & bit) != 0)
            words += (words.empty() ? "" : " ") + std::string(word);
    };
    add(Type::Const, "const");
    add(Type::Volatile, "volatile");
    add(Type::Restrict, "restrict");
    add(Type::Atomic, "_Atomic");
    return words;
}

bool isArrayOrFunction(const Type* type) {
    return type != nullptr && (type->getKind() == Type::Kind::Array || type->getKind() == Type::Kind::Function);
}

/// `struct name`, or the definition where there is no name; a typedef's name.
/// @param definition the declaration that this use of the type stands for; null for a use alone.
void appendDeclared(const Tessel::TypeDeclaration& declaration, const Tessel::TypeDeclaration* definition,
                    TesselBase& owner, PieceList& out) {
    const auto* record = dynamic_cast<const Tessel::RecordDeclaration*>(&declaration);
    const bool isEnum = dynamic_cast<const Tessel::EnumDeclaration*>(&declaration) != nullptr;
    if (definition != nullptr || ((record != nullptr || isEnum) && declaration.getName().empty())) {
        out.node(definition != nullptr ? definition : &declaration);
        return;
    }
    const bool isUnion = record != nullptr && record->getKind() == Tessel::RecordDeclaration::Kind::Union;
    out.text(isEnum ? "enum " : isUnion ? "union " : record != nullptr ? "struct " : "", owner);
    out.name(declaration.getName(), owner);
}

/// Collects from the declared outwards what stands to its left and to its right.
class Derivations {
public:
    Derivations(PieceList declared, TesselBase& owner) : m_declared(std::move(declared)), m_owner(owner) {}

    void add(const PointerType& pointer, unsigned qualifiers) {
        std::string text = "*" + qualifierWords(qualifiers);
        const bool isFollowed = !m_left.empty() || !m_declared.isEmpty();
        if (text.size() > 1 && isFollowed)
            text += ' ';
        m_left.push_back(std::move(text));
        if (isArrayOrFunction(pointer.getPointee())) {
            m_left.emplace_back("(");
            m_right.text(")", m_owner);
        }
    }

    /// @param isElement true for the element of an array, which cannot leave its length out.
    void add(const ArrayType& array, bool isElement, const Brackets& brackets) {
        static const Brackets plain;
        const Brackets* now = &brackets;
        for (const ArrayDimension& dimension : array.getDimensions()) {
            add(dimension, isElement, *now);
            isElement = true;
            now = &plain;
        }
    }

    void add(const FunctionType& function) {
        const auto& parameters = function.getParameters();
        const auto kind = function.getParametersKind();
        m_right.text("(", m_owner);
        if (parameters.empty() && kind == FunctionType::Parameters::Fixed)
            m_right.text("void", m_owner);
        for (std::size_t i = 0; i < parameters.size(); ++i) {
            if (i != 0)
                m_right.text(", ", m_owner);
            m_right.type(parameters[i], m_owner);
        }
        if (kind == FunctionType::Parameters::Variadic)
            m_right.text(parameters.empty() ? "..." : ", ...", m_owner);
        m_right.text(")", m_owner);
    }

    PieceList take() {
        PieceList all;
        for (auto text = m_left.rbegin(); text != m_left.rend(); ++text)
            all.text(*text, m_owner);
        all.append(std::move(m_declared));
        all.append(std::move(m_right));
        return all;
    }

private:
    void add(const ArrayDimension& dimension, bool isElement, const Brackets& brackets) {
        const bool isKnown = dimension.kind == ArrayDimension::Extent::Constant;
        const bool isOpen = dimension.kind == ArrayDimension::Extent::Unspecified;
        const bool isLeftOut = brackets.leaveLengthOut || brackets.words == "*";
        const std::string length = isKnown ? std::to_string(dimension.extent) : isOpen && isElement ? "*" : "";
        m_right.text("[", m_owner);
        m_right.text(brackets.words, m_owner);
        if (!isLeftOut) {
            m_right.text(brackets.words.empty() || isOpen ? "" : " ", m_owner);
            m_right.text(length, m_owner);
            if (!isKnown && !isOpen)
                m_right.node(dimension.upperBound, Precedence::Assignment);
        }
        m_right.text("]", m_owner);
    }

    std::vector<std::string> m_left; // nearest to the declared first
    PieceList m_declared;
    PieceList m_right;
    TesselBase& m_owner;
};

/// The type that a pointer, array or function is derived from; null for any other type and where it is not known.
const Type* derivedFrom(const Type& type) {
    switch (type.getKind()) {
    case Type::Kind::Pointer:
        return static_cast<const PointerType&>(type).getPointee();
    case Type::Kind::Array:
        return static_cast<const ArrayType&>(type).getElement();
    case Type::Kind::Function:
        return static_cast<const FunctionType&>(type).getResult();
    default:
        return nullptr;
    }
}

bool isDerived(const Type& type) {
    return type.getKind() == Type::Kind::Pointer || isArrayOrFunction(&type);
}

} // namespace

Specifier specifierOf(const Type* type) {
    // What qualifies an array qualifies its elements.
    unsigned ofArrays = 0;
    for (; type != nullptr && isDerived(*type); type = derivedFrom(*type))
        ofArrays = type->getKind() == Type::Kind::Array ? ofArrays | type->getQualifiers() : 0;
    return {type, type != nullptr ? ofArrays | type->getQualifiers() : 0U};
}

const Tessel::TypeDeclaration* declarationBehind(const Type* type) {
    const auto* declared = dynamic_cast<const Tessel::DeclaredType*>(specifierOf(type).base);
    return declared != nullptr ? &declared->getDeclaration() : nullptr;
}

PieceList specifierPieces(const Type* type, TesselBase& owner, const Tessel::TypeDeclaration* definition) {
    const Specifier specifier = specifierOf(type);
    PieceList out;
    if (specifier.base == nullptr)
        return out;
    if (specifier.qualifiers != 0)
        out.text(qualifierWords(specifier.qualifiers) + ' ', owner);
    if (const auto* basic = dynamic_cast<const Tessel::BasicType*>(specifier.base))
        out.name(basic->getName(), owner);
    else if (const auto* opaque = dynamic_cast<const Tessel::OpaqueType*>(specifier.base))
        out.name(opaque->getText(), owner);
    else
        appendDeclared(static_cast<const Tessel::DeclaredType*>(specifier.base)->getDeclaration(), definition, owner,
                       out);
    return out;
}

PieceList declaratorPieces(const Type* type, PieceList declared, TesselBase& owner, const Brackets& brackets) {
    static const Brackets plain;
    const Type* const outermost = type;
    Derivations derivations(std::move(declared), owner);
    const ArrayType* around = nullptr;
    unsigned ofArrays = 0;
    for (; type != nullptr && isDerived(*type); type = derivedFrom(*type)) {
        const auto* array = dynamic_cast<const ArrayType*>(type);
        if (array != nullptr)
            derivations.add(*array, around != nullptr, type == outermost ? brackets : plain);
        else if (type->getKind() == Type::Kind::Pointer)
            derivations.add(static_cast<const PointerType&>(*type), ofArrays | type->getQualifiers());
        else
            derivations.add(static_cast<const FunctionType&>(*type));
        ofArrays = array != nullptr ? ofArrays | array->getQualifiers() : 0;
        around = array;
    }
    return derivations.take();
}

void joinSpecifier(PieceList& specifier, PieceList&& declarator, TesselBase& owner) {
    const bool isBracket = !declarator.isEmpty() && declarator.getPieces().front().kind == Piece::Kind::Text &&
                           *declarator.getPieces().front().text == '[';
    if (!specifier.isEmpty() && !declarator.isEmpty() && !isBracket)
        specifier.text(" ", owner);
    specifier.append(std::move(declarator));
}

PieceList declarationPieces(const Type* type, PieceList declared, TesselBase& owner, const Brackets& brackets) {
    PieceList out = specifierPieces(type, owner);
    joinSpecifier(out, declaratorPieces(type, std::move(declared), owner, brackets), owner);
    return out;
}

} // namespace Kova::Backends::CDeclarator
