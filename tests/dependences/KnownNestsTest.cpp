// SPDX-License-Identifier: MIT
#include "tests/dependences/ReadGraph.h"

#include <gtest/gtest.h>

using namespace Kova::Tests;
using DepGraph::RM_EXACT;
using DepGraph::RM_VALUE_BASED;

namespace {

constexpr const char* matrixMultiplication = R"(
void multiply(int n, double A[n][n], double B[n][n], double C[n][n]) {
    for (int i = 0; i < n; i++)
        for (int j = 0; j < n; j++) {
            C[i][j] = 0;
            for (int k = 0; k < n; k++)
                C[i][j] += A[i][k] * B[k][j];
        }
}
)";

// Only one i and j touch C[i][j], so nothing but k carries anything; the zero is written once, before.
TEST(KnownNestsTest, matrixMultiplication) {
    EXPECT_EQ(ReadGraph(matrixMultiplication).describe(), "flow 5:C[i][j] -> 7:C[i][j] by -1 (0, 0) if n >= 1\n"
                                                          "output 5:C[i][j] -> 7:C[i][j] by -1 (0, 0) if n >= 1\n"
                                                          "flow 7:C[i][j] -> 7:C[i][j] by 3 (0, 0, <) if n >= 2\n"
                                                          "anti 7:C[i][j] -> 7:C[i][j] by 3 (0, 0, <) if n >= 2\n"
                                                          "output 7:C[i][j] -> 7:C[i][j] by 3 (0, 0, <) if n >= 2\n");
}

// Of the sums only the last one is read and overwritten. Between two reads of C[i][j] it is always written.
TEST(KnownNestsTest, matrixMultiplicationByValues) {
    EXPECT_EQ(ReadGraph(matrixMultiplication, RM_VALUE_BASED, true).describe("C"),
              "flow 5:C[i][j] -> 7:C[i][j] by -1 (0, 0) if n >= 1\n"
              "output 5:C[i][j] -> 7:C[i][j] by -1 (0, 0) if n >= 1\n"
              "flow 7:C[i][j] -> 7:C[i][j] by 3 (0, 0, 1) if n >= 2\n"
              "output 7:C[i][j] -> 7:C[i][j] by 3 (0, 0, 1) if n >= 2\n");
}

// A's row is read again for every j, B's column for every i.
TEST(KnownNestsTest, matrixMultiplicationReadsItsFactorsAgain) {
    ReadGraph graph(matrixMultiplication, RM_EXACT, true);
    EXPECT_EQ(graph.describe("A"), "input 7:A[i][k] -> 7:A[i][k] by 2 (0, <, 0) if n >= 2\n");
    EXPECT_EQ(graph.describe("B"), "input 7:B[k][j] -> 7:B[k][j] by 1 (<, 0, 0) if n >= 2\n");
}

constexpr const char* jacobi = R"(
void relax(int n, int steps, double a[n], double b[n]) {
    for (int t = 0; t < steps; t++) {
        for (int i = 1; i < n - 1; i++)
            b[i] = a[i - 1] + a[i] + a[i + 1];
        for (int i = 1; i < n - 1; i++)
            a[i] = b[i];
    }
}
)";

// The two inner loops are different ones: only t is common to their statements. An inner element has a written
// neighbour when there are two of them, that is n >= 4.
TEST(KnownNestsTest, jacobi) {
    EXPECT_EQ(ReadGraph(jacobi).describe(), "output 5:b[i] -> 5:b[i] by 1 (<, 0) if n >= 3 and steps >= 2\n"
                                            "flow 5:b[i] -> 7:b[i] by -1 1 (<=) if n >= 3 and steps >= 1\n"
                                            "anti 5:a[i - 1] -> 7:a[i] by -1 1 (<=) if n >= 4 and steps >= 1\n"
                                            "anti 5:a[i] -> 7:a[i] by -1 1 (<=) if n >= 3 and steps >= 1\n"
                                            "anti 5:a[i + 1] -> 7:a[i] by -1 1 (<=) if n >= 4 and steps >= 1\n"
                                            "flow 7:a[i] -> 5:a[i - 1] by 1 (<) if n >= 4 and steps >= 2\n"
                                            "flow 7:a[i] -> 5:a[i] by 1 (<) if n >= 3 and steps >= 2\n"
                                            "flow 7:a[i] -> 5:a[i + 1] by 1 (<) if n >= 4 and steps >= 2\n"
                                            "output 7:a[i] -> 7:a[i] by 1 (<, 0) if n >= 3 and steps >= 2\n"
                                            "anti 7:b[i] -> 5:b[i] by 1 (<) if n >= 3 and steps >= 2\n");
}

