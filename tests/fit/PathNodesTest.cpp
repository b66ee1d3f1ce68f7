/// Nodes of outlines: found, moved, inserted and removed.
#include "fit/PathNodes.h"

#include <QDataStream>

#include <gtest/gtest.h>

using namespace shapedocument;

namespace {

/// "M 0,0 L 10,0 C …", control points behind C.
std::string Words(const QPainterPath& path)
{
    QString words;
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPainterPath::Element e = path.elementAt(i);
        const char* kind = e.isMoveTo() ? "M " : e.isLineTo() ? "L " : e.isCurveTo() ? "C " : "";
        words += QString("%1%2,%3 ").arg(kind).arg(e.x).arg(e.y);
    }
    return words.trimmed().toStdString();
}

QPainterPath Square()
{
    QPainterPath path;
    path.addRect(0, 0, 10, 10);
    return path;
}

/// A straight piece, then a curve.
QPainterPath Hook()
{
    QPainterPath path(QPointF(0, 0));
    path.lineTo(10, 0);
    path.cubicTo(14, 0, 18, 4, 18, 8);
    return path;
}

/// "L 1,0 L 9,0", then a curve's first point, as only streams can make it.
QPainterPath WithoutMove()
{
    QByteArray bytes;
    QDataStream(&bytes, QIODevice::WriteOnly) << 3 << 1 << 1.0 << 0.0 << 1 << 9.0 << 0.0 << 2 << 9.0 << 50.0 << 0 << 0;
    QPainterPath path;
    QDataStream in(bytes);
    in >> path;
    return path;
}

} // namespace

TEST(PathNodes, a_closed_sub_path_has_its_start_once)
{
    std::vector<int> elements;
    for (const PathNode& node : NodesOf(Square()))
        elements.push_back(node.element);
    EXPECT_EQ(elements, (std::vector<int>{0, 1, 2, 3}));
    const std::vector<PathNode> nodes = NodesOf(Hook());
    ASSERT_EQ(nodes.size(), 5u);
    EXPECT_TRUE(nodes[2].control && nodes[3].control && !nodes[4].control);
    EXPECT_EQ(nodes[2].anchor, 1);
    EXPECT_EQ(nodes[3].anchor, 4);
}

TEST(PathNodes, moved)
{
    EXPECT_EQ(Words(WithNodeMoved(Square(), 0, {-1, -2})), "M -1,-2 L 10,0 L 10,10 L 0,10 L -1,-2");
    EXPECT_EQ(Words(WithNodeMoved(Square(), 2, {11, 12})), "M 0,0 L 10,0 L 11,12 L 0,10 L 0,0");
    // A point takes its control point along; a control point goes alone.
    EXPECT_EQ(Words(WithNodeMoved(Hook(), 1, {10, 1})), "M 0,0 L 10,1 C 14,1 18,4 18,8");
    EXPECT_EQ(Words(WithNodeMoved(Hook(), 2, {15, 1})), "M 0,0 L 10,0 C 15,1 18,4 18,8");
    EXPECT_EQ(Words(WithNodeMoved(Hook(), 4, {18, 9})), "M 0,0 L 10,0 C 14,0 18,5 18,9");
    EXPECT_EQ(WithNodeMoved(Hook(), 99, {0, 0}), Hook());
}

TEST(PathNodes, removed)
{
    EXPECT_EQ(Words(WithNodeRemoved(Square(), 2)), "M 0,0 L 10,0 L 0,10 L 0,0");
    EXPECT_EQ(Words(WithNodeRemoved(Square(), 0)), "M 10,0 L 10,10 L 0,10 L 10,0"); // Stays closed.
    EXPECT_EQ(Words(WithNodeRemoved(Hook(), 1)), "M 0,0 C 0,0 18,4 18,8");
    EXPECT_EQ(Words(WithNodeRemoved(Hook(), 4)), "M 0,0 L 10,0");
    EXPECT_EQ(WithNodeRemoved(Hook(), 2), Hook());
    EXPECT_TRUE(WithNodeRemoved(WithNodeRemoved(Hook(), 4), 1).isEmpty());
}

TEST(PathNodes, inserted)
{
    EXPECT_EQ(Words(WithNodeInserted(Square(), {4, 1}, 2)), "M 0,0 L 4,0 L 10,0 L 10,10 L 0,10 L 0,0");
    EXPECT_EQ(WithNodeInserted(Square(), {5, 5}, 2), Square());
    // At the middle of the curve: halves of halves.
    QPainterPath arch(QPointF(0, 0));
    arch.cubicTo(0, 8, 8, 8, 8, 0);
    EXPECT_EQ(Words(WithNodeInserted(arch, {4, 7}, 2)), "M 0,0 C 0,4 2,6 4,6 C 6,6 8,4 8,0");
}

TEST(PathNodes, a_path_without_a_move_begins_at_its_first_point)
{
    ASSERT_EQ(WithoutMove().elementCount(), 3);
    const std::vector<PathNode> nodes = NodesOf(WithoutMove());
    ASSERT_EQ(nodes.size(), 2u) << "the curve is not whole";
    EXPECT_EQ(nodes[0].at, QPointF(1, 0));
    EXPECT_EQ(nodes[1].element, 1);
    EXPECT_EQ(Words(WithNodeMoved(WithoutMove(), 0, {2, 3})), "L 2,3 L 9,0 C 9,50");
    EXPECT_EQ(Words(WithNodeInserted(WithoutMove(), {4, 1}, 2)), "M 1,0 L 4,0 L 9,0");
    EXPECT_TRUE(WithNodeRemoved(WithoutMove(), 1).isEmpty());
}
