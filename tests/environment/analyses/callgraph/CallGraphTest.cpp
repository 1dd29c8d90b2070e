// SPDX-License-Identifier: MIT
#include "environment/analyses/callgraph/CallGraph.h"

#include "environment/tessel/ModuleDeclaration.h"
#include "tests/environment/analyses/callgraph/CallGraphText.h"
#include "tests/environment/support/Build.h"

#include <gtest/gtest.h>

using namespace Kova::Tessel;
using namespace Kova::Tests;

namespace {

class CallGraphTest : public testing::Test {
protected:
    void placeAt(SubroutineDeclaration& subroutine, const std::string& path, std::uint32_t line) {
        subroutine.setSourceRange({program.obtainSourceFile(path), line, 1, line, 20});
    }
    static SubroutineDeclaration& makeStatic(SubroutineDeclaration& subroutine) {
        subroutine.setStorageClass(StorageClass::Static);
        return subroutine;
    }
    static SubroutineDeclaration& declareExternal(TranslationUnit& unit, const std::string& name) {
        auto owner = std::make_unique<SubroutineDeclaration>(name, nullptr);
        SubroutineDeclaration& result = *owner;
        unit.appendExternal(std::move(owner));
        return result;
    }
    static SubroutineDeclaration* procedureOf(const CallGraph& graph, const std::string& key) {
        const auto found = graph.getGraph().find(key);
        return found != graph.getGraph().end() ? found->second->getSubProc() : nullptr;
    }

