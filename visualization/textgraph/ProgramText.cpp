// SPDX-License-Identifier: MIT
#include "visualization/textgraph/ProgramText.h"

#include "environment/printing/IProgramOutputStream.h"
#include "environment/printing/ProgramTextBuilder.h"
#include "environment/tessel/BaseVisitor.h"
#include "environment/tessel/ExpressionBase.h"
#include "environment/tessel/StatementBase.h"

#include <ostream>

namespace Kova::GUI::TextGraph {

namespace {

using Tessel::TesselBase;

/// A checked cast by a visit, which costs a fraction of a dynamic_cast: there is one for every word.
class ExpressionCast final : public Tessel::BaseVisitor {
public:
    using BaseVisitor::visit;
    void visit(Tessel::ExpressionBase& node) override { m_expression = &node; }

    [[nodiscard]] const Tessel::ExpressionBase* cast(TesselBase& node) {
        m_expression = nullptr;
        node.accept(*this);
        return m_expression;
    }

private:
    const Tessel::ExpressionBase* m_expression = nullptr;
};

class ProgramOutputStream : public Shared::IProgramOutputStream {
public:
    enum Granularity : int { Expressions = 0, Statements = 1 };

    ProgramOutputStream(ProgramLines& lines, Granularity granularity) : m_lines(&lines), m_granularity(granularity) {}

    void write(const char* text, TesselBase& node) override {
        // A printer opens its first line like all others; text that comes before is not lost.
        if (m_lines->empty())
            m_lines->emplace_back();
        std::list<BasicWord>& line = m_lines->back();
        if (m_granularity == Expressions) {
            line.push_back({text, m_cast.cast(node)});
            return;
        }
        if (line.empty())
            mark(line, node);
        line.back().text += text;
    }

    void writeNewLine(const char* text, TesselBase& node) override {
        m_lines->emplace_back();
        if (m_granularity == Statements)
            mark(m_lines->back(), node);
        write(text, node);
    }

private:
    static void mark(std::list<BasicWord>& line, const TesselBase& opener) {
        line.push_back({{}, dynamic_cast<const Tessel::StatementBase*>(&opener)});
    }

    ProgramLines* m_lines;
    int m_granularity;
    ExpressionCast m_cast;
};

void build(ProgramLines& out, Tessel::StatementBase& stmt, ProgramOutputStream::Granularity granularity) {
    ProgramOutputStream stream(out, granularity);
    const Shared::ProgramTextBuilder::Options options;
    Shared::ProgramTextBuilder builder(stream, options);
    stmt.accept(builder);
}

} // namespace

void buildStmtProgramText(ProgramLines& out, Tessel::StatementBase& stmt) {
    build(out, stmt, ProgramOutputStream::Statements);
}

void buildExprProgramText(ProgramLines& out, Tessel::StatementBase& stmt) {
    build(out, stmt, ProgramOutputStream::Expressions);
}

std::ostream& operator<<(std::ostream& stream, ProgramLines& lines) {
    for (const std::list<BasicWord>& line : lines) {
        for (const BasicWord& word : line)
            stream << word.text;
        stream << std::endl;
    }
    return stream;
}

} // namespace Kova::GUI::TextGraph
