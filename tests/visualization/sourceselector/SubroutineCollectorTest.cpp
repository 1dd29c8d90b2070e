// SPDX-License-Identifier: MIT
#include "visualization/sourceselector/SubroutineCollector.h"

#include "environment/tessel/ModuleDeclaration.h"
#include "tests/environment/support/Build.h"

#include <QtTest>

using namespace Kova::GUI;
using namespace Kova::Tessel;
using namespace Kova::Tests;

class SubroutineCollectorTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void collectsInProgramOrder();
    void looksIntoModulesButNotIntoSubroutines();
};

void SubroutineCollectorTest::collectsInProgramOrder() {
    ProgramUnit program;
    TranslationUnit& first = addUnit(program, "a.c");
    SubroutineDeclaration& prototype = declare(first, "z");
    SubroutineDeclaration& defined = define(first, "b");
    first.append(std::make_unique<VariableDeclaration>("v", nullptr));
    SubroutineDeclaration& last = define(addUnit(program, "b.c"), "a");
    SubroutineCollector collector;
    program.accept(collector);
    QCOMPARE(collector.getSubroutines(), (std::vector<SubroutineDeclaration*>{&prototype, &defined, &last}));
    SubroutineCollector ofOne;
    defined.accept(ofOne);
    QCOMPARE(ofOne.getSubroutines(), (std::vector<SubroutineDeclaration*>{&defined}));
}

void SubroutineCollectorTest::looksIntoModulesButNotIntoSubroutines() {
    ProgramUnit program;
    auto module = std::make_unique<ModuleDeclaration>("m");
    auto inside = std::make_unique<SubroutineDeclaration>("nested", nullptr);
    SubroutineDeclaration& outer = define(*module, "outer", block(declareHere(std::move(inside))));
    addUnit(program, "a.f90", LANG_FORTRAN).append(std::move(module));
    SubroutineCollector collector;
    program.accept(collector);
    QCOMPARE(collector.getSubroutines(), (std::vector<SubroutineDeclaration*>{&outer}));
    SubroutineCollector ofTheBody;
    outer.getBody()->accept(ofTheBody);
    QCOMPARE(ofTheBody.getSubroutines().size(), std::size_t(1));
}

QTEST_APPLESS_MAIN(SubroutineCollectorTest)
#include "SubroutineCollectorTest.moc"
