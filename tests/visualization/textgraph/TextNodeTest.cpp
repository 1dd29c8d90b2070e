// SPDX-License-Identifier: MIT
#include "visualization/textgraph/NodeAlreadyExist.h"
#include "visualization/textgraph/NodeBase.h"
#include "visualization/textgraph/NodeNotFound.h"
#include "visualization/textgraph/NodesLine.h"

#include <QImage>
#include <QPainter>
#include <QtTest>

#include <limits>
#include <type_traits>

using namespace Kova::GUI::TextGraph;

namespace {

QImage white() {
    QImage image(120, 60, QImage::Format_RGB32);
    image.fill(Qt::white);
    return image;
}

} // namespace

/// Nodes, lines of nodes, and what is thrown about them.
class TextNodeTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void startsWithPositionAndText() {
        const NodeBase node(QPoint(3, 40), QStringLiteral("word"));
        QCOMPARE(node.getPos(), QPoint(3, 40));
        QCOMPARE(node.getText(), QStringLiteral("word"));
        QVERIFY(node.getRect().isNull());
    }

    void rightEndIsThatOfTheRectangle() {
        NodeBase node(QPoint(30, 40), QStringLiteral("word"));
        node.setRect(QRect(QPoint(2, -15), QPoint(45, 4)));
        QCOMPARE(node.getRightEnd(), 75);
        node.setPos(QPoint(std::numeric_limits<int>::max() - 10, 40));
        QCOMPARE(node.getRightEnd(), std::numeric_limits<int>::max());
    }

    void drawsItsTextWithPenAndFontOfThePainter() {
        QFont font(QStringLiteral("Monospace"), 20);
        QImage drawn = white();
        {
            QPainter painter(&drawn);
            painter.setFont(font);
            painter.setPen(Qt::red);
            NodeBase(QPoint(10, 40), QStringLiteral("word")).draw(painter);
            QCOMPARE(painter.pen(), QPen(Qt::red));
        }
        QImage expected = white();
        {
            QPainter painter(&expected);
            painter.setFont(font);
            painter.setPen(Qt::red);
            painter.drawText(QPoint(10, 40), QStringLiteral("word"));
        }
        QCOMPARE(drawn, expected);
        QVERIFY(drawn != white());
    }

    void linesMoveTheirNodes() {
        NodeBase left(QPoint(3, 40), QStringLiteral("left"));
        NodeBase right(QPoint(70, 41), QStringLiteral("right"));
        NodesLine line;
        QCOMPARE(line.y, 0);
        line.nodes = {&left, &right};
        line.setY(55);
        QCOMPARE(line.y, 55);
        QCOMPARE(left.getPos(), QPoint(3, 55));
        QCOMPARE(right.getPos(), QPoint(70, 55));
    }

    void exceptionsSayWhatIsWrong() {
        try {
            throw NodeAlreadyExist(QString::fromUtf8("größe"));
        } catch (const Kova::Exception& exception) {
            QCOMPARE(exception.what(), "Node: \"größe\" already exist.");
        }
        try {
            throw NodeNotFound::notRegistered();
        } catch (const Kova::Exception& exception) {
            QCOMPARE(exception.what(), "ExprData is not registered");
            QVERIFY(dynamic_cast<const NodeNotFound*>(&exception) != nullptr);
        }
        QCOMPARE(NodeNotFound::withoutNode().what(), "Node with this exprdata not exist");
    }

    void nodesAreNotCopied() {
        QVERIFY(!std::is_copy_constructible_v<NodeBase>);
        QVERIFY(!std::is_copy_assignable_v<NodeBase>);
    }
};

QTEST_MAIN(TextNodeTest)
#include "TextNodeTest.moc"
