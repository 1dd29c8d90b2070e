// SPDX-License-Identifier: MIT
#pragma once

#include "environment/printing/IProgramOutputStream.h"
#include "environment/printing/ProgramTextBuilder.h"
#include "environment/tessel/TesselBase.h"

#include <map>
#include <stdexcept>
#include <string>
#include <vector>

namespace Kova::Tests {

/// A sink that remembers everything.
class PrintedLines final : public Shared::IProgramOutputStream {
public:
    struct Part {
        std::string text;
        Tessel::TesselBase* node;
    };
    struct Line {
        Tessel::TesselBase* opener;
        std::vector<Part> parts;
    };

    void write(const char* text, Tessel::TesselBase& node) override {
        if (throwAfter == 0)
            throw std::runtime_error("the sink is full");
        --throwAfter;
        isWellFormed = isWellFormed && !lines.empty() && std::string(text).find_first_of("\n\r") == std::string::npos;
        if (lines.empty())
            lines.push_back({nullptr, {}});
        lines.back().parts.push_back({text, &node});
        partsOf[&node].push_back(text);
    }
    void writeNewLine(const char* text, Tessel::TesselBase& node) override {
        lines.push_back({&node, {}});
        write(text, node);
    }

    [[nodiscard]] std::vector<std::string> getTexts() const {
        std::vector<std::string> texts;
        for (const Line& line : lines) {
            texts.emplace_back();
            for (const Part& part : line.parts)
                texts.back() += part.text;
        }
        return texts;
    }
    /// The lines that a node opens.
    [[nodiscard]] std::vector<std::string> linesOf(const Tessel::TesselBase& node) const {
        std::vector<std::string> texts;
        const std::vector<std::string> all = getTexts();
        for (std::size_t i = 0; i < lines.size(); ++i)
            if (lines[i].opener == &node)
                texts.push_back(all[i]);
        return texts;
    }
    void print(Tessel::TesselBase& root, const Shared::ProgramTextBuilder::Options& options = {}) {
        Shared::ProgramTextBuilder builder(*this, options);
        root.accept(builder);
    }

    std::vector<Line> lines;
    std::map<const Tessel::TesselBase*, std::vector<std::string>> partsOf;
    /// False once a text held a line end or came before the first line.
    bool isWellFormed = true;
    /// How many writes are taken before one throws.
    std::size_t throwAfter = static_cast<std::size_t>(-1);
};

[[nodiscard]] inline std::vector<std::string> printed(Tessel::TesselBase& root,
                                                      const Shared::ProgramTextBuilder::Options& options = {}) {
    PrintedLines lines;
    lines.print(root, options);
    return lines.getTexts();
}

} // namespace Kova::Tests
