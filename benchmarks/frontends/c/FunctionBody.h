// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/BlockStatement.h"
#include "environment/tessel/ProgramUnit.h"
#include "environment/tessel/SubroutineDeclaration.h"
#include "environment/tessel/service/Preorder.h"
#include "frontends/c/CFrontend.h"

#include <cstdlib>
#include <fstream>
#include <string>
#include <unistd.h>

namespace Kova::Benchmark {

/// The last function of a C program. Ends the process when the program has errors.
class FunctionBody {
public:
    explicit FunctionBody(const std::string& text) {
        const std::string path = "/tmp/kova-bench-" + std::to_string(getpid()) + ".c";
        std::ofstream(path) << text;
        const auto result = Frontends::CFrontend({}).read(path, m_program);
        unlink(path.c_str());
        for (Tessel::TesselBase& node : Tessel::Service::Preorder(m_program))
            if (const auto* function = dynamic_cast<const Tessel::SubroutineDeclaration*>(&node))
                m_body = function->getBody();
        if (result != Frontends::CFrontend::Result::Complete || m_body == nullptr)
            std::abort();
    }

    [[nodiscard]] Tessel::BlockStatement& get() { return *m_body; }

private:
    Tessel::ProgramUnit m_program;
    Tessel::BlockStatement* m_body = nullptr;
};

} // namespace Kova::Benchmark
