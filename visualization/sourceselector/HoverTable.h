// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/VisualizationExport.h"
#include "visualization/sourceselector/PrintedNodes.h"

#include <memory>
#include <vector>

namespace Kova::GUI {

/// Which nodes are lit: those put in and, where wanted, what is below them. The mouse may move over a whole program's
/// brace at any time, so a subtree is not walked when it is put in: whether a node belongs to it is found out from the
/// node's own ancestors, once somebody asks.
///
/// What is below a node belongs to it as long as each child on the way had printed something when the node was put in;
/// declarations of variables do not belong, and hide what is below them.
class VISUALIZATION_EXPORT HoverTable {
public:
    using Node = Tessel::TesselBase;

    void clear();
    /// @param printed what was printed at this time.
    void insert(const Node& node, bool withChildren, const std::shared_ptr<const PrintedNodes>& printed);
    /// Follows the links of the node, which must be alive; those put in need not be.
    [[nodiscard]] bool contains(const Node& node) const;

private:
    enum class Answer : char { Unknown, Lit, Plain };
    struct Root {
        const Node* node;
        bool withChildren;
    };

    [[nodiscard]] bool isRoot(const Node& node, bool withChildren) const;
    [[nodiscard]] bool isInSubtree(const Node& node) const;
    /// The parent that lights the node when it is lit itself; null when none can.
    [[nodiscard]] static const Node* lightingParent(const Node& node);

    std::vector<Root> m_roots;
    std::shared_ptr<const PrintedNodes> m_printed;
    /// By the numbers of m_printed; neighbours share their ancestors, so each is asked about only once.
    mutable std::vector<Answer> m_answers;
    mutable std::vector<int> m_path;
};

} // namespace Kova::GUI
