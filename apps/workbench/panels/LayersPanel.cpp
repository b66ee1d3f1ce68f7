#include "panels/LayersPanel.h"

#include "document/ListEntries.h"
#include "document/Questions.h"
#include "look/Buttons.h"
#include "look/LengthUnit.h"
#include "look/Look.h"

#include "document/ShapeWalk.h"
#include "machine/GcodeOptions.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QSignalBlocker>
#include <QTableWidget>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <array>
#include <map>

using namespace shapedocument;

namespace {

enum Column
{
    kColor,
    kFeed,
    kPower,
    kPasses,
    kColumns
};

constexpr std::array<unsigned int, 16> kPalette{0x000000, 0xD32F2F, 0x1976D2, 0x388E3C, 0xF57C00, 0x7B1FA2,
                                                0x00838F, 0xC2185B, 0x5D4037, 0xFF0000, 0x0000FF, 0x00A000,
                                                0xFFC107, 0xAB47BC, 0x00BCD4, 0x757575};

QString NameOf(unsigned int color)
{
    return QString("#%1").arg(color, 6, 16, QChar('0'));
}

/// One unit of a column's display, in stored units.
double UnitOf(int column)
{
    return column == kFeed ? look::LengthUnit::Shown().Millimetres() : 1;
}

/// The setting's number in the column, in stored units; nothing where it is not set.
std::optional<double> NumberOf(const ColorSetting& setting, int column)
{
    switch (column) {
    case kFeed:
        return setting.feed;
    case kPower:
        return setting.power;
    default:
        return setting.passes ? std::optional<double>(*setting.passes) : std::nullopt;
    }
}

QString CellText(const ColorSetting& setting, int column)
{
    constexpr int kDigits = 10, kInchDigits = 5;
    const std::optional<double> number = NumberOf(setting, column);
    const double unit = UnitOf(column);
    return number ? QString::number(*number / unit, 'g', unit == 1 ? kDigits : kInchDigits) : QString();
}

/// An empty text removes the number. @return false where the text is not a number within bounds
bool SetNumber(ColorSetting& setting, int column, const QString& text)
{
    struct Bounds
    {
        double least, most;
    };
    const Bounds bounds = column == kFeed    ? Bounds{kLeastFeed, kMostFeed}
                          : column == kPower ? Bounds{0, kMostPower}
                                             : Bounds{1, kMostPasses};
    bool isNumber = false;
    const double number = text.toDouble(&isNumber) * UnitOf(column);
    const auto taken = isNumber ? std::optional(number) : std::nullopt;
    if (!text.isEmpty() && !(isNumber && number >= bounds.least && number <= bounds.most))
        return false;
    if (column == kFeed)
        setting.feed = taken;
    else if (column == kPower)
        setting.power = taken;
    else
        setting.passes = taken ? std::optional(static_cast<int>(number)) : std::nullopt;
    return true;
}

} // namespace

LayersPanel::LayersPanel(WorkDocument& document, QWidget* parent)
    : Panel(document, parent), m_table(new QTableWidget(0, kColumns))
{
    m_table->setHorizontalHeaderLabels({tr("Colour"), tr("Feed"), tr("Power"), tr("Passes")});
    m_table->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    m_table->horizontalHeader()->setSectionResizeMode(kColor, QHeaderView::ResizeToContents);
    constexpr int kRow = 24; // pixels
    m_table->verticalHeader()->hide();
    m_table->verticalHeader()->setMinimumSectionSize(kRow);
    m_table->verticalHeader()->setDefaultSectionSize(kRow);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_table->setShowGrid(false);
    m_table->setAlternatingRowColors(true);
    m_table->setTabKeyNavigation(false);
    m_table->setAccessibleName(tr("Layers"));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(6, 6, 6, 6);
    column->addWidget(MakePalette());
    column->addWidget(MakeDrawColor());
    column->addWidget(m_table, 1);
    column->addWidget(MakeButtons());
    connect(m_table, &QTableWidget::cellChanged, this, &LayersPanel::ApplyCell);
    connect(m_table, &QTableWidget::cellDoubleClicked, this, [this](int, int clicked) {
        if (clicked == kColor)
            SelectShapes();
    });
    connect(m_table, &QTableWidget::cellClicked, this, &LayersPanel::ChooseLayer);
    connect(m_table, &QTableWidget::currentCellChanged, this, &LayersPanel::ChooseLayer);
    connect(&document.Layers(), &ColorLayers::Changed, this, &LayersPanel::RenewSoon);
}

QWidget* LayersPanel::MakePalette()
{
    constexpr int kPerRow = 8, kIcon = 20; // colours, pixels
    auto* palette = new QWidget;
    auto* grid = new QGridLayout(palette);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(0);
    for (int i = 0; i < int(kPalette.size()); ++i) {
        const unsigned int color = kPalette.at(static_cast<size_t>(i));
        QToolButton* button =
            look::IconButton("", tr("Colour the selection, or what is drawn next, %1").arg(NameOf(color)));
        button->setIcon(look::Swatch(color));
        button->setIconSize({kIcon, kIcon});
        connect(button, &QToolButton::clicked, this, [this, color] { Paint(color); });
        grid->addWidget(button, i / kPerRow, i % kPerRow);
    }
    grid->setColumnStretch(kPerRow, 1);
    return palette;
}

