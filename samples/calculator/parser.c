/* SPDX-License-Identifier: MIT */
#include "calculator.h"

#include <string.h>

static struct tree *parse_sum(void);

static int accept(char operation)
{
    const struct token *token = lexer_peek();
    if (token->kind != TOKEN_OPERATOR || token->text[0] != operation)
        return 0;
    lexer_advance();
    return 1;
}

static void expect(char operation)
{
    char wanted[2] = { operation, '\0' };
    if (!accept(operation))
        report("missing", wanted);
}

static struct tree *parse_parentheses(void)
{
    struct tree *inside = parse_sum();
    expect(')');
    return inside;
}

static struct tree *parse_primary(void)
{
    struct token token = *lexer_peek();
    if (accept('('))
        return parse_parentheses();
    if (accept('-'))
        return tree_operation('-', tree_number(0.0), parse_primary());
    lexer_advance();
    if (token.kind == TOKEN_NUMBER)
        return tree_number(token.number);
    if (token.kind == TOKEN_NAME)
        return accept('(') ? tree_name('f', token.text, parse_parentheses()) : tree_name('v', token.text, NULL);
    report("expected a value before", token.text);
    return tree_number(0.0);
}

/* Powers bind to the right: 2 ^ 3 ^ 2 is 2 ^ 9. */
static struct tree *parse_power(void)
{
    struct tree *base = parse_primary();
    return accept('^') ? tree_operation('^', base, parse_power()) : base;
}

static struct tree *parse_product(void)
{
    struct tree *left = parse_power();
    for (;;) {
        if (accept('*'))
            left = tree_operation('*', left, parse_power());
        else if (accept('/'))
            left = tree_operation('/', left, parse_power());
        else
            return left;
    }
}

static struct tree *parse_sum(void)
{
    struct tree *left = parse_product();
    for (;;) {
        if (accept('+'))
            left = tree_operation('+', left, parse_product());
        else if (accept('-'))
            left = tree_operation('-', left, parse_product());
        else
            return left;
    }
}

struct tree *parse_line(const char *line)
{
    struct tree *left;
    lexer_open(line);
    left = parse_sum();
    if (accept('='))
        left = tree_operation('=', left, parse_sum());
    if (lexer_peek()->kind != TOKEN_END)
        report("unexpected text", lexer_peek()->text);
    return left;
}
