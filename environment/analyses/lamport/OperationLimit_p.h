// SPDX-License-Identifier: MIT
#pragma once

#include <isl/cpp.h>
#include <isl/ctx.h>

namespace DepGraph {

/// While it lives, isl stops with an exception after so many operations from now on. Counted by isl itself, so that the
/// same work stops at the same place on every machine. A limit within another one's life lets that one count anew.
class OperationLimit {
public:
    OperationLimit(isl::ctx context, unsigned long operations)
        : m_context(context.get()),
          m_outer(isl_ctx_get_max_operations(m_context)) {
        isl_ctx_reset_operations(m_context);
        isl_ctx_set_max_operations(m_context, operations);
    }
    ~OperationLimit() {
        isl_ctx_set_max_operations(m_context, m_outer);
        isl_ctx_reset_operations(m_context);
        isl_ctx_reset_error(m_context);
    }
    OperationLimit(const OperationLimit&) = delete;
    OperationLimit& operator=(const OperationLimit&) = delete;

private:
    isl_ctx* m_context;
    unsigned long m_outer;
};

} // namespace DepGraph
