// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/VisualizationExport.h"
#include "visualization/sourceselector/PieceTexts.h"
#include "visualization/sourceselector/PrintedNodes.h"

#include <QString>
#include <QVector>

#include <memory>

namespace Kova::GUI {

/// Printed lines, each of parts, and which nodes printed them. Filled line by line, then only read.
class VISUALIZATION_EXPORT SourceText {
public:
    /// A run of text on a line.
    struct Part {
        QString text;
        /// Who printed it; not owned.
        Tessel::TesselBase* node;
    };

    /// The parts of a line, left to right.
    class Line {
    public:
        Line(const Part* first, const Part* afterLast) : m_begin(first), m_end(afterLast) {}
        [[nodiscard]] const Part* begin() const { return m_begin; }
        [[nodiscard]] const Part* end() const { return m_end; }

    private:
        const Part* m_begin;
        const Part* m_end;
    };

    /// @param texts lives as long.
    explicit SourceText(PieceTexts& texts) : m_nodes(std::make_shared<PrintedNodes>()), m_texts(texts) {}

    void openLine();
    /// Appends a part to the last line, which is opened when there is none.
    /// @param text UTF-8.
    void createPart(const char* text, Tessel::TesselBase& node);

    /// To be called once all is written: until then no node is known. All of them in one go take less time than each in
    /// the middle of the printer's work.
    void numberNodes();

    [[nodiscard]] int getLineCount() const { return m_lineBegins.size(); }
    /// @param index in [0, getLineCount()).
    [[nodiscard]] Line getLine(int index) const;
    [[nodiscard]] int getPartCount() const { return m_parts.size(); }
    /// In characters; 0 without lines.
    [[nodiscard]] int getWidestLine() const;

    /// Lives as long as anybody holds it, so that what was said of an earlier text can still be understood.
    [[nodiscard]] std::shared_ptr<const PrintedNodes> getNodes() const { return m_nodes; }
    /// The line of a node's first part, -1 when it printed none.
    [[nodiscard]] int findLine(const Tessel::TesselBase* node) const;

private:
    // Qt's vectors grow in place where they can: a text is large, and the printer's time is what it is measured by.
    QVector<Part> m_parts;
    /// The number of each line's first part.
    QVector<int> m_lineBegins;
    std::shared_ptr<PrintedNodes> m_nodes;
    /// The line of each printed node's first part.
    QVector<int> m_firstLines;
    PieceTexts& m_texts;
};

} // namespace Kova::GUI

Q_DECLARE_TYPEINFO(Kova::GUI::SourceText::Part, Q_MOVABLE_TYPE);
