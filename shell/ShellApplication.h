// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>

namespace Kova::Shell {

/// The application object: no exception passes through the event loop.
class ShellApplication : public QApplication {
    Q_OBJECT

public:
    ShellApplication(int& argc, char** argv);

    /// Hands the event on; an exception on the way ends the event's handling, not the program.
    bool notify(QObject* receiver, QEvent* event) override;

Q_SIGNALS:
    /// An event's handling was ended by an exception with this text.
    void exceptionCaught(const QString& text);
};

} // namespace Kova::Shell
