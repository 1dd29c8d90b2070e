// SPDX-License-Identifier: MIT
#include "environment/tessel/ProgramUnit.h"
#include "frontends/c/CFrontend.h"
#include "visualization/callgraph/CallGraphWidget.h"

#include <QApplication>
#include <cstdio>
#include <fstream>

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    const std::string path = "consumer-input.c";
    std::ofstream(path) << "static int g(void) { return 1; }\nint main(void) { return g(); }\n";
    Kova::Tessel::ProgramUnit program;
    const Kova::Frontends::CFrontend frontend{Kova::Frontends::COptions{}};
    const bool complete = frontend.read(path, program) == Kova::Frontends::CFrontend::Result::Complete;
    std::remove(path.c_str());
    if (!complete) return 1;
    Kova::GUI::CallGraph::CallGraphWidget widget;
    widget.onNewProgram(program);
    return widget.isBuilded() ? 0 : 2;
}
