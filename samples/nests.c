/* SPDX-License-Identifier: MIT */
/* Loop nests whose dependences differ: which of these loops may run in parallel? */
#include <stdio.h>

#define N 16

/* Rows and columns may run in parallel; the sum is carried by the innermost loop. */
static void multiply(double a[N][N], double b[N][N], double c[N][N])
{
    for (int i = 0; i < N; i++)
        for (int j = 0; j < N; j++) {
            c[i][j] = 0.0;
            for (int k = 0; k < N; k++)
                c[i][j] += a[i][k] * b[k][j];
        }
}

/* Each element needs the one above and the one to the left: only the diagonals are parallel. */
static void wavefront(double a[N][N])
{
    for (int i = 1; i < N; i++)
        for (int j = 1; j < N; j++)
            a[i][j] = 0.5 * (a[i - 1][j] + a[i][j - 1]);
}

/* The loop carries each sum to the next one. */
static void prefix_sums(double x[N], int n)
{
    for (int i = 1; i < n; i++)
        x[i] += x[i - 1];
}

/* Even elements are read, odd ones are written: no dependence at all. */
static void interleave(double x[N])
{
    for (int i = 0; i < N / 2; i++)
        x[2 * i + 1] = x[2 * i] + 1.0;
}

/* Where the values go is known only when the program runs. */
static void scatter(double x[N], const int where[N], int n)
{
    for (int i = 0; i < n; i++)
        x[where[i]] += 1.0;
}

int main(void)
{
    static double a[N][N], b[N][N], c[N][N], x[N];
    int where[N];
    for (int i = 0; i < N; i++) {
        x[i] = i;
        where[i] = i * 5 % N;
        for (int j = 0; j < N; j++) {
            a[i][j] = i + j;
            b[i][j] = i - j;
        }
    }
    multiply(a, b, c);
    wavefront(c);
    prefix_sums(x, N);
    interleave(x);
    scatter(x, where, N);
    printf("%g %g\n", c[N - 1][N - 1], x[N - 1]);
    return 0;
}
