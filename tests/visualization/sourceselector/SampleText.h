// SPDX-License-Identifier: MIT
#pragma once

#include "tests/environment/printing/Names.h"
#include "visualization/sourceselector/SourceSelector.h"

#include <QApplication>
#include <QMouseEvent>
#include <QScrollBar>

/// A block by hand, as a selector prints it that hides no variables, an indentation level for the whole:
///
///     0      {
///     1          a = b + 1;
///     2          {
///     3              c = 2;
///     4          }
///     5          int d;
///     6          b = c;
///     7      }
struct SampleText : protected Kova::Tests::Names {
    SampleText() {
        using namespace Kova::Tests;
        using namespace Kova::Tessel;
        ExpressionPtr one = literal("1");
        constant = one.get();
        ExpressionPtr read = b();
        readB = read.get();
        ExpressionPtr sum = binary(std::move(read), BinaryOperator::Add, std::move(one));
        addition = sum.get();
        ExpressionPtr target = a();
        writtenA = target.get();
        ExpressionPtr first = assign(std::move(target), std::move(sum));
        assignment = first.get();
        auto innerBlock = Kova::Tests::block(statement(assign(c(), literal("2"))));
        inner = innerBlock.get();
        auto declared = std::make_unique<VariableDeclaration>("d", intType);
        variable = declared.get();
        block = Kova::Tests::block(statement(std::move(first)), std::move(innerBlock),
                                   declareHere(std::move(declared)), statement(assign(b(), c())));
        firstStatement = block->getStatement(0);
        innerStatement = inner->getStatement(0);
        declaration = block->getStatement(2);
        lastStatement = block->getStatement(3);
    }

    std::unique_ptr<Kova::Tessel::BlockStatement> block;
    Kova::Tessel::BlockStatement* inner = nullptr;
    Kova::Tessel::StatementBase* firstStatement = nullptr;
    Kova::Tessel::StatementBase* innerStatement = nullptr;
    Kova::Tessel::StatementBase* declaration = nullptr;
    Kova::Tessel::StatementBase* lastStatement = nullptr;
    Kova::Tessel::VariableDeclaration* variable = nullptr;
    Kova::Tessel::ExpressionBase* assignment = nullptr;
    Kova::Tessel::ExpressionBase* addition = nullptr;
    Kova::Tessel::ExpressionBase* writtenA = nullptr;
    Kova::Tessel::ExpressionBase* readB = nullptr;
    Kova::Tessel::ExpressionBase* constant = nullptr;
};

/// The middle of a character of the text, in viewport pixels of a selector in its own font.
inline QPoint cell(const Kova::GUI::SourceSelector& selector, int line, int column) {
    const QFontMetrics metrics(selector.getFont());
    const int x = column * metrics.averageCharWidth() + metrics.averageCharWidth() / 2;
    const int y = line * metrics.height() + metrics.descent() + metrics.height() / 2;
    return {x - selector.horizontalScrollBar()->value(), y - selector.verticalScrollBar()->value()};
}

/// Sends a mouse event to the selector's viewport.
inline void sendMouse(Kova::GUI::SourceSelector& selector, QEvent::Type type, const QPointF& position,
                      Qt::MouseButton button, Qt::MouseButtons held, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QMouseEvent event(type, position, selector.viewport()->mapToGlobal(position.toPoint()), button, held, modifiers);
    QApplication::sendEvent(selector.viewport(), &event);
}

inline void press(Kova::GUI::SourceSelector& selector, const QPointF& position,
                  Qt::MouseButton button = Qt::LeftButton, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    sendMouse(selector, QEvent::MouseButtonPress, position, button, button, modifiers);
}

inline void move(Kova::GUI::SourceSelector& selector, const QPointF& position, Qt::MouseButtons held = Qt::NoButton,
                 Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    sendMouse(selector, QEvent::MouseMove, position, Qt::NoButton, held, modifiers);
}

inline void leave(Kova::GUI::SourceSelector& selector) {
    QEvent event(QEvent::Leave);
    QApplication::sendEvent(&selector, &event);
}

/// The background that a character is drawn on, read from a picture of the whole viewport. The lowest row of a cell
/// holds no ink of letters without a descender.
inline QRgb background(Kova::GUI::SourceSelector& selector, int line, int column) {
    const QImage picture = selector.viewport()->grab().toImage();
    const QFontMetrics metrics(selector.getFont());
    const QPoint corner = cell(selector, line, column) - QPoint(metrics.averageCharWidth() / 2, metrics.height() / 2);
    return picture.pixel(corner + QPoint(0, 1));
}
