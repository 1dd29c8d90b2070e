// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>
#include <cstddef>

// The charge step over all pairs of particles, tile by tile. It is compiled once for each instruction set, in files
// that have compiler flags of their own; everything here therefore has internal linkage, so that the linker cannot take
// one file's copy for another's.

namespace Kova::ParticleSystem {

/// Plain pointers into the component arrays of n particles.
struct ChargeView {
    const double* x;
    const double* y;
    const double* mass;
    double* fx;
    double* fy;
    std::size_t n;
};

double addChargesPortable(const ChargeView& c, double coulomb);
double addChargesSse2(const ChargeView& c, double coulomb);
double addChargesAvx2(const ChargeView& c, double coulomb);
double addChargesAvx512(const ChargeView& c, double coulomb);

namespace {

constexpr double NoDistance = 10000.0;

/// One row of the triangle of pairs: p with every q in [first, last), last <= p. Returns the smallest distance so far.
[[maybe_unused]] double addRow(const ChargeView& c, double coulomb, std::size_t p, std::size_t first, std::size_t last,
                               double smallest) {
    const double strength = coulomb * c.mass[p];
    for (std::size_t q = first; q < last; ++q) {
        const double dx = c.x[p] - c.x[q];
        const double dy = c.y[p] - c.y[q];
        double d = std::sqrt(dx * dx + dy * dy);
        if (d < 1.0)
            d = 1.0;
        if (d < smallest)
            smallest = d;
        const double k = strength * c.mass[q] / (d * d * d);
        c.fx[p] += dx * k;
        c.fy[p] += dy * k;
        c.fx[q] -= dx * k;
        c.fy[q] -= dy * k;
    }
    return smallest;
}

/// A block of Lanes::Width rows, from the first column up to the diagonal's tile.
///
/// Within a tile the lanes of a vector are the columns q, so what the rows take from f_q is applied row after row, as
/// the plain double loop does it. What the columns add to f_p has to be summed column after column: the tile is
/// transposed, its lanes become the rows, and one vector addition per column serves all rows at once. So every
/// particle's sum keeps its order, and no sum's latency is waited for: square root and division set the pace.
///
/// Lanes::max and Lanes::min return their second argument when one is not a number, as the comparisons of addRow leave
/// d and the smallest distance alone. Lanes::divide gives the quotient that IEEE 754 prescribes.
template <class Lanes>
double addRowBlock(const ChargeView& c, double coulomb, std::size_t p, double smallest) {
    using Vector = typename Lanes::Vector;
    constexpr std::size_t Width = Lanes::Width;
    const Vector one = Lanes::broadcast(1.0);
    Vector nearest = Lanes::broadcast(smallest);
    Vector rowFx = Lanes::load(c.fx + p);
    Vector rowFy = Lanes::load(c.fy + p);
    double strength[Width];
    for (std::size_t row = 0; row < Width; ++row)
        strength[row] = coulomb * c.mass[p + row];

    for (std::size_t q = 0; q < p; q += Width) {
        const Vector x = Lanes::load(c.x + q);
        const Vector y = Lanes::load(c.y + q);
        const Vector mass = Lanes::load(c.mass + q);
        Vector fx = Lanes::load(c.fx + q);
        Vector fy = Lanes::load(c.fy + q);
        Vector termX[Width];
        Vector termY[Width];
#pragma GCC unroll 8
        for (std::size_t row = 0; row < Width; ++row) {
            const Vector dx = Lanes::broadcast(c.x[p + row]) - x;
            const Vector dy = Lanes::broadcast(c.y[p + row]) - y;
            const Vector d = Lanes::max(one, Lanes::sqrt(dx * dx + dy * dy));
            nearest = Lanes::min(d, nearest);
            const Vector k = Lanes::divide(Lanes::broadcast(strength[row]) * mass, d * d * d);
            termX[row] = dx * k;
            termY[row] = dy * k;
            fx = fx - termX[row];
            fy = fy - termY[row];
        }
        Lanes::store(c.fx + q, fx);
        Lanes::store(c.fy + q, fy);
        Lanes::transpose(termX);
        Lanes::transpose(termY);
#pragma GCC unroll 8
        for (std::size_t column = 0; column < Width; ++column) {
            rowFx = rowFx + termX[column];
            rowFy = rowFy + termY[column];
        }
    }
    Lanes::store(c.fx + p, rowFx);
    Lanes::store(c.fy + p, rowFy);

    double distances[Width];
    Lanes::store(distances, nearest);
    for (const double d : distances)
        smallest = d < smallest ? d : smallest;
    return smallest;
}

/// All pairs. What is left beside the tiles, along the diagonal and in the last rows, is done pair by pair.
template <class Lanes>
double addChargesInTiles(const ChargeView& c, double coulomb) {
    double smallest = NoDistance;
    std::size_t block = 0;
    for (; block + Lanes::Width <= c.n; block += Lanes::Width) {
        smallest = addRowBlock<Lanes>(c, coulomb, block, smallest);
        for (std::size_t p = block; p < block + Lanes::Width; ++p)
            smallest = addRow(c, coulomb, p, block, p, smallest);
    }
    for (std::size_t p = block; p < c.n; ++p)
        smallest = addRow(c, coulomb, p, 0, p, smallest);
    return smallest;
}

} // namespace
} // namespace Kova::ParticleSystem
