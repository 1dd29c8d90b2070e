// SPDX-License-Identifier: MIT
#pragma once

#include <QDateTime>
#include <QPlainTextEdit>

#include <memory>

class QSyntaxHighlighter;

namespace Kova::Shell {

class LineNumberMargin;

/// The text of a source file as it is on disk, to be read: numbered, coloured by its language, one of its lines marked.
/// Lines count from 1.
class SourceFilePage : public QPlainTextEdit {
    Q_OBJECT

public:
    explicit SourceFilePage(QWidget* parent = nullptr);
    ~SourceFilePage() override;

    /// Shows a file, which is taken for UTF-8, from its beginning and without a mark. One that is shown already stays
    /// as it is, unless it changed on disk.
    /// @return false when it cannot be read; the page says why.
    bool showFile(const QString& path);
    /// Marks a line and brings it to the middle when it is not to be seen. Only takes the mark away when no file is
    /// shown or it has no such line.
    void showLine(int line);
    /// Leaves the page empty.
    void clear();

    /// The path that the file shown was given by; empty when there is none.
    [[nodiscard]] const QString& getPath() const { return m_path; }
    /// 0 when none is.
    [[nodiscard]] int getMarkedLine() const { return m_markedLine; }

Q_SIGNALS:
    /// By the left button, in the text or on the number; not when text was selected.
    void lineClicked(int line);

protected:
    void changeEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    /// What tells whether a file has changed.
    struct Version {
        QDateTime modified;
        qint64 size = -1;
    };

    [[nodiscard]] static Version versionOf(const QString& path);
    [[nodiscard]] bool isShown(const QString& path, const Version& version) const;
    void setHighlighter(const QString& path);
    void setMark(int line);
    void scrollToMark();
    void placeMargin();

    LineNumberMargin* m_margin;
    std::unique_ptr<QSyntaxHighlighter> m_highlighter;
    QString m_path;
    Version m_version;
    int m_markedLine = 0;
    int m_pressedLine = 0;
};

} // namespace Kova::Shell
