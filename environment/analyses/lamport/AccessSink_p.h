// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/lamport/Place_p.h"

namespace Kova::Tessel {
class SubroutineCallExpression;
} // namespace Kova::Tessel

namespace DepGraph {

/// Hears what an expression does to memory, in the order of evaluation.
class AccessSink {
public:
    virtual ~AccessSink() = default;

    virtual void read(const Place& place) = 0;
    virtual void write(const Place& place) = 0;
    /// A pointer is read only to be followed.
    virtual void followPointer(const Place& pointer) = 0;
    /// After the arguments were evaluated and what they lead to was reported.
    virtual void call(const Kova::Tessel::SubroutineCallExpression& call) = 0;
    /// What comes until leave() happens only if the condition has this truth value.
    virtual void enterIf(const Kova::Tessel::ExpressionBase& condition, bool value) = 0;
    virtual void leaveIf() = 0;
    /// The statements of a statement expression; the sink has to walk them.
    virtual void enterBlock(Kova::Tessel::BlockStatement& block) = 0;

protected:
    AccessSink() = default;
    AccessSink(const AccessSink&) = default;
    AccessSink& operator=(const AccessSink&) = default;
};

} // namespace DepGraph
