// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <memory>
#include <set>
#include <string>
#include <unordered_set>
#include <vector>

namespace Kova::Tessel {
class BlockStatement;
class DeclarationBase;
class SubroutineCallExpression;
class SubroutineDeclaration;
class VariableDeclaration;
} // namespace Kova::Tessel

namespace Kova::Tessel::Service {
class SubroutineIndex;
}

namespace DepGraph {

/// What a call may do to the memory that an argument leads to. All of it may be read.
struct ParameterUse {
    /// The object that the pointer leads to.
    bool writesDirectly = true;
    /// What pointers in that object lead to.
    bool writesBeyond = true;
};
/// As the parameter's declared type promises: nothing is written through a pointer to const.
[[nodiscard]] ParameterUse parameterUseOf(const Kova::Tessel::SubroutineCallExpression& call, std::size_t index);

/// What the calls in a block may write beside what their arguments lead to.
///
/// Subroutines with a body in the program are looked into. Those that system headers declare do not know the program's
/// variables, unless they call back; nothing is known of any others that are not declared pure or const.
class CallEffects {
public:
    explicit CallEffects(Kova::Tessel::BlockStatement& block);
    ~CallEffects();
    CallEffects(const CallEffects&) = delete;
    CallEffects& operator=(const CallEffects&) = delete;

    void add(const Kova::Tessel::SubroutineCallExpression& call);

    /// Whether a call may write a variable without naming it in the block: a global, or one whose address is known
    /// elsewhere.
    [[nodiscard]] bool mayWrite(const Kova::Tessel::VariableDeclaration& variable) const;
    [[nodiscard]] bool mayWriteThroughPointers() const { return m_writesAnything || m_writesThroughPointers; }

private:
    class BodyReader;

    void readBodies();
    void addWritten(const Kova::Tessel::VariableDeclaration& variable);
    [[nodiscard]] Kova::Tessel::SubroutineDeclaration* findBody(const Kova::Tessel::SubroutineDeclaration& subroutine);
    void findAddressesTaken(Kova::Tessel::BlockStatement& root);
    [[nodiscard]] bool isReachable(const Kova::Tessel::VariableDeclaration& variable) const;

    Kova::Tessel::BlockStatement& m_block;
    bool m_isFortran;
    bool m_writesAnything = false;
    bool m_writesThroughPointers = false;
    bool m_isReading = false;
    std::unique_ptr<Kova::Tessel::Service::SubroutineIndex> m_index;
    std::vector<Kova::Tessel::SubroutineDeclaration*> m_pending;
    // Looked up, never walked.
    std::unordered_set<const Kova::Tessel::DeclarationBase*> m_seen;
    std::unordered_set<const Kova::Tessel::DeclarationBase*> m_written;
    std::unordered_set<const Kova::Tessel::DeclarationBase*> m_addressTaken;
    /// Globals that other files of the program may mean by the same name.
    std::set<std::string> m_writtenNames;
};

} // namespace DepGraph
