// SPDX-License-Identifier: MIT
#include "visualization/graphcore/ChargeTiles_p.h"

#include <immintrin.h>

namespace Kova::ParticleSystem {
namespace {

struct Avx2Lanes {
    using Vector = __m256d;
    static constexpr std::size_t Width = 4;

    static Vector load(const double* from) { return _mm256_loadu_pd(from); }
    static void store(double* to, Vector v) { _mm256_storeu_pd(to, v); }
    static Vector broadcast(double value) { return _mm256_set1_pd(value); }
    static Vector divide(Vector a, Vector b) { return a / b; }
    static Vector sqrt(Vector v) { return _mm256_sqrt_pd(v); }
    static Vector max(Vector a, Vector b) { return _mm256_max_pd(a, b); }
    static Vector min(Vector a, Vector b) { return _mm256_min_pd(a, b); }

    /// First 2 x 2 blocks within halves, then the halves.
    static void transpose(Vector (&rows)[Width]) { // NOLINT(modernize-avoid-c-arrays): see ChargeTiles_p.h
        const Vector even01 = _mm256_unpacklo_pd(rows[0], rows[1]);
        const Vector odd01 = _mm256_unpackhi_pd(rows[0], rows[1]);
        const Vector even23 = _mm256_unpacklo_pd(rows[2], rows[3]);
        const Vector odd23 = _mm256_unpackhi_pd(rows[2], rows[3]);
        rows[0] = _mm256_permute2f128_pd(even01, even23, 0x20);
        rows[1] = _mm256_permute2f128_pd(odd01, odd23, 0x20);
        rows[2] = _mm256_permute2f128_pd(even01, even23, 0x31);
        rows[3] = _mm256_permute2f128_pd(odd01, odd23, 0x31);
    }
};

} // namespace

double addChargesAvx2(const ChargeView& c, double coulomb) {
    return addChargesInTiles<Avx2Lanes>(c, coulomb);
}

} // namespace Kova::ParticleSystem
