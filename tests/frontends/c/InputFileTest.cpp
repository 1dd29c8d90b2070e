// SPDX-License-Identifier: MIT
#include "frontends/c/InputFile_p.h"
#include "tests/frontends/c/Reading.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sys/stat.h>
#include <thread>

namespace Kova::Frontends {

using namespace Test;

TEST(InputFileTest, aFileIsItsText) {
    const SourceFolder folder;
    const InputFile file = readInputFile(folder.write("a.c", "int a;\r\n"));
    EXPECT_EQ(file.text, "int a;\r\n");
    EXPECT_EQ(file.error, "");
    EXPECT_EQ(readInputFile(folder.write("empty.c", "")).error, "");
}

TEST(InputFileTest, whatCannotBeRead) {
    const SourceFolder folder;
    EXPECT_EQ(readInputFile(folder.pathOf("no.c")).error, "cannot read the file: No such file or directory");
    EXPECT_EQ(readInputFile(folder.pathOf("")).error, "cannot read the file: it is a directory");
    EXPECT_EQ(readInputFile("").error, "cannot read the file: No such file or directory");
    EXPECT_EQ(readInputFile("/dev/zero").error, "cannot read the file: it is neither a regular file nor a pipe");
    std::filesystem::create_symlink("nowhere", folder.pathOf("dangling.c"));
    EXPECT_EQ(readInputFile(folder.pathOf("dangling.c")).error, "cannot read the file: No such file or directory");
    std::filesystem::create_symlink("loop.c", folder.pathOf("loop.c"));
    EXPECT_EQ(readInputFile(folder.pathOf("loop.c")).error, "cannot read the file: Too many levels of symbolic links");
}

TEST(InputFileTest, aBinaryFileIsNoText) {
    const SourceFolder folder;
    EXPECT_EQ(readInputFile(folder.write("a.c", std::string("ELF\0\0", 5))).error,
              "this is no C text: byte 3 is NUL, as in a binary file");
}

TEST(InputFileTest, aPipeIsReadOnce) {
    const SourceFolder folder;
    const std::string path = folder.pathOf("pipe.c");
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    std::thread writer([&path] { std::ofstream(path) << "int piped;"; });
    Tessel::ProgramUnit program;
    EXPECT_EQ(CFrontend({}).read(path, program), CFrontend::Result::Complete);
    writer.join();
    ASSERT_EQ(program.getChildCount(), 1u);
    EXPECT_EQ(program.getTranslationUnit(0)->getDeclaration(0)->getName(), "piped");
}

} // namespace Kova::Frontends
