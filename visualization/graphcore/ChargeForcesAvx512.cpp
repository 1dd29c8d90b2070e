// SPDX-License-Identifier: MIT
#include "visualization/graphcore/ChargeTiles_p.h"

#ifndef __clang__
// GCC 12's header makes its "undefined" vectors from themselves, which its own warning then finds.
#pragma GCC diagnostic ignored "-Wuninitialized"
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#endif
#include <immintrin.h>

namespace Kova::ParticleSystem {
namespace {

struct Avx512Lanes {
    using Vector = __m512d;
    static constexpr std::size_t Width = 8;

    static Vector load(const double* from) { return _mm512_loadu_pd(from); }
    static void store(double* to, Vector v) { _mm512_storeu_pd(to, v); }
    static Vector broadcast(double value) { return _mm512_set1_pd(value); }
    static Vector sqrt(Vector v) { return _mm512_sqrt_pd(v); }
    static Vector max(Vector a, Vector b) { return _mm512_max_pd(a, b); }
    static Vector min(Vector a, Vector b) { return _mm512_min_pd(a, b); }

    /// The correctly rounded a / b, made from an estimate of 1 / b while the divider is busy with square roots; after
    /// P. W. Markstein, "Computation of elementary functions on the IBM RISC System/6000 processor" (1990). Fused
    /// multiply-adds serve to reach the very quotient that the division instruction gives. a and b must be within the
    /// bounds of isWithinBounds, so that nothing overflows or loses bits at the small end.
    ///
    /// Why it is exact. Write b as an integer of 53 bits, B, times a power of two, and let "ulp" be that of a / b.
    /// The estimate is off by 2^-14 relatively, so y1 by less than 2^-41.9, and y2 by at most its own rounding,
    /// B 2^-106, plus 2^-83. q0 is as good as y1, and q1 is within 1/2 + 2^-40 ulp. Then a - b q1 needs no more than 53
    /// bits: r1 is exact, and q1 + r1 y2 is off by at most (1/2 + 2^-40)(B 2^-106 + 2^-83) ulp before it is rounded.
    /// A quotient of two 53-bit numbers is never half way between two others and at least 1 / (2B) ulp from there, so
    /// the rounding goes where it should when (1 + 2^-39)(B^2 2^-106 + B 2^-83) < 1. With B = 2^53 (1 - h) that holds
    /// for h >= 2^-29, that is, unless the first 28 bits of b's fraction are all ones: those are divided as usual.
    static Vector divide(Vector a, Vector b) {
        const __m512i leadingBits = _mm512_set1_epi64(0x000fffffff000000);
        const __m512i bits = _mm512_castpd_si512(b);
        if (__builtin_expect(_mm512_cmpeq_epi64_mask(_mm512_and_si512(bits, leadingBits), leadingBits) != 0, 0))
            return a / b;
        const Vector y0 = _mm512_rcp14_pd(b);
        const Vector e0 = _mm512_fnmadd_pd(b, y0, broadcast(1.0));
        const Vector y1 = _mm512_fmadd_pd(y0, _mm512_fmadd_pd(e0, e0, e0), y0);
        const Vector e1 = _mm512_fnmadd_pd(b, y1, broadcast(1.0));
        const Vector y2 = _mm512_fmadd_pd(y1, e1, y1);
        const Vector q0 = a * y1;
        const Vector r0 = _mm512_fnmadd_pd(b, q0, a);
        const Vector q1 = _mm512_fmadd_pd(r0, y2, q0);
        const Vector r1 = _mm512_fnmadd_pd(b, q1, a);
        return _mm512_fmadd_pd(r1, y2, q1);
    }

    /// Three rounds that exchange single elements, quarters and halves of the vectors.
    static void transpose(Vector (&rows)[Width]) { // NOLINT(modernize-avoid-c-arrays): see ChargeTiles_p.h
        Vector pairs[Width];                       // NOLINT(modernize-avoid-c-arrays)
        for (std::size_t i = 0; i < Width; i += 2) {
            pairs[i] = _mm512_unpacklo_pd(rows[i], rows[i + 1]);
            pairs[i + 1] = _mm512_unpackhi_pd(rows[i], rows[i + 1]);
        }
        // Of the four quarters of each operand, 0x88 takes those of even number and 0xdd those of odd number.
        for (std::size_t i = 0; i < 2; ++i) {
            const Vector evenLow = _mm512_shuffle_f64x2(pairs[i], pairs[i + 2], 0x88);
            const Vector oddLow = _mm512_shuffle_f64x2(pairs[i], pairs[i + 2], 0xdd);
            const Vector evenHigh = _mm512_shuffle_f64x2(pairs[i + 4], pairs[i + 6], 0x88);
            const Vector oddHigh = _mm512_shuffle_f64x2(pairs[i + 4], pairs[i + 6], 0xdd);
            rows[i] = _mm512_shuffle_f64x2(evenLow, evenHigh, 0x88);
            rows[i + 4] = _mm512_shuffle_f64x2(evenLow, evenHigh, 0xdd);
            rows[i + 2] = _mm512_shuffle_f64x2(oddLow, oddHigh, 0x88);
            rows[i + 6] = _mm512_shuffle_f64x2(oddLow, oddHigh, 0xdd);
        }
    }
};

/// Within these bounds a dividend is in [1e-90, 1e90] and a divisor, a cube of a distance, in [1, 1e92].
bool isWithinBounds(const ChargeView& c, double coulomb) {
    constexpr double Least = 1e-30;
    constexpr double Most = 1e30;
    bool within = coulomb >= Least && coulomb <= Most;
    for (std::size_t i = 0; i < c.n && within; ++i) {
        within = c.x[i] >= -Most && c.x[i] <= Most && c.y[i] >= -Most && c.y[i] <= Most && c.mass[i] >= Least &&
                 c.mass[i] <= Most;
    }
    return within;
}

} // namespace

double addChargesAvx512(const ChargeView& c, double coulomb) {
    if (!isWithinBounds(c, coulomb))
        return addChargesAvx2(c, coulomb);
    return addChargesInTiles<Avx512Lanes>(c, coulomb);
}

} // namespace Kova::ParticleSystem
