// SPDX-License-Identifier: MIT
#include "environment/core/Console.h"

#include <iostream>
#include <map>
#include <utility>

namespace Kova {

namespace {

class StandardErrorConsole final : public Console {
public:
    explicit StandardErrorConsole(std::string tag) : m_tag(std::move(tag)) {}

    void log(int /*level*/, const std::string& text) override { std::cerr << m_tag << ": " << text << '\n'; }

private:
    std::string m_tag;
};

struct Registry {
    ConsoleFactory factory;
    std::map<std::pair<std::string, bool>, std::unique_ptr<Console>> consoles;
};

Registry& registry() {
    static Registry instance;
    return instance;
}

} // namespace

Console& getOutputConsole(const std::string& tag, bool flag) {
    Registry& all = registry();
    std::unique_ptr<Console>& console = all.consoles[{tag, flag}];
    if (!console && all.factory)
        console = all.factory(tag, flag);
    if (!console)
        console = std::make_unique<StandardErrorConsole>(tag);
    return *console;
}

void setConsoleFactory(ConsoleFactory factory) {
    Registry& all = registry();
    all.consoles.clear();
    all.factory = std::move(factory);
}

} // namespace Kova
