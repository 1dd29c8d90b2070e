// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstring>

/// The place of a virtual function in the table of its class, as the Itanium ABI keeps it in the pointer to member.
template <class Member>
std::ptrdiff_t slotOf(Member member) {
    std::ptrdiff_t offset = 0;
    std::memcpy(&offset, &member, sizeof offset);
    return (offset - 1) / static_cast<std::ptrdiff_t>(sizeof(void*));
}
