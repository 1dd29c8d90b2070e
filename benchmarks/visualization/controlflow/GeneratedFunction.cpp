// SPDX-License-Identifier: MIT
#include "benchmarks/visualization/controlflow/GeneratedFunction.h"

#include <algorithm>

namespace Kova::Benchmark {

namespace {

/// The number of a part goes where the text has '@'.
const std::string part = R"(    for (int i = 0; i < n; i++)
    {
        if (a[i] < k && b[i] > k || a[i] == @)
        {
            continue;
        }
        switch (a[i] % 4)
        {
        case 0:
            s += a[i];
            break;
        case 1:
            s -= b[i];
        default:
            s ^= a[i] > b[i] ? a[i] : b[i];
        }
        while (s > k)
        {
            s -= n;
            if (s == @)
            {
                goto next_@;
            }
        }
    }
next_@:
    s = work(s, k);
)";

} // namespace

std::string generateFunction(std::size_t lines) {
    const auto linesAPart = static_cast<std::size_t>(std::count(part.begin(), part.end(), '\n'));
    std::string text = "int work(int s, int k);\nint f(int *a, int *b, int n, int k)\n{\n    int s = 0;\n";
    std::size_t number = 0;
    for (std::size_t done = 3; done < lines; done += linesAPart) {
        const std::string name = std::to_string(++number);
        for (const char character : part) {
            if (character == '@')
                text += name;
            else
                text += character;
        }
    }
    return text + "    return s;\n}\n";
}

} // namespace Kova::Benchmark
