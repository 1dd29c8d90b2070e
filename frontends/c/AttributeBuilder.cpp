// SPDX-License-Identifier: MIT
#include "frontends/c/AttributeTexts_p.h"
#include "frontends/c/SystemHeaders_p.h"
#include "frontends/c/UnitContext_p.h"

#include <clang/AST/ASTContext.h>
#include <clang/AST/Attr.h>
#include <clang/AST/Decl.h>
#include <clang/AST/Stmt.h>
#include <llvm/Support/raw_ostream.h>

namespace Kova::Frontends {

namespace {

/// What the node of a function says itself.
bool isNoReturn(const clang::Attr& attribute) {
    return llvm::isa<clang::C11NoReturnAttr, clang::CXX11NoReturnAttr>(attribute);
}

/// What the type says itself, which has another one for its elements.
bool isOfType(llvm::StringRef attribute) {
    const llvm::StringRef name = attribute.take_until([](char c) { return c == '(' || c == ' '; }).trim('_');
    return name == "vector_size" || name == "ext_vector_type";
}

std::string joined(const std::vector<std::string>& attributes) {
    std::string all;
    for (const std::string& attribute : attributes)
        if (!attribute.empty() && !isOfType(attribute))
            all += (all.empty() ? "" : ", ") + attribute;
    return all.empty() ? all : "__attribute__((" + all + "))";
}

std::string rendered(const clang::Attr& attribute, const clang::PrintingPolicy& policy) {
    std::string text;
    llvm::raw_string_ostream stream(text);
    attribute.printPretty(stream, policy);
    stream.flush();
    return llvm::StringRef(text).trim().str();
}

/// Empty for what Clang adds or passes on, and for what other words of the program's text say.
std::string textOf(const UnitContext& context, const clang::Attr& attribute) {
    if (attribute.isImplicit() || attribute.isInherited() || isNoReturn(attribute))
        return {};
    if (const std::vector<std::string>* written = context.attributes.find(attribute))
        return joined(*written);
    const bool isWritten = attribute.isGNUAttribute() && !context.system.isExternal(attribute.getLocation());
    if (attribute.getSyntax() == clang::AttributeCommonInfo::AS_Pragma || isWritten)
        return {};
    return rendered(attribute, context.clang.getPrintingPolicy());
}

void append(std::string& all, const std::string& text) {
    all += (all.empty() || text.empty() ? "" : " ") + text;
}

} // namespace

std::string buildAttributes(const UnitContext& context, const clang::AttributedStmt& statement) {
    std::string all;
    for (const clang::Attr* attribute : statement.getAttrs()) {
        const std::string* written = context.attributes.findAt(attribute->getLocation());
        append(all, written != nullptr ? joined({*written}) : textOf(context, *attribute));
    }
    return all;
}

std::string buildAttributes(const UnitContext& context, const clang::Decl& declaration) {
    std::string all;
    for (const clang::Attr* attribute : declaration.attrs())
        append(all, textOf(context, *attribute));
    return all;
}

} // namespace Kova::Frontends
