// SPDX-License-Identifier: MIT
#include "shell/views/SubjectBlock.h"

#include "environment/tessel/LoopStatement.h"
#include "environment/tessel/SubroutineDeclaration.h"
#include "environment/tessel/service/Preorder.h"
#include "shell/program/Subject.h"

namespace Kova::Shell {

namespace {

Tessel::BlockStatement* blockAround(Tessel::TesselBase* node) {
    for (; node != nullptr; node = node->getParent())
        if (auto* block = dynamic_cast<Tessel::BlockStatement*>(node))
            return block;
    return nullptr;
}

const Tessel::LoopStatement* firstLoopIn(Tessel::BlockStatement& block) {
    for (const Tessel::TesselBase& node : Tessel::Service::Preorder(block))
        if (const auto* loop = dynamic_cast<const Tessel::LoopStatement*>(&node))
            return loop;
    return nullptr;
}

} // namespace

Tessel::BlockStatement* blockOf(const Subject& subject) {
    if (Tessel::StatementBase* statement = subject.getStatement())
        return blockAround(statement);
    Tessel::SubroutineDeclaration* subroutine = subject.getSubroutine();
    return subroutine != nullptr ? subroutine->getBody() : nullptr;
}

Tessel::StatementBase* statementOf(const Subject& subject) {
    Tessel::StatementBase* statement = subject.getStatement();
    return statement != nullptr ? statement : blockOf(subject);
}

bool isBlockWithLoops(const Subject& subject) {
    Tessel::BlockStatement* block = blockOf(subject);
    const Tessel::LoopStatement* first = block != nullptr ? firstLoopIn(*block) : nullptr;
    if (first == nullptr || subject.getKind() == Subject::Kind::Subroutine)
        return first != nullptr;
    const Tessel::SubroutineDeclaration* subroutine = subject.getSubroutine();
    return first == subject.getStatement() && (subroutine == nullptr || subroutine->getBody() != block);
}

} // namespace Kova::Shell
