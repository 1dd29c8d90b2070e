// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/lamport/DependenceFacts.h"

#include <isl/cpp.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace Kova::Tessel {
class BlockStatement;
class DeclarationBase;
} // namespace Kova::Tessel

namespace DepGraph {

/// Owns an isl context; every isl object made in it must be gone before.
class IslContext {
public:
    IslContext();
    ~IslContext();
    IslContext(const IslContext&) = delete;
    IslContext& operator=(const IslContext&) = delete;

    [[nodiscard]] isl::ctx get() const { return isl::ctx(m_context); }

private:
    isl_ctx* m_context;
};

/// Memory that occurrences share: a variable, or what a pointer variable leads to, and the members chosen of it.
struct Memory {
    const Kova::Tessel::DeclarationBase* variable = nullptr;
    /// The memory behind the pointer rather than the pointer itself; an array's elements count as its own.
    bool pointee = false;
    /// Behind a second pointer, one that was found behind the first, as the rows of `double** rows`.
    bool loaded = false;
    /// The members chosen on the way, outermost first, up to the first union (whose members overlap). Two accesses may
    /// meet only when one's list begins the other's.
    std::vector<const Kova::Tessel::DeclarationBase*> members;

    [[nodiscard]] bool operator==(const Memory& other) const {
        return variable == other.variable && pointee == other.pointee && loaded == other.loaded &&
               members == other.members;
    }
};

/// Whether an access to the one may be to the other as well, whatever their subscripts are.
[[nodiscard]] bool mayMeet(const Memory& first, const Memory& second);

/// One read or one write of memory by one occurrence.
struct Access {
    /// The word that is printed.
    const Kova::Tessel::ExpressionBase* occurrence = nullptr;
    Memory memory;
    bool writes = false;
    /// The loops around it inside the block, outermost first.
    std::vector<const Kova::Tessel::LoopStatement*> loops;
    /// A position before each loop and one after the last, so loops.size() + 1 numbers: accesses are executed in the
    /// lexicographic order of (positions[0], iteration[0], positions[1], ..., positions[loops.size()]).
    std::vector<int> positions;
    /// Iterations in which it may be executed, a set of the unknowns to the vectors of iteration numbers (each loop
    /// counts from 0, one dimension a loop). It may hold more than the program executes, never less.
    isl::set domain;
    /// For each subscript its value, a function of the domain; none where it is not affine. Fewer subscripts than
    /// another access's mean that the whole rest is accessed.
    std::vector<std::optional<isl::pw_aff>> subscripts;
    /// None when domain and subscripts are exactly what the program does.
    Assumption assumption;
};

/// What a block does to memory, as sets and functions of isl.
class AccessModel {
public:
    explicit AccessModel(Kova::Tessel::BlockStatement& block);
    ~AccessModel();
    AccessModel(const AccessModel&) = delete;
    AccessModel& operator=(const AccessModel&) = delete;

    [[nodiscard]] isl::ctx getContext() const { return m_context.get(); }
    /// In the order in which they are printed; of one occurrence's, the read before the write.
    [[nodiscard]] const std::vector<Access>& getAccesses() const { return m_accesses; }
    /// Where the block's declarations give their variables a value, or an unknown one without initializer: writes of
    /// the whole variable that no word stands for, so `occurrence` is null. In the order of execution.
    [[nodiscard]] const std::vector<Access>& getDeclarations() const { return m_declarations; }
    /// The jump that makes the order of execution unknown (backward, or into a loop); null when the order is known.
    [[nodiscard]] const Kova::Tessel::TesselBase* getDisorder() const { return m_disorder; }

private:
    IslContext m_context;
    std::vector<Access> m_accesses;
    std::vector<Access> m_declarations;
    const Kova::Tessel::TesselBase* m_disorder = nullptr;
};

} // namespace DepGraph
