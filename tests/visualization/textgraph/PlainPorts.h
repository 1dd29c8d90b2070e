// SPDX-License-Identifier: MIT
// Ports and their order written down step by step: every port that is stored tells its edge its number at once, and
// nothing is remembered between two comparisons.
#pragma once

#include <QPoint>
#include <QRect>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdlib>
#include <vector>

namespace Kova::GUI::TextGraph {

class PlainPorts {
public:
    struct Port {
        std::size_t edge;
        int side;
    };
    struct Node {
        QPoint pos;
        QRect rect;
        std::vector<Port> up;
        std::vector<Port> down;
    };
    struct Edge {
        std::array<std::size_t, 2> nodes;
        std::array<int, 2> numbers = {0, 0};
        int type = 0;
        bool visible = false;
    };

    std::vector<Node> nodes;
    std::vector<Edge> edges;

    void addEdge(std::size_t from, std::size_t to) {
        Edge edge{{from, to}, {0, 0}, 0, false};
        if (from == to)
            edge.type = 3;
        else
            edge.type = nodes[from].pos.y() == nodes[to].pos.y() ? 2 : 1;
        edges.push_back(edge);
        show(edges.size() - 1);
    }

    void show(std::size_t e) {
        Edge& edge = edges[e];
        if (edge.visible)
            return;
        edge.visible = true;
        bool fromUp = true;
        bool toUp = true;
        if (edge.type == 1) {
            fromUp = nodes[edge.nodes[0]].pos.y() >= nodes[edge.nodes[1]].pos.y();
            toUp = !fromUp;
        } else if (edge.type == 3) {
            toUp = false;
        }
        append(e, 0, fromUp);
        append(e, 1, toUp);
    }

    void hide(std::size_t e) {
        Edge& edge = edges[e];
        if (!edge.visible)
            return;
        edge.visible = false;
        for (const int side : {0, 1}) {
            const int number = edge.numbers[static_cast<std::size_t>(side)];
            Node& node = nodes[edge.nodes[static_cast<std::size_t>(side)]];
            std::vector<Port>& list = number < 0 ? node.up : node.down;
            list.erase(list.begin() + (std::abs(number) - 1));
            edge.numbers[static_cast<std::size_t>(side)] = 0;
            renumber(node);
        }
    }

    QPoint coords(const Node& node, int number) const {
        const std::vector<Port>& list = number < 0 ? node.up : node.down;
        const int width = node.rect.right() - node.rect.left() + 1;
        const int step = width / (static_cast<int>(list.size()) + 1);
        if (number < 0)
            return {node.pos.x() - number * step, node.pos.y() + node.rect.top()};
        return {node.pos.x() + number * step, node.pos.y() + node.rect.bottom()};
    }

    void reorder(std::size_t n, int mode) {
        Node& node = nodes[n];
        for (const int rule : {3, 1, 2}) {
            if (mode == rule || mode == 4) {
                insertionSort(node.up, -1, rule);
                insertionSort(node.down, 1, rule);
            }
        }
        renumber(node);
    }

private:
    int& number(const Port& port) { return edges[port.edge].numbers[static_cast<std::size_t>(port.side)]; }
    int own(const Port& port) const { return edges[port.edge].numbers[static_cast<std::size_t>(port.side)]; }
    int other(const Port& port) const { return edges[port.edge].numbers[static_cast<std::size_t>(1 - port.side)]; }
    int type(const Port& port) const { return edges[port.edge].type; }
    std::size_t ownNode(const Port& port) const { return edges[port.edge].nodes[static_cast<std::size_t>(port.side)]; }
    std::size_t otherNode(const Port& port) const {
        return edges[port.edge].nodes[static_cast<std::size_t>(1 - port.side)];
    }
    QPoint ownPlace(const Port& port) const { return coords(nodes[ownNode(port)], own(port)); }
    QPoint otherPlace(const Port& port) const { return coords(nodes[otherNode(port)], other(port)); }

    void append(std::size_t e, int side, bool up) {
        Node& node = nodes[edges[e].nodes[static_cast<std::size_t>(side)]];
        std::vector<Port>& list = up ? node.up : node.down;
        list.push_back({e, side});
        edges[e].numbers[static_cast<std::size_t>(side)] = (up ? -1 : 1) * static_cast<int>(list.size());
    }

