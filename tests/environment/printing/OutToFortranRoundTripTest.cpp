// SPDX-License-Identifier: MIT
#include "environment/printing/OutToFortran.h"
#include "environment/tessel/InitializerListExpression.h"
#include "environment/tessel/SectionExpression.h"
#include "tests/environment/printing/ExpressionSamples.h"
#include "tests/environment/printing/FortranExpressionReader.h"

using namespace Kova;
using namespace Kova::Tessel;
using namespace Kova::Tests;

namespace {

class FortranSamples final : public SampleMaker {
public:
    explicit FortranSamples(unsigned seed) : SampleMaker(seed) {}

private:
    Sample makeInner(int depth) override {
        switch (pick(8)) {
        case 0:
            return named(depth);
        case 1:
            return signedOrNegated(depth);
        case 2:
            return function(depth);
        default:
            return joined(depth);
        }
    }

    Sample leaf() override { return leafOf(pick(5)); }

    Sample signedOrNegated(int depth) {
        static const Table<U> operators = {{U::Plus, "u+"}, {U::Minus, "u-"}, {U::LogicalNot, ".NOT."}};
        return prefixedBy(operators, depth);
    }

    Sample joined(int depth) {
        static const Table<B> operators = {{B::Multiply, "*"},
                                           {B::Divide, "/"},
                                           {B::Add, "+"},
                                           {B::Subtract, "-"},
                                           {B::Less, "<"},
                                           {B::Greater, ">"},
                                           {B::LessEqual, "<="},
                                           {B::GreaterEqual, ">="},
                                           {B::Equal, "=="},
                                           {B::NotEqual, "/="},
                                           {B::LogicalAnd, ".AND."},
                                           {B::LogicalOr, ".OR."},
                                           {B::Power, "**"},
                                           {B::Concatenate, "//"},
                                           {B::Equivalent, ".EQV."},
                                           {B::NotEquivalent, ".NEQV."}};
        return joinedBy(operators, depth);
    }

    /// What a name can begin: components, elements, sections, calls.
    Sample named(int depth) {
        Sample base{a(), "a"};
        for (unsigned i = pick(3); i > 0; --i) {
            if (pick(2) == 0) {
                base = {dot(std::move(base.tree)), "(% " + base.structure + " x)"};
                continue;
            }
            Sample first = index(depth);
            Sample second = index(depth);
            base = {subscript(std::move(base.tree), std::move(first.tree), std::move(second.tree)),
                    "(of " + base.structure + " " + first.structure + " " + second.structure + ")"};
        }
        return base;
    }

    Sample index(int depth) {
        if (pick(3) != 0)
            return below(depth);
        Sample lower = optional(depth);
        Sample upper = optional(depth);
        Sample stride = optional(depth);
        return {
            std::make_unique<SectionExpression>(std::move(lower.tree), std::move(upper.tree), std::move(stride.tree)),
            "(: " + lower.structure + " " + upper.structure + " " + stride.structure + ")"};
    }
    Sample optional(int depth) { return pick(2) == 0 ? Sample{nullptr, "-"} : below(depth); }

    Sample function(int depth) {
        static const Table<B> operators = {
            {B::Remainder, "MOD"}, {B::BitwiseAnd, "IAND"}, {B::BitwiseOr, "IOR"}, {B::BitwiseXor, "IEOR"}};
        Sample left = below(depth);
        Sample right = below(depth);
        const std::string both = " " + left.structure + " " + right.structure + ")";
        switch (pick(3)) {
        case 0: {
            const auto& [operation, name] = pick(operators);
            return {binary(std::move(left.tree), operation, std::move(right.tree)), "(of " + name + both};
        }
        case 1: {
            auto list = std::make_unique<InitializerListExpression>();
            list->append(std::move(left.tree));
            list->append(std::move(right.tree));
            return {std::move(list), "(list" + both};
        }
        default:
            return {call(f(), std::move(left.tree), std::move(right.tree)), "(of f" + both};
        }
    }
};

TEST(OutToFortranRoundTripTest, TheReaderKnowsTheGrammar) {
    expectToReadAs<FortranExpressionReader>({{"-a * b", "(u- (* a b))"},
                                             {"-a + b", "(+ (u- a) b)"},
                                             {"a + -b", ""},
                                             {"a ** -b", ""},
                                             {"-a ** b", "(u- (** a b))"},
                                             {"a ** b ** 7", "(** a (** b 7))"},
                                             {"a < b < 7", ""},
                                             {"a < -b", "(< a (u- b))"},
                                             {".NOT. a == b .AND. .NOT. b", "(.AND. (.NOT. (== a b)) (.NOT. b))"},
                                             {".NOT. .NOT. a", ""},
                                             {"a // b // a", "(// (// a b) a)"},
                                             {"a .OR. b .EQV. a", "(.EQV. (.OR. a b) a)"},
                                             {"a%x(1:, ::2, 3)", "(of (% a x) (: 1 - -) (: - - 2) 3)"},
                                             {"[a, b]", "(list a b)"},
                                             {"(a + b)(1)", ""}});
}

TEST(OutToFortranRoundTripTest, PrintsWhatReadsBackWithoutAParenthesisTooMany) {
    FortranSamples samples(20240712);
    expectToReadBack<Backends::OutToFortran, FortranExpressionReader>(samples);
}

} // namespace
