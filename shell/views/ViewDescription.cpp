// SPDX-License-Identifier: MIT
#include "shell/views/ViewDescription.h"

#include "visualization/graphcore/GraphWidgetBase.h"

#include <QJsonArray>

namespace Kova::Shell {

QJsonObject describeView(const ViewKind& kind, const View& view, const Subject& subject,
                         const std::vector<Message>& messages) {
    QJsonArray lines;
    for (const Message& message : messages)
        lines.append(QJsonObject{{"tag", message.tag}, {"level", message.level}, {"text", message.text}});
    const QSize size = view.getWidget().getGraphSize();
    QJsonObject description = view.describe();
    description["view"] = kind.name;
    description["file"] = subject.getFile();
    description["subject"] = subject.getTitle();
    description["size"] = QJsonArray{size.width(), size.height()};
    description["messages"] = lines;
    return description;
}

} // namespace Kova::Shell
