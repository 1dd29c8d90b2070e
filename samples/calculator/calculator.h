/* SPDX-License-Identifier: MIT */
#ifndef CALCULATOR_H
#define CALCULATOR_H

enum token_kind { TOKEN_END, TOKEN_NUMBER, TOKEN_NAME, TOKEN_OPERATOR };

struct token {
    enum token_kind kind;
    double number;
    char text[32];
};

/* lexer.c */
void lexer_open(const char *line);
const struct token *lexer_peek(void);
void lexer_advance(void);

/* tree.c: expressions as trees */
struct tree {
    char operation; /* '0' for a number, 'v' for a variable, 'f' for a function, else the operator */
    double number;
    char name[32];
    struct tree *left, *right;
};
struct tree *tree_number(double number);
struct tree *tree_name(char operation, const char *name, struct tree *argument);
struct tree *tree_operation(char operation, struct tree *left, struct tree *right);
void tree_free(struct tree *tree);

/* parser.c */
struct tree *parse_line(const char *line);

/* evaluator.c */
void set_variable(const char *name, double value);
double evaluate(const struct tree *tree);

/* errors.c: how many errors there were, and what the last one was */
void report(const char *message, const char *detail);
int error_count(void);

static inline int is_one_of(char c, const char *set)
{
    while (*set != '\0' && *set != c)
        set++;
    return *set == c && c != '\0';
}

#endif