// Every element is written anew in every step, so values live no longer than from one step to the next.
TEST(KnownNestsTest, jacobiByValues) {
    EXPECT_EQ(ReadGraph(jacobi, RM_VALUE_BASED).describe(),
              "output 5:b[i] -> 5:b[i] by 1 (1, 0) if n >= 3 and steps >= 2\n"
              "flow 5:b[i] -> 7:b[i] by -1 (0) if n >= 3 and steps >= 1\n"
              "anti 5:a[i - 1] -> 7:a[i] by -1 (0) if n >= 4 and steps >= 1\n"
              "anti 5:a[i] -> 7:a[i] by -1 (0) if n >= 3 and steps >= 1\n"
              "anti 5:a[i + 1] -> 7:a[i] by -1 (0) if n >= 4 and steps >= 1\n"
              "flow 7:a[i] -> 5:a[i - 1] by 1 (1) if n >= 4 and steps >= 2\n"
              "flow 7:a[i] -> 5:a[i] by 1 (1) if n >= 3 and steps >= 2\n"
              "flow 7:a[i] -> 5:a[i + 1] by 1 (1) if n >= 4 and steps >= 2\n"
              "output 7:a[i] -> 7:a[i] by 1 (1, 0) if n >= 3 and steps >= 2\n"
              "anti 7:b[i] -> 5:b[i] by 1 (1) if n >= 3 and steps >= 2\n");
}

constexpr const char* gaussSeidel = R"(
void relax(int n, int steps, double a[n]) {
    for (int t = 0; t < steps; t++)
        for (int i = 1; i < n - 1; i++)
            a[i] = a[i - 1] + a[i] + a[i + 1];
}
)";

// The left neighbour was written in this sweep, the right one in the sweep before.
TEST(KnownNestsTest, gaussSeidel) {
    EXPECT_EQ(ReadGraph(gaussSeidel).describe(), "output 5:a[i] -> 5:a[i] by 1 (<, 0) if n >= 3 and steps >= 2\n"
                                                 "flow 5:a[i] -> 5:a[i - 1] by 1 2 (<=, 1) if n >= 4 and steps >= 1\n"
                                                 "flow 5:a[i] -> 5:a[i]#2 by 1 (<, 0) if n >= 3 and steps >= 2\n"
                                                 "flow 5:a[i] -> 5:a[i + 1] by 1 (<, -1) if n >= 4 and steps >= 2\n"
                                                 "anti 5:a[i - 1] -> 5:a[i] by 1 (<, -1) if n >= 4 and steps >= 2\n"
                                                 "anti 5:a[i]#2 -> 5:a[i] by -1 1 (<=, 0) if n >= 3 and steps >= 1\n"
                                                 "anti 5:a[i + 1] -> 5:a[i] by 1 2 (<=, 1) if n >= 4 and steps >= 1\n");
}

TEST(KnownNestsTest, gaussSeidelByValues) {
    EXPECT_EQ(ReadGraph(gaussSeidel, RM_VALUE_BASED).describe(),
              "output 5:a[i] -> 5:a[i] by 1 (1, 0) if n >= 3 and steps >= 2\n"
              "flow 5:a[i] -> 5:a[i - 1] by 2 (0, 1) if n >= 4 and steps >= 1\n"
              "flow 5:a[i] -> 5:a[i]#2 by 1 (1, 0) if n >= 3 and steps >= 2\n"
              "flow 5:a[i] -> 5:a[i + 1] by 1 (1, -1) if n >= 4 and steps >= 2\n"
              "anti 5:a[i - 1] -> 5:a[i] by 1 (1, -1) if n >= 4 and steps >= 2\n"
              "anti 5:a[i]#2 -> 5:a[i] by -1 (0, 0) if n >= 3 and steps >= 1\n"
              "anti 5:a[i + 1] -> 5:a[i] by 2 (0, 1) if n >= 4 and steps >= 1\n");
}

