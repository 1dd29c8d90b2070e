// SPDX-License-Identifier: MIT
#include "benchmarks/visualization/highlight/GeneratedSource.h"

#include "benchmarks/frontends/c/GeneratedProgram.h"

#include <QStringList>

#include <random>

namespace Kova::Benchmark {

namespace {

/// For the procedures in the order in which the program repeats them.
const QStringList headComments = {
    "/*\n * Relaxes the inner points of the grid once and\n * returns the norm of what came out.\n */",
    "/* Follows the links from a cell on; -1 where there is\n   no cell of the kind. */",
    "// Brings the table up to date, then the cells that it counts.\n// `order` holds a permutation of 0 .. count - "
    "1."};

const QStringList endComments = {"/* see above */", "// not for empty grids", "/* at most SIZE */", "// int overflow?"};

// `$` is the procedure's number, `%` a small number.
const QString fortranHead = R"(module grid_$
   use, intrinsic :: iso_fortran_env, only: real64
   implicit none
   private
   public :: smooth_$, search_$, report_$

   integer, parameter :: size_$ = 6%
   type cell
      real(kind=real64) :: value = 0.0
      integer :: kind, next
   end type cell
contains
)";

const QStringList fortranProcedures = {
    R"(! Relaxes the inner points of the grid once.
! The norm of what came out is returned in total.
   subroutine smooth_$(n, weight, grid, work, total)
      integer, intent(in) :: n
      real(kind=real64), intent(in) :: weight
      real(kind=real64), dimension(n, n), intent(inout) :: grid, work
      real(kind=real64), intent(out) :: total
      integer :: i, j

      total = 0.0
      do j = 2, n - 1
         do i = 2, n - 1
            work(i, j) = weight * grid(i, j) + 0.25 * (grid(i - 1, j) + grid(i + 1, j) + grid(i, j - 1))
            total = total + work(i, j)**2   ! squares only
         end do
      end do
      where (work > %.0) grid = work / (total + %.0)
      total = sqrt(total)
   end subroutine smooth_$
)",
    R"(! The first cell of a kind, 0 where there is none.
   integer function search_$(cells, wanted) result(found)
      type(cell), intent(in) :: cells(:)
      integer, intent(in) :: wanted
      integer :: at

      found = 0
      at = 1
      do while (at > 0 .and. found == 0)
         if (cells(at)%kind == wanted .and. abs(cells(at)%value) > 1.0e-%) then
            found = at
         else if (cells(at)%kind < 0) then
            print *, 'cell', at, ': kind', cells(at)%kind
            exit
         end if
         at = cells(at)%next
      end do
   end function search_$
)",
    R"(   SUBROUTINE report_$(unit, values, count)
      INTEGER, INTENT(IN) :: unit, count
      REAL(real64), INTENT(IN) :: values(count)
      INTEGER :: k, status

      ! Nothing is written for an empty table.
      IF (count <= 0) RETURN
      SELECT CASE (MOD(count, %))
      CASE (0)
         WRITE (unit, '(a, i0)', IOSTAT=status) 'values: ', count
      CASE DEFAULT
         WRITE (unit, *, IOSTAT=status) 'values', count
      END SELECT
      DO k = 1, count
         IF (values(k) < 0.%) CYCLE
         WRITE (unit, '(i6, 2x, es12.5)', IOSTAT=status, ERR=900) k, values(k)
      END DO
900   CONTINUE
      CALL flush(unit)
   END SUBROUTINE report_$
)"};

/// A part's member follows a parenthesis; any other `%` is a small number.
QString fill(const QString& pattern, int number, std::mt19937& random) {
    QString text;
    for (int i = 0; i < pattern.length(); ++i) {
        const QChar character = pattern.at(i);
        if (character == '$')
            text += QString::number(number);
        else if (character == '%' && (i == 0 || pattern.at(i - 1) != ')'))
            text += QString::number(random() % 9 + 1);
        else
            text += character;
    }
    return text;
}

QString firstLines(const QStringList& text, int lines) {
    return text.mid(0, lines).join('\n');
}

} // namespace

QString generateCommentedC(int lines) {
    std::mt19937 random(20000);
    const QString plain = QString::fromStdString(generateProgram(static_cast<std::size_t>(lines)));
    QStringList text;
    int procedures = 0;
    for (const QString& line : plain.split('\n')) {
        if (line.startsWith("static ") && line.endsWith(')'))
            text += headComments.at(procedures++ % headComments.size()).split('\n');
        const bool commented = line.endsWith(';') && random() % 12 == 0;
        text += commented ? line + "  " + endComments.at(static_cast<int>(random() % 4)) : line;
    }
    return firstLines(text, lines);
}

QString generateFortran(int lines) {
    std::mt19937 random(20000);
    QStringList text;
    for (int number = 0; text.size() < lines; ++number) {
        text += fill(fortranHead, number, random).split('\n');
        for (const QString& procedure : fortranProcedures)
            text += fill(procedure, number, random).split('\n');
        text += QStringList{"end module grid_" + QString::number(number), QString()};
    }
    return firstLines(text, lines);
}

} // namespace Kova::Benchmark
