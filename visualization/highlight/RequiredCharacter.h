// SPDX-License-Identifier: MIT
#pragma once

#include <QChar>
#include <QRegExp>
#include <QString>

namespace Kova::GUI {

/// A character that the text holds at or behind the start of each match of an expression; null where none is known.
/// Looking for it is much quicker than for the expression. Only what lies on the surface of Perl-like, case-sensitive
/// patterns is seen: plain characters, and those that are looked ahead for.
[[nodiscard]] QChar requiredCharacter(const QRegExp& expression);

/// QRegExp::indexIn(), without asking the expression where the text ends before its required character comes. The
/// expression's matched length is of this search only when it was found.
/// @param required as requiredCharacter() gave it.
[[nodiscard]] int indexOfMatch(const QRegExp& expression, QChar required, const QString& text, int from);

} // namespace Kova::GUI
