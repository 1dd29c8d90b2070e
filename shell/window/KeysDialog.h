// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

class QAction;

namespace Kova::Shell {

/// What keys and mouse do, as a table.
class KeysDialog : public QDialog {
    Q_OBJECT

public:
    /// @param actions those without a shortcut are left out.
    explicit KeysDialog(const QList<QAction*>& actions, QWidget* parent = nullptr);
};

} // namespace Kova::Shell
