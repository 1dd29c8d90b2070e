// SPDX-License-Identifier: MIT
#include "tests/frontends/c/Reading.h"

#include <gtest/gtest.h>

namespace Kova::Frontends {

using namespace Test;

TEST(DiagnosticCollectorTest, errorsWarningsAndNotesWithTheirPlaces) {
    const Reading reading("int a;\nint f(void) { return b; }\nint* p = 1;\ndouble a;\n");
    std::string text;
    for (const Tessel::Diagnostic& diagnostic : reading.program.getDiagnostics())
        text += toString(diagnostic).substr(reading.folder.pathOf("").size()) + '\n';
    EXPECT_EQ(text,
              "a.c:2:22: error: use of undeclared identifier 'b'\n"
              "a.c:3:6: warning: incompatible integer to pointer conversion initializing 'int *' with an expression "
              "of type 'int'\n"
              "a.c:4:8: error: redefinition of 'a' with a different type: 'double' vs 'int'\n"
              "a.c:1:5: note: previous definition is here\n");
}

TEST(DiagnosticCollectorTest, warningsAloneAreNoErrors) {
    const Reading reading("int f(void) { }\n");
    EXPECT_EQ(reading.result, CFrontend::Result::Complete);
    EXPECT_EQ(reading.messages(), "a.c:1:15: warning: non-void function does not return a value\n");
}

TEST(DiagnosticCollectorTest, whatIsSaidOfAMacroIsSaidOfItsUse) {
    const Reading reading("#define WRONG(x) ((x) + missing)\nint a;\nint f(void) {\n  return WRONG(a);\n}\n");
    EXPECT_EQ(reading.messages(), "a.c:4:10: error: use of undeclared identifier 'missing'\n");
}

TEST(DiagnosticCollectorTest, nothingIsLeftOutOrPrinted) {
    std::string text = "int a;\n";
    for (int i = 0; i < 300; ++i)
        text += "wrong" + std::to_string(i) + " b" + std::to_string(i) + ";\n";
    testing::internal::CaptureStderr();
    testing::internal::CaptureStdout();
    const Reading reading(text);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(reading.program.getDiagnostics().size(), 300u);
}

} // namespace Kova::Frontends
