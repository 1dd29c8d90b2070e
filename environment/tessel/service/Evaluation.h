// SPDX-License-Identifier: MIT
#pragma once

namespace Kova::Tessel {
class TesselBase;
}

namespace Kova::Tessel::Service {

/// Whether the part of its parent that a node is, is evaluated or executed whenever or sometimes when the parent is.
/// Not so are what a _Alignof is asked about, what a sizeof is asked about apart from variable-length arrays and the
/// lengths of such types, of a generic selection all but the value that is chosen, and the indices of a designated
/// initializer, which are constants.
[[nodiscard]] bool isEvaluated(const TesselBase& node);

} // namespace Kova::Tessel::Service
