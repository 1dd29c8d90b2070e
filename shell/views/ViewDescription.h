// SPDX-License-Identifier: MIT
#pragma once

#include "shell/messages/MessageLog.h"
#include "shell/program/Subject.h"
#include "shell/views/ViewKind.h"

#include <QJsonObject>

#include <vector>

namespace Kova::Shell {

/// A view as `--describe` prints it: "view", "file", "subject", "size" in graph units, what the view says of itself,
/// and the "messages" that it logged.
[[nodiscard]] QJsonObject describeView(const ViewKind& kind, const View& view, const Subject& subject,
                                       const std::vector<Message>& messages);

} // namespace Kova::Shell
