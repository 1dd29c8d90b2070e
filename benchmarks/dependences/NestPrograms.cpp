// SPDX-License-Identifier: MIT
#include "benchmarks/dependences/NestPrograms.h"

#include <random>

namespace Kova::Benchmark {
namespace {

const char* const head = "double a[80][80][80], b[80][80][80], c[80][80][80], d[80][80][80];\n"
                         "void f(int n, int m) {\n"
                         "    for (int i = 1; i < n; i++)\n"
                         "        for (int j = i; j < m; j++)\n"
                         "            for (int k = 0; k <= j; k++) {\n";
const char* const foot = "            }\n}\n";

class NestWriter {
public:
    std::string statement() {
        std::string text = "                " + element() + " = ";
        for (const char* operation : {" + ", " * ", ";\n"})
            text += element() + operation;
        return text;
    }

private:
    std::size_t number(std::size_t count) { return m_random() % count; }

    std::string element() {
        static constexpr const char* arrays[] = {"a", "b", "c", "d"};
        static constexpr const char* rows[] = {"i", "i - 1", "j", "i + 1"};
        static constexpr const char* columns[] = {"j", "j - 1", "i + j", "k"};
        static constexpr const char* cells[] = {"k", "k + 1", "2 * k", "j - k"};
        return std::string(arrays[number(4)]) + "[" + rows[number(4)] + "][" + columns[number(4)] + "][" +
               cells[number(4)] + "]";
    }

    std::mt19937 m_random{12};
};

} // namespace

std::string writeWavefront() {
    return std::string(head) +
           "                a[i][j][k] = a[i - 1][j][k] + a[i][j - 1][k] + a[i][j][k + 1] + a[j][i][k] * "
           "a[i][k][j];\n" +
           foot;
}

std::string writeNest(std::size_t statements) {
    std::string text = head;
    NestWriter writer;
    for (std::size_t i = 0; i < statements; ++i)
        text += writer.statement();
    return text + foot;
}

std::string writeStraight(std::size_t statements) {
    std::mt19937 random(3000);
    const auto element = [&random](const char* array) { return array + ("[" + std::to_string(random() % 500) + "]"); };
    std::string text = "double x[500], y[500];\nvoid f(double s) {\n";
    for (std::size_t i = 0; i < statements; ++i)
        text += "    " + element(i % 2 == 0 ? "x" : "y") + " = " + element(i % 3 == 0 ? "x" : "y") + " + s;\n";
    return text + "}\n";
}

} // namespace Kova::Benchmark
