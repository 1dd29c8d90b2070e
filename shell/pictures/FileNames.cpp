// SPDX-License-Identifier: MIT
#include "shell/pictures/FileNames.h"

#include <QRegularExpression>

namespace Kova::Shell {

QString FileNames::obtain(const QString& wanted) {
    constexpr int longest = 90; // leaves room for a number
    static const QRegularExpression unsafe("[^A-Za-z0-9._-]+");
    QString base = wanted;
    base.replace(unsafe, "_").truncate(longest);
    if (base.isEmpty() || base.startsWith('.'))
        base.prepend('_');
    QString name = base;
    for (int number = 2; m_taken.contains(name.toLower()); ++number)
        name = QString("%1-%2").arg(base).arg(number);
    m_taken.insert(name.toLower());
    return name;
}

} // namespace Kova::Shell
