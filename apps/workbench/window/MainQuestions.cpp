/// The numbers that entries of MainWindow's menus ask for.
#include "window/MainWindow.h"

#include "document/Questions.h"
#include "edits/Structure.h"
#include "edits/Transforms.h"

#include "document/Reach.h"
#include "group/CellLimit.h"

#include <QSettings>

using shapedocument::kFarthest;
using shapes::kMostCellsPerSide;

void MainWindow::AskArray()
{
    const ArrayGrid grid;
    const auto numbers = m_questions.AskNumbers(
        tr("Array"), {{tr("Rows"), double(grid.rows), 1, kMostCellsPerSide, 0},
                      {tr("Columns"), double(grid.columns), 1, kMostCellsPerSide, 0},
                      {tr("Gap between columns"), grid.columnGap, -kFarthest, kFarthest, 3, true},
                      {tr("Gap between rows"), grid.rowGap, -kFarthest, kFarthest, 3, true},
                      {tr("Shift of every other row"), grid.rowShift, -kFarthest, kFarthest, 3, true},
                      {tr("Shift of every other column"), grid.columnShift, -kFarthest, kFarthest, 3, true}});
    if (numbers)
        ArraySelection(m_document, {int((*numbers)[0]), int((*numbers)[1]), (*numbers)[2], (*numbers)[3], (*numbers)[4],
                                    (*numbers)[5]});
}

void MainWindow::AskTurn()
{
    const auto numbers = m_questions.AskNumbers(tr("Turn"), {{tr("Degrees, clockwise"), 45, -360, 360, 3}});
    if (numbers)
        TurnSelection(m_document, numbers->front(), m_canvas->SelectionRect().center());
}

void MainWindow::AskMirror()
{
    const QRectF rect = m_canvas->SelectionRect();
    const auto numbers =
        m_questions.AskNumbers(tr("Mirror Across Line"), {{tr("From x"), rect.left(), -kFarthest, kFarthest, 3, true},
                                                          {tr("From y"), rect.bottom(), -kFarthest, kFarthest, 3, true},
                                                          {tr("To x"), rect.right(), -kFarthest, kFarthest, 3, true},
                                                          {tr("To y"), rect.bottom(), -kFarthest, kFarthest, 3, true}});
    if (numbers)
        MirrorSelectionAcross(m_document, {(*numbers)[0], (*numbers)[1], (*numbers)[2], (*numbers)[3]});
}

void MainWindow::AskBed()
{
    const QRectF bed = m_canvas->Bed();
    const auto numbers = m_questions.AskNumbers(tr("Bed Size"), {{tr("Width"), bed.width(), 1, kFarthest, 1, true},
                                                                 {tr("Height"), bed.height(), 1, kFarthest, 1, true}});
    if (!numbers)
        return;
    m_canvas->SetBed({0, 0, (*numbers)[0], (*numbers)[1]});
    QSettings().setValue("bed", m_canvas->Bed());
    m_canvas->FitBed();
}
