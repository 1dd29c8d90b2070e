// SPDX-License-Identifier: MIT
#include "environment/analyses/callgraph/CallGraph.h"
#include "environment/tessel/BinaryExpression.h"
#include "tests/visualization/callgraph/TestedWidget.h"
#include "visualization/callgraph/CallGraphWidget.h"

#include <QtTest>

using Kova::Tessel::TranslationUnit;
using Procedure = SampleProgram::Procedure;

namespace {

struct Lists {
    std::vector<std::string> names;
    std::vector<std::pair<int, int>> edges;
    std::vector<Procedure*> declarations;
    std::vector<std::vector<std::string>> calls;

    explicit Lists(const ::CallGraph& graph) {
        TestedWidget::callGraphToLists(graph, names, edges, declarations, calls);
    }
};

} // namespace

class CallGraphListsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void listsFollowTheNames() {
        Sample sample;
        const ::CallGraph graph(&sample.unit());
        const Lists lists(graph);
        QCOMPARE(lists.names, (std::vector<std::string>{"alpha", "beta", "lonely", "main"}));
        QCOMPARE(lists.declarations,
                 (std::vector<Procedure*>{&sample.alpha, &sample.beta, &sample.lonely, &sample.main}));
        QCOMPARE(lists.edges, (std::vector<std::pair<int, int>>{{1, 1}, {3, 0}, {3, 1}}));
        QCOMPARE(lists.calls,
                 (std::vector<std::vector<std::string>>{{"beta(2)"}, {"alpha(7)", "alpha(3)"}, {"beta(1)"}}));
    }

    void capitalsComeFirst() {
        SampleProgram program;
        TranslationUnit& file = program.addFile("a.c");
        for (const char* name : {"zeta", "Zeta", "_x", "alpha"})
            SampleProgram::addProcedure(file, name);
        const ::CallGraph graph(&program.unit());
        QCOMPARE(Lists(graph).names, (std::vector<std::string>{"Zeta", "_x", "alpha", "zeta"}));
    }

    // A library's procedure has no entry: its number is the number of entries.
    void calleeWithoutEntryIsNumberedBehindAll() {
        LibraryUser program;
        const ::CallGraph graph(&program.unit());
        const Lists lists(graph);
        QCOMPARE(lists.names, std::vector<std::string>{"main"});
        QCOMPARE(lists.edges, (std::vector<std::pair<int, int>>{{0, 1}}));
        QCOMPARE(lists.calls, (std::vector<std::vector<std::string>>{{"puts(0)"}}));
    }

    // Two files have a helper of their own; each call leads to its own one.
    void fileLocalProceduresOfOneNameAreToldApart() {
        SampleProgram program;
        for (const char* path : {"a.c", "b.c"}) {
            TranslationUnit& file = program.addFile(path);
            Procedure& helper = SampleProgram::addProcedure(file, "helper");
            helper.setStorageClass(Kova::Tessel::StorageClass::Static);
            Procedure& caller = SampleProgram::addProcedure(file, std::string("caller_") + path[0]);
            SampleProgram::addCall(caller, helper, "1");
        }
        TestedWidget widget;
        widget.onNewProgram(program.unit());
        QCOMPARE(widget.nodeTexts(), (QStringList{"caller_a", "caller_b", "helper", "helper (b.c)"}));
        QCOMPARE(widget.edgeTexts(), (QStringList{"caller_a > helper", "caller_b > helper (b.c)"}));
    }

    void callsArePrintedInTheirFilesLanguage_data() {
        QTest::addColumn<int>("language");
        QTest::addColumn<QString>("text");
        QTest::newRow("C") << 0 << "f(1 != 2)";
        QTest::newRow("Fortran") << 1 << "f(1 /= 2)";
        QTest::newRow("any other") << 7 << "f(1 /= 2)";
    }
    void callsArePrintedInTheirFilesLanguage() {
        QFETCH(int, language);
        QFETCH(QString, text);
        using namespace Kova::Tessel;
        const auto literal = [](const char* number) {
            return std::make_unique<LiteralExpression>(LiteralExpression::Kind::Integer, number);
        };
        SampleProgram program;
        TranslationUnit& file = program.addFile("a", static_cast<SourceLanguage>(language));
        Procedure& f = SampleProgram::addProcedure(file, "f");
        Procedure& g = SampleProgram::addProcedure(file, "g");
        auto call = std::make_unique<SubroutineCallExpression>(std::make_unique<SubroutineReference>(f));
        call->appendArgument(std::make_unique<BinaryExpression>(BinaryOperator::NotEqual, literal("1"), literal("2")));
        g.getBody()->append(std::make_unique<ExpressionStatement>(std::move(call)));
        TestedWidget widget;
        widget.onNewProgram(program.unit());
        QCOMPARE(widget.getEdges()[0]->getToolTip(), text);
    }

    // A subroutine outside every file, as a host may make one.
    void callOutsideEveryFileIsPrintedAsC() {
        Procedure f("f", nullptr);
        f.setBody(std::make_unique<Kova::Tessel::BlockStatement>());
        SampleProgram::addCall(f, f, "1");
        TestedWidget widget;
        widget.onNewSubroutine(f);
        QCOMPARE(widget.edgeTexts(), QStringList{"f > f"});
        QCOMPARE(widget.getEdges()[0]->getToolTip(), QString("f(1)"));
    }

    void subroutineShowsWhatItReaches() {
        Sample sample;
        TestedWidget widget;
        widget.onNewSubroutine(sample.beta);
        QCOMPARE(widget.nodeTexts(), QStringList{"beta"});
        QCOMPARE(widget.edgeTexts(), QStringList{"beta > beta"});
    }

    void statementShowsItsOwnCallsOnly() {
        Sample sample;
        TestedWidget widget;
        widget.onNewStatement(*sample.secondCall);
        QCOMPARE(widget.nodeTexts(), (QStringList{"alpha", "main"}));
        QCOMPARE(widget.edgeTexts(), QStringList{"main > alpha"});
        QCOMPARE(widget.getEdges()[0]->getToolTip(), QString("alpha(3)"));
    }
};

QTEST_MAIN(CallGraphListsTest)
#include "CallGraphListsTest.moc"
