#include "panels/ArrayPanel.h"

#include "look/Look.h"

#include "document/Reach.h"
#include "group/ShapeArray.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>

#include <cmath>
#include <initializer_list>

namespace {

constexpr double kMostPerSide = 10'000; // cells
constexpr double kFarthest = 1e6;       // mm
constexpr int kMostShown = 30;          // cells of a side that can be checked one by one
constexpr double kNear = 1e-6;          // mm

QWidget* Pair(QDoubleSpinBox* first, QDoubleSpinBox* second)
{
    auto* pair = new QWidget;
    auto* row = new QHBoxLayout(pair);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(first);
    row->addWidget(second);
    return pair;
}

/// Where a cell lies from the first one (mm).
QPointF PlaceIn(const ArrayGrid& grid, const QSizeF& cell, int row, int column)
{
    return {column * (cell.width() + grid.columnGap) + (row % 2) * grid.rowShift,
            row * (cell.height() + grid.rowGap) + (column % 2) * grid.columnShift};
}

/// The grid with so many columns whose first cells lie as these do.
ArrayGrid GridWith(int columns, const QList<ShapeArrayInfo>& cells, const QSizeF& cell)
{
    ArrayGrid grid{int(cells.size()) / columns, columns, 0, 0, 0, 0};
    const QPointF first = cells[0].ptPos;
    if (columns > 1) {
        const QPointF next = cells[1].ptPos - first;
        grid.columnGap = next.x() - cell.width();
        grid.columnShift = next.y();
    }
    if (grid.rows > 1) {
        const QPointF below = cells[columns].ptPos - first;
        grid.rowShift = below.x();
        grid.rowGap = below.y() - cell.height();
    }
    return grid;
}

bool LiesIn(const ArrayGrid& grid, const QList<ShapeArrayInfo>& cells, const QSizeF& cell)
{
    for (int i = 0; i < int(cells.size()); ++i) {
        const QPointF off = cells[i].ptPos - cells[0].ptPos - PlaceIn(grid, cell, i / grid.columns, i % grid.columns);
        if (std::abs(off.x()) > kNear || std::abs(off.y()) > kNear)
            return false;
    }
    return true;
}

} // namespace

ArrayPanel::ArrayPanel(WorkDocument& document, QWidget* parent)
    : Panel(document, parent), m_rows(NumberBox(tr("Rows"), 1, kMostPerSide, 0, {})),
      m_columns(NumberBox(tr("Columns"), 1, kMostPerSide, 0, {})),
      m_columnGap(NumberBox(tr("Between columns"), -kFarthest, kFarthest, 2, tr(" mm"))),
      m_rowGap(NumberBox(tr("Between rows"), -kFarthest, kFarthest, 2, tr(" mm"))),
      m_rowShift(NumberBox(tr("Every other row to the right"), -kFarthest, kFarthest, 2, tr(" mm"))),
      m_columnShift(NumberBox(tr("Every other column down"), -kFarthest, kFarthest, 2, tr(" mm"))),
      m_cells(new QTableWidget), m_make(new QPushButton(look::Icon("object-array"), QString()))
{
    auto* form = new QFormLayout(this);
    form->setContentsMargins(6, 6, 6, 6);
    form->addRow(tr("R&ows"), m_rows);
    form->addRow(tr("Col&umns"), m_columns);
    form->addRow(tr("&Gaps"), Pair(m_columnGap, m_rowGap));
    form->addRow(tr("S&hifts"), Pair(m_rowShift, m_columnShift));
    form->addRow(m_cells);
    form->addRow(m_make);
    constexpr int kCell = 24, kTable = 130; // pixels
    m_cells->horizontalHeader()->hide();
    m_cells->verticalHeader()->hide();
    m_cells->horizontalHeader()->setDefaultSectionSize(kCell);
    m_cells->horizontalHeader()->setMinimumSectionSize(kCell);
    m_cells->verticalHeader()->setDefaultSectionSize(kCell);
    m_cells->setFixedHeight(kTable);
    m_cells->setAccessibleName(tr("Cells"));
    m_cells->setToolTip(tr("Cells without a check are left out"));
    ShowGrid({});
    connect(m_make, &QPushButton::clicked, this, &ArrayPanel::Apply);
    connect(m_cells, &QTableWidget::cellChanged, this, [this] {
        if (!Shows())
            Apply();
    });
}

