// SPDX-License-Identifier: MIT
#include "environment/printing/OneLine.h"

#include "environment/printing/OneLineSink.h"
#include "environment/printing/PiecePrinter.h"

namespace Kova::Backends {

std::string printOnOneLine(const Tessel::TesselBase& node, PieceLanguage& language) {
    OneLineSink sink;
    PiecePrinter(language, sink).print(node);
    return sink.getLine();
}

} // namespace Kova::Backends
