// SPDX-License-Identifier: MIT
#include "frontends/c/IncludeRecorder_p.h"
#include "tests/frontends/c/Reading.h"

#include <gtest/gtest.h>

namespace Kova::Frontends {

using namespace Test;

TEST(IncludeRecorderTest, systemHeadersOfTheUsersFilesInOrderEachOnce) {
    const SourceFolder folder;
    folder.write("own.h", "#include <string.h>\n#include <stdio.h>\n");
    const std::string path = folder.write("a.c", "#include <stdio.h>\n"
                                                 "#include \"own.h\"\n"
                                                 "#define HEADER <math.h>\n"
                                                 "#include HEADER\n"
                                                 "#include \"errno.h\"\n"
                                                 "#if 0\n#include <wchar.h>\n#endif\n"
                                                 "#include <string.h>\n"
                                                 "int a;\n");
    Tessel::ProgramUnit program;
    ASSERT_EQ(CFrontend({}).read(path, program), CFrontend::Result::Complete);
    EXPECT_EQ(program.getTranslationUnit(0)->getSystemIncludes(),
              (std::vector<std::string>{"<stdio.h>", "<string.h>", "<math.h>", "\"errno.h\""}));
}

TEST(IncludeRecorderTest, headersOfIncludeDirectoriesAreTheUsers) {
    const SourceFolder folder;
    folder.write("inc/lib.h", "int lib;\n");
    Tessel::ProgramUnit program;
    const std::string path = folder.write("a.c", "#include <lib.h>\n#include <stddef.h>\n");
    ASSERT_EQ(CFrontend({{folder.pathOf("inc")}, {}, ""}).read(path, program), CFrontend::Result::Complete);
    EXPECT_EQ(program.getTranslationUnit(0)->getSystemIncludes(), (std::vector<std::string>{"<stddef.h>"}));
}

TEST(IncludeRecorderTest, macrosThatChooseAmongWhatSystemHeadersDeclare) {
    const SourceFolder folder;
    folder.write("config.h", "#ifndef _CONFIG_H\n#define _CONFIG_H\n#define _GNU_SOURCE 1\n#define OWN 3\n"
                             "#define _FILE_OFFSET_BITS 6 ## 4\n#define _CALL(x) x\n#endif\n");
    const std::string path = folder.write("a.c", "#define _ISOC11_SOURCE\n"
                                                 "#undef _ISOC11_SOURCE\n"
                                                 "#define __lower (1 + 2)\n"
                                                 "#include \"config.h\"\n"
                                                 "#include <stdio.h>\n"
                                                 "#define _TOO_LATE\n"
                                                 "int a;\n");
    Tessel::ProgramUnit program;
    ASSERT_EQ(CFrontend({{}, {"_FROM_OUTSIDE=1"}, ""}).read(path, program), CFrontend::Result::Complete);
    EXPECT_EQ(program.getTranslationUnit(0)->getSystemChoices(),
              (std::vector<std::string>{"__lower ( 1 + 2 )", "_GNU_SOURCE 1", "_FILE_OFFSET_BITS 6 ## 4"}));
}

TEST(IncludeRecorderTest, withoutSystemHeadersNothingIsChosen) {
    EXPECT_TRUE(Reading("#define _GNU_SOURCE\nint a;\n").unit().getSystemChoices().empty());
}

TEST(IncludeRecorderTest, aUsersHeaderThatClaimsToBeTheSystemsIsTheUsers) {
    const SourceFolder folder;
    folder.write("lib/stdio.h", "#ifndef OWN\n#define OWN\n#pragma GCC system_header\n#include_next <stdio.h>\n"
                                "#include <string.h>\nint own_printf(const char *, ...);\n#endif\n");
    Tessel::ProgramUnit program;
    const std::string path = folder.write("a.c", "#include <stdio.h>\n#include <stdio.h>\n");
    ASSERT_EQ(CFrontend({{folder.pathOf("lib")}, {}, ""}).read(path, program), CFrontend::Result::Complete);
    EXPECT_EQ(program.getTranslationUnit(0)->getSystemIncludes(),
              (std::vector<std::string>{"<stdio.h>", "<string.h>"}));
    EXPECT_EQ(program.getTranslationUnit(0)->getChildCount(), 1u);
}

} // namespace Kova::Frontends
