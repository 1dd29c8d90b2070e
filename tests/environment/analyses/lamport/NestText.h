// SPDX-License-Identifier: MIT
#pragma once

#include "tests/environment/analyses/lamport/NestDescription.h"

namespace Kova::Tests {

/// Writes a described nest as C, one statement a line.
class NestText {
public:
    [[nodiscard]] static std::string write(const Nest& nest) { return writeItems(nest, 0); }

    [[nodiscard]] static std::string write(const Affine& affine) {
        std::string text = std::to_string(affine.constant);
        for (std::size_t i = 0; i < affine.counters.size(); ++i)
            if (affine.counters[i] != 0)
                text += " + " + std::to_string(affine.counters[i]) + "*" + nameCounter(i);
        for (std::size_t i = 0; i < affine.unknowns.size(); ++i)
            if (affine.unknowns[i] != 0)
                text += " + " + std::to_string(affine.unknowns[i]) + "*" + nameUnknown(i);
        return text;
    }

private:
    [[nodiscard]] static std::string write(const NestOccurrence& occurrence) {
        std::string text = nameArray(occurrence.array);
        for (Affine subscript : occurrence.subscripts) {
            // Arrays begin at 0.
            subscript.constant += 40;
            text += "[" + write(subscript) + "]";
        }
        return text;
    }

    [[nodiscard]] static std::string write(const NestStatement& statement) {
        std::string text;
        for (const NestCondition& condition : statement.conditions)
            text += "if (" +
                    (condition.modulus == 0
                         ? write(condition.value) + " >= 0"
                         : "(" + write(condition.value) + ") % " + std::to_string(condition.modulus) + " == 0") +
                    ") ";
        text += write(statement.target) + (statement.compound ? " += 1" : " = 1");
        for (const NestOccurrence& read : statement.reads)
            text += " + " + write(read);
        return text + ";";
    }

    [[nodiscard]] static std::string writeItems(const Nest& items, std::size_t depth) {
        const std::string indent(4 * (depth + 1), ' ');
        const std::string counter = nameCounter(depth);
        std::string text;
        for (const NestItem& item : items) {
            if (item.statement) {
                text += indent + write(*item.statement) + "\n";
                continue;
            }
            const NestLoop& loop = *item.loop;
            text += indent + "for (int " + counter + " = " + write(loop.first) + "; " + counter +
                    (loop.step > 0 ? " <= " : " >= ") + write(loop.limit) + "; " + counter +
                    " += " + std::to_string(loop.step) + ") {\n" + writeItems(loop.body, depth + 1) + indent + "}\n";
        }
        return text;
    }
};

} // namespace Kova::Tests
