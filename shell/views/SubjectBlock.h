// SPDX-License-Identifier: MIT
#pragma once

namespace Kova::Tessel {
class BlockStatement;
class StatementBase;
} // namespace Kova::Tessel

namespace Kova::Shell {

class Subject;

/// The block that a view of blocks shows of a subject: a block itself, the body of a subroutine, the innermost block
/// around a loop or statement. Null for a program.
[[nodiscard]] Tessel::BlockStatement* blockOf(const Subject& subject);

/// The statement that a view of statements shows of a subject: a statement itself, the body of a subroutine. Null for a
/// program.
[[nodiscard]] Tessel::StatementBase* statementOf(const Subject& subject);

/// Whether a picture of the subject's block belongs into a gallery of everything: blocks that hold a loop, each once,
/// since two loops may have their block in common. Subroutines stand for their bodies.
[[nodiscard]] bool isBlockWithLoops(const Subject& subject);

} // namespace Kova::Shell