    ProgramUnit program;
    TranslationUnit& first = addUnit(program, "src/a.c");
    TranslationUnit& second = addUnit(program, "src/b.c");
};

TEST_F(CallGraphTest, IsEmptyForNothing) {
    EXPECT_TRUE(CallGraph(static_cast<ProgramUnit*>(nullptr)).getGraph().empty());
    EXPECT_TRUE(CallGraph(static_cast<StatementBase*>(nullptr)).getGraph().empty());
    EXPECT_TRUE(CallGraph(static_cast<SubroutineDeclaration*>(nullptr)).getGraph().empty());
    EXPECT_TRUE(CallGraph(&program).getGraph().empty());
}

TEST_F(CallGraphTest, CollectsCallsInOrder) {
    auto& zeta = define(first, "zeta");
    auto& alpha = define(first, "alpha");
    auto& main = define(first, "main");
    auto& one = static_cast<ExpressionStatement&>(perform(main, call(zeta)));
    perform(main, call(alpha));
    auto& two = static_cast<ExpressionStatement&>(perform(main, call(zeta, literal("2"))));
    const CallGraph graph(&program);
    EXPECT_EQ(textOf(graph), "alpha:\nmain: alpha*1 zeta*2\nzeta:\n");
    const auto& calls = graph.getGraph().at("main")->getCalls();
    const std::list<const SubroutineCallExpression*> expected = {
        static_cast<SubroutineCallExpression*>(one.getExpression()),
        static_cast<SubroutineCallExpression*>(two.getExpression())};
    EXPECT_EQ(calls.at(&zeta), expected);
    EXPECT_EQ(procedureOf(graph, "alpha"), &alpha);
}

TEST_F(CallGraphTest, HoldsRecursion) {
    auto& self = define(first, "self");
    perform(self, call(self, call(self)));
    auto& even = define(first, "even");
    auto& odd = define(first, "odd");
    perform(even, call(odd));
    perform(odd, call(even));
    EXPECT_EQ(textOf(CallGraph(&program)), "even: odd*1\nodd: even*1\nself: self*2\n");
}

TEST_F(CallGraphTest, ResolvesDeclarationsToOtherFiles) {
    auto& prototype = declare(first, "work");
    auto& main = define(first, "main");
    perform(main, call(prototype));
    auto& work = define(second, "work");
    const CallGraph graph(&program);
    EXPECT_EQ(textOf(graph), "main: work*1\nwork:\n");
    EXPECT_EQ(procedureOf(graph, "work"), &work);
    EXPECT_EQ(graph.getGraph().at("main")->getCalls().begin()->first, &work);
}

TEST_F(CallGraphTest, ResolvesAPrototypeToItsFilesOwnStaticFirst) {
    auto& prototype = makeStatic(declare(second, "helper"));
    define(first, "helper");
    auto& user = define(second, "user");
    perform(user, call(prototype));
    auto& own = makeStatic(define(second, "helper"));
    const CallGraph graph(&program);
    EXPECT_EQ(textOf(graph), "helper:\nhelper (b.c):\nuser: helper*1\n");
    EXPECT_EQ(graph.getGraph().at("user")->getCalls().begin()->first, &own);
}

TEST_F(CallGraphTest, TellsStaticsOfEqualNameApart) {
    auto& one = makeStatic(define(first, "helper"));
    auto& two = makeStatic(define(second, "helper"));
    auto& third = addUnit(program, "lib/b.c");
    auto& three = makeStatic(define(third, "helper"));
    auto& four = makeStatic(define(third, "helper"));
    auto& user = define(second, "user");
    perform(user, call(two));
    auto& main = define(first, "main");
    perform(main, call(one));
    const CallGraph graph(&program);
    EXPECT_EQ(procedureOf(graph, "helper"), &one);
    EXPECT_EQ(procedureOf(graph, "helper (b.c)"), &two);
    EXPECT_EQ(procedureOf(graph, "helper (lib/b.c)"), &three);
    EXPECT_EQ(procedureOf(graph, "helper (lib/b.c, 2)"), &four);
    EXPECT_EQ(graph.getGraph().size(), 6U);
    EXPECT_EQ(graph.getGraph().at("user")->getCalls().begin()->first, &two);
    EXPECT_EQ(graph.getGraph().at("main")->getCalls().begin()->first, &one);
}

TEST_F(CallGraphTest, NamesTheFileThatHoldsTheText) {
    makeStatic(define(first, "helper"));
    auto& inHeader = makeStatic(define(second, "helper"));
    placeAt(inHeader, "include/util.h", 3);
    EXPECT_EQ(procedureOf(CallGraph(&program), "helper (util.h)"), &inHeader);
}

TEST_F(CallGraphTest, TakesAHeadersProcedureOnce) {
    SubroutineDeclaration* copies[2];
    SubroutineDeclaration* users[2];
    for (std::size_t i = 0; i < 2; ++i) {
        TranslationUnit& unit = *program.getTranslationUnit(i);
        auto& leaf = declare(unit, "leaf");
        copies[i] = &makeStatic(define(unit, "square"));
        placeAt(*copies[i], "util.h", 4);
        perform(*copies[i], call(leaf));
        users[i] = &define(unit, i == 0 ? "one" : "two");
        perform(*users[i], call(*copies[i]));
    }
    const CallGraph graph(&program);
    EXPECT_EQ(textOf(graph), "leaf:\none: square*1\nsquare: leaf*1\ntwo: square*1\n");
    EXPECT_EQ(procedureOf(graph, "square"), copies[0]);
    EXPECT_EQ(graph.getGraph().at("two")->getCalls().begin()->first, copies[0]);
    EXPECT_EQ(textOf(CallGraph(users[1])), "leaf:\nsquare: leaf*1\ntwo: square*1\n");
    EXPECT_EQ(procedureOf(CallGraph(copies[1]), "square"), copies[0]);
}

TEST_F(CallGraphTest, KeepsProceduresOfOneLineApart) {
    auto& one = makeStatic(define(first, "get_x"));
    auto& two = makeStatic(define(first, "get_y"));
    placeAt(one, "util.h", 4);
    placeAt(two, "util.h", 4);
    EXPECT_EQ(textOf(CallGraph(&program)), "get_x:\nget_y:\n");
}

TEST_F(CallGraphTest, GivesCalledProceduresOfTheUserAnEntryWithoutABody) {
    auto& library = declare(first, "library");
    auto& sameLibrary = declare(second, "library");
    declare(first, "never_called");
    auto& print = declareExternal(first, "printf");
    auto& main = define(first, "main");
    perform(main, call(library));
    perform(main, call(print));
    auto& other = define(second, "other");
    perform(other, call(sameLibrary));
    const CallGraph graph(&program);
    EXPECT_EQ(textOf(graph), "library:\nmain: library*1 printf*1\nother: library*1\n");
    EXPECT_EQ(procedureOf(graph, "library"), &library);
    EXPECT_EQ(graph.getGraph().at("other")->getCalls().begin()->first, &library);
    EXPECT_EQ(graph.getGraph().at("main")->getCalls().count(&print), 1U);
}

TEST_F(CallGraphTest, LeavesOutSystemHeadersEvenWithABody) {
    auto& inlineFunction = declareExternal(first, "bswap");
    auto& hidden = define(first, "hidden");
    inlineFunction.setBody(block(statement(call(hidden))));
    auto& main = define(first, "main");
    perform(main, call(inlineFunction));
    EXPECT_EQ(textOf(CallGraph(&program)), "hidden:\nmain: bswap*1\n");
}

TEST_F(CallGraphTest, PrefersTheProgramsOwnBodyToASystemHeadersDeclaration) {
    auto& declared = declareExternal(first, "getline");
    auto& main = define(first, "main");
    perform(main, call(declared));
    auto& own = define(second, "getline");
    const CallGraph graph(&program);
    EXPECT_EQ(textOf(graph), "getline:\nmain: getline*1\n");
    EXPECT_EQ(procedureOf(graph, "getline"), &own);
}

TEST_F(CallGraphTest, FollowsWhatAProcedureReaches) {
    auto& leaf = define(first, "leaf");
    auto& middle = define(first, "middle");
    auto& apart = define(first, "apart");
    perform(middle, call(leaf));
    perform(apart, call(middle));
    EXPECT_EQ(textOf(CallGraph(&middle)), "leaf:\nmiddle: leaf*1\n");
    EXPECT_EQ(textOf(CallGraph(&declare(second, "middle"))), "leaf:\nmiddle: leaf*1\n");
    EXPECT_EQ(textOf(CallGraph(&declare(second, "unknown"))), "unknown:\n");
    EXPECT_EQ(textOf(CallGraph(&declareExternal(second, "printf"))), "printf:\n");
}

TEST_F(CallGraphTest, CountsTheCallsOfAStatementOnly) {
    auto& leaf = define(first, "leaf");
    auto& middle = define(first, "middle");
    perform(middle, call(leaf));
    auto& main = define(first, "main");
    perform(main, call(leaf));
    StatementBase& chosen = perform(main, call(middle, call(main)));
    perform(main, call(leaf));
    EXPECT_EQ(textOf(CallGraph(&chosen)), "leaf:\nmain: main*1 middle*1\nmiddle: leaf*1\n");
    EXPECT_EQ(textOf(CallGraph(static_cast<StatementBase*>(main.getBody()))),
              "leaf:\nmain: leaf*2 main*1 middle*1\nmiddle: leaf*1\n");
}

TEST_F(CallGraphTest, HasNoProcedureForAStatementThatNoneHolds) {
    auto& leaf = define(first, "leaf");
    const StatementPtr loose = statement(call(leaf));
    EXPECT_TRUE(CallGraph(loose.get()).getGraph().empty());
}

TEST_F(CallGraphTest, WorksWithoutAProgram) {
    SubroutineDeclaration leaf("leaf", nullptr);
    SubroutineDeclaration apart("apart", nullptr);
    apart.setBody(block(statement(call(leaf)), statement(call(apart))));
    EXPECT_EQ(textOf(CallGraph(&apart)), "apart: apart*1 leaf*1\nleaf:\n");
}

TEST_F(CallGraphTest, FindsProceduresOfModules) {
    auto module = std::make_unique<ModuleDeclaration>("solvers");
    auto& inner = define(*module, "inner");
    auto& outer = define(*module, "outer");
    perform(outer, call(inner));
    first.append(std::move(module));
    EXPECT_EQ(textOf(CallGraph(&program)), "inner:\nouter: inner*1\n");
}

TEST_F(CallGraphTest, OrdersCalleesByNameThenByPosition) {
    auto& lateStatic = makeStatic(define(second, "same"));
    auto& earlyStatic = makeStatic(define(first, "same"));
    auto& alpha = define(second, "alpha");
    auto& main = define(first, "main");
    for (SubroutineDeclaration* callee : {&lateStatic, &earlyStatic, &alpha})
        perform(main, call(*callee));
    const CallGraph graph(&program);
    std::vector<const SubroutineDeclaration*> order;
    for (const auto& [callee, calls] : graph.getGraph().at("main")->getCalls())
        order.push_back(callee);
    EXPECT_EQ(order, (std::vector<const SubroutineDeclaration*>{&alpha, &earlyStatic, &lateStatic}));
    EXPECT_EQ(procedureOf(graph, "same"), &earlyStatic);
}

TEST_F(CallGraphTest, OrdersDeclarationsOfSystemHeaders) {
    // Kept apart from the numbered children, where all of them have the number 0.
    auto& one = declareExternal(first, "printf");
    auto& two = declareExternal(first, "printf");
    const CallGraph::Node::ByName less;
    EXPECT_TRUE(less(&one, &two));
    EXPECT_FALSE(less(&two, &one));
    EXPECT_FALSE(less(&one, &one));
    EXPECT_TRUE(less(&define(first, "printf"), &one));
}

TEST_F(CallGraphTest, TakesLargePrograms) {
    constexpr std::size_t procedures = 5000;
    std::vector<SubroutineDeclaration*> all;
    for (std::size_t i = 0; i < procedures; ++i)
        all.push_back(&define(i % 2 == 0 ? first : second, "p" + std::to_string(i)));
    for (std::size_t i = 0; i < procedures; ++i)
        for (std::size_t k = 1; k <= 4; ++k)
            perform(*all[i], call(*all[(i * k + 17 * k) % procedures]));
    const CallGraph graph(&program);
    std::size_t calls = 0;
    for (const auto& [key, node] : graph.getGraph())
        for (const auto& [callee, list] : node->getCalls())
            calls += list.size();
    EXPECT_EQ(graph.getGraph().size(), procedures);
    EXPECT_EQ(calls, 4 * procedures);
    EXPECT_EQ(CallGraph(all[0]).getGraph().count("p17"), 1U);
}

TEST_F(CallGraphTest, TakesTreesOfAnyDepthAndLongChains) {
    auto& leaf = define(first, "leaf");
    auto& deep = define(first, "deep");
    ExpressionPtr nested = literal("1");
    for (int i = 0; i < 100000; ++i)
        nested = call(leaf, std::move(nested));
    perform(deep, std::move(nested));
    SubroutineDeclaration* next = &deep;
    for (int i = 0; i < 20000; ++i) {
        auto& link = define(second, "link" + std::to_string(i));
        perform(link, call(*next));
        next = &link;
    }
    const CallGraph graph(next);
    EXPECT_EQ(graph.getGraph().size(), 20002U);
    EXPECT_EQ(graph.getGraph().at("deep")->getCalls().at(&leaf).size(), 100000U);
}

} // namespace
