// SPDX-License-Identifier: MIT
#include "environment/printing/DeclarationGroups.h"

#include "environment/printing/DeclarationFilter.h"
#include "environment/tessel/SourceFile.h"
#include "environment/tessel/TypedefDeclaration.h"
#include "tests/environment/printing/Names.h"

#include <gtest/gtest.h>

using namespace Kova;
using namespace Kova::Backends;
using namespace Kova::Tessel;
using namespace Kova::Tests;

namespace {

using Place = DeclarationPlace;
using Options = DeclarationFilter::Options;

class DeclarationGroupsTest : public testing::Test, protected Names {
protected:
    /// The holder's groups, `|` between them: the names of the declarators, commas between them, and before them in
    /// parentheses what they define. Tags have their keyword, `?` stands for what has no name.
    [[nodiscard]] std::string grouped(Place place, const Options& options = {}) const {
        std::string shown;
        for (const DeclarationGroup& group : groupDeclarations(m_unit, place, DeclarationFilter(options))) {
            shown += shown.empty() ? "" : " | ";
            if (group.definition != nullptr)
                shown += "(" + shownName(*group.definition) + ") ";
            for (const DeclarationBase* declarator : group.declarators)
                shown += (declarator == group.declarators.front() ? "" : ",") + shownName(*declarator);
        }
        return shown;
    }
    template <class Declaration>
    Declaration& add(std::unique_ptr<Declaration> declaration) {
        Declaration& added = *declaration;
        m_unit.append(std::move(declaration));
        return added;
    }
    VariableDeclaration& add(const std::string& name, const Type* type) { return add(variable(name, type)); }
    /// Says where the source has it: from a column to a column of the first line.
    void at(TesselBase& node, std::uint32_t begin, std::uint32_t end, const char* file = "a.c") {
        node.setSourceRange({m_program.obtainSourceFile(file), 1, begin, 1, end});
    }

private:
    static std::string shownName(const DeclarationBase& declaration) {
        const std::string name = declaration.getName().empty() ? "?" : declaration.getName();
        const auto* record = dynamic_cast<const RecordDeclaration*>(&declaration);
        if (record != nullptr)
            return "struct " + name;
        return (dynamic_cast<const EnumDeclaration*>(&declaration) != nullptr ? "enum " : "") + name;
    }

