// SPDX-License-Identifier: MIT
#include "visualization/graphcore/GraphvisLayout.h"

#include "environment/core/Strings.h"
#include "visualization/graphcore/EdgeBase.h"
#include "visualization/graphcore/ExchangeFile.h"
#include "visualization/graphcore/NodeBase.h"
#include "visualization/graphcore/Rounding.h"

#include <cstdlib>
#include <istream>
#include <limits>
#include <locale>
#include <ostream>
#include <sstream>

namespace Kova::GUI::GenericGraph {

namespace {

constexpr const char* dotFile = "/tmp/1.dot";
constexpr const char* plainFile = "/tmp/1.dot.plain";
constexpr const char* command = "dot -Tplain -o/tmp/1.dot.plain /tmp/1.dot";

constexpr double unitsPerInch = 100.0;

void skipLine(std::istream& in) {
    in.ignore(std::numeric_limits<std::streamsize>::max(), '\n');
}

/// A label stands in quotes when it holds line breaks, which then end nothing.
void skipQuotedLine(std::istream& in) {
    bool quoted = false;
    for (char character = 0; in.get(character) && (quoted || character != '\n');) {
        if (quoted && character == '\\')
            in.get(character);
        else if (character == '"')
            quoted = !quoted;
    }
}

} // namespace

void GraphvisLayout::layOut(const std::vector<NodeBase*>& nodes) {
    const ExchangeFile dot(dotFile);
    const ExchangeFile plain(plainFile);
    m_succeeded = false;
    // The numbers are needed even when there is no file to write them to.
    std::ostringstream text;
    text.imbue(std::locale::classic());
    dumpNodes(nodes, text);
    const bool written = dot.write(text.str());
    // dot itself would write through a link.
    if (plain.isForeign())
        return;
    const bool ran = (written || !dot.isForeign()) && std::system(command) == 0;
    if (const std::optional<std::string> result = plain.read()) {
        std::istringstream in(*result);
        readPlain(in);
        m_succeeded = written && ran;
    }
}

void GraphvisLayout::dumpNodes(const std::vector<NodeBase*>& nodes, std::ostream& out) {
    m_numbers.clear();
    m_nodes.clear();
    for (NodeBase* node : nodes) {
        const int number = static_cast<int>(m_nodes.size());
        m_numbers[node] = number;
        m_nodes[number] = node;
    }
    out << "digraph tmp {" << std::endl;
    out << "node [shape = box, labeljust=\"l\"];" << std::endl;
    std::ostringstream edges;
    edges.imbue(std::locale::classic());
    for (const auto& [number, node] : m_nodes) {
        out << 'N' << number << "[ label = \"" << node->getText().toStdString() << "\"];" << std::endl;
        for (const EdgeBase* edge : node->getOutgoingEdges()) {
            const auto target = edge != nullptr ? m_numbers.find(edge->getTarget()) : m_numbers.end();
            if (target != m_numbers.end())
                edges << 'N' << number << "->N" << target->second << ';' << std::endl;
        }
    }
    out << edges.str() << "}" << std::endl;
}

void GraphvisLayout::readPlain(std::istream& in) {
    in.imbue(std::locale::classic());
    double height = 0.0;
    for (std::string word; in >> word && word != "stop";) {
        if (word == "graph") {
            double scale = 0.0;
            double width = 0.0;
            in >> scale >> width >> height;
        } else if (word == "node") {
            readNode(in, height);
        } else {
            skipLine(in);
        }
    }
}

void GraphvisLayout::readNode(std::istream& in, double height) {
    std::string name;
    double x = 0.0;
    double y = 0.0;
    if (!(in >> name >> x >> y))
        return;
    int number = 0;
    const auto node = Strings::fetch(name.c_str() + 1, number) ? m_nodes.find(number) : m_nodes.end();
    if (node != m_nodes.end())
        node->second->moveTo(truncated(unitsPerInch * x), truncated(unitsPerInch * (height - y)));
    skipQuotedLine(in);
}

} // namespace Kova::GUI::GenericGraph
