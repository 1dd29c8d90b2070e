// SPDX-License-Identifier: MIT
#pragma once

#include "environment/printing/ProgramTextBuilder.h"
#include "environment/tessel/ProgramFragment.h"
#include "visualization/VisualizationExport.h"
#include "visualization/sourceselector/HoverTable.h"
#include "visualization/sourceselector/SelectionTable.h"
#include "visualization/sourceselector/SourceText.h"

#include <QAbstractScrollArea>
#include <QBrush>
#include <QFont>
#include <QMap>
#include <QVector>

#include <utility>
#include <vector>

namespace Kova::GUI {

/// Shows the printed text of a part of a program and lets the user pick nodes of it with the mouse. What is picked is a
/// mark; each mark has its own button and its own colour. A mark holds a node, or a range of statements.
///
/// Operations take mark numbers, from 0; those of the two highlighting primitives take slot numbers: 0 is plain text, 1
/// what the mouse is over, k + 2 mark k. A mark that does not exist holds nothing and takes nothing.
///
/// Nodes are not owned and must live as long as their text is shown; the root beyond that, until another one is set or
/// forgetRootNode() is called.
class VISUALIZATION_EXPORT SourceSelector : public QAbstractScrollArea {
    Q_OBJECT
    Q_PROPERTY(int marksNumber READ getMarksNum WRITE setMarksNum)
    Q_PROPERTY(QFont font READ getFont WRITE setFont)

public:
    using SStringPart = SourceText::Part;
    using Options = Shared::ProgramTextBuilder::Options;

    /// How a slot is drawn and what picks it.
    struct SSelParams {
        SSelParams() = default;
        /// Colours are 0xAARRGGBB.
        SSelParams(unsigned int text, unsigned int background, bool children, const std::pair<int, int>& pickedBy)
            : textColor(text),
              brush(QColor::fromRgba(background)),
              withChildren(children),
              keys(pickedBy) {}

        unsigned int textColor = 0xFF000000;
        QBrush brush{QColor(Qt::white)};
        /// Whether marking a node marks what is below it.
        bool withChildren = true;
        /// Mouse buttons together with keyboard modifiers, in Qt's values; 0 is unused.
        std::pair<int, int> keys{0, 0};
    };

    explicit SourceSelector(QWidget* parent = nullptr);

    /// Prints the node; null shows nothing, but the root stays. All marks become empty.
    void setRootNode(Tessel::TesselBase* node);
    [[nodiscard]] Tessel::TesselBase* getRootNode() const { return m_root; }
    /// Shows nothing and has no root any more, so that the program may go.
    void forgetRootNode();

    /// Prints the root anew when the options differ from those before.
    void setOptions(const Options& options);
    [[nodiscard]] const Options& getOptions() const { return m_options; }

    /// The font should have a fixed pitch: each character gets the average's width. The scroll ranges follow at the
    /// next resize or text.
    void setFont(const QFont& font);
    [[nodiscard]] QFont getFont() const { return m_font; }

    /// Empties all marks without a signal. New ones are black on white and cannot be picked by the mouse. A negative
    /// number counts as 0, which disables the mouse.
    void setMarksNum(int count);
    [[nodiscard]] int getMarksNum() const { return getSlotCount() - 2; }
    /// Colours are 0xAARRGGBB; keys as in SSelParams. Of two marks with the same key the later one is picked.
    void setMarkParams(int mark, unsigned int textColor, unsigned int background, bool withChildren,
                       const std::pair<int, int>& keys);
    /// How what the mouse is over is drawn.
    void setOverParams(unsigned int textColor, unsigned int background);
    /// The background; 0 for a mark that does not exist.
    [[nodiscard]] unsigned int getMarkColor(int mark) const;
    [[nodiscard]] std::pair<int, int> getMarkKeys(int mark) const;

    /// Null when the mark holds none.
    [[nodiscard]] Tessel::TesselBase* getMark(int mark) const;
    [[nodiscard]] Tessel::ProgramFragment getMarkFragment(int mark) const;
    /// Picks a node that has printed something; null only takes away the mark's colour.
    void setMark(Tessel::TesselBase* node, int mark);
    /// Picks a range of statements, or none; the mark then holds no node. No signal tells of it.
    void setMarkFragment(const Tessel::ProgramFragment& fragment, int mark);

    /// Highlights with a slot. Where two slots meet, the larger one is seen, and slot 1 over all.
    /// @throws StateError when the fragment's end cannot be reached from its first statement.
    void markFragment(const Tessel::ProgramFragment& fragment, int slot);
    void markNode(Tessel::TesselBase* node, int slot);
    /// What the slot had highlighted becomes plain.
    void clearSelection(int slot);
    [[nodiscard]] bool isNodeSelected(const Tessel::TesselBase& node) const;

    /// Whether the node itself has printed something.
    [[nodiscard]] bool containsNode(const Tessel::TesselBase* node) const;
    /// Scrolls to the line where the node's text begins.
    void ensureNodeVisible(const Tessel::TesselBase* node);
    /// @param position in viewport pixels.
    [[nodiscard]] Tessel::TesselBase* getNodeByPos(const QPoint& position) const;

    /// Whether dragging picks a range of statements.
    void enableFragmentSelection(bool enabled) { m_fragmentSelection = enabled; }
    [[nodiscard]] bool fragmentSelectionEnabled() const { return m_fragmentSelection; }

    /// What is shown, with how it is highlighted, for those who write it elsewhere.
    [[nodiscard]] const SourceText& getText() const { return *m_text; }
    /// In pixels, as far as the scroll bars reach.
    [[nodiscard]] QSize getTextSize() const;
    /// Draws lines [first, end) with the painter's origin at the text's top left, as on screen.
    void drawLines(QPainter& painter, int first, int end) const;

Q_SIGNALS:
    /// Another node, or none, is what the mark holds.
    void markChanged(int mark);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    /// What a slot holds.
    struct Mark {
        Tessel::TesselBase* node = nullptr;
        Tessel::ProgramFragment fragment;
    };

    void startText();
    void print(Tessel::TesselBase* node);
    void updateScrollBars();
    void rebuildEventMap();
    [[nodiscard]] int getSlotCount() const { return static_cast<int>(m_slots.size()); }
    [[nodiscard]] bool isSlot(int slot) const { return slot >= 0 && slot < getSlotCount(); }
    /// The slot of a mark, -1 for one that does not exist.
    [[nodiscard]] int slotOfMark(int mark) const;
    [[nodiscard]] const SStringPart* getPartByMouse(const QPoint& position) const;
    /// The slot that the event's buttons and modifiers pick, or -1.
    [[nodiscard]] int getMarkForEvent(const QMouseEvent& event) const;
    [[nodiscard]] const SSelParams& paramsOf(const SStringPart& part) const;
    /// Emits markChanged() when the slot held another node.
    void storeMark(int slot, Tessel::TesselBase* node);
    void dragTo(Tessel::TesselBase& node, int slot);
    void hover(Tessel::TesselBase* node);

    Tessel::TesselBase* m_root = nullptr;
    PieceTexts m_pieceTexts;
    std::unique_ptr<SourceText> m_text;
    SelectionTable m_selection;
    HoverTable m_hover;
    /// By slot.
    std::vector<Mark> m_marks;
    QVector<SSelParams> m_slots;
    QMap<int, int> m_eventMap;
    QFont m_font;
    int m_charWidth = -1;
    int m_lineHeight = -1;
    int m_descent = -1;
    bool m_fragmentSelection = false;
    Options m_options;
};

} // namespace Kova::GUI