constexpr const char* cholesky = R"(double sqrt(double x);
void factorize(int n, double a[n][n]) {
    for (int k = 0; k < n; k++) {
        a[k][k] = sqrt(a[k][k]);
        for (int i = k + 1; i < n; i++)
            a[i][k] = a[i][k] / a[k][k];
        for (int i = k + 1; i < n; i++)
            for (int j = k + 1; j <= i; j++)
                a[i][j] = a[i][j] - a[i][k] * a[j][k];
    }
}
)";

// Iteration k finishes column k, which later iterations neither read nor write; what line 9 wrote in iteration k is the
// diagonal, a column or an inner element of a later one. Loops count from their first iteration: the same i is one
// iteration earlier for each k later.
TEST(KnownNestsTest, cholesky) {
    EXPECT_EQ(ReadGraph(cholesky).describe(), "flow 4:a[k][k] -> 6:a[k][k] by -1 (0) if n >= 2\n"
                                              "anti 4:a[k][k]#2 -> 4:a[k][k] by -1 (0) if n >= 1\n"
                                              "flow 6:a[i][k] -> 9:a[i][k] by -1 (0) if n >= 2\n"
                                              "flow 6:a[i][k] -> 9:a[j][k] by -1 (0) if n >= 2\n"
                                              "anti 6:a[i][k]#2 -> 6:a[i][k] by -1 (0, 0) if n >= 2\n"
                                              "output 9:a[i][j] -> 4:a[k][k] by 1 (<) if n >= 2\n"
                                              "flow 9:a[i][j] -> 4:a[k][k]#2 by 1 (<) if n >= 2\n"
                                              "output 9:a[i][j] -> 6:a[i][k] by 1 (<) if n >= 3\n"
                                              "flow 9:a[i][j] -> 6:a[i][k]#2 by 1 (<) if n >= 3\n"
                                              "flow 9:a[i][j] -> 6:a[k][k] by 1 (<) if n >= 3\n"
                                              "output 9:a[i][j] -> 9:a[i][j] by 1 (<, >, >) if n >= 3\n"
                                              "flow 9:a[i][j] -> 9:a[i][j]#2 by 1 (<, >, >) if n >= 3\n"
                                              "flow 9:a[i][j] -> 9:a[i][k] by 1 (<, >, <=>) if n >= 3\n"
                                              "flow 9:a[i][j] -> 9:a[j][k] by 1 (<, <=>, <=>) if n >= 3\n"
                                              "anti 9:a[i][j]#2 -> 4:a[k][k] by 1 (<) if n >= 2\n"
                                              "anti 9:a[i][j]#2 -> 6:a[i][k] by 1 (<) if n >= 3\n"
                                              "anti 9:a[i][j]#2 -> 9:a[i][j] by -1 1 (<=, =>, =>) if n >= 2\n");
}

// What line 9 leaves in an element is taken up by the very next k.
TEST(KnownNestsTest, choleskyByValues) {
    EXPECT_EQ(ReadGraph(cholesky, RM_VALUE_BASED).describe(),
              "flow 4:a[k][k] -> 6:a[k][k] by -1 (0) if n >= 2\n"
              "anti 4:a[k][k]#2 -> 4:a[k][k] by -1 (0) if n >= 1\n"
              "flow 6:a[i][k] -> 9:a[i][k] by -1 (0) if n >= 2\n"
              "flow 6:a[i][k] -> 9:a[j][k] by -1 (0) if n >= 2\n"
              "anti 6:a[i][k]#2 -> 6:a[i][k] by -1 (0, 0) if n >= 2\n"
              "output 9:a[i][j] -> 4:a[k][k] by 1 (1) if n >= 2\n"
              "flow 9:a[i][j] -> 4:a[k][k]#2 by 1 (1) if n >= 2\n"
              "output 9:a[i][j] -> 6:a[i][k] by 1 (1) if n >= 3\n"
              "flow 9:a[i][j] -> 6:a[i][k]#2 by 1 (1) if n >= 3\n"
              "output 9:a[i][j] -> 9:a[i][j] by 1 (1, -1, -1) if n >= 3\n"
              "flow 9:a[i][j] -> 9:a[i][j]#2 by 1 (1, -1, -1) if n >= 3\n"
              "anti 9:a[i][j]#2 -> 9:a[i][j] by -1 (0, 0, 0) if n >= 2\n");
}

