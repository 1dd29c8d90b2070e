// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace Kova::Benchmark {

/// The C text of the front end's benchmark with comments as people write them: a block in front of each procedure, and
/// ends of lines. Exactly so many lines; the same lines give the same text.
[[nodiscard]] QString generateCommentedC(int lines);

/// Fortran text in free form that reads like a numerical program: modules of subroutines and functions with
/// declarations, loop nests, branches, input and output, and comments. Exactly so many lines; the same lines give the
/// same text.
[[nodiscard]] QString generateFortran(int lines);

} // namespace Kova::Benchmark
