/* SPDX-License-Identifier: MIT */
/* A calculator: reads lines such as `x = 2 ^ 0.5 * (3 + sin(1))` and prints their values. */
#include "calculator.h"

#include <stdio.h>
#include <stdlib.h>

static void define_constants(void)
{
    set_variable("pi", 3.14159265358979323846);
    set_variable("e", 2.71828182845904523536);
}

static void calculate(const char *line)
{
    struct tree *tree = parse_line(line);
    printf("%g\n", evaluate(tree));
    tree_free(tree);
}

int main(void)
{
    char line[1000];
    define_constants();
    while (fgets(line, sizeof line, stdin) != NULL)
        calculate(line);
    return error_count() == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
