// SPDX-License-Identifier: MIT
#include "environment/printing/OutToC.h"

#include "environment/printing/CStatementPieces.h"
#include "environment/printing/OneLine.h"
#include "environment/tessel/ExpressionBase.h"

namespace Kova::Backends {

std::string OutToC::expressionToString(const Tessel::ExpressionBase& expression) {
    CStatementPieces language;
    return printOnOneLine(expression, language);
}

} // namespace Kova::Backends
