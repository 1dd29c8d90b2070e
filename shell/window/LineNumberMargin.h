// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QPlainTextEdit;

namespace Kova::Shell {

/// The numbers of a text's lines, to stand at the left of its viewport and as high as that. Lines count from 1.
class LineNumberMargin : public QWidget {
    Q_OBJECT

public:
    /// @param text which is the parent and must give the place.
    explicit LineNumberMargin(QPlainTextEdit& text);

    /// In pixels; wide enough for the last line's number.
    [[nodiscard]] int widthOfNumbers() const;
    /// The line at a height of the viewport, in pixels; 0 where there is none.
    [[nodiscard]] int lineAt(int y) const;

Q_SIGNALS:
    void lineClicked(int line);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    QPlainTextEdit& m_text;
};

} // namespace Kova::Shell
