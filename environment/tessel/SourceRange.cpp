// SPDX-License-Identifier: MIT
#include "environment/tessel/SourceRange.h"

#include "environment/tessel/SourceFile.h"

namespace Kova::Tessel {

std::string toString(const SourceRange& range) {
    if (range.file == nullptr)
        return {};
    std::string text = range.file->getPath();
    if (range.beginLine != 0)
        text += ':' + std::to_string(range.beginLine);
    if (range.beginLine != 0 && range.beginColumn != 0)
        text += ':' + std::to_string(range.beginColumn);
    return text;
}

} // namespace Kova::Tessel
