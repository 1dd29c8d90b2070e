// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/BlockStatement.h"
#include "environment/tessel/ExpressionStatement.h"
#include "environment/tessel/LiteralExpression.h"
#include "environment/tessel/ProgramUnit.h"
#include "environment/tessel/SubroutineCallExpression.h"
#include "environment/tessel/SubroutineDeclaration.h"
#include "environment/tessel/SubroutineReference.h"
#include "environment/tessel/TranslationUnit.h"

#include <memory>
#include <string>
#include <utility>

/// A program put together by hand: procedures whose bodies are calls with one number as their argument.
class SampleProgram {
public:
    using Procedure = Kova::Tessel::SubroutineDeclaration;

    Kova::Tessel::TranslationUnit& addFile(const std::string& path,
                                           Kova::Tessel::SourceLanguage language = Kova::Tessel::LANG_C) {
        return m_program.append(std::make_unique<Kova::Tessel::TranslationUnit>(path, language));
    }

    static Procedure& addPrototype(Kova::Tessel::TranslationUnit& file, const std::string& name) {
        auto procedure = std::make_unique<Procedure>(name, nullptr);
        Procedure& added = *procedure;
        file.append(std::move(procedure));
        return added;
    }

    static Procedure& addProcedure(Kova::Tessel::TranslationUnit& file, const std::string& name) {
        Procedure& procedure = addPrototype(file, name);
        procedure.setBody(std::make_unique<Kova::Tessel::BlockStatement>());
        return procedure;
    }

    /// Declared in a system header: known, but no part of the program.
    static Procedure& addExternal(Kova::Tessel::TranslationUnit& file, const std::string& name) {
        auto procedure = std::make_unique<Procedure>(name, nullptr);
        Procedure& added = *procedure;
        file.appendExternal(std::move(procedure));
        return added;
    }

    static std::unique_ptr<Kova::Tessel::SubroutineCallExpression> makeCall(Procedure& callee,
                                                                            const std::string& argument) {
        using namespace Kova::Tessel;
        auto call = std::make_unique<SubroutineCallExpression>(std::make_unique<SubroutineReference>(callee));
        call->appendArgument(std::make_unique<LiteralExpression>(LiteralExpression::Kind::Integer, argument));
        return call;
    }

    /// Appends `callee(argument);` to the caller's body.
    static Kova::Tessel::StatementBase& addCall(Procedure& caller, Procedure& callee, const std::string& argument) {
        auto statement = std::make_unique<Kova::Tessel::ExpressionStatement>(makeCall(callee, argument));
        Kova::Tessel::StatementBase& added = *statement;
        caller.getBody()->append(std::move(statement));
        return added;
    }

    [[nodiscard]] Kova::Tessel::ProgramUnit& unit() { return m_program; }

private:
    Kova::Tessel::ProgramUnit m_program;
};