CShapeArray* ArrayPanel::Selected()
{
    const auto& shapes = Document().Selection();
    return shapes.size() == 1 && shapes.front()->GetShapeType() == ESHAPE_ARRAY
               ? static_cast<CShapeArray*>(shapes.front())
               : nullptr;
}

std::optional<ArrayGrid> ArrayPanel::GridOf(CShapeArray& array)
{
    const QList<ShapeArrayInfo> cells = array.GetShapeArrayInfo();
    const QSizeF cell = array.GetRect(true).size();
    for (int columns = int(cells.size()); columns >= 1; --columns) {
        if (cells.size() % columns != 0)
            continue;
        if (const ArrayGrid grid = GridWith(columns, cells, cell); LiesIn(grid, cells, cell))
            return grid;
    }
    return std::nullopt;
}

ArrayGrid ArrayPanel::Fields() const
{
    return {int(m_rows->value()), int(m_columns->value()), m_columnGap->value(),
            m_rowGap->value(),    m_rowShift->value(),     m_columnShift->value()};
}

void ArrayPanel::ShowGrid(const ArrayGrid& grid)
{
    m_rows->setValue(grid.rows);
    m_columns->setValue(grid.columns);
    m_columnGap->setValue(grid.columnGap);
    m_rowGap->setValue(grid.rowGap);
    m_rowShift->setValue(grid.rowShift);
    m_columnShift->setValue(grid.columnShift);
}

void ArrayPanel::ShowCells()
{
    CShapeArray* array = Selected();
    const ArrayGrid grid = Fields();
    const bool shown = array && m_inGrid && grid.rows <= kMostShown && grid.columns <= kMostShown;
    m_cells->setVisible(shown);
    if (!shown)
        return;
    m_cells->setRowCount(grid.rows);
    m_cells->setColumnCount(grid.columns);
    const QList<ShapeArrayInfo> cells = array->GetShapeArrayInfo();
    for (int i = 0; i < int(cells.size()) && i < grid.rows * grid.columns; ++i) {
        auto* item = new QTableWidgetItem;
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        item->setCheckState(cells[i].bValid ? Qt::Checked : Qt::Unchecked);
        m_cells->setItem(i / grid.columns, i % grid.columns, item);
    }
}

void ArrayPanel::Renew()
{
    CShapeArray* array = Selected();
    setEnabled(!Document().Selection().empty());
    m_make->setText(array ? tr("Change &Array") : tr("Make &Array"));
    const auto grid = array ? GridOf(*array) : std::nullopt;
    m_inGrid = !array || grid;
    if (grid)
        ShowGrid(*grid);
    for (QWidget* field :
         std::initializer_list<QWidget*>{m_rows, m_columns, m_columnGap, m_rowGap, m_rowShift, m_columnShift, m_make})
        field->setEnabled(m_inGrid);
    m_make->setToolTip(m_inGrid ? QString() : tr("The cells of this array do not lie in rows and columns"));
    ShowCells();
}

void ArrayPanel::Apply()
{
    if (Selected())
        LayOut(Fields());
    else
        ArraySelection(Document(), Fields());
}

/// The cells of the new grid that stay left out: as they are checked where they are shown, else as the array has them.
std::vector<int> ArrayPanel::LeftOut(const ArrayGrid& grid)
{
    const QList<ShapeArrayInfo> cells = Selected()->GetShapeArrayInfo();
    const auto old = GridOf(*Selected());
    const bool shown = !m_cells->isHidden();
    std::vector<int> left;
    for (int i = 0; old && i < int(cells.size()); ++i) {
        const int row = i / old->columns, column = i % old->columns;
        const auto* item = shown ? m_cells->item(row, column) : nullptr;
        const bool isThere = item ? item->checkState() == Qt::Checked : cells[i].bValid != 0;
        if (!isThere && row < grid.rows && column < grid.columns)
            left.push_back(row * grid.columns + column);
    }
    return left;
}

/// Cells that are left out stay so where the new grid has them.
void ArrayPanel::LayOut(const ArrayGrid& grid)
{
    const std::vector<int> left = LeftOut(grid);
    Document().Change(tr("Array"), Document().Selection(), [&](CShape& shape) {
        auto& array = static_cast<CShapeArray&>(shape);
        array.SetArrayInfo(grid.rows, grid.columns, grid.columnGap, grid.rowGap, grid.rowShift, grid.columnShift);
        for (const int cell : left)
            array.SetInvalid(cell);
        return array.GetCount() > 0 && shapedocument::WithinReach(array.GetAllRect());
    });
    RenewSoon();
}
