// SPDX-License-Identifier: MIT
#pragma once

#include "environment/printing/OperatorForm.h"
#include "environment/printing/PieceLanguage.h"
#include "environment/printing/PieceList.h"
#include "environment/printing/SourceText.h"
#include "environment/tessel/BaseVisitor.h"
#include "environment/tessel/Operators.h"
#include "environment/tessel/TextPlace.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace Kova::Backends {

/// How C writes expressions: `a + b`, `-a`, `f(a, b)`, `a[i]`, `s.x`, `p->x`, `(int) x`, `sizeof (int)`, `sizeof x`,
/// `c ? x : y`, `{ 1, .x = 2 }`.
class CExpressionPieces : public Tessel::BaseVisitor, public PieceLanguage {
public:
    Precedence expand(Tessel::TesselBase& node, PieceList& out) final;
    void expandType(const Tessel::Type& type, Tessel::TesselBase& owner, PieceList& out) final;

    using BaseVisitor::visit;
    void visit(Tessel::VariableReference& node) override;
    void visit(Tessel::SubroutineReference& node) override;
    void visit(Tessel::EnumeratorReference& node) override;
    void visit(Tessel::LiteralExpression& node) override;
    void visit(Tessel::UnaryExpression& node) override;
    void visit(Tessel::BinaryExpression& node) override;
    void visit(Tessel::AssignmentExpression& node) override;
    void visit(Tessel::ConditionalExpression& node) override;
    void visit(Tessel::CastExpression& node) override;
    void visit(Tessel::SubscriptExpression& node) override;
    void visit(Tessel::SectionExpression& node) override;
    void visit(Tessel::MemberExpression& node) override;
    void visit(Tessel::SubroutineCallExpression& node) override;
    void visit(Tessel::TypeQueryExpression& node) override;
    void visit(Tessel::InitializerListExpression& node) override;
    void visit(Tessel::DesignatedInitializerExpression& node) override;
    void visit(Tessel::CompoundLiteralExpression& node) override;
    void visit(Tessel::GenericSelectionExpression& node) override;
    void visit(Tessel::StatementExpression& node) override;
    void visit(Tessel::VariadicArgumentExpression& node) override;
    void visit(Tessel::LabelAddressExpression& node) override;
    void visit(Tessel::OpaqueExpression& node) override;

protected:
    [[nodiscard]] virtual BinaryForm formOf(Tessel::BinaryOperator operation) const;
    [[nodiscard]] virtual UnaryForm formOf(Tessel::UnaryOperator operation) const;
    [[nodiscard]] virtual TextStyle textStyle() const { return TextStyle::C; }
    /// How loosely a number with a sign of its own holds together.
    [[nodiscard]] virtual Precedence signedNumber() const { return Precedence::Unary; }
    /// True to set, beside the parentheses that the precedences need, those that make a text clearer.
    [[nodiscard]] virtual bool isClear() const { return false; }

    /// The pieces of the node that is being visited.
    [[nodiscard]] PieceList& out() { return *m_out; }
    void setPrecedence(Precedence precedence) { m_precedence = precedence; }

    /// Texts and children of the node that is being visited.
    void text(const char* text) { m_out->text(text, *m_node); }
    void text(std::string text) { m_out->text(std::move(text), *m_node); }
    void name(const std::string& name) { m_out->name(name, *m_node); }
    /// Source text with what is below the node in its places, see splitAtOperands.
    void sourceText(const std::string& text, const std::vector<std::optional<Tessel::TextPlace>>& operandPlaces = {});
    void child(const Tessel::TesselBase* node, Precedence context = Precedence::Comma) { m_out->node(node, context); }
    void type(const Tessel::Type* type) { m_out->type(type, *m_node); }
    /// The children from a number on, with commas between them, as arguments are.
    void arguments(std::size_t firstChild);
    /// An operand of the node that is being visited, in parentheses where these make it clearer.
    void operand(Tessel::BinaryOperator operation, const Tessel::ExpressionBase* operand, Precedence context);

private:
    void valuesInRows(Tessel::InitializerListExpression& node, Tessel::TesselBase& opener, std::size_t row);

    PieceList* m_out = nullptr;
    Tessel::TesselBase* m_node = nullptr;
    Precedence m_precedence = Precedence::Primary;
};

} // namespace Kova::Backends
