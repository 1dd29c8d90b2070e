// SPDX-License-Identifier: MIT
#pragma once

#include <clang/Basic/SourceLocation.h>

#include <cstddef>
#include <string>
#include <vector>

namespace clang {
class SourceManager;
}

namespace Kova::Frontends {

/// A line that speaks to the compiler and is no part of Clang's tree.
struct Directive {
    clang::SourceLocation place;
    /// All of the line, such as `#pragma omp parallel`.
    std::string text;
};

/// The directives of a file and of the user's headers, handed out while the tree grows: in their order, each once.
class Directives {
public:
    /// To be called in the order in which the directives are met.
    void add(clang::SourceLocation place, std::string text) { m_all.push_back({place, std::move(text)}); }

    /// Those before a place that nobody has taken yet.
    [[nodiscard]] std::vector<Directive> takeBefore(clang::SourceLocation end, const clang::SourceManager& sources);
    [[nodiscard]] std::vector<Directive> takeRest();
    /// True when takeBefore would give something.
    [[nodiscard]] bool areBefore(clang::SourceLocation end, const clang::SourceManager& sources) const;

private:
    std::vector<Directive> m_all;
    std::size_t m_next = 0;
};

} // namespace Kova::Frontends
