// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

namespace Kova::Shell {

/// What stands in the middle while there is no program: how to get one.
class WelcomePage : public QLabel {
    Q_OBJECT

public:
    explicit WelcomePage(QWidget* parent = nullptr);
};

} // namespace Kova::Shell
