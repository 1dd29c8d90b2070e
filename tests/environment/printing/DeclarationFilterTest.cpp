// SPDX-License-Identifier: MIT
#include "environment/printing/DeclarationFilter.h"

#include "environment/tessel/ModuleDeclaration.h"
#include "environment/tessel/OpaqueDeclaration.h"
#include "environment/tessel/StatementExpression.h"
#include "environment/tessel/TypedefDeclaration.h"
#include "environment/tessel/VariadicArgumentExpression.h"
#include "tests/environment/printing/Names.h"

#include <gtest/gtest.h>

using namespace Kova;
using namespace Kova::Backends;
using namespace Kova::Tessel;
using namespace Kova::Tests;

namespace {

class DeclarationFilterTest : public testing::Test, protected Names {
protected:
    const DeclarationFilter none;
    const DeclarationFilter prototypes{{true, false, false, false}};
    const DeclarationFilter variables{{false, true, false, false}};
    const DeclarationFilter definedTypes{{false, false, true, false}};
    const DeclarationFilter externals{{false, false, false, true}};
    const DeclarationFilter all{{true, true, true, true}};

    /// Which of the first five filters hide it, a digit each.
    [[nodiscard]] std::string hiddenBy(const DeclarationBase& declaration) const {
        std::string digits;
        for (const DeclarationFilter* filter : {&none, &prototypes, &variables, &definedTypes, &externals})
            digits += filter->hides(declaration) ? '1' : '0';
        return digits;
    }
    bool staysFor(ExpressionPtr initializer) { return !variables.hides(*intVariable("v", std::move(initializer))); }
};

TEST_F(DeclarationFilterTest, HidesByKind) {
    SubroutineDeclaration subroutine("f", nullptr);
    EXPECT_EQ(hiddenBy(subroutine), "01000");
    subroutine.setBody(block());
    EXPECT_EQ(hiddenBy(subroutine), "00000");
    EXPECT_EQ(hiddenBy(*intVariable("v")), "00100");
    EXPECT_EQ(hiddenBy(*record("s")), "00010");
    EXPECT_EQ(hiddenBy(RecordDeclaration("s", RecordDeclaration::Kind::Union)), "00010");
    EXPECT_EQ(hiddenBy(*emptyEnum("e")), "00010");
    EXPECT_EQ(hiddenBy(TypedefDeclaration("t", intType)), "00010");
}

TEST_F(DeclarationFilterTest, HidesNothingElse) {
    for (const DeclarationFilter* filter : {&none, &all}) {
        EXPECT_FALSE(filter->hides(fieldX));
        EXPECT_FALSE(filter->hides(enumeratorRed));
        EXPECT_FALSE(filter->hides(OpaqueDeclaration("_Static_assert(1, \"\");")));
        EXPECT_FALSE(filter->hides(ModuleDeclaration("m")));
    }
}

TEST_F(DeclarationFilterTest, HidesWhatIsSaidOfThingsElsewhere) {
    const auto variable = intVariable("v");
    variable->setStorageClass(StorageClass::Extern);
    EXPECT_EQ(hiddenBy(*variable), "00101");
    variable->setStorageClass(StorageClass::ExternThreadLocal);
    EXPECT_EQ(hiddenBy(*variable), "00101");
    variable->setStorageClass(StorageClass::Static);
    EXPECT_EQ(hiddenBy(*variable), "00100");
    // With a value it is this file's own.
    const auto own = intVariable("v", literal("1"));
    own->setStorageClass(StorageClass::Extern);
    EXPECT_EQ(hiddenBy(*own), "00100");
    SubroutineDeclaration ofAHeader("f", nullptr);
    ofAHeader.setBody(block());
    ofAHeader.setExternal(true);
    EXPECT_EQ(hiddenBy(ofAHeader), "00001");
    EXPECT_TRUE(externals.hidesIncludes() && all.hidesIncludes());
    EXPECT_FALSE(none.hidesIncludes() || prototypes.hidesIncludes() || variables.hidesIncludes());
}

TEST_F(DeclarationFilterTest, KeepsValuesThatDoSomething) {
    for (const U step : {U::PreIncrement, U::PreDecrement, U::PostIncrement, U::PostDecrement})
        EXPECT_TRUE(staysFor(unary(step, a())));
    EXPECT_TRUE(staysFor(assign(a(), b())));
    EXPECT_TRUE(staysFor(binary(a(), B::Add, call(f()))));
    EXPECT_TRUE(staysFor(make<VariadicArgumentExpression>(a(), intType)));
    EXPECT_TRUE(staysFor(make<StatementExpression>(block())));
    EXPECT_TRUE(staysFor(opaque("odd()")));
    ExpressionPtr sensor = a();
    sensor->setType(types.basic("int", BasicType::Category::SignedInteger, 32, Type::Volatile));
    EXPECT_TRUE(staysFor(std::move(sensor)));
    for (const U quiet : {U::Minus, U::LogicalNot, U::BitwiseNot, U::AddressOf, U::Dereference})
        EXPECT_FALSE(staysFor(unary(quiet, a())));
    EXPECT_FALSE(staysFor(conditional(a(), subscript(b(), c()), dot(a()))));
    EXPECT_FALSE(staysFor(f()));
}

TEST_F(DeclarationFilterTest, KeepsTypesThatDoSomething) {
    ExpressionPtr length = call(f());
    TypedefDeclaration row("row", arrayOf(intType, *length));
    EXPECT_TRUE(definedTypes.hides(row));
    row.appendBound(std::move(length));
    EXPECT_FALSE(definedTypes.hides(row));
}

TEST_F(DeclarationFilterTest, HidesAStatementWhenAllThatItDeclaresIsHidden) {
    EXPECT_TRUE(variables.hides(*declareHere(intVariable("i"), intVariable("j"))));
    EXPECT_FALSE(none.hides(*declareHere(intVariable("i"))));
    EXPECT_FALSE(variables.hides(*declareHere(intVariable("i"), record("s"))));
    EXPECT_TRUE(all.hides(*declareHere(intVariable("i"), record("s"))));
    EXPECT_FALSE(variables.hides(*declareHere(intVariable("i", call(f())), intVariable("j"))));
    EXPECT_FALSE(all.hides(*declareHere()));
    EXPECT_FALSE(all.hides(*statement(a())));
    EXPECT_FALSE(all.hides(*block(declareHere(intVariable("i")))));
}

} // namespace
