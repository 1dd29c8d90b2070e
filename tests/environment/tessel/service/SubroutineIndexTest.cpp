// SPDX-License-Identifier: MIT
#include "environment/tessel/service/SubroutineIndex.h"

#include "environment/tessel/DeclarationStatement.h"
#include "environment/tessel/ModuleDeclaration.h"
#include "tests/environment/support/Build.h"

#include <gtest/gtest.h>

using namespace Kova::Tessel;
using namespace Kova::Tests;
using Service::SubroutineIndex;

namespace {

class SubroutineIndexTest : public testing::Test {
protected:
    static SubroutineDeclaration& makeStatic(SubroutineDeclaration& subroutine) {
        subroutine.setStorageClass(StorageClass::Static);
        return subroutine;
    }
    SubroutineDeclaration* find(const SubroutineDeclaration& declaration) {
        return SubroutineIndex(program).findImplementation(declaration);
    }

    ProgramUnit program;
    TranslationUnit& first = addUnit(program, "a.c");
    TranslationUnit& second = addUnit(program, "b.c");
};

TEST_F(SubroutineIndexTest, ListsImplementationsInProgramOrder) {
    auto& zeta = define(first, "zeta");
    declare(first, "prototype");
    auto& alpha = define(second, "alpha");
    auto module = std::make_unique<ModuleDeclaration>("m");
    auto& inner = define(*module, "inner");
    second.append(std::move(module));
    auto& last = define(second, "last");
    EXPECT_EQ(SubroutineIndex(program).getImplementations(),
              (std::vector<SubroutineDeclaration*>{&zeta, &alpha, &inner, &last}));
    EXPECT_TRUE(SubroutineIndex(ProgramUnit()).getImplementations().empty());
}

TEST_F(SubroutineIndexTest, FindsAnImplementationItself) {
    auto& f = define(first, "f");
    define(second, "f");
    EXPECT_EQ(find(f), &f);
}

TEST_F(SubroutineIndexTest, FindsTheOwnFilesFirst) {
    auto& inFirst = define(first, "f");
    auto& prototype = declare(second, "f");
    EXPECT_EQ(find(prototype), &inFirst);
    auto& own = define(second, "f");
    EXPECT_EQ(find(prototype), &own);
    EXPECT_EQ(find(declare(first, "f")), &inFirst);
}

TEST_F(SubroutineIndexTest, DoesNotFindStaticsOfOtherFiles) {
    makeStatic(define(first, "f"));
    EXPECT_EQ(find(declare(second, "f")), nullptr);
    auto& third = addUnit(program, "c.c");
    auto& visible = define(third, "f");
    EXPECT_EQ(find(declare(second, "f")), &visible);
}

TEST_F(SubroutineIndexTest, DoesNotLeaveTheFileForAStatic) {
    define(first, "f");
    EXPECT_EQ(find(makeStatic(declare(second, "f"))), nullptr);
    auto& own = makeStatic(define(second, "f"));
    EXPECT_EQ(find(makeStatic(declare(second, "f"))), &own);
}

TEST_F(SubroutineIndexTest, FindsDeclarationsInsideBodies) {
    auto& main = define(first, "main");
    auto statement = std::make_unique<DeclarationStatement>();
    statement->append(std::make_unique<SubroutineDeclaration>("work", nullptr));
    const auto& inner = static_cast<SubroutineDeclaration&>(*statement->getDeclaration(0));
    main.getBody()->append(std::move(statement));
    auto& work = define(second, "work");
    EXPECT_EQ(find(inner), &work);
    auto& own = makeStatic(define(first, "work"));
    EXPECT_EQ(find(inner), &own);
}

TEST_F(SubroutineIndexTest, FindsNothingForUnknownNames) {
    define(first, "f");
    EXPECT_EQ(find(declare(second, "g")), nullptr);
}

} // namespace
