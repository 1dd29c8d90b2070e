// SPDX-License-Identifier: MIT
#pragma once

#include "environment/printing/CDeclarationPieces.h"

namespace Kova::Tessel {
class BlockStatement;
}

namespace Kova::Backends {

/// How C writes statements: every statement of a block on a line of its own, bodies always in braces, braces on lines
/// of their own, labels one level less deep than what they mark.
class CStatementPieces : public CDeclarationPieces {
public:
    using CDeclarationPieces::CDeclarationPieces;
    using CDeclarationPieces::visit;
    void visit(Tessel::BlockStatement& node) override;
    void visit(Tessel::ExpressionStatement& node) override;
    void visit(Tessel::DeclarationStatement& node) override;
    void visit(Tessel::IfStatement& node) override;
    void visit(Tessel::SwitchStatement& node) override;
    void visit(Tessel::CaseStatement& node) override;
    void visit(Tessel::LabelStatement& node) override;
    void visit(Tessel::GotoStatement& node) override;
    void visit(Tessel::BreakStatement& node) override;
    void visit(Tessel::ContinueStatement& node) override;
    void visit(Tessel::ReturnStatement& node) override;
    void visit(Tessel::NullStatement& node) override;
    void visit(Tessel::OpaqueStatement& node) override;
    void visit(Tessel::ForStatement& node) override;
    void visit(Tessel::WhileStatement& node) override;
    void visit(Tessel::DoWhileStatement& node) override;

private:
    /// A label of a block and what the block prints with it.
    void label(const Tessel::BlockStatement& block, std::size_t index);
    /// What decides a branch or loop. An assignment there is clearer in parentheses.
    void condition(const Tessel::ExpressionBase* condition);
    /// What follows a header in parentheses; a lone semicolon when it is missing.
    void body(Tessel::BlockStatement* block);
};

} // namespace Kova::Backends
