// SPDX-License-Identifier: MIT
#include "environment/tessel/Diagnostic.h"

#include <gtest/gtest.h>

using namespace Kova::Tessel;

namespace {

TEST(DiagnosticTest, SaysWhereWhatAndHowBad) {
    using Level = Diagnostic::Level;
    EXPECT_EQ(toString({Level::Error, "a.c", 3, 7, "no such thing"}), "a.c:3:7: error: no such thing");
    EXPECT_EQ(toString({Level::Warning, "a.c", 3, 0, "odd"}), "a.c:3: warning: odd");
    EXPECT_EQ(toString({Level::Note, "a.c", 0, 0, "see"}), "a.c: note: see");
    EXPECT_EQ(toString({Level::Error, "a.c", 0, 7, "x"}), "a.c: error: x");
    EXPECT_EQ(toString({Level::Error, "", 3, 7, "x"}), "error: x");
    EXPECT_STREQ(toString(Level::Note), "note");
    EXPECT_STREQ(toString(Level::Warning), "warning");
    EXPECT_STREQ(toString(Level::Error), "error");
    EXPECT_EQ(Diagnostic().level, Level::Error);
}

} // namespace
