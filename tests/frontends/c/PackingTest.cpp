// SPDX-License-Identifier: MIT
#include "tests/frontends/c/Reading.h"

#include <gtest/gtest.h>

namespace Kova::Frontends {

using namespace Test;

namespace {

std::string aligned(int bytes) {
    return "__attribute__((packed)) __attribute__((aligned(" + std::to_string(bytes) + ")))";
}

/// Texts mean the same when their trees are the same.
std::string treeOf(const std::string& text) {
    return Reading(text).tree();
}

} // namespace

TEST(PackingTest, fieldsAreAlignedLess) {
    EXPECT_EQ(treeOf("#pragma pack(2)\nstruct s { char c; short h; int i; double d; };"),
              treeOf("struct s { char c; short h; " + aligned(2) + " int i; " + aligned(2) + " double d; };"));
    EXPECT_EQ(treeOf("#pragma pack(1)\nstruct s { char c; int a[2]; };"),
              treeOf("struct s { char c; " + aligned(1) + " int a[2]; };"));
}

TEST(PackingTest, aStructureWithBitFieldsKeepsItsOwnAlignment) {
    EXPECT_EQ(treeOf("#pragma pack(2)\nstruct s { unsigned b : 3; };"),
              treeOf("struct __attribute__((aligned(2))) s { __attribute__((packed)) unsigned b : 3; };"));
}

TEST(PackingTest, nothingIsSaidWhereNothingChanges) {
    EXPECT_EQ(treeOf("#pragma pack(8)\nstruct s { char c; int i; double d; };\n#pragma pack()\nstruct t { int i; };"),
              treeOf("struct s { char c; int i; double d; }; struct t { int i; };"));
}

TEST(PackingTest, ownAttributesStay) {
    EXPECT_EQ(treeOf("#pragma pack(1)\nstruct s { int i __attribute__((unused)); };"),
              treeOf("struct s { __attribute__((unused)) " + aligned(1) + " int i; };"));
}

} // namespace Kova::Frontends
