// SPDX-License-Identifier: MIT
#include "environment/core/Console.h"

#include <gtest/gtest.h>

#include <iostream>
#include <sstream>
#include <vector>

using namespace Kova;

namespace {

class Recorder final : public Console {
public:
    Recorder(std::string tag, bool flag, std::vector<std::string>& lines)
        : m_tag(std::move(tag)),
          m_flag(flag),
          m_lines(lines) {}
    void log(int level, const std::string& text) override {
        m_lines.push_back(m_tag + (m_flag ? "|" : "|false|") + std::to_string(level) + "|" + text);
    }

private:
    std::string m_tag;
    bool m_flag;
    std::vector<std::string>& m_lines;
};

class ConsoleTest : public testing::Test {
protected:
    ~ConsoleTest() override { setConsoleFactory({}); }

    void record() {
        setConsoleFactory([this](const std::string& tag, bool flag) {
            ++m_made;
            return std::make_unique<Recorder>(tag, flag, m_lines);
        });
    }

    std::vector<std::string> m_lines;
    int m_made = 0;
};

TEST_F(ConsoleTest, HasTheLevelsThatViewsUse) {
    EXPECT_EQ(Console::Warning, 2);
    EXPECT_EQ(Console::AuxUnavailable, 3);
    EXPECT_EQ(Console::Error, 4);
}

TEST_F(ConsoleTest, WritesThroughTheFactorysConsoles) {
    record();
    getOutputConsole("One", true).log(2, "first");
    getOutputConsole("Two", true).log(Console::Error, "second");
    getOutputConsole("One", true).log(77, "third");
    EXPECT_EQ(m_lines, (std::vector<std::string>{"One|2|first", "Two|4|second", "One|77|third"}));
}

TEST_F(ConsoleTest, MakesOneConsoleForATagAndAFlag) {
    record();
    Console& first = getOutputConsole("One", true);
    EXPECT_EQ(&getOutputConsole("One", true), &first);
    EXPECT_NE(&getOutputConsole("Two", true), &first);
    EXPECT_NE(&getOutputConsole("One", false), &first);
    EXPECT_EQ(m_made, 3);
}

TEST_F(ConsoleTest, TellsTheFactoryTheFlag) {
    record();
    getOutputConsole("One", false).log(2, "first");
    getOutputConsole("One", true).log(2, "second");
    EXPECT_EQ(m_lines, (std::vector<std::string>{"One|false|2|first", "One|2|second"}));
}

TEST_F(ConsoleTest, ForgetsConsolesWithTheirFactory) {
    record();
    (void)getOutputConsole("One", true);
    record();
    (void)getOutputConsole("One", true);
    EXPECT_EQ(m_made, 2);
}

TEST_F(ConsoleTest, WritesToStandardErrorByDefault) {
    setConsoleFactory({});
    std::ostringstream text;
    std::streambuf* const before = std::cerr.rdbuf(text.rdbuf());
    getOutputConsole("Tag", true).log(4, "went wrong");
    getOutputConsole("Tag", false).log(4, "again");
    std::cerr.rdbuf(before);
    EXPECT_EQ(text.str(), "Tag: went wrong\nTag: again\n");
}

TEST_F(ConsoleTest, FallsBackWhereTheFactoryMakesNothing) {
    setConsoleFactory([](const std::string&, bool) { return std::unique_ptr<Console>(); });
    std::ostringstream text;
    std::streambuf* const before = std::cerr.rdbuf(text.rdbuf());
    getOutputConsole("Tag", true).log(4, "still heard");
    std::cerr.rdbuf(before);
    EXPECT_EQ(text.str(), "Tag: still heard\n");
}

} // namespace
