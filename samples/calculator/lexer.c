/* SPDX-License-Identifier: MIT */
#include "calculator.h"

#include <ctype.h>
#include <stdlib.h>

static const char *position;
static struct token current;

/* tree.c has a reset of its own: both are known to their file only. */
static void reset(struct token *token)
{
    token->kind = TOKEN_END;
    token->number = 0.0;
    token->text[0] = '\0';
}

static void scan_number(void)
{
    char *end;
    current.kind = TOKEN_NUMBER;
    current.number = strtod(position, &end);
    position = end;
}

static void scan_name(void)
{
    unsigned length = 0;
    current.kind = TOKEN_NAME;
    while (isalnum((unsigned char)*position) && length + 1 < sizeof current.text)
        current.text[length++] = *position++;
    current.text[length] = '\0';
}

static void scan_operator(void)
{
    current.kind = TOKEN_OPERATOR;
    current.text[0] = *position++;
    current.text[1] = '\0';
}

void lexer_advance(void)
{
    reset(&current);
    while (isspace((unsigned char)*position))
        position++;
    if (*position == '\0')
        return;
    if (isdigit((unsigned char)*position) || *position == '.')
        scan_number();
    else if (isalpha((unsigned char)*position))
        scan_name();
    else if (is_one_of(*position, "+-*/^()="))
        scan_operator();
    else {
        report("unexpected character", position);
        position = "";
    }
}

void lexer_open(const char *line)
{
    position = line;
    lexer_advance();
}

const struct token *lexer_peek(void)
{
    return &current;
}
