// SPDX-License-Identifier: MIT
#include "benchmarks/frontends/c/GeneratedProgram.h"

#include <algorithm>
#include <random>
#include <vector>

namespace Kova::Benchmark {

namespace {

const char* const head = R"(#include <math.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#define SIZE 64
#define MAX(a, b) ((a) > (b) ? (a) : (b))

typedef struct cell {
    double value;
    int kind, next;
    struct cell* link;
} cell_t;

static double grid[SIZE][SIZE], work[SIZE][SIZE];
static int table[SIZE];
static cell_t cells[SIZE];

)";

// `$` is the function's number, `@` the number of one before it, `%` a small number.
const std::vector<std::string> functions = {
    R"(static double smooth_$(int n, double weight)
{
    double sum = 0.0;
    int i, j;

    for (i = 1; i < n - 1; i++) {
        for (j = 1; j < n - 1; j++) {
            work[i][j] = weight * grid[i][j] + 0.25 * (grid[i - 1][j] + grid[i + 1][j] + grid[i][j - 1] + grid[i][j + 1]);
            sum += work[i][j] * work[i][j];
        }
    }
    for (i = 1; i < n - 1; i++)
        for (j = 1; j < n - 1; j++)
            grid[i][j] = work[i][j] / (sum + %.0);
    return sqrt(sum);
}
)",
    R"(static int search_$(const cell_t* from, int kind)
{
    int found = -1;

    while (from != NULL && found < 0) {
        if (from->kind == kind && fabs(from->value) > %e-3) {
            found = from->next;
        } else if (from->kind < 0) {
            fprintf(stderr, "cell %d: kind %d\n", from->next, from->kind);
            break;
        }
        from = from->link;
    }
    return found >= 0 ? found : MAX(kind, %);
}
)",
    R"(static void update_$(int count, int* order)
{
    int k;
    cell_t* current = &cells[count % SIZE];

    switch (order[count % SIZE]) {
    case 0:
        current->value += smooth_@(SIZE, 0.%);
        break;
    case 1:
    case 2:
        current->kind = search_@(current, order[%]);
        /* fall through */
    default:
        memset(table, 0, sizeof table);
    }
    for (k = 0; k < count && k < SIZE; ++k) {
        table[k] = (order[k] << 2) ^ (k & %);
        if (table[k] % 3 == 0)
            continue;
        cells[k].value = (double)table[k] / (1 + k);
        cells[k].link = k > 0 ? &cells[k - 1] : NULL;
    }
    printf("%s %d %f\n", "update $", count, current->value);
}
)"};

std::string fill(const std::string& pattern, std::size_t index, std::mt19937& random) {
    std::string text;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        const char c = pattern[i];
        if (c == '$')
            text += std::to_string(index);
        else if (c == '@')
            text += std::to_string(random() % (index + 1));
        else if (c == '%' && i + 1 < pattern.size() &&
                 (pattern[i + 1] == '.' || pattern[i + 1] == 'e' || pattern[i + 1] == ')' || pattern[i + 1] == ']'))
            text += std::to_string(random() % 9 + 1);
        else
            text += c;
    }
    return text;
}

} // namespace

std::string generateProgram(std::size_t lines) {
    std::mt19937 random(20000);
    std::string text = head;
    std::string main = "int main(void)\n{\n";
    std::size_t written = 20;
    for (std::size_t index = 0; written < lines; ++index) {
        for (const std::string& pattern : functions) {
            const std::string function = fill(pattern, index, random);
            text += function + '\n';
            written += static_cast<std::size_t>(std::count(function.begin(), function.end(), '\n')) + 1;
        }
        main += "    update_" + std::to_string(index) + "(" + std::to_string(index) + ", table);\n";
        ++written;
    }
    return text + main + "    return 0;\n}\n";
}

} // namespace Kova::Benchmark
