/* SPDX-License-Identifier: MIT */
/* Adds up durations such as 1h30m or 45s, one a line: the ways that C has to lead control. */
#include <stdio.h>
#include <stdlib.h>

#define MOST 100

/* Ends the program: control never comes back from here. */
static void usage(const char *program)
{
    fprintf(stderr, "usage: %s [FILE]\n", program);
    exit(2);
}

/* Each unit falls through to the smaller ones; -1 for an unknown unit. */
static long in_seconds(long count, char unit)
{
    switch (unit) {
    case 'd':
        count *= 24;
        /* fall through */
    case 'h':
        count *= 60;
        /* fall through */
    case 'm':
        count *= 60;
        /* fall through */
    case 's':
        return count;
    default:
        return -1;
    }
}

static int is_digit(char c)
{
    return c >= '0' && c <= '9';
}

/* The seconds of a text such as 1h30m; -1 when it is none. */
static long parse(const char *text)
{
    long total = 0;
    do {
        long count = 0;
        if (!is_digit(*text))
            return -1;
        while (is_digit(*text))
            count = 10 * count + (*text++ - '0');
        long seconds = in_seconds(count, *text++);
        if (seconds < 0)
            return -1;
        total += seconds;
    } while (*text != '\0' && *text != '\n');
    return total;
}

/* The first duration that comes again, other than 0; -1 when none does. */
static long first_repeated(const long *list, int n)
{
    long found = -1;
    for (int i = 0; i < n && found < 0; i++) {
        if (list[i] == 0)
            continue;
        for (int j = i + 1; j < n; j++)
            if (list[j] == list[i]) {
                found = list[i];
                break;
            }
    }
    return found;
}

/* Whatever goes wrong, memory is freed and the file is closed. */
static int add_up(FILE *file)
{
    int status = 1, n = 0;
    long total = 0;
    char line[80];
    long *list = malloc(MOST * sizeof *list);
    if (list == NULL)
        goto close;
    while (n < MOST && fgets(line, sizeof line, file) != NULL) {
        if (line[0] == '#' || line[0] == '\n')
            continue;
        list[n] = parse(line);
        if (list[n] < 0) {
            fprintf(stderr, "no duration: %s", line);
            goto release;
        }
        total += list[n++];
    }
    printf("%d durations, %ld seconds%s\n", n, total, first_repeated(list, n) < 0 ? "" : ", some alike");
    status = 0;
release:
    free(list);
close:
    if (file != stdin)
        fclose(file);
    return status;
}

int main(int argc, char **argv)
{
    if (argc > 2 || (argc == 2 && argv[1][0] == '-'))
        usage(argv[0]);
    FILE *file = argc == 2 ? fopen(argv[1], "r") : stdin;
    if (file == NULL) {
        perror(argv[1]);
        return 1;
    }
    return add_up(file);
}
