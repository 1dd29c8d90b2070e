// SPDX-License-Identifier: MIT
#include "tests/frontends/c/Reading.h"

#include "environment/core/Exception.h"
#include "environment/tessel/BlockStatement.h"
#include "environment/tessel/SubroutineDeclaration.h"
#include "tests/frontends/c/TreeText.h"

#include <cstdlib>
#include <fstream>

namespace Kova::Test {

SourceFolder::SourceFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "kova-c-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr)
        throw RuntimeError("no temporary folder");
    m_path = pattern;
}

SourceFolder::~SourceFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
}

std::string SourceFolder::write(const std::string& name, const std::string& text) const {
    const std::filesystem::path path = m_path / name;
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << text;
    return path.string();
}

Reading::Reading(const std::string& text, const Headers& headers, Frontends::COptions options)
    : path(folder.write("a.c", text)) {
    for (const auto& [name, header] : headers)
        folder.write(name, header);
    for (std::string& directory : options.includeDirectories)
        directory = folder.pathOf(directory);
    result = Frontends::CFrontend(std::move(options)).read(path, program);
}

std::string Reading::tree() const {
    std::string text;
    if (program.getChildCount() != 0)
        for (std::size_t i = 0; i < unit().getChildCount(); ++i)
            text += treeText(*unit().getChild(i));
    return text;
}

std::string Reading::body() const {
    for (std::size_t i = 0; program.getChildCount() != 0 && i < unit().getChildCount(); ++i) {
        const auto* function = dynamic_cast<const Tessel::SubroutineDeclaration*>(unit().getChild(i));
        if (function == nullptr || !function->hasImplementation())
            continue;
        std::string text;
        for (std::size_t k = 0; k < function->getBody()->getChildCount(); ++k)
            text += treeText(*function->getBody()->getChild(k));
        return text;
    }
    return "no function";
}

std::string Reading::messages() const {
    return messagesOf(program, folder.pathOf(""));
}

Frontends::CFrontend::Result ReadFiles::read(const std::string& name, const std::string& text) {
    folder.write(name, text);
    return read(name);
}

Frontends::CFrontend::Result ReadFiles::read(const std::string& name) {
    return Frontends::CFrontend({}).read(folder.pathOf(name), program);
}

std::string ReadFiles::messages() const {
    return messagesOf(program, folder.pathOf(""));
}

std::string bodyOf(const std::string& statements, const std::string& declarations) {
    const Reading reading(declarations + "\nvoid f(void) {\n" + statements + "\n}\n");
    return reading.result == Frontends::CFrontend::Result::Complete ? reading.body() : reading.messages();
}

std::string messagesOf(const Tessel::ProgramUnit& program, const std::string& folder) {
    std::string text;
    for (const Tessel::Diagnostic& diagnostic : program.getDiagnostics()) {
        if (diagnostic.level == Tessel::Diagnostic::Level::Note)
            continue;
        std::string line = toString(diagnostic);
        if (line.rfind(folder, 0) == 0)
            line.erase(0, folder.size());
        text += line + '\n';
    }
    return text;
}

} // namespace Kova::Test
