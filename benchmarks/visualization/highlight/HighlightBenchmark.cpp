// SPDX-License-Identifier: MIT
#include "benchmarks/visualization/WidgetBenchmarks.h"
#include "benchmarks/visualization/highlight/GeneratedSource.h"
#include "tests/visualization/highlight/PlainWalk.h"
#include "visualization/highlight/CSyntaxHighlighter.h"
#include "visualization/highlight/FortranSyntaxHighlighter.h"

#include <QPlainTextDocumentLayout>
#include <QTextDocument>

#include <benchmark/benchmark.h>

#include <functional>
#include <memory>

#ifdef KOVA_HAVE_KSYNTAXHIGHLIGHTING
#include <KSyntaxHighlighting/Definition>
#include <KSyntaxHighlighting/Repository>
#include <KSyntaxHighlighting/SyntaxHighlighter>
#include <KSyntaxHighlighting/Theme>
#endif

// The first colouring of a whole text, in a document laid out as plain text editors do: ours, the same walk without
// leaving anything out, and KSyntaxHighlighting where it is installed. "layout" is what Qt takes for a highlighter that
// colours nothing.

namespace {

using namespace Kova::Benchmark;

using MakeHighlighter = std::function<std::unique_ptr<QSyntaxHighlighter>(QTextDocument*)>;
using MakeText = QString (*)(int lines);

class IdleHighlighter : public QSyntaxHighlighter {
public:
    using QSyntaxHighlighter::QSyntaxHighlighter;

protected:
    void highlightBlock(const QString&) override {}
};

class PlainHighlighter : public QSyntaxHighlighter {
public:
    PlainHighlighter(QTextDocument* document, PlainWalk walk) : QSyntaxHighlighter(document), m_walk(std::move(walk)) {}

protected:
    void highlightBlock(const QString& text) override {
        setCurrentBlockState(
            m_walk.walk(text, previousBlockState(), [this](int start, int count, const QTextCharFormat& format) {
                setFormat(start, count, format);
            }));
    }

private:
    PlainWalk m_walk;
};

void colour(benchmark::State& state, const MakeText& makeText, const MakeHighlighter& makeHighlighter) {
    const QString text = makeText(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        state.PauseTiming();
        auto document = std::make_unique<QTextDocument>();
        document->setDocumentLayout(new QPlainTextDocumentLayout(document.get()));
        document->setPlainText(text);
        std::unique_ptr<QSyntaxHighlighter> highlighter = makeHighlighter(document.get());
        state.ResumeTiming();
        highlighter->rehighlight();
        state.PauseTiming();
        highlighter.reset();
        document.reset();
        state.ResumeTiming();
    }
}

void registerBenchmark(const char* name, MakeText makeText, const MakeHighlighter& makeHighlighter) {
    benchmark::RegisterBenchmark(name, [=](benchmark::State& state) { colour(state, makeText, makeHighlighter); })
        ->Arg(2000)
        ->Arg(20000)
        ->Arg(80000)
        ->Unit(benchmark::kMillisecond);
}

#ifdef KOVA_HAVE_KSYNTAXHIGHLIGHTING
void registerPeer(const char* name, MakeText makeText, KSyntaxHighlighting::Repository& repository,
                  const QString& language) {
    registerBenchmark(name, makeText, [&repository, language](QTextDocument* document) {
        auto highlighter = std::make_unique<KSyntaxHighlighting::SyntaxHighlighter>();
        highlighter->setTheme(repository.defaultTheme(KSyntaxHighlighting::Repository::LightTheme));
        highlighter->setDefinition(repository.definitionForName(language));
        highlighter->setDocument(document);
        return highlighter;
    });
}
#endif

template <class Highlighter>
std::unique_ptr<QSyntaxHighlighter> make(QTextDocument* document) {
    return std::make_unique<Highlighter>(document);
}

std::unique_ptr<QSyntaxHighlighter> makePlainC(QTextDocument* document) {
    return std::make_unique<PlainHighlighter>(document, plainC());
}

std::unique_ptr<QSyntaxHighlighter> makePlainFortran(QTextDocument* document) {
    return std::make_unique<PlainHighlighter>(document, plainFortran());
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
#ifdef KOVA_HAVE_KSYNTAXHIGHLIGHTING
    KSyntaxHighlighting::Repository repository;
    registerPeer("c/peer", generateCommentedC, repository, "C");
    registerPeer("fortran/peer", generateFortran, repository, "Fortran (Free Format)");
#endif
    registerBenchmark("c/ours", generateCommentedC, make<Kova::GUI::CSyntaxHighlighter>);
    registerBenchmark("c/plain", generateCommentedC, makePlainC);
    registerBenchmark("c/layout", generateCommentedC, make<IdleHighlighter>);
    registerBenchmark("fortran/ours", generateFortran, make<Kova::GUI::FortranSyntaxHighlighter>);
    registerBenchmark("fortran/plain", generateFortran, makePlainFortran);
    registerBenchmark("fortran/layout", generateFortran, make<IdleHighlighter>);
    return runWithWidgets(argc, argv);
}
