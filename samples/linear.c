/* SPDX-License-Identifier: MIT */
/* Solves a system of linear equations by the Cholesky decomposition of a symmetric positive definite matrix. */
#include <math.h>
#include <stdio.h>

#define N 12

static void build(double a[N][N], double b[N])
{
    for (int i = 0; i < N; i++) {
        for (int j = 0; j < N; j++)
            a[i][j] = 1.0 / (1 + i + j);
        a[i][i] += N;
        b[i] = i + 1;
    }
}

/* Leaves the lower triangle L of a = L * transpose(L) in a. */
static int decompose(double a[N][N])
{
    for (int k = 0; k < N; k++) {
        if (a[k][k] <= 0.0)
            return 0;
        a[k][k] = sqrt(a[k][k]);
        for (int i = k + 1; i < N; i++)
            a[i][k] /= a[k][k];
        for (int j = k + 1; j < N; j++)
            for (int i = j; i < N; i++)
                a[i][j] -= a[i][k] * a[j][k];
    }
    return 1;
}

static void solve_forward(double l[N][N], double b[N])
{
    for (int i = 0; i < N; i++) {
        for (int j = 0; j < i; j++)
            b[i] -= l[i][j] * b[j];
        b[i] /= l[i][i];
    }
}

static void solve_backward(double l[N][N], double b[N])
{
    for (int i = N - 1; i >= 0; i--) {
        for (int j = i + 1; j < N; j++)
            b[i] -= l[j][i] * b[j];
        b[i] /= l[i][i];
    }
}

static double residual(double x[N])
{
    double a[N][N], b[N], worst = 0.0;
    build(a, b);
    for (int i = 0; i < N; i++) {
        double sum = 0.0;
        for (int j = 0; j < N; j++)
            sum += a[i][j] * x[j];
        worst = fmax(worst, fabs(sum - b[i]));
    }
    return worst;
}

int main(void)
{
    double a[N][N], x[N];
    build(a, x);
    if (!decompose(a)) {
        fprintf(stderr, "the matrix is not positive definite\n");
        return 1;
    }
    solve_forward(a, x);
    solve_backward(a, x);
    printf("x[0] = %.6f, residual below 1e-9: %s\n", x[0], residual(x) < 1e-9 ? "yes" : "no");
    return 0;
}
