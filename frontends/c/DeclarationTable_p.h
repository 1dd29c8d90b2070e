// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/DeclarationBase.h"

#include <clang/AST/ASTFwd.h>
#include <llvm/ADT/DenseMap.h>
#include <llvm/ADT/MapVector.h>

#include <vector>

namespace Kova::Tessel {
class EnumeratorDeclaration;
class FieldDeclaration;
class SubroutineDeclaration;
class TypeDeclaration;
class VariableDeclaration;
} // namespace Kova::Tessel

namespace Kova::Frontends {

struct UnitContext;

/// Finds the one node of the tree that stands for each thing declared. What is mentioned before its place in the
/// program is made ahead, without its parts, and put there later; what system headers declare is made complete at its
/// first mention and kept beside the program.
class DeclarationTable {
public:
    explicit DeclarationTable(UnitContext& context) : m_context(context) {}

    /// What a mention means: the implementation where the unit has one, else the first declaration that is written.
    [[nodiscard]] Tessel::SubroutineDeclaration& subroutine(const clang::FunctionDecl& mentioned);
    /// What a mention means: the definition where the unit has one, else the first declaration.
    [[nodiscard]] Tessel::VariableDeclaration& variable(const clang::VarDecl& mentioned);
    [[nodiscard]] Tessel::TypeDeclaration& tag(const clang::TagDecl& mentioned);
    [[nodiscard]] Tessel::TypeDeclaration& typedefOf(const clang::TypedefNameDecl& mentioned);
    /// Null after errors in the structure.
    [[nodiscard]] Tessel::FieldDeclaration* field(const clang::FieldDecl& mentioned);
    [[nodiscard]] Tessel::EnumeratorDeclaration* enumerator(const clang::EnumConstantDecl& mentioned);

    /// True for what the program only uses: a system header's, or the compiler's own.
    [[nodiscard]] bool isExternal(const clang::Decl& declaration) const;

    /// The node for a declaration's place in the program; null when it stands there already.
    [[nodiscard]] Tessel::DeclarationPtr take(const clang::Decl& declaration);
    void add(const clang::FieldDecl& field, Tessel::FieldDeclaration& made);
    void add(const clang::EnumConstantDecl& enumerator, Tessel::EnumeratorDeclaration& made);

    /// Completes and hands out what was made ahead but has no place of its own in the program, such as a structure
    /// declared inside sizeof or a function that is declared by its first call. A type that is declared inside an
    /// initializer has one behind the variable, where it is too late for it.
    /// @param around what was built last.
    [[nodiscard]] std::vector<Tessel::DeclarationPtr> takeStrays(const clang::Decl& around);
    /// As takeStrays, and all else that is left.
    [[nodiscard]] std::vector<Tessel::DeclarationPtr> takeRest();

private:
    Tessel::DeclarationBase& obtain(const clang::Decl& declaration);
    [[nodiscard]] bool hasPlaceBehind(const clang::Decl& declaration, const clang::Decl& around) const;
    /// @param around null for all that there is.
    std::vector<Tessel::DeclarationPtr> takeAhead(const clang::Decl* around);

    UnitContext& m_context;
    llvm::DenseMap<const clang::Decl*, Tessel::DeclarationBase*> m_made;
    llvm::MapVector<const clang::Decl*, Tessel::DeclarationPtr> m_ahead;
};

} // namespace Kova::Frontends
