// SPDX-License-Identifier: MIT
#pragma once

#include "environment/core/Console.h"

#include <memory>
#include <string>
#include <vector>

namespace Kova::Tests {

/// What all consoles are told while it lives, as "tag level text"; the tag has a ! when the console was asked for
/// without the flag.
class HeardLines {
public:
    HeardLines() {
        setConsoleFactory([this](const std::string& tag, bool flag) {
            return std::make_unique<Listener>(flag ? tag : tag + '!', lines);
        });
    }
    ~HeardLines() { setConsoleFactory({}); }
    HeardLines(const HeardLines&) = delete;
    HeardLines& operator=(const HeardLines&) = delete;

    std::vector<std::string> lines;

private:
    class Listener final : public Console {
    public:
        Listener(std::string tag, std::vector<std::string>& lines) : m_tag(std::move(tag)), m_lines(lines) {}
        void log(int level, const std::string& text) override {
            m_lines.push_back(m_tag + ' ' + std::to_string(level) + ' ' + text);
        }

    private:
        std::string m_tag;
        std::vector<std::string>& m_lines;
    };
};

} // namespace Kova::Tests
