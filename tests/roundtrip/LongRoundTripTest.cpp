// SPDX-License-Identifier: MIT
#include "tests/roundtrip/RoundTrip.h"

namespace Kova::Test {

TEST(LongRoundTripTest, aHundredThousandStatementsInABlock) {
    std::string text = "#include <stdio.h>\nstatic volatile unsigned x;\nint main(void)\n{\n";
    for (int i = 0; i < 100000; ++i)
        text += "    x += " + std::to_string(i) + "u;\n";
    EXPECT_TRUE(textSurvivesRoundTrip(text + "    printf(\"%u\\n\", x);\n    return 0;\n}\n"));
}

TEST(LongRoundTripTest, aFileOfTwentyThousandLines) {
    std::string text = "#include <stdio.h>\nstatic unsigned x;\n";
    std::string calls;
    for (int i = 0; i < 2000; ++i) {
        const std::string n = std::to_string(i);
        text += "struct s" + n + "\n{\n    unsigned a, b;\n};\n\nstatic void f" + n + "(struct s" + n +
                " *s)\n{\n    if (s->a > x)\n        x += s->b;\n    else\n        x -= s->a;\n}\n\n";
        calls += "    f" + n + "(&(struct s" + n + ") { " + n + "u, .b = 3u });\n";
    }
    EXPECT_TRUE(
        textSurvivesRoundTrip(text + "int main(void)\n{\n" + calls + "    printf(\"%u\\n\", x);\n    return 0;\n}\n"));
}

TEST(LongRoundTripTest, deepNesting) {
    std::string sum = "1";
    std::string nested = "x";
    std::string blocks;
    for (int i = 0; i < 2000; ++i)
        sum += " + " + std::to_string(i % 7);
    for (int i = 0; i < 200; ++i)
        nested = "(" + nested + (i % 2 == 0 ? " * 3u" : " + 1u") + ")";
    for (int i = 0; i < 100; ++i)
        blocks += "if (x)\n{\n";
    EXPECT_TRUE(textSurvivesRoundTrip("#include <stdio.h>\nint main(void)\n{\n    unsigned x = 1;\n" + blocks +
                                      "x++;\n" + std::string(100, '}') + "\nprintf(\"%u %u\\n\", " + nested + ", x + " +
                                      sum + ");\nreturn 0;\n}\n"));
}

} // namespace Kova::Test
