// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>
#include <cstddef>

// The charge step over all pairs of particles, tile by tile. It is compiled once for each instruction set, in files
// that have compiler flags of their own; everything here therefore has internal linkage, so that the linker cannot take
// one file's copy for another's. For the same reason arrays are plain ones: std::array's operators would be shared.
// NOLINTBEGIN(modernize-avoid-c-arrays, misc-definitions-in-headers)

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

/// The particles of Lanes::Width rows against those of as many columns: differences of positions, and distances. A row
/// is a vector, its lanes are the columns.
template <class Lanes>
struct Distances {
    using Vector = typename Lanes::Vector;
    Vector dx[Lanes::Width];
    Vector dy[Lanes::Width];
    Vector length[Lanes::Width];

    /// @param row of those that start at p; the columns start at q.
    void compute(const ChargeView& c, std::size_t p, std::size_t row, std::size_t q) {
        dx[row] = Lanes::broadcast(c.x[p + row]) - Lanes::load(c.x + q);
        dy[row] = Lanes::broadcast(c.y[p + row]) - Lanes::load(c.y + q);
        length[row] = Lanes::sqrt(dx[row] * dx[row] + dy[row] * dy[row]);
    }
};

/// A block of Lanes::Width rows, from the first column up to the diagonal's tile.
///
/// Within a tile the lanes of a vector are the columns q, so what the rows take from f_q is applied row after row, as
/// the plain double loop does it. What the columns add to f_p has to be summed column after column: the tile is
/// transposed, its lanes become the rows, and one vector addition per column serves all rows at once. So every
/// particle's sum keeps its order, and no sum's latency is waited for: square root and division set the pace. Square
/// roots are asked for one tile ahead, so that the slow unit which finds them always has work.
///
/// Lanes::max and Lanes::min return their second argument when one is not a number, as the comparisons of addRow leave
/// d and the smallest distance alone. Lanes::divide gives the quotient that IEEE 754 prescribes.
template <class Lanes>
class RowBlock {
public:
    /// @param p the first row, a multiple of Lanes::Width.
    RowBlock(const ChargeView& c, double coulomb, std::size_t p)
        : m_c(c),
          m_p(p),
          m_fx(Lanes::load(c.fx + p)),
          m_fy(Lanes::load(c.fy + p)) {
        for (std::size_t row = 0; row < Width; ++row)
            m_strength[row] = coulomb * c.mass[p + row];
    }

    /// Returns the smallest distance, at most the given one.
    double add(double smallest) {
        m_nearest = Lanes::broadcast(smallest);
        Distances<Lanes> tiles[2];
        for (std::size_t row = 0; row < Width; ++row)
            tiles[0].compute(m_c, m_p, row, 0);
        std::size_t current = 0;
        for (std::size_t q = 0; q < m_p; q += Width) {
            // Behind the last tile the first one is computed again: cheaper than to ask for every row.
            const std::size_t nextQ = q + Width < m_p ? q + Width : 0;
            addTile(tiles[current], q, tiles[1 - current], nextQ);
            current = 1 - current;
        }
        Lanes::store(m_c.fx + m_p, m_fx);
        Lanes::store(m_c.fy + m_p, m_fy);
        double distances[Width];
        Lanes::store(distances, m_nearest);
        for (const double d : distances)
            smallest = d < smallest ? d : smallest;
        return smallest;
    }

private:
    using Vector = typename Lanes::Vector;
    static constexpr std::size_t Width = Lanes::Width;

    void addTile(const Distances<Lanes>& tile, std::size_t q, Distances<Lanes>& next, std::size_t nextQ) {
        const Vector one = Lanes::broadcast(1.0);
        const Vector mass = Lanes::load(m_c.mass + q);
        Vector fx = Lanes::load(m_c.fx + q);
        Vector fy = Lanes::load(m_c.fy + q);
        Vector termX[Width];
        Vector termY[Width];
#pragma GCC unroll 8
        for (std::size_t row = 0; row < Width; ++row) {
            next.compute(m_c, m_p, row, nextQ);
            const Vector d = Lanes::max(one, tile.length[row]);
            m_nearest = Lanes::min(d, m_nearest);
            const Vector k = Lanes::divide(Lanes::broadcast(m_strength[row]) * mass, d * d * d);
            termX[row] = tile.dx[row] * k;
            termY[row] = tile.dy[row] * k;
            fx = fx - termX[row];
            fy = fy - termY[row];
        }
        Lanes::store(m_c.fx + q, fx);
        Lanes::store(m_c.fy + q, fy);
        Lanes::transpose(termX);
        Lanes::transpose(termY);
#pragma GCC unroll 8
        for (std::size_t column = 0; column < Width; ++column) {
            m_fx = m_fx + termX[column];
            m_fy = m_fy + termY[column];
        }
    }

    const ChargeView& m_c;
    std::size_t m_p;
    Vector m_fx;
    Vector m_fy;
    Vector m_nearest;
    double m_strength[Width];
};

/// All pairs. What is left beside the tiles, along the diagonal and in the last rows, is done pair by pair.
template <class Lanes>
double addChargesInTiles(const ChargeView& c, double coulomb) {
    double smallest = NoDistance;
    std::size_t block = 0;
    for (; block + Lanes::Width <= c.n; block += Lanes::Width) {
        smallest = RowBlock<Lanes>(c, coulomb, block).add(smallest);
        for (std::size_t p = block; p < block + Lanes::Width; ++p)
            smallest = addRow(c, coulomb, p, block, p, smallest);
    }
    for (std::size_t p = block; p < c.n; ++p)
        smallest = addRow(c, coulomb, p, 0, p, smallest);
    return smallest;
}

} // namespace
} // namespace Kova::ParticleSystem
// NOLINTEND(modernize-avoid-c-arrays, misc-definitions-in-headers)
