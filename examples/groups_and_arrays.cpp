// Groups and arrays as a picture: the frame and the outline of a group, the cells of an array.
#include "Board.h"

#include "group/ShapeArray.h"
#include "list/ShapeListOwner.h"
#include "vector/ShapeVector.h"

#include <QGuiApplication>
#include <QTextStream>

#include <memory>

namespace {

CShape* NewShape(EVECTOR_TYPE type, const QRectF& rect)
{
    auto* shape = new CShapeVector;
    shape->SetVectorType(type);
    if (type == EVECTOR_RECT)
        shape->SetShapeRect(rect);
    else
        shape->SetShapeEllipse(rect);
    return shape;
}

void AddTag(CShapeList& members)
{
    members.AddTail(NewShape(EVECTOR_RECT, {4, 4, 14, 8})); // the list owns it from then on
    members.AddTail(NewShape(EVECTOR_ELLIPSE, {6, 6, 4, 4}));
}

void DrawGroup(Board& board, QTextStream& out)
{
    CShapeGroup group;
    AddTag(*group.GetShapeList()); // the group owns its members
    group.Rotate(20, {11, 8}, Qt::ZAxis);
    board.Next("a group after Rotate: its path is a frame");
    board.Painter().scale(2.5, 2.5);
    board.Draw(*group.GetPath(false), Qt::black, 0.15);
    out << "frame of " << group.GetPath(false)->elementCount() << " elements, ";
    group.UpdatePainterPath();
    board.Next("after UpdatePainterPath: the members");
    board.Painter().scale(2.5, 2.5);
    board.Draw(*group.GetPath(false), Qt::black, 0.15);
    out << "outline of " << group.GetPath(false)->elementCount() << '\n';
}

void DrawCells(Board& board, CShapeArray& array)
{
    const QList<ShapeArrayInfo> cells = array.GetShapeArrayInfo();
    for (int i = 0; i < cells.size(); ++i) {
        QPainterPath frame;
        frame.addRect(array.GetRect(i).adjusted(-0.7, -0.7, 0.7, 0.7)); // around the cell, to be seen
        board.Draw(frame, !cells[i].bValid ? Qt::lightGray : cells[i].bSelect ? Qt::red : Qt::blue, 0.2, Qt::DashLine);
        board.Say(QString::number(i), array.GetRect(i).bottomRight() - QPointF(4, 1), Qt::gray);
        if (cells[i].bValid)
            board.Draw(array.GetPath(i), Qt::black);
    }
}

void DrawArray(Board& board, QTextStream& out)
{
    CShapeArray array;
    AddTag(*array.GetShapeList());
    array.SetArrayInfo(3, 3, 2, 3, 6, 0); // rows, columns, gaps across and down, odd rows 6 mm further right
    array.SelectByRect({20, 4, 14, 8}, false);
    array.SetInvalid(8); // no other cell changes its number
    board.Next("an array: cell 1 selected, cell 8 deleted");
    DrawCells(board, array);
    out << array.GetCount() << " of " << array.GetShapeArrayInfo().size() << " cells, ";
    const ShapeListOwner all(array.GetAllShapeList()); // copies, the caller's
    out << all->GetCount() << " shapes\n";
    array.DeleteSelect();
    array.Rotate(-90, array.GetAllRect().center(), Qt::ZAxis);
    board.Next("DeleteSelect, then Rotate(-90) about the centre", {0, -10});
    DrawCells(board, array);
}

} // namespace

int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    if (argc != 2)
        return 2;
    QTextStream out(stdout);
    Board board({62, 58}, 2, 4);
    DrawGroup(board, out);
    DrawArray(board, out);
    return board.Save(argv[1]);
}
