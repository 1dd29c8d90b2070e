// SPDX-License-Identifier: MIT
#include "frontends/c/IncludeRecorder_p.h"
#include "tests/frontends/c/Reading.h"

#include <gtest/gtest.h>

namespace Kova::Frontends {

using namespace Test;

using Texts = std::vector<std::string>;

TEST(IncludeRecorderTest, systemHeadersOfTheUsersFilesInOrderEachOnce) {
    const Reading reading("#include <stdio.h>\n"
                          "#include \"own.h\"\n"
                          "#define HEADER <math.h>\n"
                          "#include HEADER\n"
                          "#include \"errno.h\"\n"
                          "#if 0\n#include <wchar.h>\n#endif\n"
                          "#include <string.h>\n"
                          "int a;\n",
                          Headers{{"own.h", "#include <string.h>\n#include <stdio.h>\n"}});
    ASSERT_EQ(reading.result, CFrontend::Result::Complete);
    EXPECT_EQ(reading.unit().getSystemIncludes(), (Texts{"<stdio.h>", "<string.h>", "<math.h>", "\"errno.h\""}));
}

TEST(IncludeRecorderTest, headersOfIncludeDirectoriesAreTheUsers) {
    const Reading reading("#include <lib.h>\n#include <stddef.h>\n", Headers{{"inc/lib.h", "int lib;\n"}},
                          {{"inc"}, {}, ""});
    ASSERT_EQ(reading.result, CFrontend::Result::Complete);
    EXPECT_EQ(reading.unit().getSystemIncludes(), (Texts{"<stddef.h>"}));
}

TEST(IncludeRecorderTest, macrosThatChooseAmongWhatSystemHeadersDeclare) {
    const Reading reading("#define _ISOC11_SOURCE\n"
                          "#undef _ISOC11_SOURCE\n"
                          "#define __lower (1 + 2)\n"
                          "#include \"config.h\"\n"
                          "#include <stdio.h>\n"
                          "#define _TOO_LATE\n"
                          "int a;\n",
                          Headers{{"config.h", "#ifndef _CONFIG_H\n#define _CONFIG_H\n#define _GNU_SOURCE 1\n"
                                               "#define OWN 3\n#define _FILE_OFFSET_BITS 6 ## 4\n"
                                               "#define _CALL(x) x\n#endif\n"}},
                          {{}, {"_FROM_OUTSIDE=1"}, ""});
    ASSERT_EQ(reading.result, CFrontend::Result::Complete);
    EXPECT_EQ(reading.unit().getSystemChoices(),
              (Texts{"__lower ( 1 + 2 )", "_GNU_SOURCE 1", "_FILE_OFFSET_BITS 6 ## 4"}));
}

TEST(IncludeRecorderTest, withoutSystemHeadersNothingIsChosen) {
    EXPECT_TRUE(Reading("#define _GNU_SOURCE\nint a;\n").unit().getSystemChoices().empty());
}

TEST(IncludeRecorderTest, aUsersHeaderThatClaimsToBeTheSystemsIsTheUsers) {
    const Reading reading("#include <stdio.h>\n#include <stdio.h>\n",
                          Headers{{"lib/stdio.h", "#ifndef OWN\n#define OWN\n#pragma GCC system_header\n"
                                                  "#include_next <stdio.h>\n#include <string.h>\n"
                                                  "int own_printf(const char *, ...);\n#endif\n"}},
                          {{"lib"}, {}, ""});
    ASSERT_EQ(reading.result, CFrontend::Result::Complete);
    EXPECT_EQ(reading.unit().getSystemIncludes(), (Texts{"<stdio.h>", "<string.h>"}));
    EXPECT_EQ(reading.unit().getChildCount(), 1u);
}

TEST(IncludeRecorderTest, whatTheProgramUndefinesForGood) {
    const Reading reading(
        "#undef linux\n#include <ctype.h>\n#include <stdio.h>\n#undef isalpha\n#undef EOF\n"
        "#define EOF -2\n#undef isdigit\n#include \"own.h\"\n#undef OWN\n#undef NEVER\n#undef isalpha\n"
        "#undef OUTSIDE\nint a;\n",
        Headers{{"own.h", "#define OWN 1\n#undef BUFSIZ\n"}}, {{}, {"OUTSIDE"}, ""});
    ASSERT_EQ(reading.result, CFrontend::Result::Complete);
    EXPECT_EQ(reading.unit().getSystemUndefinitions(),
              (Texts{"linux", "isalpha", "EOF", "isdigit", "BUFSIZ", "OUTSIDE"}));
    EXPECT_TRUE(
        Reading("#include <assert.h>\n#undef assert\n#include <assert.h>\n").unit().getSystemUndefinitions().empty());
}

TEST(IncludeRecorderTest, whatStandsBesideAHeaderWithAClaimIsTheUsersToo) {
    const Reading reading("#include <stdio.h>\nint b;\n",
                          Headers{{"lib/stdio.h", "#pragma GCC system_header\n#include_next <stdio.h>\n"
                                                  "#include \"beside.h\"\n"},
                                  {"lib/beside.h", "#include \"sub/next.h\"\nint beside;\n"},
                                  {"lib/sub/next.h", "int next;\n"}},
                          {{"lib"}, {}, ""});
    ASSERT_EQ(reading.result, CFrontend::Result::Complete);
    EXPECT_EQ(reading.unit().getSystemIncludes(), (Texts{"<stdio.h>"}));
    EXPECT_EQ(reading.tree(), "variable next int\nvariable beside int\nvariable b int\n");
}

} // namespace Kova::Frontends
