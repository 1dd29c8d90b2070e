// SPDX-License-Identifier: MIT
#pragma once

#include "shell/messages/MessageLog.h"

#include <QListWidget>

namespace Kova::Tessel {
struct Diagnostic;
}

namespace Kova::Shell {

/// What the views, the front ends and the window itself have to say, a line each, coloured by level. Keeps the last
/// 5,000 lines.
class ConsolePane : public QListWidget {
    Q_OBJECT

public:
    explicit ConsolePane(QWidget* parent = nullptr);

    void append(const Message& message);
    void append(const Tessel::Diagnostic& diagnostic);

Q_SIGNALS:
    /// A line about a place in the source was double-clicked. Lines count from 1.
    void placePicked(const QString& file, int line);

private:
    QListWidgetItem& appendLine(const QString& text, int level);
    void copyLines() const;
    void pick(const QListWidgetItem* item);
};

} // namespace Kova::Shell
