/* SPDX-License-Identifier: MIT */
/* Heat spreads over a plate: Jacobi iterations until the temperatures settle. */
#include <math.h>
#include <stdio.h>

#define ROWS 64
#define COLUMNS 64

static double plate[ROWS][COLUMNS];
static double next[ROWS][COLUMNS];

static void heat_edges(double temperature)
{
    for (int j = 0; j < COLUMNS; j++) {
        plate[0][j] = temperature;
        next[0][j] = temperature;
    }
}

static void relax(void)
{
    for (int i = 1; i < ROWS - 1; i++)
        for (int j = 1; j < COLUMNS - 1; j++)
            next[i][j] = 0.25 * (plate[i - 1][j] + plate[i + 1][j] + plate[i][j - 1] + plate[i][j + 1]);
}

static double take_over(void)
{
    double change = 0.0;
    for (int i = 1; i < ROWS - 1; i++) {
        for (int j = 1; j < COLUMNS - 1; j++) {
            change = fmax(change, fabs(next[i][j] - plate[i][j]));
            plate[i][j] = next[i][j];
        }
    }
    return change;
}

static double average(void)
{
    double sum = 0.0;
    for (int i = 0; i < ROWS; i++)
        for (int j = 0; j < COLUMNS; j++)
            sum += plate[i][j];
    return sum / (ROWS * COLUMNS);
}

int main(void)
{
    int steps = 0;
    heat_edges(100.0);
    do {
        relax();
        steps++;
    } while (take_over() > 1e-3);
    printf("%d steps, average %.3f\n", steps, average());
    return 0;
}
