// SPDX-License-Identifier: MIT
// The parts of the expression nodes and where they stand among the children.
#include "environment/tessel/ExpressionBase.h"
#include "tests/environment/support/EveryNode.h"

#include <gtest/gtest.h>

using namespace Kova::Tessel;
using namespace Kova::Tests;

namespace {

using Children = std::vector<const TesselBase*>;

Children childrenOf(const TesselBase& node) {
    Children children;
    for (std::size_t i = 0; i < node.getChildCount(); ++i)
        children.push_back(node.getChild(i));
    return children;
}

TEST(ExpressionsTest, HaveATypeWhereItIsKnown) {
    TypeTable types;
    const Type* type = types.basic("int", BasicType::Category::SignedInteger, 32);
    const ExpressionPtr one = literal("1");
    EXPECT_EQ(one->getType(), nullptr);
    one->setType(type);
    EXPECT_EQ(one->getType(), type);
    EXPECT_EQ(CastExpression(type, literal("1")).getType(), type);
    EXPECT_EQ(CompoundLiteralExpression(type, nullptr).getType(), type);
    EXPECT_EQ(VariadicArgumentExpression(nullptr, type).getType(), type);
}

TEST(ExpressionsTest, NameDeclarations) {
    EveryNode every;
    EXPECT_EQ(&VariableReference(every.variable).getVariable(), &every.variable);
    EXPECT_EQ(&SubroutineReference(every.subroutine).getSubroutine(), &every.subroutine);
    EXPECT_EQ(&EnumeratorReference(every.enumerator).getEnumerator(), &every.enumerator);
    const MemberExpression member(literal("1"), MemberExpression::Access::ThroughPointer, every.field);
    EXPECT_EQ(&member.getField(), &every.field);
    EXPECT_EQ(member.getAccess(), MemberExpression::Access::ThroughPointer);
    EXPECT_EQ(childrenOf(member), Children{member.getBase()});
    EXPECT_EQ(LabelAddressExpression("l").getLabelName(), "l");
}

TEST(ExpressionsTest, LiteralsKeepTextAndValue) {
    LiteralExpression literal(LiteralExpression::Kind::Integer, "0x1F");
    EXPECT_EQ(literal.getKind(), LiteralExpression::Kind::Integer);
    EXPECT_EQ(literal.getText(), "0x1F");
    EXPECT_FALSE(literal.getIntegerValue().has_value());
    literal.setIntegerValue(31);
    EXPECT_EQ(literal.getIntegerValue(), 31);
}

TEST(ExpressionsTest, OperatorsHoldTheirOperandsInOrder) {
    const UnaryExpression negation(UnaryOperator::Minus, literal("1"));
    EXPECT_EQ(negation.getOperator(), UnaryOperator::Minus);
    EXPECT_EQ(childrenOf(negation), Children{negation.getOperand()});
    const BinaryExpression sum(BinaryOperator::Add, literal("1"), literal("2"));
    EXPECT_EQ(sum.getOperator(), BinaryOperator::Add);
    EXPECT_EQ(childrenOf(sum), (Children{sum.getLeft(), sum.getRight()}));
    const AssignmentExpression plain(literal("1"), literal("2"));
    EXPECT_FALSE(plain.isCompound());
    EXPECT_EQ(childrenOf(plain), (Children{plain.getTarget(), plain.getValue()}));
    const AssignmentExpression compound(nullptr, nullptr, BinaryOperator::ShiftLeft);
    EXPECT_TRUE(compound.isCompound());
    EXPECT_EQ(compound.getOperator(), BinaryOperator::ShiftLeft);
    const ConditionalExpression choice(literal("1"), nullptr, literal("2"));
    EXPECT_EQ(childrenOf(choice), (Children{choice.getCondition(), nullptr, choice.getSecond()}));
    EXPECT_EQ(choice.getFirst(), nullptr);
}

TEST(ExpressionsTest, SubscriptsHoldAnyNumberOfIndices) {
    SubscriptExpression element(literal("1"), literal("2"));
    EXPECT_EQ(element.getIndexCount(), 1U);
    element.appendIndex(std::make_unique<SectionExpression>(literal("1"), nullptr, literal("3")));
    EXPECT_EQ(element.getIndexCount(), 2U);
    EXPECT_EQ(childrenOf(element), (Children{element.getBase(), element.getIndex(), element.getIndex(1)}));
    const auto& section = static_cast<SectionExpression&>(*element.getIndex(1));
    EXPECT_EQ(childrenOf(section), (Children{section.getLower(), nullptr, section.getStride()}));
    EXPECT_EQ(section.getUpper(), nullptr);
}

TEST(ExpressionsTest, QueriesAreOfATypeOrAnOperand) {
    TypeTable types;
    const Type* type = types.basic("int", BasicType::Category::SignedInteger, 32);
    TypeQueryExpression ofType(TypeQueryExpression::Query::AlignOf, type);
    ofType.appendBound(literal("1"));
    EXPECT_EQ(ofType.getQuery(), TypeQueryExpression::Query::AlignOf);
    EXPECT_EQ(ofType.getQueriedType(), type);
    EXPECT_EQ(ofType.getOperand(), nullptr);
    EXPECT_EQ(ofType.getChildCount(), 2U);
    const TypeQueryExpression ofOperand(TypeQueryExpression::Query::SizeOf, literal("1"));
    EXPECT_EQ(ofOperand.getQueriedType(), nullptr);
    EXPECT_EQ(ofOperand.getOperand(), ofOperand.getChild(0));
}

TEST(ExpressionsTest, InitializersHoldValuesAndDesignators) {
    using Kind = DesignatedInitializerExpression::Designator::Kind;
    InitializerListExpression list;
    auto owner = std::make_unique<DesignatedInitializerExpression>(literal("9"));
    const DesignatedInitializerExpression& designated = *owner;
    owner->appendIndex(literal("1"));
    owner->appendField("x");
    owner->appendIndexRange(literal("2"), literal("3"));
    list.append(std::move(owner));
    EXPECT_EQ(list.getValue(0), &designated);
    EXPECT_EQ(list.getValue(1), nullptr);
    ASSERT_EQ(designated.getDesignators().size(), 3U);
    EXPECT_EQ(designated.getDesignators()[0].kind, Kind::Index);
    EXPECT_EQ(designated.getDesignators()[1].kind, Kind::Field);
    EXPECT_EQ(designated.getDesignators()[1].field, "x");
    EXPECT_EQ(designated.getDesignators()[2].kind, Kind::IndexRange);
    EXPECT_EQ(childrenOf(designated), (Children{designated.getValue(), designated.getIndex(0), designated.getIndex(1),
                                                designated.getIndex(2)}));
    EXPECT_EQ(designated.getIndex(3), nullptr);
}

TEST(ExpressionsTest, SelectionsKnowWhatIsChosen) {
    TypeTable types;
    const Type* type = types.basic("int", BasicType::Category::SignedInteger, 32);
    GenericSelectionExpression selection(literal("1"), 1);
    selection.appendAssociation(type, literal("2"));
    selection.appendAssociation(nullptr, literal("3"));
    EXPECT_EQ(selection.getAssociationCount(), 2U);
    EXPECT_EQ(selection.getAssociationType(0), type);
    EXPECT_EQ(selection.getAssociationType(1), nullptr);
    EXPECT_EQ(selection.getChosen(), 1U);
    EXPECT_EQ(childrenOf(selection),
              (Children{selection.getControl(), selection.getAssociationValue(0), selection.getAssociationValue(1)}));
}

TEST(ExpressionsTest, OthersHoldTheirParts) {
    const CompoundLiteralExpression compound(nullptr, literal("1"));
    EXPECT_EQ(compound.getInitializer(), compound.getChild(0));
    const StatementExpression statements(block());
    EXPECT_EQ(statements.getBlock(), statements.getChild(0));
    const VariadicArgumentExpression argument(literal("1"), nullptr);
    EXPECT_EQ(argument.getList(), argument.getChild(0));
    CastExpression cast(nullptr, literal("1"));
    cast.appendBound(literal("2"));
    EXPECT_EQ(cast.getOperand(), cast.getChild(0));
    EXPECT_EQ(cast.getChildCount(), 2U);
    OpaqueExpression text("x");
    text.appendOperand(literal("1"));
    EXPECT_EQ(text.getText(), "x");
    EXPECT_EQ(text.getChildCount(), 1U);
}

} // namespace
