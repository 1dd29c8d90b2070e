// SPDX-License-Identifier: MIT
#include "environment/printing/OutToFortran.h"

#include "environment/printing/FortranPieces.h"
#include "environment/printing/OneLine.h"
#include "environment/tessel/ExpressionBase.h"

namespace Kova::Backends {

std::string OutToFortran::expressionToString(const Tessel::ExpressionBase& expression) {
    FortranPieces language;
    return printOnOneLine(expression, language);
}

} // namespace Kova::Backends
