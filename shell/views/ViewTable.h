// SPDX-License-Identifier: MIT
#pragma once

#include "shell/views/ViewKind.h"

#include <QStringList>

#include <vector>

namespace Kova::Shell {

/// All views in the order of menus and galleries.
[[nodiscard]] const std::vector<ViewKind>& getViewKinds();

/// Null when there is no view of that name.
[[nodiscard]] const ViewKind* findViewKind(const QString& name);

[[nodiscard]] QStringList getViewNames();

} // namespace Kova::Shell
