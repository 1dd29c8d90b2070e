// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/Diagnostic.h"

#include <clang/Basic/Diagnostic.h>

#include <vector>

namespace Kova::Frontends {

/// Keeps what Clang has to say instead of printing it. What is said of a macro's inside is said of the macro's use.
class DiagnosticCollector final : public clang::DiagnosticConsumer {
public:
    /// @param path names the file for messages that are of no place.
    explicit DiagnosticCollector(std::string path) : m_path(std::move(path)) {}

    void HandleDiagnostic(clang::DiagnosticsEngine::Level level, const clang::Diagnostic& info) override;

    [[nodiscard]] std::vector<Tessel::Diagnostic> take() { return std::move(m_diagnostics); }

private:
    std::string m_path;
    std::vector<Tessel::Diagnostic> m_diagnostics;
};

} // namespace Kova::Frontends
