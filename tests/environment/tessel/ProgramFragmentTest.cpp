// SPDX-License-Identifier: MIT
#include "environment/tessel/ProgramFragment.h"

#include "environment/tessel/IfStatement.h"
#include "environment/tessel/NullStatement.h"
#include "tests/environment/support/Build.h"

#include <gtest/gtest.h>

using namespace Kova::Tessel;
using namespace Kova::Tests;

namespace {

class ProgramFragmentTest : public testing::Test {
protected:
    static StatementPtr null() { return std::make_unique<NullStatement>(); }
    StatementBase& at(std::size_t index) { return *statements->getStatement(index); }

    std::unique_ptr<BlockStatement> statements = block(null(), null(), null(), block(null()));
    StatementBase& inner = *static_cast<BlockStatement&>(*statements->getStatement(3)).getStatement(0);
};

TEST_F(ProgramFragmentTest, IsEmptyAtFirst) {
    const ProgramFragment fragment;
    EXPECT_TRUE(fragment.isEmpty());
    EXPECT_FALSE(fragment.getFirstIterator().isValid());
    EXPECT_FALSE(fragment.getAfterLastIterator().isValid());
    EXPECT_TRUE(fragment == ProgramFragment());
}

TEST_F(ProgramFragmentTest, IsARangeOfOneBlock) {
    EXPECT_TRUE(ProgramFragment::isFragment(at(0), at(2)));
    EXPECT_TRUE(ProgramFragment::isFragment(at(1), at(1)));
    EXPECT_FALSE(ProgramFragment::isFragment(at(2), at(0)));
    EXPECT_FALSE(ProgramFragment::isFragment(at(0), inner));
    EXPECT_FALSE(ProgramFragment::isFragment(inner, at(3)));
    EXPECT_TRUE(ProgramFragment::isFragment(inner, inner));
}

TEST_F(ProgramFragmentTest, IsNoneOutsideABlock) {
    EXPECT_FALSE(ProgramFragment::isFragment(*statements, *statements));
    const IfStatement branch(nullptr, block(), block());
    EXPECT_FALSE(ProgramFragment::isFragment(*branch.getThenBlock(), *branch.getElseBlock()));
}

TEST_F(ProgramFragmentTest, WalksFromFirstToAfterLast) {
    ProgramFragment fragment;
    fragment.set(at(1), at(2));
    EXPECT_FALSE(fragment.isEmpty());
    StatementIterator iterator = fragment.getFirstIterator();
    EXPECT_EQ(&*iterator, &at(1));
    iterator.goNext();
    EXPECT_TRUE(iterator != fragment.getAfterLastIterator());
    iterator.goNext();
    EXPECT_TRUE(iterator == fragment.getAfterLastIterator());
    EXPECT_EQ(&*iterator, &at(3));
}

TEST_F(ProgramFragmentTest, EndsWithANullIteratorAtTheEndOfTheBlock) {
    ProgramFragment fragment;
    fragment.set(at(3), at(3));
    EXPECT_FALSE(fragment.getAfterLastIterator().isValid());
    StatementIterator iterator = fragment.getFirstIterator();
    iterator.goNext();
    EXPECT_TRUE(iterator == fragment.getAfterLastIterator());
}

TEST_F(ProgramFragmentTest, BecomesEmptyForWhatIsNoFragment) {
    ProgramFragment fragment;
    fragment.set(at(0), at(1));
    fragment.set(at(1), at(0));
    EXPECT_TRUE(fragment.isEmpty());
    fragment.set(at(0), at(1));
    fragment.setEmpty();
    EXPECT_TRUE(fragment.isEmpty());
    EXPECT_TRUE(fragment == ProgramFragment());
}

TEST_F(ProgramFragmentTest, IsAValue) {
    ProgramFragment fragment;
    fragment.set(at(0), at(1));
    const ProgramFragment copy(fragment);
    EXPECT_TRUE(copy == fragment);
    ProgramFragment other;
    EXPECT_TRUE(other != fragment);
    other = fragment;
    EXPECT_TRUE(other == fragment);
    other.set(at(0), at(2));
    EXPECT_TRUE(other != fragment);
    EXPECT_TRUE(copy == fragment);
}

TEST_F(ProgramFragmentTest, KeepsItsStatementsWhenTheBlockGrows) {
    ProgramFragment fragment;
    StatementBase& first = at(1);
    fragment.set(first, at(2));
    statements->insert(0, null());
    EXPECT_EQ(&*fragment.getFirstIterator(), &first);
    EXPECT_EQ(&*fragment.getAfterLastIterator(), &at(4));
}

} // namespace
