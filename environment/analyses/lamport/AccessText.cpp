// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/AccessText_p.h"
#include "environment/analyses/lamport/ChangedOperand_p.h"
#include "environment/tessel/service/TypeFacts.h"
#include "environment/printing/OutToC.h"
#include "environment/printing/OutToFortran.h"
#include "environment/printing/SourceText.h"
#include "environment/tessel/BinaryExpression.h"
#include "environment/tessel/CastExpression.h"
#include "environment/tessel/MemberExpression.h"
#include "environment/tessel/OpaqueStatement.h"
#include "environment/tessel/SubroutineCallExpression.h"
#include "environment/tessel/SubscriptExpression.h"
#include "environment/tessel/TranslationUnit.h"
#include "environment/tessel/UnaryExpression.h"
#include "environment/tessel/types/Type.h"

namespace DepGraph {

using namespace Kova::Tessel;
using namespace Kova::Tessel::Service;

namespace {

constexpr std::size_t shortLength = 60;

bool isFortran(const TesselBase& node) {
    const TranslationUnit* unit = node.findTranslationUnit();
    return unit != nullptr && unit->getSourceLanguage() != LANG_C;
}

std::string print(const ExpressionBase& expression) {
    return isFortran(expression) ? Kova::Backends::OutToFortran::expressionToString(expression)
                                 : Kova::Backends::OutToC::expressionToString(expression);
}

/// Basic when the type is not known.
Type::Kind kindOf(const ExpressionBase& expression) {
    const Type* type = behindNames(expression.getType());
    return type != nullptr ? type->getKind() : Type::Kind::Basic;
}

bool isAddress(const ExpressionBase& expression) {
    const Type::Kind kind = kindOf(expression);
    return kind == Type::Kind::Pointer || kind == Type::Kind::Array;
}

bool isUnary(const ExpressionBase& expression, UnaryOperator operation) {
    const auto* unary = dynamic_cast<const UnaryExpression*>(&expression);
    return unary != nullptr && unary->getOperator() == operation;
}

/// Whether the parent chooses an element, a member or the target of the child, which is one of its parts.
bool chooses(const ExpressionBase& parent, const ExpressionBase& child) {
    if (const auto* element = dynamic_cast<const SubscriptExpression*>(&parent))
        return element->getBase() == &child || (isAddress(child) && !isAddress(*element->getBase()));
    if (const auto* member = dynamic_cast<const MemberExpression*>(&parent))
        return member->getBase() == &child;
    return isUnary(parent, UnaryOperator::Dereference);
}

/// Whether the parent computes an address from the child's: `p + i`, `p++`, `(int*)p`.
bool computesAddress(const ExpressionBase& parent, const ExpressionBase& child) {
    if (!isAddress(parent) || !isAddress(child) || isUnary(parent, UnaryOperator::AddressOf))
        return false;
    return dynamic_cast<const BinaryExpression*>(&parent) != nullptr ||
           dynamic_cast<const UnaryExpression*>(&parent) != nullptr ||
           dynamic_cast<const CastExpression*>(&parent) != nullptr;
}

bool isChanged(const ExpressionBase& expression) {
    const TesselBase* parent = expression.getParent();
    return parent != nullptr && findChangedOperand(*parent) == &expression;
}

/// An occurrence with what its surroundings choose of it.
struct Chain {
    explicit Chain(const ExpressionBase& occurrence);

    /// The longest part that does not leave the variable's own memory.
    const ExpressionBase* own;
    /// The whole access; the same as `own` unless a pointer is followed.
    const ExpressionBase* whole;
    /// Whether a pointer is followed, here or by a subroutine that it is passed to.
    bool isFollowed;
    /// Whether what changes here is the pointer alone, as in `x = *p++`.
    [[nodiscard]] bool changesPointerOnly() const { return isChanged(*own) && !isChanged(*whole); }
};

Chain::Chain(const ExpressionBase& occurrence) : own(&occurrence), whole(&occurrence) {
    const ExpressionBase* node = &occurrence;
    while (const auto* parent = dynamic_cast<const ExpressionBase*>(node->getParent())) {
        if (chooses(*parent, *node)) {
            const bool staysInside = own == whole && kindOf(*own) != Type::Kind::Pointer;
            whole = parent;
            if (staysInside)
                own = parent;
        } else if (!computesAddress(*parent, *node)) {
            break;
        }
        node = parent;
    }
    const auto* call = dynamic_cast<const SubroutineCallExpression*>(node->getParent());
    const bool isPassed = call != nullptr && call->getCallee() != node && kindOf(*node) == Type::Kind::Pointer;
    isFollowed = own != whole || isPassed;
}

std::string cut(std::string text) {
    std::size_t characters = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool continues = (static_cast<unsigned char>(text[i]) & 0xC0U) == 0x80U;
        if (!continues && ++characters > shortLength)
            return text.substr(0, i) + "...";
    }
    return text;
}

} // namespace

AccessText::AccessText(const ExpressionBase& sourceOccurrence, const ExpressionBase& targetOccurrence,
                       EN_DepType type) {
    const Chain from(sourceOccurrence);
    const Chain to(targetOccurrence);
    const bool sourceWrites = type == DT_FLOW || type == DT_OUTPUT;
    const bool targetWrites = type == DT_ANTI || type == DT_OUTPUT;
    const bool followed = from.isFollowed && to.isFollowed && !(sourceWrites && from.changesPointerOnly()) &&
                          !(targetWrites && to.changesPointerOnly());
    source = print(followed ? *from.whole : *from.own);
    target = print(followed ? *to.whole : *to.own);
}

std::string printShort(const TesselBase& node) {
    if (const auto* expression = dynamic_cast<const ExpressionBase*>(&node))
        return cut(print(*expression));
    const auto style = isFortran(node) ? Kova::Backends::TextStyle::Fortran : Kova::Backends::TextStyle::C;
    if (const auto* opaque = dynamic_cast<const OpaqueStatement*>(&node))
        return cut(Kova::Backends::toOneLine(opaque->getText(), style));
    return {};
}

} // namespace DepGraph