/// A line with the colour of what is drawn next.
QWidget* LayersPanel::MakeDrawColor()
{
    constexpr int kIcon = 16; // pixels
    auto* line = new QWidget;
    auto* row = new QHBoxLayout(line);
    row->setContentsMargins(0, 0, 0, 0);
    auto* swatch = new QLabel;
    auto* words = new QLabel;
    row->addWidget(swatch);
    row->addWidget(words, 1);
    const auto show = [this, swatch, words] {
        swatch->setPixmap(look::Swatch(Document().DrawColor()).pixmap(kIcon));
        words->setText(tr("Drawn next: %1").arg(NameOf(Document().DrawColor())));
    };
    connect(&Document(), &WorkDocument::DrawColorChanged, line, show);
    show();
    return line;
}

QWidget* LayersPanel::MakeButtons()
{
    auto* buttons = new QWidget;
    auto* row = new QHBoxLayout(buttons);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(2);
    const auto add = [&](const char* icon, const QString& name, const std::function<void()>& done) {
        QToolButton* button = look::IconButton(icon, name);
        connect(button, &QToolButton::clicked, this, done);
        row->addWidget(button);
    };
    add("object-order-raise", tr("Do this layer earlier"), [this] { MoveRow(-1); });
    add("object-order-lower", tr("Do this layer later"), [this] { MoveRow(1); });
    add("edit-select-all", tr("Select the layer's shapes"), [this] { SelectShapes(); });
    row->addStretch();
    return buttons;
}

std::vector<std::pair<unsigned int, size_t>> LayersPanel::ColorsOf(CShapeList& shapes, const ColorLayers& layers)
{
    std::map<unsigned int, size_t> counts;
    ForEachShape(shapes, [&counts](CShape& shape, int) {
        if (!MembersOf(shape))
            ++counts[shape.GetColor() & 0xFFFFFFU];
    });
    std::vector<std::pair<unsigned int, size_t>> colors(counts.begin(), counts.end());
    std::ranges::stable_sort(colors, {},
                             [&](const auto& entry) { return SettingOf(layers.Settings(), entry.first).order; });
    return colors;
}

unsigned int LayersPanel::ColorAt(int row) const
{
    return m_table->item(row, kColor)->data(Qt::UserRole).toUInt();
}

void LayersPanel::ShowRow(int row, unsigned int color, size_t count)
{
    const ColorSetting setting = SettingOf(Document().Layers().Settings(), color);
    for (int column = 0; column < kColumns; ++column) {
        auto* item = new QTableWidgetItem(column == kColor ? tr("%1 (%2)").arg(NameOf(color)).arg(count)
                                                           : CellText(setting, column));
        if (column == kColor) {
            item->setIcon(look::Swatch(color));
            item->setData(Qt::UserRole, color);
            item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
        }
        m_table->setItem(row, column, item);
    }
}

void LayersPanel::Renew()
{
    m_table->setToolTip(tr("Feed in %1, power as the firmware counts it; empty: as the job's settings say")
                            .arg(look::LengthUnit::Shown().FeedName()));
    const int current = m_table->currentRow();
    const auto colors = ColorsOf(Document().Shapes(), Document().Layers());
    m_table->setRowCount(int(colors.size()));
    for (int row = 0; row < int(colors.size()); ++row)
        ShowRow(row, colors[static_cast<size_t>(row)].first, colors[static_cast<size_t>(row)].second);
    m_table->setCurrentCell(std::min(current, m_table->rowCount() - 1), kColor);
}

/// Of the selection; of what is drawn next when nothing is selected.
void LayersPanel::Paint(unsigned int color)
{
    if (Document().Selection().empty())
        return Document().SetDrawColor(color);
    Document().Change(tr("Colour"), Document().Selection(), [color](CShape& shape) {
        shape.SetColor(color);
        return true;
    });
}

/// A text that is not a number within bounds is refused: the cell shows the present value again.
void LayersPanel::ApplyCell(int row, int column)
{
    if (Shows() || column == kColor)
        return;
    ColorSetting setting = SettingOf(Document().Layers().Settings(), ColorAt(row));
    const QString text = m_table->item(row, column)->text().trimmed();
    if (text != CellText(setting, column)) { // unchanged texts are skipped: they may be rounded
        if (!SetNumber(setting, column, text))
            Document().Ask().Tell(tr("%1 is no number that is possible here").arg(text));
        Document().Layers().Set(ColorAt(row), setting);
    }
    RenewSoon();
}

void LayersPanel::MoveRow(int by)
{
    const int row = m_table->currentRow(), to = row + by;
    if (row < 0 || to < 0 || to >= m_table->rowCount())
        return;
    std::vector<unsigned int> colors;
    for (int i = 0; i < m_table->rowCount(); ++i)
        colors.push_back(ColorAt(i));
    std::swap(colors[static_cast<size_t>(row)], colors[static_cast<size_t>(to)]);
    const QSignalBlocker moving(m_table); // the line is the same one
    m_table->setCurrentCell(to, kColor);
    Document().Layers().SetOrder(colors);
}

/// When nothing is selected, what is drawn next belongs to that layer.
void LayersPanel::ChooseLayer(int row, int column)
{
    if (!Shows() && row >= 0 && column == kColor && Document().Selection().empty())
        Document().SetDrawColor(ColorAt(row));
}

void LayersPanel::SelectShapes()
{
    if (m_table->currentRow() < 0)
        return;
    const unsigned int color = ColorAt(m_table->currentRow());
    std::vector<CShape*> shapes = EntriesOf(Document().Shapes());
    std::erase_if(shapes, [color](CShape* shape) { return (shape->GetColor() & 0xFFFFFFU) != color; });
    Document().Select(std::move(shapes));
    if (Document().Selection().empty())
        Document().Ask().Tell(tr("What has this colour lies in groups and arrays, is locked or hidden"));
}
