/* SPDX-License-Identifier: MIT */
#include "calculator.h"

#include <math.h>
#include <stdio.h>
#include <string.h>

#define MAX_VARIABLES 100

static struct {
    char name[32];
    double value;
} variables[MAX_VARIABLES];
static int variable_count;

static const struct {
    const char *name;
    double (*function)(double);
} functions[] = { { "sqrt", sqrt }, { "sin", sin }, { "cos", cos }, { "exp", exp }, { "log", log } };

static int find_variable(const char *name)
{
    for (int i = 0; i < variable_count; i++)
        if (strcmp(variables[i].name, name) == 0)
            return i;
    return -1;
}

void set_variable(const char *name, double value)
{
    int i = find_variable(name);
    if (i < 0) {
        if (variable_count == MAX_VARIABLES) {
            report("too many variables", name);
            return;
        }
        i = variable_count++;
        snprintf(variables[i].name, sizeof variables[i].name, "%s", name);
    }
    variables[i].value = value;
}

static double variable(const char *name)
{
    int i = find_variable(name);
    if (i >= 0)
        return variables[i].value;
    report("unknown variable", name);
    return 0.0;
}

static double apply(const char *name, double argument)
{
    for (unsigned i = 0; i < sizeof functions / sizeof functions[0]; i++)
        if (strcmp(functions[i].name, name) == 0)
            return functions[i].function(argument);
    report("unknown function", name);
    return 0.0;
}

static double divide(double a, double b)
{
    if (b == 0.0)
        report("division by zero", "");
    return b != 0.0 ? a / b : 0.0;
}

static double assign(const struct tree *target, double value)
{
    if (target->operation == 'v')
        set_variable(target->name, value);
    else
        report("cannot assign to this", "");
    return value;
}

double evaluate(const struct tree *tree)
{
    switch (tree->operation) {
    case '0':
        return tree->number;
    case 'v':
        return variable(tree->name);
    case 'f':
        return apply(tree->name, evaluate(tree->left));
    case '+':
        return evaluate(tree->left) + evaluate(tree->right);
    case '-':
        return evaluate(tree->left) - evaluate(tree->right);
    case '*':
        return evaluate(tree->left) * evaluate(tree->right);
    case '/':
        return divide(evaluate(tree->left), evaluate(tree->right));
    case '^':
        return pow(evaluate(tree->left), evaluate(tree->right));
    case '=':
        return assign(tree->left, evaluate(tree->right));
    default:
        return 0.0;
    }
}
