// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/lamport/AccessSink_p.h"
#include "environment/analyses/lamport/PlaceReader_p.h"
#include "environment/tessel/BaseVisitor.h"

#include <functional>

namespace DepGraph {

/// Evaluates an expression as the program does and tells a sink of every access. Where the language leaves the order
/// open, operands are taken from left to right, a target's subscripts before the value, the write last; what ++ and --
/// write is written at once.
class ExpressionWalker : private Kova::Tessel::BaseVisitor {
public:
    /// @param sink outlives the walker.
    ExpressionWalker(AccessSink& sink, bool isFortran) : m_sink(sink), m_places(isFortran), m_isFortran(isFortran) {}

    /// @param expression null for a part that is left out.
    void walk(Kova::Tessel::ExpressionBase* expression);
    /// Reads and then writes an object.
    void update(Kova::Tessel::ExpressionBase& lvalue);
    /// Tells of all names below a node whose effect is unknown that they may be read and written.
    void walkUnknown(Kova::Tessel::TesselBase& node);

    [[nodiscard]] const PlaceReader& getPlaces() const { return m_places; }

private:
    using BaseVisitor::visit;
    void visit(Kova::Tessel::TesselBase& node) override;
    void visit(Kova::Tessel::VariableReference& node) override;
    void visit(Kova::Tessel::SubscriptExpression& node) override;
    void visit(Kova::Tessel::MemberExpression& node) override;
    void visit(Kova::Tessel::UnaryExpression& node) override;
    void visit(Kova::Tessel::BinaryExpression& node) override;
    void visit(Kova::Tessel::AssignmentExpression& node) override;
    void visit(Kova::Tessel::ConditionalExpression& node) override;
    void visit(Kova::Tessel::SubroutineCallExpression& node) override;
    void visit(Kova::Tessel::TypeQueryExpression& node) override;
    void visit(Kova::Tessel::GenericSelectionExpression& node) override;
    void visit(Kova::Tessel::StatementExpression& node) override;
    void visit(Kova::Tessel::VariadicArgumentExpression& node) override;
    void visit(Kova::Tessel::OpaqueExpression& node) override;

    void readLvalue(Kova::Tessel::ExpressionBase& lvalue);
    void readPlaces(const Kova::Tessel::ExpressionBase& lvalue);
    void writePlaces(const Kova::Tessel::ExpressionBase& lvalue);
    /// Evaluates what is needed to know which object an lvalue names, without reading the object.
    void locate(Kova::Tessel::ExpressionBase& lvalue);
    void locateElement(Kova::Tessel::SubscriptExpression& element);
    /// Evaluates a pointer that is followed.
    void locateBehind(Kova::Tessel::ExpressionBase& pointer);
    void locateBehindOther(Kova::Tessel::ExpressionBase& pointer);
    void walkChoice(Kova::Tessel::ConditionalExpression& choice,
                    const std::function<void(Kova::Tessel::ExpressionBase&)>& use);
    void walkShortCircuit(Kova::Tessel::BinaryExpression& node);
    void walkArgument(Kova::Tessel::SubroutineCallExpression& call, std::size_t index);
    void reachThrough(Kova::Tessel::SubroutineCallExpression& call, std::size_t index);
    void reportCallAccess(Place place, const Kova::Tessel::SubroutineCallExpression& call, bool isWritten);

    AccessSink& m_sink;
    PlaceReader m_places;
    bool m_isFortran;
    int m_depth = 0;
};

} // namespace DepGraph
