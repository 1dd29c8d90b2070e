// SPDX-License-Identifier: MIT
#pragma once

#include "shell/program/Subject.h"

#include <QTabWidget>

#include <utility>

namespace Kova::GUI {
class SourceSelector;
class SourceSelectorEx;
} // namespace Kova::GUI

namespace Kova::Shell {

class SourceFilePage;

/// The program where one reads it and points at things: its printed text, and the file that this was read from, which
/// follows the text. Mark 0 is what the views show.
class SourcePane : public QTabWidget {
    Q_OBJECT

public:
    explicit SourcePane(QWidget* parent = nullptr);

    /// Leaves nothing that points into the program.
    void forgetProgram();
    /// Scrolls to a subject and makes it mark 0, without telling that it was picked; of a program the text begins with
    /// the first file.
    void showSubject(const Subject& subject);
    /// Marks what was picked in a view, and the other end of what has two, in colours of their own; null for none.
    void showPicked(Tessel::TesselBase* node, Tessel::TesselBase* other);
    /// Brings the printed text to the front.
    void showText();

    [[nodiscard]] GUI::SourceSelectorEx& getBrowser() const { return *m_browser; }
    [[nodiscard]] SourceFilePage& getFilePage() const { return *m_filePage; }

Q_SIGNALS:
    /// The user picked a node with mark 0; never null.
    void nodePicked(Kova::Tessel::TesselBase* node);

private:
    [[nodiscard]] GUI::SourceSelector& selector() const;
    /// Moves a mark; null takes its colour away.
    void mark(Tessel::TesselBase* node, int mark);
    /// Moves the marks of what was picked in a view; null takes their colour away.
    void markPicked(Tessel::TesselBase* node, Tessel::TesselBase* other);
    /// Takes the colours of what was picked in a view away, and gives back to the user's marks what these had covered.
    /// @param changing a mark that holds another node now, and is about to lose its range of statements; -1 for none.
    void unmarkPicked(int changing);
    void showFileOf(Tessel::TesselBase& node);
    /// Scrolls until the line of a node is seen whole.
    void reveal(const Tessel::TesselBase* node);
    void pick(int mark);
    void pickLine(int line);
    void updateFilePage();
    void showInFile(const Tessel::TesselBase& node);
    /// The first line in view, and the one after the last that is seen whole; one line at least.
    [[nodiscard]] std::pair<int, int> linesInView() const;
    [[nodiscard]] Tessel::TesselBase* firstNodeInView() const;

    GUI::SourceSelectorEx* m_browser;
    SourceFilePage* m_filePage;
    bool m_silent = false;
    /// Whether mark 0 is seen: it holds its node even when it is not.
    bool m_isSubjectMarked = false;
};

} // namespace Kova::Shell
