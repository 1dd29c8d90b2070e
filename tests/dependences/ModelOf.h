// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/lamport/AccessModel_p.h"
#include "tests/frontends/c/Reading.h"

#include <gtest/gtest.h>

#include <string>
#include <unordered_map>
#include <vector>

namespace Kova::Test {

/// The accesses of a C function.
class ModelOf {
public:
    /// What is looked at of the first function that has a body.
    enum class Part { Body, BodyOfFirstLoop };

    /// @param parameters of the function. @param statements of its body. @param declarations before the function.
    ModelOf(const std::string& parameters, const std::string& statements, const std::string& declarations = {},
            Part part = Part::Body);
    ModelOf(const std::string& parameters, const std::string& statements, Part part)
        : ModelOf(parameters, statements, {}, part) {}
    /// @param text of a whole file.
    explicit ModelOf(const std::string& text, Part part = Part::Body);

    /// The word of an access with its number among those of its name in the block: "a0", "a1".
    [[nodiscard]] std::string wordOf(const DepGraph::Access& access) const;
    /// All reads or writes of a word. @param word as wordOf() gives it.
    [[nodiscard]] std::vector<const DepGraph::Access*> findAll(const std::string& word, bool writes) const;
    /// The accesses by their words in the order of the model, "a0 r, a0 w, i1 r".
    [[nodiscard]] std::string words() const;
    /// One line for each access with all that is known of it, for people.
    [[nodiscard]] std::string text() const;

    Reading reading;
    Tessel::BlockStatement& block;
    DepGraph::AccessModel model;

private:
    std::unordered_map<const Tessel::ExpressionBase*, std::string> m_words;
};

/// Whether a word reads once, exactly in these iterations, exactly these elements. @param domain and the values of
/// subscripts are in isl's notation, "[n] -> { [i] : 0 <= i < n }" and "{ [i] -> [2i + 1] }"; "?" is an unknown one.
[[nodiscard]] testing::AssertionResult reads(const ModelOf& of, const std::string& word, const std::string& domain,
                                             const std::vector<std::string>& subscripts = {},
                                             DepGraph::Doubt doubt = DepGraph::Doubt::None);
[[nodiscard]] testing::AssertionResult writes(const ModelOf& of, const std::string& word, const std::string& domain,
                                              const std::vector<std::string>& subscripts = {},
                                              DepGraph::Doubt doubt = DepGraph::Doubt::None);
/// Whether there is one access of the kind with this doubt.
[[nodiscard]] testing::AssertionResult readsWith(const ModelOf& of, const std::string& word, DepGraph::Doubt doubt);
[[nodiscard]] testing::AssertionResult writesWith(const ModelOf& of, const std::string& word, DepGraph::Doubt doubt);
/// Whether a word has no access at all.
[[nodiscard]] testing::AssertionResult isSilent(const ModelOf& of, const std::string& word);

[[nodiscard]] std::string nameOf(DepGraph::Doubt doubt);

} // namespace Kova::Test
