// SPDX-License-Identifier: MIT
#pragma once

#include <clang/Basic/SourceLocation.h>
#include <llvm/ADT/DenseMap.h>

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace clang {
class Attr;
class Preprocessor;
class Token;
} // namespace clang

namespace Kova::Frontends {

class SystemHeaders;

/// Remembers what the program writes in `__attribute__((...))`, be it known to Clang or not. Clang drops what it does
/// not know, moves some attributes into types and renders others as no other compiler takes them. So each
/// `__attribute__` is followed, as Clang reads it, by one more that holds nothing but a number: Clang attaches that to
/// the declaration or statement that the source means.
class AttributeTexts {
public:
    explicit AttributeTexts(const SystemHeaders& system) : m_system(system) {}

    /// To be called before the preprocessor gives its first word. This outlives its last. The words of directives are
    /// not among them.
    void watch(clang::Preprocessor& preprocessor);

    /// The attributes of one `__attribute__`, each as its words stand there, macros replaced: `aligned(8)`. Null for an
    /// attribute that holds no number of ours.
    [[nodiscard]] const std::vector<std::string>* find(const clang::Attr& attribute) const;
    /// The one attribute that stands at a place, as its words stand there; null when none does. Clang attaches no
    /// number to a statement.
    [[nodiscard]] const std::string* findAt(clang::SourceLocation place) const;
    /// True for what Clang has to say about an attribute that the program does not have.
    [[nodiscard]] static bool isAboutNumber(const std::string& message);

private:
    void take(clang::Preprocessor& preprocessor, const clang::Token& token);
    void takeWord(const clang::Preprocessor& preprocessor, const clang::Token& token);
    void appendNumber(clang::Preprocessor& preprocessor, clang::SourceLocation place);

    const SystemHeaders& m_system;
    std::vector<std::vector<std::string>> m_all;
    // The number among all and the number among those of one `__attribute__`, by the first word's place. Looked up,
    // never walked.
    llvm::DenseMap<clang::SourceLocation, std::pair<std::size_t, std::size_t>> m_places;
    // Of the attribute that is being read: parentheses that are open, 0 before the first and without an attribute.
    bool m_isOpen = false;
    int m_depth = 0;
    // Words of ours that are still to come.
    unsigned m_own = 0;
};

} // namespace Kova::Frontends
