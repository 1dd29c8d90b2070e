// SPDX-License-Identifier: MIT
#include "shell/window/SourceFilePage.h"

#include "shell/program/FileLanguage.h"
#include "shell/program/FileText.h"
#include "shell/window/LineNumberMargin.h"
#include "visualization/highlight/CSyntaxHighlighter.h"
#include "visualization/highlight/FortranSyntaxHighlighter.h"

#include <QFileInfo>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTextBlock>

#include <utility>

namespace Kova::Shell {

namespace {

constexpr int pointSize = 10;
constexpr int tabColumns = 8;
/// Quiet enough for every colour of text on it.
const QColor markColour(0xff, 0xf3, 0xc4);

} // namespace

SourceFilePage::SourceFilePage(QWidget* parent) : QPlainTextEdit(parent), m_margin(new LineNumberMargin(*this)) {
    setReadOnly(true);
    setUndoRedoEnabled(false);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setLineWrapMode(NoWrap);
    setFont(QFont("Monospace", pointSize));
    connect(this, &QPlainTextEdit::blockCountChanged, this, &SourceFilePage::placeMargin);
    connect(m_margin, &LineNumberMargin::lineClicked, this, &SourceFilePage::lineClicked);
    placeMargin();
}

SourceFilePage::~SourceFilePage() = default;

bool SourceFilePage::showFile(const QString& path) {
    const Version version = versionOf(path);
    if (isShown(path, version))
        return true;
    clear();
    const FileText source = readFileText(path);
    if (!source.error.isEmpty()) {
        setPlainText(tr("%1 cannot be read: %2").arg(path, source.error));
        return false;
    }
    m_path = path;
    m_version = version;
    setHighlighter(path);
    setPlainText(source.text);
    placeMargin();
    return true;
}

void SourceFilePage::showLine(int line) {
    const bool exists = !m_path.isEmpty() && line >= 1 && line <= blockCount();
    setMark(exists ? line : 0);
    scrollToMark();
}

void SourceFilePage::clear() {
    setMark(0);
    QPlainTextEdit::clear();
    m_highlighter.reset();
    m_path.clear();
    m_version = Version();
    m_pressedLine = 0;
    placeMargin();
}

SourceFilePage::Version SourceFilePage::versionOf(const QString& path) {
    const QFileInfo info(path);
    return info.isFile() ? Version{info.lastModified(), info.size()} : Version();
}

bool SourceFilePage::isShown(const QString& path, const Version& version) const {
    return !m_path.isEmpty() && path == m_path && version.size == m_version.size &&
           version.modified == m_version.modified;
}

// To be set while the text is empty: Qt then colours what comes at once, not only when it gets round to it.
void SourceFilePage::setHighlighter(const QString& path) {
    if (languageOf(path) == Tessel::LANG_FORTRAN)
        m_highlighter = std::make_unique<GUI::FortranSyntaxHighlighter>(document());
    else
        m_highlighter = std::make_unique<GUI::CSyntaxHighlighter>(document());
}

void SourceFilePage::setMark(int line) {
    m_markedLine = line;
    QList<QTextEdit::ExtraSelection> marks;
    if (line > 0) {
        QTextEdit::ExtraSelection mark;
        mark.cursor = QTextCursor(document()->findBlockByNumber(line - 1));
        mark.format.setBackground(markColour);
        mark.format.setProperty(QTextFormat::FullWidthSelection, true);
        marks.append(mark);
    }
    setExtraSelections(marks);
}

void SourceFilePage::scrollToMark() {
    if (m_markedLine == 0)
        return;
    QScrollBar& bar = *verticalScrollBar(); // counts lines
    const int line = document()->findBlockByNumber(m_markedLine - 1).firstLineNumber();
    if (line < bar.value() || line >= bar.value() + bar.pageStep())
        bar.setValue(line - bar.pageStep() / 2);
}

void SourceFilePage::placeMargin() {
    const int width = m_path.isEmpty() ? 0 : m_margin->widthOfNumbers();
    setTabStopDistance(tabColumns * fontMetrics().horizontalAdvance(' '));
    setViewportMargins(width, 0, 0, 0);
    m_margin->setGeometry(contentsRect().left(), contentsRect().top(), width, viewport()->height());
    m_margin->setVisible(width > 0);
}

void SourceFilePage::changeEvent(QEvent* event) {
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        placeMargin();
}

void SourceFilePage::mousePressEvent(QMouseEvent* event) {
    QPlainTextEdit::mousePressEvent(event);
    m_pressedLine = event->button() == Qt::LeftButton ? m_margin->lineAt(event->y()) : 0;
}

void SourceFilePage::mouseReleaseEvent(QMouseEvent* event) {
    QPlainTextEdit::mouseReleaseEvent(event);
    const int line = event->button() == Qt::LeftButton ? std::exchange(m_pressedLine, 0) : 0;
    if (line > 0 && line == m_margin->lineAt(event->y()) && !m_path.isEmpty() && !textCursor().hasSelection())
        Q_EMIT lineClicked(line);
}

void SourceFilePage::resizeEvent(QResizeEvent* event) {
    QPlainTextEdit::resizeEvent(event);
    placeMargin();
}

// How much is to be seen is known only now.
void SourceFilePage::showEvent(QShowEvent* event) {
    QPlainTextEdit::showEvent(event);
    scrollToMark();
}

} // namespace Kova::Shell
