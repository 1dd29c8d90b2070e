// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QJsonObject>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace Kova::Tessel {
class ExpressionBase;
}

namespace DepGraph {
class LampArrow;
}

namespace Kova::Shell {

/// A dependence as people and scripts read it, independent of the analysis that found it and of the program's life.
struct DependenceRecord {
    struct End {
        QString text;
        /// Of the source file, from 1; 0 is unknown.
        int line = 0;
        int column = 0;
    };

    /// "flow", "anti", "output", "input" or "unknown".
    QString kind;
    /// Of the arrow.
    QColor color;
    End source;
    End target;
    /// Numbers of loops, -1 for the dependence within an iteration, ascending; empty when nothing is known.
    std::vector<int> carriers;
    /// In iterations of each common loop, outermost first; none where it varies.
    std::vector<std::optional<long>> distance;
    bool proven = false;
    /// Descriptions in all wordings.
    QStringList tags;

    /// The variable's name, both names where they differ.
    [[nodiscard]] QString getVariable() const;
    /// "LID, 1, 2" as the filter calls them; "?" when nothing is known.
    [[nodiscard]] QString getCarriersText() const;
    /// "(1, 0)" with "*" where it varies; empty without common loops.
    [[nodiscard]] QString getDistanceText() const;
    /// The fields "kind", "source", "target", "carriers", "distance", "proven" and "tags".
    void describe(QJsonObject& description) const;
};

/// @param tags the arrow's descriptions: whoever draws it has them already.
[[nodiscard]] DependenceRecord recordOf(const ::DepGraph::LampArrow& arrow, const QStringList& tags);

} // namespace Kova::Shell
