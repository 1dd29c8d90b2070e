// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/VisualizationExport.h"

#include <QWidget>

class QAction;
class QComboBox;
class QToolButton;

namespace Kova::Tessel {
class TesselBase;
}

namespace Kova::GUI {

class SourceSelector;

/// A source selector below a list of the subroutines of its program, a menu of what the text hides, and a button that
/// widens the text to what is around it.
class VISUALIZATION_EXPORT SourceSelectorEx : public QWidget {
    Q_OBJECT

public:
    /// @param selector becomes a child of this widget; without one a new one is made.
    explicit SourceSelectorEx(SourceSelector* selector, QWidget* parent = nullptr);

    [[nodiscard]] SourceSelector* getSelector() const { return m_selector; }
    [[nodiscard]] Tessel::TesselBase* getRootNode() const { return m_root; }
    /// Null empties the text and keeps root and list: what is listed must live on, or be forgotten.
    void setRootNode(Tessel::TesselBase* node);
    /// Shows nothing and has no root any more, so that the program may go.
    void forgetRootNode();

    /// Lets the text show declarations of the node's kind; does not scroll. The node may be null.
    void ensureNodeVisible(const Tessel::TesselBase* node);
    /// Lists the subroutines below the root, without prototypes where these are hidden.
    void fillSubroutineList();

public Q_SLOTS:
    /// Scrolls to a subroutine of the list; -1 is none.
    void subroutineSelected(int index);
    /// Prints anew when the menu says otherwise than the text does.
    void updateOptions();
    void hidePrototypesChanged();
    /// Shows what is around the root.
    void goUp();

private:
    [[nodiscard]] QAction* createOption(const QString& text, bool checked);
    void createButtons();
    void createMenu();
    void arrange();
    void takeRoot();

    SourceSelector* m_selector;
    QComboBox* m_list;
    QToolButton* m_configurationButton;
    QToolButton* m_upButton;
    QAction* m_hidePrototypes = nullptr;
    QAction* m_hideTypedefs = nullptr;
    QAction* m_hideVariables = nullptr;
    QAction* m_hideExternalDeclarations = nullptr;
    Tessel::TesselBase* m_root = nullptr;
};

} // namespace Kova::GUI
