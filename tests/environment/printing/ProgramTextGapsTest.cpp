// SPDX-License-Identifier: MIT
// What the program text builder makes of trees in which any part is missing.
#include "environment/printing/OutToC.h"
#include "environment/printing/OutToFortran.h"
#include "environment/printing/ProgramTextBuilder.h"
#include "environment/tessel/service/Preorder.h"
#include "tests/environment/printing/PrintedLines.h"
#include "tests/environment/printing/WholeLanguage.h"

#include <gtest/gtest.h>

#include <typeinfo>

using namespace Kova;
using namespace Kova::Tessel;
using namespace Kova::Tests;
using Lines = std::vector<std::string>;

namespace {

/// Reaches every place for a child, also those that the node's class has no way to empty.
class Slots : public TesselBase {
public:
    static std::unique_ptr<TesselBase> exchange(TesselBase& node, std::size_t index,
                                                std::unique_ptr<TesselBase> child) {
        return (node.*(&Slots::exchangeChild))(index, std::move(child));
    }
};

/// Takes children out of a node and puts them back.
class Gap {
public:
    /// @param chosen bit i is for child i; a node with more children than bits loses all of them for an all-ones value.
    Gap(TesselBase& node, std::uint64_t chosen) : m_node(node) {
        for (std::size_t i = 0; i < node.getChildCount(); ++i)
            if (i < 64 ? (chosen >> i & 1U) != 0 : chosen == ~std::uint64_t{0})
                m_taken.emplace_back(i, Slots::exchange(node, i, nullptr));
    }
    ~Gap() {
        for (auto& [index, child] : m_taken)
            Slots::exchange(m_node, index, std::move(child));
    }
    Gap(const Gap&) = delete;
    Gap& operator=(const Gap&) = delete;

private:
    TesselBase& m_node;
    std::vector<std::pair<std::size_t, std::unique_ptr<TesselBase>>> m_taken;
};

/// The sets of children to try without: each set of a few, of many each one alone and all.
std::vector<std::uint64_t> choicesFor(const TesselBase& node) {
    constexpr std::size_t few = 4;
    std::vector<std::uint64_t> choices;
    const std::size_t count = node.getChildCount();
    if (count <= few)
        for (std::uint64_t chosen = 1; chosen < std::uint64_t{1} << count; ++chosen)
            choices.push_back(chosen);
    for (std::size_t i = 0; count > few && i < std::min<std::size_t>(count, 64); ++i)
        choices.push_back(std::uint64_t{1} << i);
    if (count > few)
        choices.push_back(~std::uint64_t{0});
    return choices;
}

std::vector<TesselBase*> nodesOf(TesselBase& root) {
    std::vector<TesselBase*> nodes;
    for (TesselBase& node : Service::Preorder(root))
        nodes.push_back(&node);
    return nodes;
}

void expectAllPrinted(TesselBase& root, const Shared::ProgramTextBuilder::Options& options = {}) {
    PrintedLines out;
    out.print(root, options);
    EXPECT_TRUE(out.isWellFormed);
    EXPECT_NE(out.partsOf.count(&root), 0U);
    for (const TesselBase* node : nodesOf(root))
        if (options == Shared::ProgramTextBuilder::Options()) {
            EXPECT_NE(out.partsOf.count(node), 0U) << typeid(*node).name();
        }
}

class ProgramTextGapsTest : public testing::TestWithParam<SourceLanguage> {};

TEST_P(ProgramTextGapsTest, PrintsWhatIsThereWhateverIsMissing) {
    WholeLanguage language(GetParam());
    const Lines whole = printed(language.program);
    std::size_t gaps = 0;
    for (TesselBase* node : nodesOf(language.program)) {
        for (const std::uint64_t chosen : choicesFor(*node)) {
            SCOPED_TRACE(std::string(typeid(*node).name()) + " without " + std::to_string(chosen));
            const Gap gap(*node, chosen);
            expectAllPrinted(language.program);
            expectAllPrinted(language.program, {true, true, true, true});
            expectAllPrinted(*node);
            ++gaps;
        }
    }
    EXPECT_GT(gaps, 200U);
    EXPECT_EQ(printed(language.program), whole);
}

TEST_P(ProgramTextGapsTest, PrintsExpressionsOnOneLineWhateverIsMissing) {
    WholeLanguage language(GetParam());
    for (TesselBase* node : nodesOf(language.program)) {
        const auto* expression = dynamic_cast<const ExpressionBase*>(node);
        for (const std::uint64_t chosen : expression != nullptr ? choicesFor(*node) : std::vector<std::uint64_t>()) {
            const Gap gap(*node, chosen);
            const bool hasText = dynamic_cast<const MemberExpression*>(node) == nullptr;
            for (const std::string& text : {Backends::OutToC::expressionToString(*expression),
                                            Backends::OutToFortran::expressionToString(*expression)}) {
                EXPECT_EQ(text.find('\n'), std::string::npos);
                EXPECT_TRUE(!text.empty() || !hasText) << typeid(*node).name();
            }
        }
    }
}

TEST_P(ProgramTextGapsTest, GivesPiecesToWhatHasNoNameOrText) {
    ProgramUnit program;
    TranslationUnit& unit = addUnit(program, "", GetParam());
    Names names;
    names.variableA.setName("");
    names.subroutineF.setName("");
    names.enumeratorRed.setName("");
    auto body = block(make<LabelStatement>(""), make<GotoStatement>(""), make<OpaqueStatement>(""),
                      statement(call(names.f(), names.a(), literal(""), opaque(""))),
                      statement(make<EnumeratorReference>(names.enumeratorRed)),
                      statement(member(names.a(), MemberExpression::Access::Direct, names.unnamedField)),
                      statement(make<LabelAddressExpression>("")),
                      declareHere(make<VariableDeclaration>("", nullptr), make<TypedefDeclaration>("", nullptr),
                                  make<OpaqueDeclaration>(""), make<SubroutineDeclaration>("", nullptr)));
    auto outer = Names::emptyRecord("");
    outer->append(make<FieldDeclaration>("", nullptr));
    outer->append(Names::emptyEnum(""));
    auto constants = Names::emptyEnum("");
    constants->append(make<EnumeratorDeclaration>("", 0, nullptr));
    unit.append(std::move(outer));
    unit.append(std::move(constants));
    auto subroutine = make<SubroutineDeclaration>("", names.types.function(nullptr, {nullptr}));
    subroutine->appendParameter(make<VariableDeclaration>("", nullptr));
    subroutine->setBody(std::move(body));
    unit.append(std::move(subroutine));
    unit.append(make<ModuleDeclaration>(""));
    expectAllPrinted(program);
}

INSTANTIATE_TEST_SUITE_P(Languages, ProgramTextGapsTest, testing::Values(LANG_C, LANG_FORTRAN));

} // namespace
