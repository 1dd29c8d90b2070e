// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/TranslationUnit.h"

#include <QString>

namespace Kova::Shell {

/// What a source file is written in, by the ending of its name. What is not Fortran's is taken for C: header and
/// include files bear many endings, or none.
[[nodiscard]] Tessel::SourceLanguage languageOf(const QString& path);

} // namespace Kova::Shell
