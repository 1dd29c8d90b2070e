/* SPDX-License-Identifier: MIT */
#include "calculator.h"

#include <stdio.h>

static int count;

void report(const char *message, const char *detail)
{
    count++;
    fprintf(stderr, "error: %s %s\n", message, detail);
}

int error_count(void)
{
    return count;
}
