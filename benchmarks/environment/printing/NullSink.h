// SPDX-License-Identifier: MIT
#pragma once

#include "environment/printing/IProgramOutputStream.h"

namespace Kova::Benchmark {

/// Drops all that is written: what printing into it takes is the printer's own time.
class NullSink final : public Shared::IProgramOutputStream {
public:
    void write(const char* /*text*/, Tessel::TesselBase& /*node*/) override {}
    void writeNewLine(const char* /*text*/, Tessel::TesselBase& /*node*/) override {}
};

} // namespace Kova::Benchmark
