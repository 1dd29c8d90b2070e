// SPDX-License-Identifier: MIT
#include "environment/tessel/RecordDeclaration.h"
#include "tests/frontends/c/Reading.h"

#include <gtest/gtest.h>

namespace Kova::Frontends {

using namespace Test;

namespace {

/// Of the first structure of a text.
unsigned packingIn(const std::string& text) {
    const Reading reading(text);
    const auto* record = dynamic_cast<const Tessel::RecordDeclaration*>(reading.unit().getChild(0));
    return record != nullptr ? record->getPacking() : 1000;
}

} // namespace

TEST(PackingTest, isTheLimitOfItsPlace) {
    EXPECT_EQ(packingIn("struct s { char c; int i; };\n#pragma pack(1)\n"), 0u);
    EXPECT_EQ(packingIn("#pragma pack(2)\nstruct s { char c; short h; int i; double d; };"), 2u);
    EXPECT_EQ(packingIn("#pragma pack(1)\nunion u { char c; int a[2]; };"), 1u);
    EXPECT_EQ(packingIn("#pragma pack(push, 1)\n#pragma pack(pop)\nstruct s { char c; int i; };"), 0u);
    EXPECT_EQ(packingIn("_Pragma(\"pack(2)\") struct s { unsigned b : 3; };"), 2u);
}

TEST(PackingTest, isNoneWhereNothingChanges) {
    EXPECT_EQ(packingIn("#pragma pack(8)\nstruct s { char c; int i; double d; };"), 0u);
    EXPECT_EQ(packingIn("#pragma pack(1)\nstruct s { char c; char rest[]; };"), 0u);
    EXPECT_EQ(packingIn("#pragma pack(1)\nstruct s { char c; long rest[]; };"), 1u);
    EXPECT_EQ(packingIn("#pragma pack(8)\nstruct s { char c __attribute__((aligned(16))); };"), 8u);
}

TEST(PackingTest, saysNothingByAttributes) {
    EXPECT_EQ(Reading("#pragma pack(1)\nstruct s { int i __attribute__((unused)); };").tree(),
              "struct s packed to 1\n  field i int __attribute__((unused))\n");
}

} // namespace Kova::Frontends