    ProgramUnit m_program;
    TranslationUnit& m_unit = addUnit(m_program, "a.c");
};

TEST_F(DeclarationGroupsTest, AreEmptyForNothing) {
    EXPECT_EQ(grouped(Place::File), "");
    EXPECT_TRUE(groupDeclarations(*block(statement(a())), Place::Statement, {}).empty());
}

TEST_F(DeclarationGroupsTest, ShareAHeadWhereTheSourceDoes) {
    at(add("a", intType), 1, 5);
    at(add("b", arrayOf(types.pointer(intType), 3)), 1, 12);
    at(add("c", intType), 20, 24);
    at(add("d", intType), 20, 27, "b.h");
    add("e", intType);
    for (const Place place : {Place::File, Place::Record})
        EXPECT_EQ(grouped(place), "a,b | c | d | e");
    // One statement, and one loop header, is one declaration in the source.
    for (const Place place : {Place::Statement, Place::LoopHeader})
        EXPECT_EQ(grouped(place), "a,b,c,d,e");
}

TEST_F(DeclarationGroupsTest, ShareNoHeadThatDiffers) {
    at(add("a", intType), 1, 5);
    at(add("b", charType), 1, 8);
    at(add("c", types.basic("char", BasicType::Category::Character, 8, Type::Const)), 1, 11);
    VariableDeclaration& d = add("d", intType);
    at(d, 1, 14);
    d.setStorageClass(StorageClass::Static);
    VariableDeclaration& e = add("e", intType);
    at(e, 1, 17);
    e.setAttributes("__attribute__((unused))");
    at(add(make<TypedefDeclaration>("t", intType)), 1, 20);
    at(add(make<SubroutineDeclaration>("f", types.function(intType, {}))), 1, 23);
    for (const Place place : {Place::File, Place::Record, Place::Statement, Place::LoopHeader})
        EXPECT_EQ(grouped(place), "a | b | c | d | e | t | f");
}

TEST_F(DeclarationGroupsTest, DefineAStructureInTheHeadWhereTheSourceDoes) {
    RecordDeclaration& s = add(record("s"));
    const Type* type = types.declared(s);
    at(s, 1, 20);
    at(add("v", types.pointer(type)), 1, 23);
    at(add("w", type), 1, 26);
    at(add("x", type), 30, 40);
    EXPECT_EQ(grouped(Place::File), "(struct s) v,w | x");
    EXPECT_EQ(grouped(Place::Statement), "(struct s) v,w,x");
}

TEST_F(DeclarationGroupsTest, DefineAStructureInTheHeadWhereThereIsOneDeclarationOnly) {
    const Type* type = types.declared(add(record("s")));
    add("v", type);
    add("i", intType);
    EXPECT_EQ(grouped(Place::File), "struct s | v | i");
    EXPECT_EQ(grouped(Place::Statement), "struct s | v | i");
    EXPECT_EQ(grouped(Place::Record), "(struct s) v | i");
    EXPECT_EQ(grouped(Place::LoopHeader), "(struct s) v | i");
}

TEST_F(DeclarationGroupsTest, DefineNoStructureInAHeadThatIsNotTheNext) {
    const Type* type = types.declared(add(record("s")));
    add("i", intType);
    add("v", type);
    add(record("t"));
    add("j", intType);
    EXPECT_EQ(grouped(Place::Record), "struct s | i | v | struct t | j");
}

TEST_F(DeclarationGroupsTest, MentionAStructureInTheHeadAheadOfItsDefinition) {
    const RecordDeclaration definition("s", RecordDeclaration::Kind::Struct);
    const RecordDeclaration other("t", RecordDeclaration::Kind::Struct);
    at(add(make<RecordDeclaration>("s", RecordDeclaration::Kind::Struct)), 9, 16);
    at(add(make<TypedefDeclaration>("alias", types.declared(definition))), 1, 20);
    at(add(make<RecordDeclaration>("s", RecordDeclaration::Kind::Struct)), 39, 46);
    at(add(make<TypedefDeclaration>("another", types.declared(other))), 31, 50);
    EXPECT_EQ(grouped(Place::File), "(struct s) alias | struct s | another");
}

TEST_F(DeclarationGroupsTest, DefineTypesWithoutANameWhereTheyAreUsed) {
    const Type* type = types.declared(add(record("")));
    add("v", type);
    add("w", types.pointer(type));
    add("i", intType);
    const Type* enumType = types.declared(add(emptyEnum("")));
    add("x", enumType);
    for (const Place place : {Place::File, Place::Record, Place::Statement})
        EXPECT_EQ(grouped(place), "v,w | i | x");
}

TEST_F(DeclarationGroupsTest, KeepTypesWithoutANameThatNothingUses) {
    add(emptyEnum(""));
    add("i", intType);
    add(record(""));
    EXPECT_EQ(grouped(Place::File), "enum ? | i | struct ?");
}

TEST_F(DeclarationGroupsTest, KeepConstantsOfAHiddenVariable) {
    add("e", types.declared(add(emptyEnum(""))));
    add("v", types.declared(add(record(""))));
    EXPECT_EQ(grouped(Place::File, {false, true, false, false}), "enum ?");
    EXPECT_EQ(grouped(Place::File, {false, false, true, false}), "e | v");
    EXPECT_EQ(grouped(Place::File, {false, true, true, false}), "");
}

TEST_F(DeclarationGroupsTest, LeaveOutATypeWithoutANameThatAFunctionsTextHolds) {
    at(add(record("")), 20, 40);
    at(add(make<SubroutineDeclaration>("f", types.function(intType, {}))), 1, 60);
    at(add(record("")), 62, 70);
    at(add(make<SubroutineDeclaration>("g", types.function(intType, {}))), 71, 90);
    at(add(record("named")), 110, 120);
    at(add(make<SubroutineDeclaration>("h", types.function(intType, {}))), 100, 140);
    EXPECT_EQ(grouped(Place::File), "f | struct ? | g | struct named | h");
}

TEST_F(DeclarationGroupsTest, LeaveOutUnnamedTypesThatANeighbourHoldsInside) {
    at(add(record("")), 10, 20);
    at(add(record("")), 30, 40);
    at(add("v", intType), 1, 50);
    at(add(emptyEnum("")), 60, 70);
    at(add("w", intType), 80, 150);
    at(add(record("")), 100, 110);
    at(add(emptyEnum("")), 120, 130);
    EXPECT_EQ(grouped(Place::File), "v | enum ? | w");
}

} // namespace
