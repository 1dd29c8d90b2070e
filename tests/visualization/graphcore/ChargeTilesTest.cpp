// SPDX-License-Identifier: MIT
#include "tests/visualization/graphcore/ChargeSamples.h"
#include "visualization/graphcore/ChargeTiles_p.h"

#include <QtTest>

#include <array>
#include <cmath>
#include <functional>
#include <utility>

using namespace ChargeSamples;

namespace {

/// A vector register that any processor has.
template <std::size_t N>
struct PlainVector {
    std::array<double, N> lanes;

    [[nodiscard]] PlainVector with(const PlainVector& other, const std::function<double(double, double)>& each) const {
        PlainVector result;
        for (std::size_t i = 0; i < N; ++i)
            result.lanes[i] = each(lanes[i], other.lanes[i]);
        return result;
    }
    PlainVector operator+(const PlainVector& other) const { return with(other, std::plus<>()); }
    PlainVector operator-(const PlainVector& other) const { return with(other, std::minus<>()); }
    PlainVector operator*(const PlainVector& other) const { return with(other, std::multiplies<>()); }
};

/// Of any width, also one that no processor has.
template <std::size_t N>
struct PlainLanes {
    using Vector = PlainVector<N>;
    static constexpr std::size_t Width = N;

    static Vector load(const double* from) {
        Vector result;
        std::copy(from, from + N, result.lanes.begin());
        return result;
    }
    static void store(double* to, const Vector& v) { std::copy(v.lanes.begin(), v.lanes.end(), to); }
    static Vector broadcast(double value) {
        Vector result;
        result.lanes.fill(value);
        return result;
    }
    static Vector divide(const Vector& a, const Vector& b) { return a.with(b, std::divides<>()); }
    static Vector sqrt(const Vector& v) {
        return v.with(v, [](double a, double) { return std::sqrt(a); });
    }
    static Vector max(const Vector& a, const Vector& b) {
        return a.with(b, [](double x, double y) { return x > y ? x : y; });
    }
    static Vector min(const Vector& a, const Vector& b) {
        return a.with(b, [](double x, double y) { return x < y ? x : y; });
    }
    static void transpose(Vector (&rows)[N]) { // NOLINT(modernize-avoid-c-arrays): as in ChargeTiles_p.h
        for (std::size_t i = 0; i < N; ++i) {
            for (std::size_t j = 0; j < i; ++j)
                std::swap(rows[i].lanes[j], rows[j].lanes[i]);
        }
    }
};

template <std::size_t N>
double addInTiles(Kova::ParticleSystem::ChargeArrays& arrays, double coulomb) {
    return Kova::ParticleSystem::addChargesInTiles<PlainLanes<N>>(viewOf(arrays), coulomb);
}

} // namespace

class ChargeTilesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void tilesOfEveryWidthEqualThePlainLoop() {
        QVERIFY(equalsThePlainLoopBelow(6, &addInTiles<1>));
        QVERIFY(equalsThePlainLoopBelow(10, &addInTiles<2>));
        QVERIFY(equalsThePlainLoopBelow(14, &addInTiles<3>));
        QVERIFY(equalsThePlainLoopBelow(18, &addInTiles<4>));
        QVERIFY(equalsThePlainLoopBelow(34, &addInTiles<8>));
    }

    // The rows of the triangle may be cut anywhere.
    void rowsInPiecesEqualThePlainLoop() {
        const auto addInPieces = [](Kova::ParticleSystem::ChargeArrays& arrays, double coulomb) {
            const Kova::ParticleSystem::ChargeView view = viewOf(arrays);
            double smallest = 10000.0;
            for (std::size_t p = 0; p < view.n; ++p) {
                smallest = Kova::ParticleSystem::addRow(view, coulomb, p, 0, p / 3, smallest);
                smallest = Kova::ParticleSystem::addRow(view, coulomb, p, p / 3, p, smallest);
            }
            return smallest;
        };
        QVERIFY(equalsThePlainLoopBelow(20, addInPieces));
    }
};

QTEST_APPLESS_MAIN(ChargeTilesTest)
#include "ChargeTilesTest.moc"
