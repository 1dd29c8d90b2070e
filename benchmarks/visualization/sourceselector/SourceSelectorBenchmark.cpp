// SPDX-License-Identifier: MIT
#include "benchmarks/environment/printing/GeneratedBlock.h"
#include "benchmarks/environment/printing/NullSink.h"
#include "benchmarks/visualization/WidgetBenchmarks.h"
#include "visualization/sourceselector/SourceSelector.h"

#include <QMouseEvent>
#include <QScrollBar>

#include <malloc.h>

using namespace Kova;
using GUI::SourceSelector;

namespace {

/// A file with one subroutine of so many lines.
struct Program {
    explicit Program(std::int64_t lines) {
        Tessel::TranslationUnit& file = Tests::addUnit(unit, "a.c");
        Tests::define(file, "f", generator.make(static_cast<std::size_t>(lines)));
        root = &file;
    }

    Benchmark::GeneratedBlock generator;
    Tessel::ProgramUnit unit;
    Tessel::TranslationUnit* root = nullptr;
};

struct ShownProgram : Program {
    explicit ShownProgram(std::int64_t lines) : Program(lines) {
        selector.resize(1280, 800);
        selector.setRootNode(root);
        selector.grab();
    }

    /// The middle of a character in the viewport.
    [[nodiscard]] QPoint cell(int line, int column) const {
        const QFontMetrics metrics(selector.getFont());
        return {column * metrics.averageCharWidth() + metrics.averageCharWidth() / 2,
                line * metrics.height() + metrics.descent() + metrics.height() / 2 -
                    selector.verticalScrollBar()->value()};
    }
    void moveTo(const QPoint& position) {
        QMouseEvent event(QEvent::MouseMove, position, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(selector.viewport(), &event);
    }

    SourceSelector selector;
};

/// The plain way: the same text into a sink that drops it.
void nullSink(benchmark::State& state) {
    Program program(state.range(0));
    Benchmark::NullSink sink;
    for (auto _ : state) {
        Shared::ProgramTextBuilder builder(sink, SourceSelector().getOptions());
        program.root->accept(builder);
    }
}

void setRootNode(benchmark::State& state) {
    Program program(state.range(0));
    SourceSelector selector;
    for (auto _ : state)
        selector.setRootNode(program.root);
    state.counters["lines"] = selector.getText().getLineCount();
    state.counters["parts"] = selector.getText().getPartCount();
}

/// Between the brace of everything, and a name.
void hoverStep(benchmark::State& state) {
    ShownProgram program(state.range(0));
    const QPoint brace = program.cell(1, 4);
    const QPoint name = program.cell(3, 15);
    for (auto _ : state) {
        program.moveTo(brace);
        program.moveTo(name);
    }
    state.SetItemsProcessed(2 * state.iterations());
}

/// All of the viewport while everything is lit, the state asked for anew each time.
void repaint(benchmark::State& state) {
    ShownProgram program(state.range(0));
    program.selector.verticalScrollBar()->setValue(program.selector.verticalScrollBar()->maximum() / 2);
    QImage image(program.selector.viewport()->size(), QImage::Format_RGB32);
    for (auto _ : state) {
        program.selector.markNode(program.root, 1);
        program.selector.viewport()->render(&image);
    }
}

void mark(benchmark::State& state) {
    ShownProgram program(state.range(0));
    for (auto _ : state) {
        program.selector.clearSelection(2);
        program.selector.markNode(program.root, 2);
    }
}

/// What the allocator gave out for the text, beyond the characters themselves at two bytes each.
void memory(benchmark::State& state) {
    Program program(state.range(0));
    SourceSelector selector;
    for (auto _ : state) {
        const std::size_t before = mallinfo2().uordblks + mallinfo2().hblkhd;
        selector.setRootNode(program.root);
        const std::size_t used = mallinfo2().uordblks + mallinfo2().hblkhd - before;
        std::size_t characters = 0;
        for (int i = 0; i < selector.getText().getLineCount(); ++i)
            for (const SourceSelector::SStringPart& part : selector.getText().getLine(i))
                characters += static_cast<std::size_t>(part.text.size());
        const auto parts = static_cast<double>(selector.getText().getPartCount());
        // Texts that are shared take less than their characters: counted in full.
        state.counters["bytes_a_part"] = static_cast<double>(used) / parts;
        state.counters["text_bytes_a_part"] = 2.0 * static_cast<double>(characters) / parts;
    }
}

} // namespace

BENCHMARK(nullSink)->Arg(200)->Arg(2000)->Arg(20000)->Unit(benchmark::kMicrosecond);
BENCHMARK(setRootNode)->Arg(200)->Arg(2000)->Arg(20000)->Unit(benchmark::kMicrosecond);
BENCHMARK(hoverStep)->Arg(200)->Arg(2000)->Arg(20000)->Unit(benchmark::kMicrosecond);
BENCHMARK(repaint)->Arg(200)->Arg(2000)->Arg(20000)->Unit(benchmark::kMillisecond);
BENCHMARK(mark)->Arg(200)->Arg(2000)->Arg(20000)->Unit(benchmark::kMicrosecond);
BENCHMARK(memory)->Arg(20000)->Iterations(1);

int main(int argc, char** argv) {
    return Benchmark::runWithWidgets(argc, argv);
}
