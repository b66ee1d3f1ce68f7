#include "panels/ArrayPanel.h"

#include "look/Look.h"

#include "document/Reach.h"
#include "group/CellLimit.h"
#include "group/ShapeArray.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>

#include <algorithm>
#include <initializer_list>

using shapedocument::kFarthest;
using shapes::kMostCellsPerSide;

namespace {

constexpr int kMostShown = 30; // cells along a side up to which single cells are shown

QWidget* Pair(QDoubleSpinBox* first, QDoubleSpinBox* second)
{
    auto* pair = new QWidget;
    auto* row = new QHBoxLayout(pair);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(first);
    row->addWidget(second);
    return pair;
}

} // namespace

ArrayPanel::ArrayPanel(WorkDocument& document, QWidget* parent)
    : Panel(document, parent), m_rows(NumberBox(tr("Rows"), 1, kMostCellsPerSide, 0)),
      m_columns(NumberBox(tr("Columns"), 1, kMostCellsPerSide, 0)),
      m_columnGap(LengthField(tr("Between columns"), -kFarthest, kFarthest, 3)),
      m_rowGap(LengthField(tr("Between rows"), -kFarthest, kFarthest, 3)),
      m_rowShift(LengthField(tr("Every other row to the right"), -kFarthest, kFarthest, 3)),
      m_columnShift(LengthField(tr("Every other column down"), -kFarthest, kFarthest, 3)), m_cells(new QTableWidget),
      m_make(new QPushButton(look::Icon("object-array"), QString()))
{
    auto* form = new QFormLayout(this);
    form->setContentsMargins(6, 6, 6, 6);
    form->addRow(tr("&Rows"), m_rows);
    form->addRow(tr("Col&umns"), m_columns);
    form->addRow(tr("&Gaps"), Pair(m_columnGap, m_rowGap));
    form->addRow(tr("Shifts"), Pair(m_rowShift, m_columnShift));
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

ArrayGrid ArrayPanel::Fields() const
{
    return {int(m_rows->value()),    int(m_columns->value()),   m_columnGap->Millimetres(),
            m_rowGap->Millimetres(), m_rowShift->Millimetres(), m_columnShift->Millimetres()};
}

void ArrayPanel::ShowGrid(const ArrayGrid& grid)
{
    m_rows->setValue(grid.rows);
    m_columns->setValue(grid.columns);
    m_columnGap->SetMillimetres(grid.columnGap);
    m_rowGap->SetMillimetres(grid.rowGap);
    m_rowShift->SetMillimetres(grid.rowShift);
    m_columnShift->SetMillimetres(grid.columnShift);
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
    const ArrayGrid grid = Fields();
    if (Selected())
        ChangeArrays(Document(), grid, LeftOut(grid));
    else
        ArraySelection(Document(), grid);
    RenewSoon();
}

/// The left out cells of the new grid: the unchecked ones if cells are shown, else those of the array.
std::vector<int> ArrayPanel::LeftOut(const ArrayGrid& grid)
{
    if (m_cells->isHidden())
        return LeftOutIn(grid, *Selected());
    std::vector<int> left;
    for (int row = 0; row < std::min(grid.rows, m_cells->rowCount()); ++row)
        for (int column = 0; column < std::min(grid.columns, m_cells->columnCount()); ++column)
            if (const auto* item = m_cells->item(row, column); item && item->checkState() != Qt::Checked)
                left.push_back(row * grid.columns + column);
    return left;
}
