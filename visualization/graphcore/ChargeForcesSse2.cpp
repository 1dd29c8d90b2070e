// SPDX-License-Identifier: MIT
#include "visualization/graphcore/ChargeTiles_p.h"

#include <emmintrin.h>

namespace Kova::ParticleSystem {
namespace {

struct Sse2Lanes {
    using Vector = __m128d;
    static constexpr std::size_t Width = 2;

    static Vector load(const double* from) { return _mm_loadu_pd(from); }
    static void store(double* to, Vector v) { _mm_storeu_pd(to, v); }
    static Vector broadcast(double value) { return _mm_set1_pd(value); }
    static Vector divide(Vector a, Vector b) { return a / b; }
    static Vector sqrt(Vector v) { return _mm_sqrt_pd(v); }
    static Vector max(Vector a, Vector b) { return _mm_max_pd(a, b); }
    static Vector min(Vector a, Vector b) { return _mm_min_pd(a, b); }

    static void transpose(Vector (&rows)[Width]) { // NOLINT(modernize-avoid-c-arrays): see ChargeTiles_p.h
        const Vector low = _mm_unpacklo_pd(rows[0], rows[1]);
        rows[1] = _mm_unpackhi_pd(rows[0], rows[1]);
        rows[0] = low;
    }
};

} // namespace

double addChargesSse2(const ChargeView& c, double coulomb) {
    return addChargesInTiles<Sse2Lanes>(c, coulomb);
}

} // namespace Kova::ParticleSystem
