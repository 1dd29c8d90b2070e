// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/BlockStatement.h"
#include "environment/tessel/ExpressionBase.h"

namespace Kova::Tessel {

/// A jump to the case label, anywhere inside the body, that the selector's value names.
class SwitchStatement final : public Visitable<SwitchStatement, StatementBase> {
public:
    SwitchStatement(ExpressionPtr selector, std::unique_ptr<BlockStatement> body) {
        appendChild(std::move(selector));
        appendChild(std::move(body));
    }

    [[nodiscard]] ExpressionBase* getSelector() const { return childAs<ExpressionBase>(0); }
    [[nodiscard]] BlockStatement* getBody() const { return childAs<BlockStatement>(1); }
};

} // namespace Kova::Tessel