// Iteration k reads row and column k while it writes everything.
TEST(KnownNestsTest, floydWarshall) {
    EXPECT_EQ(ReadGraph(R"(
void paths(int n, int d[n][n]) {
    for (int k = 0; k < n; k++)
        for (int i = 0; i < n; i++)
            for (int j = 0; j < n; j++)
                d[i][j] = d[i][k] + d[k][j];
}
)")
                  .describe(),
              "output 6:d[i][j] -> 6:d[i][j] by 1 (<, 0, 0) if n >= 2\n"
              "flow 6:d[i][j] -> 6:d[i][k] by 1 3 (<=, 0, <=>) if n >= 2\n"
              "flow 6:d[i][j] -> 6:d[k][j] by 1 2 (<=, <=>, 0) if n >= 2\n"
              "anti 6:d[i][k] -> 6:d[i][j] by -1 1 3 (<=, 0, <=>) if n >= 1\n"
              "anti 6:d[k][j] -> 6:d[i][j] by -1 1 2 (<=, <=>, 0) if n >= 1\n");
}

TEST(KnownNestsTest, prefixSums) {
    EXPECT_EQ(ReadGraph(R"(
void sums(int n, double a[n]) {
    for (int i = 1; i < n; i++)
        a[i] = a[i] + a[i - 1];
}
)")
                  .describe(),
              "flow 4:a[i] -> 4:a[i - 1] by 1 (1) if n >= 3\n"
              "anti 4:a[i]#2 -> 4:a[i] by -1 (0) if n >= 2\n");
}

TEST(KnownNestsTest, wavefront) {
    EXPECT_EQ(ReadGraph(R"(
void wave(int n, int m, double a[n][m]) {
    for (int i = 1; i < n; i++)
        for (int j = 1; j < m; j++)
            a[i][j] = a[i - 1][j] + a[i][j - 1];
}
)")
                  .describe(),
              "flow 5:a[i][j] -> 5:a[i - 1][j] by 1 (1, 0) if m >= 2 and n >= 3\n"
              "flow 5:a[i][j] -> 5:a[i][j - 1] by 2 (0, 1) if m >= 3 and n >= 2\n");
}

// One variable for all iterations; the last sum leaves the loop.
TEST(KnownNestsTest, reduction) {
    EXPECT_EQ(ReadGraph(R"(
double sum(int n, double a[n]) {
    double s = 0;
    for (int i = 0; i < n; i++)
        s += a[i];
    return s;
}
)")
                  .describe(),
              "flow 5:s -> 5:s by 1 (<) if n >= 2\n"
              "anti 5:s -> 5:s by 1 (<) if n >= 2\n"
              "output 5:s -> 5:s by 1 (<) if n >= 2\n"
              "flow 5:s -> 6:s by -1 () if n >= 1\n");
}

// A variable of the loop's own body is another one in each iteration: i carries nothing.
TEST(KnownNestsTest, aVariableOfTheBody) {
    EXPECT_EQ(ReadGraph(R"(
void power(int n, double a[n], double b[n]) {
    for (int i = 0; i < n; i++) {
        double t = a[i];
        for (int j = 0; j < 3; j++)
            t = t * a[0];
        b[i] = t;
    }
}
)")
                  .describe(),
              "output 6:t -> 6:t by 2 (0, <) if n >= 1\n"
              "flow 6:t -> 6:t#2 by 2 (0, <) if n >= 1\n"
              "flow 6:t -> 7:t by -1 (0) if n >= 1\n"
              "anti 6:t#2 -> 6:t by -1 2 (0, <=) if n >= 1\n");
}

} // namespace
