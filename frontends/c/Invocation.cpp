// SPDX-License-Identifier: MIT
#include "frontends/c/CFrontend.h"
#include "frontends/c/Invocation_p.h"

#include <clang/Basic/LangStandard.h>
#include <clang/Basic/Version.h>
#include <llvm/ADT/StringExtras.h>
#include <llvm/Support/FileSystem.h>
#include <llvm/Support/Path.h>

#include <cstdlib>
#include <dlfcn.h>

namespace Kova::Frontends {

namespace {

bool isIdentifierByte(char c) {
    return llvm::isAlnum(c) || c == '_' || c == '$' || (static_cast<unsigned char>(c) & 0x80U) != 0;
}

/// The macro's name at the start of a definition, which `=`, a parameter list or nothing may follow.
bool isDefinition(llvm::StringRef definition) {
    const llvm::StringRef name = definition.take_while(isIdentifierByte);
    if (name.empty() || llvm::isDigit(name.front()))
        return false;
    llvm::StringRef rest = definition.drop_front(name.size());
    if (rest.starts_with("("))
        rest = rest.contains(')') ? rest.split(')').second : rest;
    return rest.empty() || rest.starts_with("=");
}

std::string checkStandard(const std::string& standard) {
    if (standard.empty())
        return {};
    const clang::LangStandard::Kind kind = clang::LangStandard::getLangKind(standard);
    if (kind == clang::LangStandard::lang_unspecified)
        return "unknown C standard '" + standard + "'; known are c89, c99, c11, c17, c23 and gnu89 to gnu23";
    if (clang::LangStandard::getLangStandardForKind(kind).getLanguage() != clang::Language::C)
        return "'" + standard + "' is no standard of C";
    return {};
}

bool holdsHeaders(const std::string& directory) {
    return !directory.empty() && llvm::sys::fs::exists(directory + "/include/stddef.h");
}

/// The resource folder that belongs to the Clang library which this process has loaded.
std::string besideClangLibrary() {
    Dl_info info{};
    using StandardName = clang::LangStandard::Kind (*)(llvm::StringRef);
    const StandardName inLibrary = &clang::LangStandard::getLangKind;
    if (dladdr(reinterpret_cast<void*>(inLibrary), &info) == 0 || info.dli_fname == nullptr)
        return {};
    llvm::SmallString<256> real;
    if (llvm::sys::fs::real_path(info.dli_fname, real))
        return {};
    return (llvm::sys::path::parent_path(real) + "/clang/" CLANG_VERSION_MAJOR_STRING).str();
}

} // namespace

std::string checkCOptions(const COptions& options) {
    for (const std::string& directory : options.includeDirectories)
        if (directory.empty())
            return "an include directory has no name";
    for (const std::string& definition : options.definitions)
        if (!isDefinition(definition))
            return "'" + definition + "' is no macro definition: NAME or NAME=VALUE is expected";
    return checkStandard(options.standard);
}

std::string findResourceDirectory() {
    if (const char* chosen = std::getenv("KOVA_CLANG_RESOURCE_DIR"))
        return holdsHeaders(chosen) ? chosen : std::string();
    for (const std::string& candidate : {std::string(KOVA_CLANG_RESOURCE_DIR), besideClangLibrary(),
                                         std::string("/usr/lib/clang/" CLANG_VERSION_MAJOR_STRING)})
        if (holdsHeaders(candidate))
            return candidate;
    return {};
}

std::vector<std::string> makeCommandLine(const COptions& options, const std::string& path,
                                         const std::string& resourceDirectory) {
    std::vector<std::string> line = {"/usr/bin/clang", "--no-default-config", "-fsyntax-only", "-x", "c",
                                     // Every error is shown, and nesting is bounded by the stack of the reading thread.
                                     "-ferror-limit=0", "-fbracket-depth=30000",
                                     // A header may be looked at on its own.
                                     "-Wno-pragma-once-outside-header"};
    // Old programs that the system's compiler takes with a warning are programs; who asks for the standard gets it.
    if (options.standard.empty() || options.standard.rfind("gnu", 0) == 0)
        for (const char* tolerated : {"implicit-function-declaration", "implicit-int", "int-conversion",
                                      "incompatible-function-pointer-types", "return-mismatch"})
            line.emplace_back(std::string("-Wno-error=") + tolerated);
    if (resourceDirectory.empty())
        line.emplace_back("-nobuiltininc");
    else
        line.insert(line.end(), {"-resource-dir", resourceDirectory});
    if (!options.standard.empty())
        line.push_back("-std=" + options.standard);
    for (const std::string& directory : options.includeDirectories)
        line.push_back("-I" + directory);
    for (const std::string& definition : options.definitions)
        line.push_back("-D" + definition);
    line.insert(line.end(), {"--", path});
    return line;
}

} // namespace Kova::Frontends
