// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/AssignmentExpression.h"
#include "environment/tessel/BinaryExpression.h"
#include "environment/tessel/BlockStatement.h"
#include "environment/tessel/ConditionalExpression.h"
#include "environment/tessel/DeclarationStatement.h"
#include "environment/tessel/ExpressionStatement.h"
#include "environment/tessel/LiteralExpression.h"
#include "environment/tessel/MemberExpression.h"
#include "environment/tessel/OpaqueExpression.h"
#include "environment/tessel/ProgramUnit.h"
#include "environment/tessel/SubroutineCallExpression.h"
#include "environment/tessel/SubroutineDeclaration.h"
#include "environment/tessel/SubroutineReference.h"
#include "environment/tessel/SubscriptExpression.h"
#include "environment/tessel/UnaryExpression.h"
#include "environment/tessel/VariableDeclaration.h"
#include "environment/tessel/VariableReference.h"

#include <memory>
#include <string>
#include <utility>

/// Short ways to write trees by hand in tests. Everything returns an owner unless it says otherwise.
namespace Kova::Tests {

template <class Node, class... Arguments>
std::unique_ptr<Node> make(Arguments&&... arguments) {
    return std::make_unique<Node>(std::forward<Arguments>(arguments)...);
}

inline Tessel::ExpressionPtr literal(const std::string& text,
                                     Tessel::LiteralExpression::Kind kind = Tessel::LiteralExpression::Kind::Integer) {
    return std::make_unique<Tessel::LiteralExpression>(kind, text);
}

inline Tessel::ExpressionPtr use(Tessel::VariableDeclaration& variable) {
    return std::make_unique<Tessel::VariableReference>(variable);
}

inline Tessel::ExpressionPtr use(Tessel::SubroutineDeclaration& subroutine) {
    return std::make_unique<Tessel::SubroutineReference>(subroutine);
}

inline Tessel::ExpressionPtr opaque(const std::string& text) {
    return std::make_unique<Tessel::OpaqueExpression>(text);
}

inline Tessel::ExpressionPtr unary(Tessel::UnaryOperator operation, Tessel::ExpressionPtr operand) {
    return std::make_unique<Tessel::UnaryExpression>(operation, std::move(operand));
}

inline Tessel::ExpressionPtr binary(Tessel::ExpressionPtr left, Tessel::BinaryOperator operation,
                                    Tessel::ExpressionPtr right) {
    return std::make_unique<Tessel::BinaryExpression>(operation, std::move(left), std::move(right));
}

inline Tessel::ExpressionPtr assign(Tessel::ExpressionPtr target, Tessel::ExpressionPtr value) {
    return std::make_unique<Tessel::AssignmentExpression>(std::move(target), std::move(value));
}

inline Tessel::ExpressionPtr conditional(Tessel::ExpressionPtr condition, Tessel::ExpressionPtr first,
                                         Tessel::ExpressionPtr second) {
    return std::make_unique<Tessel::ConditionalExpression>(std::move(condition), std::move(first), std::move(second));
}

inline Tessel::ExpressionPtr member(Tessel::ExpressionPtr base, Tessel::MemberExpression::Access access,
                                    Tessel::FieldDeclaration& field) {
    return std::make_unique<Tessel::MemberExpression>(std::move(base), access, field);
}

template <class... Indices>
Tessel::ExpressionPtr subscript(Tessel::ExpressionPtr base, Tessel::ExpressionPtr index, Indices... more) {
    auto node = std::make_unique<Tessel::SubscriptExpression>(std::move(base), std::move(index));
    (node->appendIndex(std::move(more)), ...);
    return node;
}

template <class... Arguments>
Tessel::ExpressionPtr call(Tessel::ExpressionPtr callee, Arguments... arguments) {
    auto node = std::make_unique<Tessel::SubroutineCallExpression>(std::move(callee));
    (node->appendArgument(std::move(arguments)), ...);
    return node;
}

template <class... Arguments>
Tessel::ExpressionPtr call(Tessel::SubroutineDeclaration& callee, Arguments... arguments) {
    return call(use(callee), std::move(arguments)...);
}

inline Tessel::StatementPtr statement(Tessel::ExpressionPtr expression) {
    return std::make_unique<Tessel::ExpressionStatement>(std::move(expression));
}

template <class... Statements>
std::unique_ptr<Tessel::BlockStatement> block(Statements... statements) {
    auto node = std::make_unique<Tessel::BlockStatement>();
    (node->append(std::move(statements)), ...);
    return node;
}

/// One statement that declares all of them.
template <class... Declarations>
std::unique_ptr<Tessel::DeclarationStatement> declareHere(Declarations... declarations) {
    auto node = std::make_unique<Tessel::DeclarationStatement>();
    (node->append(std::move(declarations)), ...);
    return node;
}

/// Appends a subroutine to its owner, a translation unit or module. @param body null for a prototype.
template <class Owner>
Tessel::SubroutineDeclaration& define(Owner& owner, const std::string& name,
                                      std::unique_ptr<Tessel::BlockStatement> body = block()) {
    auto subroutine = std::make_unique<Tessel::SubroutineDeclaration>(name, nullptr);
    subroutine->setBody(std::move(body));
    Tessel::SubroutineDeclaration& result = *subroutine;
    owner.append(std::move(subroutine));
    return result;
}

template <class Owner>
Tessel::SubroutineDeclaration& declare(Owner& owner, const std::string& name) {
    return define(owner, name, nullptr);
}

/// Appends a statement that evaluates the expression to a subroutine that has a body.
inline Tessel::StatementBase& perform(Tessel::SubroutineDeclaration& subroutine, Tessel::ExpressionPtr expression) {
    Tessel::BlockStatement& body = *subroutine.getBody();
    body.append(statement(std::move(expression)));
    return *body.getStatement(body.getChildCount() - 1);
}

inline Tessel::TranslationUnit& addUnit(Tessel::ProgramUnit& program, const std::string& path,
                                        Tessel::SourceLanguage language = Tessel::LANG_C) {
    return program.append(std::make_unique<Tessel::TranslationUnit>(path, language));
}

} // namespace Kova::Tests