    void renumber(const Node& node) {
        for (std::size_t i = 0; i < node.up.size(); ++i)
            number(node.up[i]) = -static_cast<int>(i + 1);
        for (std::size_t i = 0; i < node.down.size(); ++i)
            number(node.down[i]) = static_cast<int>(i + 1);
    }

    void store(std::vector<Port>& list, int sign, std::size_t index, const Port& port) {
        list[index] = port;
        number(port) = sign * static_cast<int>(index + 1);
    }

    void insertionSort(std::vector<Port>& list, int sign, int rule) {
        for (std::size_t i = 1; i < list.size(); ++i) {
            const Port moved = list[i];
            std::size_t j = i;
            if (before(rule, moved, list[0])) {
                for (; j > 0; --j)
                    store(list, sign, j, Port(list[j - 1]));
            } else {
                for (; before(rule, moved, list[j - 1]); --j)
                    store(list, sign, j, Port(list[j - 1]));
            }
            store(list, sign, j, moved);
        }
    }

    bool before(int rule, const Port& p, const Port& q) const {
        if (rule == 1)
            return beforeT1(p, q);
        return rule == 2 ? beforeT2(p, q) : type(p) == 3 && type(q) != 3;
    }

    bool beforeT1(const Port& p, const Port& q) const {
        if (type(p) != 1 || type(q) != 1)
            return false;
        if (otherNode(p) == otherNode(q)) {
            if (std::abs(other(p)) >= std::abs(other(q)))
                return std::abs(own(p)) <= std::abs(own(q));
            return std::abs(own(p)) >= std::abs(own(q));
        }
        return cross(ownPlace(p), otherPlace(p), ownPlace(q), otherPlace(q));
    }

    static bool cross(const QPoint& a0, const QPoint& a1, const QPoint& b0, const QPoint& b1) {
        const auto apart = [](int p0, int p1, int q0, int q1) {
            return std::max(p0, p1) < std::min(q0, q1) || std::max(q0, q1) < std::min(p0, p1);
        };
        if (apart(a0.x(), a1.x(), b0.x(), b1.x()) || apart(a0.y(), a1.y(), b0.y(), b1.y()))
            return false;
        // Wide enough for whatever the test makes up.
        using Number = long double;
        const Number dx = Number(a1.x()) - a0.x(), dy = Number(a1.y()) - a0.y();
        const Number ex = Number(b1.x()) - b0.x(), ey = Number(b1.y()) - b0.y();
        const Number den = dx * ey - dy * ex;
        if (den == 0)
            return false;
        // Cramer's rule: where on each segment, from 0 to 1, the lines meet.
        const Number s = (ex * (Number(a0.y()) - b0.y()) - ey * (Number(a0.x()) - b0.x())) * (den < 0 ? -1 : 1);
        const Number t = (dx * (Number(a0.y()) - b0.y()) - dy * (Number(a0.x()) - b0.x())) * (den < 0 ? -1 : 1);
        const Number size = den < 0 ? -den : den;
        return s >= 0 && s <= size && t >= 0 && t <= size;
    }

    bool beforeT2(const Port& p, const Port& q) const {
        const int xoP = otherPlace(p).x(), xoQ = otherPlace(q).x();
        const int xsP = ownPlace(p).x(), xsQ = ownPlace(q).x();
        const int nP = std::abs(own(p)), nQ = std::abs(own(q));
        if (type(p) == 2 && type(q) == 1)
            return xoP > xsP ? nP < nQ : nP > nQ;
        if (type(p) == 1 && type(q) == 2)
            return xsQ >= xoQ ? nQ > nP : nQ < nP;
        if (type(p) == 2 && type(q) == 2) {
            const bool same = (xoP < xsP && xoQ < xsQ) || (xoP > xsP && xoQ > xsQ);
            if (xsQ <= xsP)
                return same ? xoQ <= xoP : xoQ > xoP;
            return same ? xoQ >= xoP : xoQ < xoP;
        }
        return false;
    }
};

} // namespace Kova::GUI::TextGraph
