// SPDX-License-Identifier: MIT
#include "environment/tessel/StatementIterator.h"

#include "environment/core/Exception.h"
#include "environment/tessel/NullStatement.h"
#include "tests/environment/support/Build.h"

#include <gtest/gtest.h>

using namespace Kova;
using namespace Kova::Tessel;
using namespace Kova::Tests;

namespace {

template <class Action>
std::string stateErrorOf(Action action) {
    try {
        action();
    } catch (const StateError& error) {
        return error.what();
    }
    return "nothing was thrown";
}

void expectNull(StatementIterator iterator) {
    EXPECT_FALSE(iterator.isValid());
    EXPECT_EQ(stateErrorOf([&] { (void)*iterator; }), "Unexpected dereferencing of null iterator.");
    EXPECT_EQ(stateErrorOf([&] { (void)iterator->getParent(); }), "Unexpected dereferencing of null iterator.");
    EXPECT_EQ(stateErrorOf([&] { iterator.goNext(); }), "Unexpected goNext() after the end of the list.");
    EXPECT_TRUE(iterator == StatementIterator());
    EXPECT_FALSE(iterator != StatementIterator());
}

TEST(StatementIteratorTest, IsNullAtFirst) {
    expectNull({});
    expectNull({nullptr, 3});
}

TEST(StatementIteratorTest, StepsThroughABlock) {
    const auto statements = block(std::make_unique<NullStatement>(), std::make_unique<NullStatement>());
    StatementIterator iterator = statements->getFirst();
    ASSERT_TRUE(iterator.isValid());
    EXPECT_EQ(&*iterator, statements->getStatement(0));
    EXPECT_EQ(iterator->getParent(), statements.get());
    iterator.goNext();
    EXPECT_EQ(&*iterator, statements->getStatement(1));
    EXPECT_TRUE(iterator == StatementIterator(statements.get(), 1));
    EXPECT_TRUE(iterator != statements->getFirst());
    iterator.goNext();
    expectNull(iterator);
}

TEST(StatementIteratorTest, IsNullInAnEmptyBlock) {
    const BlockStatement empty;
    EXPECT_TRUE(empty.isEmpty());
    expectNull(empty.getFirst());
}

TEST(StatementIteratorTest, DiffersBetweenBlocks) {
    const auto one = block(std::make_unique<NullStatement>());
    const auto two = block(std::make_unique<NullStatement>());
    EXPECT_TRUE(one->getFirst() != two->getFirst());
    EXPECT_TRUE(one->getFirst() != StatementIterator());
}

TEST(StatementIteratorTest, KeepsItsNumberWhenTheBlockChanges) {
    const auto statements = block(std::make_unique<NullStatement>());
    const StatementIterator iterator = statements->getFirst();
    statements->insert(0, std::make_unique<NullStatement>());
    EXPECT_EQ(&*iterator, statements->getStatement(0));
    (void)statements->take(0);
    (void)statements->take(0);
    expectNull(iterator);
}

} // namespace
