// SPDX-License-Identifier: MIT
#pragma once

namespace clang {
class ASTContext;
} // namespace clang

namespace Kova::Tessel {
class ProgramUnit;
class TranslationUnit;
} // namespace Kova::Tessel

namespace Kova::Frontends {

class AttributeTexts;
class Directives;
class FallThroughComments;
class ProgramMacros;
class SystemHeaders;

/// What Clang's tree does not say of the text that it was made from.
struct ParsedText {
    const SystemHeaders& system;
    const ProgramMacros& macros;
    const AttributeTexts& attributes;
    const FallThroughComments& fallThrough;
    /// Handed out while the tree is built.
    Directives& directives;
};

/// Fills a unit with what Clang has parsed: the user's declarations in program order as its children, what they use of
/// system headers beside them.
/// @return false when there is nothing to look at: no declaration without an error and no function with a body.
/// @param program owns the types and source files; the unit need not be part of it yet.
bool buildUnit(clang::ASTContext& context, const ParsedText& parsed, Tessel::ProgramUnit& program,
               Tessel::TranslationUnit& unit);

} // namespace Kova::Frontends
