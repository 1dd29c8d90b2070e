/* SPDX-License-Identifier: MIT */
#include "calculator.h"

#include <stdio.h>
#include <stdlib.h>

static void reset(struct tree *tree)
{
    tree->operation = '0';
    tree->number = 0.0;
    tree->name[0] = '\0';
    tree->left = NULL;
    tree->right = NULL;
}

static struct tree *allocate(void)
{
    struct tree *tree = malloc(sizeof *tree);
    if (tree == NULL) {
        fprintf(stderr, "out of memory\n");
        exit(EXIT_FAILURE);
    }
    reset(tree);
    return tree;
}

struct tree *tree_number(double number)
{
    struct tree *tree = allocate();
    tree->number = number;
    return tree;
}

struct tree *tree_name(char operation, const char *name, struct tree *argument)
{
    struct tree *tree = allocate();
    tree->operation = operation;
    tree->left = argument;
    snprintf(tree->name, sizeof tree->name, "%s", name);
    return tree;
}

struct tree *tree_operation(char operation, struct tree *left, struct tree *right)
{
    struct tree *tree = allocate();
    tree->operation = operation;
    tree->left = left;
    tree->right = right;
    return tree;
}

void tree_free(struct tree *tree)
{
    if (tree == NULL)
        return;
    tree_free(tree->left);
    tree_free(tree->right);
    free(tree);
}
