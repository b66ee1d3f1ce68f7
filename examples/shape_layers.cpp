// The three layers of a shape (points, painter path, micro lines), and what transforms do to them, as a picture.
#include "Board.h"

#include "vector/ShapeVector.h"

#include <QGuiApplication>
#include <QTextStream>

#include <functional>

namespace {

constexpr QPointF kOrigin(-4, -4); ///< upper left corner of the fields, mm

/// A leaf: a separator, its start, two cubics (control, control, end), and a straight line back.
CShapeVector Leaf()
{
    CShapeVector leaf;
    leaf.SetShapePoints({{0, 0}, {4, 16}, {8, 4}, {20, 2}, {30, 8}, {30, 18}, {20, 24}, {12, 24}, {4, 16}},
                        {2, 0, 1, 1, 1, 1, 1, 1, 0});
    leaf.SetVectorType(EVECTOR_MIXED);
    return leaf;
}

void DrawPoints(Board& board, CShapeVector& shape)
{
    std::vector<QPointF> points;
    std::vector<unsigned char> types;
    shape.GetShapePathData(points, types);
    for (size_t i = 0; i < points.size(); ++i)
        board.Dot(points[i], types[i] == ELINE_SEGMENT_STRAIGHT ? Qt::red
                             : types[i] == ELINE_SEGMENT_CURVE  ? Qt::blue
                                                                : Qt::gray);
}

void DrawLayers(Board& board, QTextStream& out)
{
    CShapeVector leaf = Leaf();
    board.Next("points: red straight, blue of cubics, grey a separator", kOrigin);
    DrawPoints(board, leaf);
    board.Next("painter path", kOrigin);
    board.Draw(*leaf.GetPath(false), Qt::black);
    board.Next("micro lines, magnified 20 times, every other one red");
    board.Painter().scale(20, 20);
    board.Painter().translate(-28.4, -7.2);
    const std::vector<QLineF> lines = leaf.Flatten(0); // the argument has no effect
    for (size_t i = 0; i < lines.size(); ++i) {
        QPainterPath line(lines[i].p1());
        line.lineTo(lines[i].p2());
        board.Draw(line, i % 2 ? Qt::red : Qt::black, 0.03);
    }
    out << "9 points, " << leaf.GetPath(false)->elementCount() << " path elements, " << lines.size()
        << " micro lines\n";
}

void DrawTransforms(Board& board, QTextStream& out)
{
    const std::pair<const char*, std::function<bool(CShape&)>> transforms[] = {
        {"Offset(10, 4)", [](CShape& s) { return s.Offset(10, 4); }},
        {"Rotate(30, (20, 14))",
         [](CShape& s) {
             return s.Rotate(30, {20, 14}, Qt::ZAxis);
         }},
        {"Resize((6, 6) 36 x 10)",
         [](CShape& s) {
             return s.Resize({6, 6, 36, 10});
         }},
        {"MirrorX(22)", [](CShape& s) { return s.MirrorX(22); }},
        {"MirrorY(15)", [](CShape& s) { return s.MirrorY(15); }},
        {"MirrorFixedOrMovingLine((0, 0), (40, 30))",
         [](CShape& s) {
             return s.MirrorFixedOrMovingLine({0, 0}, {40, 30}, true);
         }},
    };
    for (const auto& [title, transform] : transforms) {
        CShapeVector leaf = Leaf();
        board.Next(title, kOrigin);
        board.Draw(*leaf.GetPath(false), Qt::gray, 0.2, Qt::DashLine);
        transform(leaf);
        board.Draw(*leaf.GetPath(false), Qt::black); // built anew from the points that the transform moved
        DrawPoints(board, leaf);
        const QRectF rect = leaf.GetRect(false);
        out << title << ": " << rect.left() << ' ' << rect.top() << ", " << rect.width() << " x " << rect.height()
            << '\n';
    }
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2)
        return 2;
    const QGuiApplication application(argc, argv);
    QTextStream out(stdout);
    Board board({58, 38}, 3, 9);
    DrawLayers(board, out);
    DrawTransforms(board, out);
    return board.Save(argv[1]);
}
