// SPDX-License-Identifier: MIT
#pragma once

#include "environment/printing/ProgramTextBuilder.h"

namespace Kova::Tessel {
class DeclarationBase;
class StatementBase;
} // namespace Kova::Tessel

namespace Kova::Backends {

/// Says which declarations a text leaves out.
class DeclarationFilter {
public:
    using Options = Shared::ProgramTextBuilder::Options;

    DeclarationFilter() = default;
    explicit DeclarationFilter(const Options& options) : m_options(options), m_hidesAny(options != Options()) {}

    [[nodiscard]] bool hides(const Tessel::DeclarationBase& declaration) const {
        return m_hidesAny && hidesKindOf(declaration);
    }
    /// True for a statement that holds declarations, none of which is shown.
    [[nodiscard]] bool hides(const Tessel::StatementBase& statement) const {
        return m_hidesAny && hidesAllIn(statement);
    }
    [[nodiscard]] bool hidesIncludes() const { return m_options.hideExternalDeclarations; }

private:
    [[nodiscard]] bool hidesKindOf(const Tessel::DeclarationBase& declaration) const;
    [[nodiscard]] bool hidesAllIn(const Tessel::StatementBase& statement) const;

    Options m_options;
    bool m_hidesAny = false;
};

} // namespace Kova::Backends
