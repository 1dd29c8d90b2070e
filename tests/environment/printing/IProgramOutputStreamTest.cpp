// SPDX-License-Identifier: MIT
#include "environment/printing/IProgramOutputStream.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <type_traits>

using Kova::Shared::IProgramOutputStream;

namespace {

static_assert(std::is_abstract_v<IProgramOutputStream>);
static_assert(!std::has_virtual_destructor_v<IProgramOutputStream>);
static_assert(sizeof(IProgramOutputStream) == sizeof(void*), "nothing but the table of its operations");

/// The number of a virtual operation in its class's table: the ABI of C++ that Linux has says 1 + its offset in bytes.
template <class Operation>
std::size_t slotOf(Operation operation) {
    std::size_t offset = 0;
    std::memcpy(&offset, &operation, sizeof(offset));
    return (offset - 1) / sizeof(void*);
}

TEST(IProgramOutputStreamTest, HasItsOperationsInThisOrder) {
    EXPECT_EQ(slotOf(&IProgramOutputStream::write), 0U);
    EXPECT_EQ(slotOf(&IProgramOutputStream::writeNewLine), 1U);
}

} // namespace
